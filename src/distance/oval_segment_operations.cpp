#include <cmath>

#include "ZorGeometryMeasure.h"
#include "distance/oval_arguments.h"
#include "distance/oval_segment_kernels.h"
#include "distance/point_pair.h"
#include "distance/store_pair.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::OvalArguments;
using zor::distance::OvalSegments;
using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Trace;
namespace distance = zor::distance;

namespace {

/// The operations that the distances of a segment consist of, for their records.
void RecordParts(ZorGeometryMeasure& measure, const ZorPoint& start, const ZorPoint& end,
                 OvalArguments in, const OvalSegments& oval) {
  const ZorPoint s = oval.ToLocal(start);
  const ZorPoint e = oval.ToLocal(end);
  for (const ZorPoint& tangent : distance::OvalTangentPoints(e - s, oval.A(), oval.B())) {
    static_cast<void>(measure.PerpendicularProjection(tangent, s, e, nullptr));
    static_cast<void>(measure.PointTolineDistance(tangent, s, e, nullptr));
  }
  const auto record = [&](ZorPoint p) {
    static_cast<void>(
        measure.PointToOvalDistance(p, in.centre, in.a, in.b, in.angle_deg, nullptr, nullptr));
  };
  record(start);
  record(end);
  const auto inner = oval.InnerPoints(start, end);
  for (const ZorPoint& p : inner.View()) record(p);
}

/// The pair with its distance unsigned.
PointPair Unsigned(const PointPair& pair) {
  return {std::fabs(pair.distance), pair.own, pair.figure};
}

struct MinAndMax {
  PointPair min;
  PointPair max;
};

MinAndMax MeasureSegment(ZorGeometryMeasure& measure, const ZorPoint& start, const ZorPoint& end,
                         const OvalArguments& in) {
  const OvalSegments oval(in.centre, in.a, in.b, in.angle_deg);
  if (IsTracing()) RecordParts(measure, start, end, in, oval);
  const auto spot = [&](const ZorPoint& p) {
    const distance::OvalFoot foot = oval.Points().FootOf(p);
    return distance::OvalSpot{foot.distance, p, foot.nearest};
  };
  const distance::OvalSpots spots = oval.Measure(spot(start), spot(end));
  return {Unsigned(oval.PairOf(spots.nearest)), Unsigned(oval.PairOf(spots.farthest))};
}

}  // namespace

long ZorGeometryMeasure::LineSegmentToOvalDistance(ZorPoint& segStart, ZorPoint& segEnd,
                                                   ZorPoint& centre, double a, double b,
                                                   double angleDeg, double* /*distance*/,
                                                   ZorPoint* /*segmentPoint*/,
                                                   ZorPoint* /*ovalPoint*/) {
  // Deliberate: what is found is discarded and no argument refused; kept for the interface's sake,
  // hosts call it and expect no output.
  ZorPointArray discarded;
  static_cast<void>(
      LineSegmentOvalIntersection(segStart, segEnd, centre, a, b, angleDeg, &discarded));
  return GM_OK;
}

long ZorGeometryMeasure::LineSegmentToOvalDistance(
    ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a, double b, double angleDeg,
    double* minDistance, ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint, double* maxDistance,
    ZorPoint* maxSegmentPoint, ZorPoint* maxOvalPoint) {
  Trace trace("LineSegmentToOvalDistance");
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  const OvalArguments oval{centre, a, b, angleDeg};
  if (const long status = oval.Check(); status != GM_OK) return status;
  const MinAndMax found = MeasureSegment(*this, segStart, segEnd, oval);
  StorePair(found.min, minDistance, minSegmentPoint, minOvalPoint);
  StorePair(found.max, maxDistance, maxSegmentPoint, maxOvalPoint);
  return trace.Done();
}

long ZorGeometryMeasure::LineSegmentToOvalDistance2(
    ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a, double b, double angleDeg,
    double* minDistance, ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint, double* maxDistance,
    ZorPoint* maxSegmentPoint, ZorPoint* maxOvalPoint) {
  Trace trace("LineSegmentToOvalDistance2");
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  const OvalArguments oval{centre, a, b, angleDeg};
  if (const long status = oval.Check(); status != GM_OK) return status;
  const MinAndMax found = MeasureSegment(*this, segStart, segEnd, oval);
  StorePair(found.min, minDistance, minSegmentPoint, minOvalPoint);
  StorePair(found.max, maxDistance, maxSegmentPoint, maxOvalPoint);
  return trace.Done();
}
