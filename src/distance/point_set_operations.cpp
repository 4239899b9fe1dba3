#include <span>

#include "ZorGeometryMeasure.h"
#include "elementary/line_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::elementary::NearestPoint;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

// The distances of the nested operations, which are called for their records alone.

double LineDistance(ZorGeometryMeasure& measure, const ZorPoint& p, const ZorPoint& a,
                    const ZorPoint& b) {
  if (IsTracing()) static_cast<void>(measure.PointTolineDistance(p, a, b, nullptr));
  return elementary::PointToLine(p, a, b);
}

double SegmentDistance(ZorGeometryMeasure& measure, ZorPoint p, ZorPoint a, ZorPoint b) {
  if (IsTracing()) {
    static_cast<void>(measure.PointToSegmentDistance(p, a, b, 0, nullptr, nullptr));
  }
  return elementary::PointToSegment(p, a, b);
}

}  // namespace

long ZorGeometryMeasure::PointsToLineDistance(ZorPointArray& points, ZorPoint& lineStart,
                                              ZorPoint& lineEnd, ZorPoint* minPoint,
                                              double* minDistance, ZorPoint* maxPoint,
                                              double* maxDistance) {
  Trace trace("PointsToLineDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (IsDegenerate(lineStart, lineEnd)) return GM_E_DEGENERATE_LINE;
  const bool wants_min = minPoint != nullptr || minDistance != nullptr;
  const bool wants_max = maxPoint != nullptr || maxDistance != nullptr;
  NearestPoint nearest;
  NearestPoint farthest;
  if (wants_min || wants_max) {
    nearest = {LineDistance(*this, points[0], lineStart, lineEnd), points[0]};
    farthest = nearest;
  }
  // Deliberate: further points are measured for the minimum only, so that a call for the maximum
  // alone reports the first point. Hosts that need the maximum ask for a minimum output too.
  const std::span<const ZorPoint> all = points.View();
  for (const ZorPoint& p : all.subspan(wants_min ? 1 : all.size())) {
    const double d = LineDistance(*this, p, lineStart, lineEnd);
    if (nearest.distance > d) nearest = {d, p};
    if (wants_max && d > farthest.distance) farthest = {d, p};
  }
  Store(minPoint, nearest.point);
  Store(minDistance, nearest.distance);
  Store(maxPoint, farthest.point);
  Store(maxDistance, farthest.distance);
  return trace.Done();
}

long ZorGeometryMeasure::PointsToSegmentDistance(ZorPointArray& points, ZorPoint& segStart,
                                                 ZorPoint& segEnd, ZorPoint* minPoint,
                                                 double* minDistance, ZorPoint* maxPoint,
                                                 double* maxDistance) {
  Trace trace("PointsToSegmentDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  NearestPoint nearest{SegmentDistance(*this, points[0], segStart, segEnd), points[0]};
  NearestPoint farthest = nearest;
  for (const ZorPoint& p : std::span<const ZorPoint>(points.View()).subspan(1)) {
    const double d = SegmentDistance(*this, p, segStart, segEnd);
    if (nearest.distance > d) nearest = {d, p};
    if (d > farthest.distance) farthest = {d, p};
  }
  Store(minPoint, nearest.point);
  Store(minDistance, nearest.distance);
  Store(maxPoint, farthest.point);
  Store(maxDistance, farthest.distance);
  return trace.Done();
}
