#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "distance/extremes.h"
#include "distance/oval_arguments.h"
#include "distance/oval_kernels.h"
#include "distance/oval_segment_kernels.h"
#include "distance/point_pair.h"
#include "distance/store_pair.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::Extremes;
using zor::distance::OvalArguments;
using zor::distance::OvalMeasure;
using zor::distance::OvalSegments;
using zor::distance::OvalSpot;
using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Trace;
namespace distance = zor::distance;

namespace {

inline constexpr std::size_t kChunk = 256;  // distances on the stack

// The nested operations are called for their records alone.

void RecordPoint(ZorGeometryMeasure& measure, ZorPoint p, OvalArguments oval) {
  static_cast<void>(measure.PointToOvalDistance(p, oval.centre, oval.a, oval.b, oval.angle_deg,
                                                nullptr, nullptr));
}

void RecordSegment(ZorGeometryMeasure& measure, ZorPoint start, ZorPoint end, OvalArguments oval) {
  static_cast<void>(measure.LineSegmentToOvalDistance(start, end, oval.centre, oval.a, oval.b,
                                                      oval.angle_deg, nullptr, nullptr, nullptr,
                                                      nullptr, nullptr, nullptr));
}

Extremes ExtremesOf(const OvalMeasure& oval, std::span<const ZorPoint> points) {
  std::array<double, kChunk> distances;
  Extremes extremes;
  for (std::size_t first = 0; first < points.size(); first += kChunk) {
    const std::size_t count = std::min(kChunk, points.size() - first);
    oval.DistancesOf(points.subspan(first, count), std::span(distances).first(count));
    for (std::size_t i = 0; i < count; ++i) extremes.Add(first + i, distances[i]);
  }
  return extremes;
}

/// The spot with the least of the least signed distances along the segments of a polyline; that of
/// its first point where it has no segment with a direction.
OvalSpot LeastAlong(std::span<const ZorPoint> points, std::span<const double> distances,
                    const OvalSegments& oval) {
  OvalSpot least{distances[0], points[0], {}};
  bool is_first = true;
  std::size_t start = 0;  // of the segment to the next point that gives it a direction
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (IsDegenerate(points[start], points[i])) continue;
    const OvalSpot candidate =
        oval.Measure({distances[start], points[start], {}}, {distances[i], points[i], {}}).Least();
    if (is_first || candidate.distance < least.distance) least = candidate;
    is_first = false;
    start = i;
  }
  return least;
}

PointPair PairOf(const OvalMeasure& oval, const ZorPoint& p) {
  const distance::OvalFoot foot = oval.FootOf(p);
  return {foot.distance, p, foot.nearest};
}

}  // namespace

long ZorGeometryMeasure::PointArrayToOvalDistance(ZorPointArray& points, ZorPoint& centre, double a,
                                                  double b, double angleDeg,
                                                  ZorPoint* minArrayPoint, ZorPoint* minOvalPoint,
                                                  double* minDistance, ZorPoint* maxArrayPoint,
                                                  ZorPoint* maxOvalPoint, double* maxDistance) {
  Trace trace("PointArrayToOvalDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  const OvalArguments arguments{centre, a, b, angleDeg};
  if (const long status = arguments.Check(); status != GM_OK) return status;
  const ZorPointView all = points.View();
  if (IsTracing()) {
    for (const ZorPoint& p : all) RecordPoint(*this, p, arguments);
  }
  const OvalMeasure oval(centre, a, b, angleDeg);
  const Extremes extremes = ExtremesOf(oval, all);
  const PointPair min = PairOf(oval, all[extremes.Least().index]);
  const PointPair max = PairOf(oval, all[extremes.Greatest().index]);
  StorePair(min, minDistance, minArrayPoint, minOvalPoint);
  StorePair(max, maxDistance, maxArrayPoint, maxOvalPoint);
  return trace.Done();
}

long ZorGeometryMeasure::OvalToContourDistance(ZorContour& contour, ZorPoint& centre, double a,
                                               double b, double angleDeg, ZorVarArray* distances,
                                               ZorPoint* minContourPoint, ZorPoint* minOvalPoint,
                                               double* minDistance, ZorPoint* maxContourPoint,
                                               ZorPoint* maxOvalPoint, double* maxDistance) {
  Trace trace("OvalToContourDistance");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  const OvalArguments arguments{centre, a, b, angleDeg};
  if (const long status = arguments.Check(); status != GM_OK) return status;
  const ZorPointView points = contour.View();
  if (IsTracing()) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      RecordPoint(*this, points[i], arguments);
      if (IsDegenerate(points[start], points[i])) continue;
      RecordSegment(*this, points[start], points[i], arguments);
      start = i;
    }
  }
  const OvalSegments oval(centre, a, b, angleDeg);
  std::vector<double> of_vertices(points.size());
  oval.Points().DistancesOf(points, of_vertices);
  Extremes extremes;
  for (std::size_t i = 0; i < points.size(); ++i) extremes.Add(i, of_vertices[i]);
  PointPair min;
  if (minContourPoint != nullptr || minOvalPoint != nullptr || minDistance != nullptr) {
    min = oval.PairOf(LeastAlong(points, of_vertices, oval));
  }
  const PointPair max = PairOf(oval.Points(), points[extremes.Greatest().index]);
  StorePair(min, minDistance, minContourPoint, minOvalPoint);
  StorePair(max, maxDistance, maxContourPoint, maxOvalPoint);
  if (distances != nullptr) {
    distances->Assign(std::vector<ZorVar>(of_vertices.begin(), of_vertices.end()));
  }
  return trace.Done();
}
