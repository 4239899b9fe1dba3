#include <cmath>

#include "ZorGeometryMeasure.h"
#include "distance/line_function.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::distance::LineFunction;
using zor::elementary::NearestPart;
using zor::elementary::NearestPoint;
using zor::elementary::SegmentPart;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

NearestPoint FartherEnd(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  const double to_a = elementary::Distance(p, a);
  const double to_b = elementary::Distance(p, b);
  return to_a > to_b ? NearestPoint{to_a, a} : NearestPoint{to_b, b};
}

long NearestOnSegment(ZorGeometryMeasure& measure, const ZorPoint& p, const ZorPoint& a,
                      const ZorPoint& b, bool wants_point, NearestPoint* found) {
  const NearestPart nearest = elementary::PartNearestTo(p, a, b);
  if (nearest.part != SegmentPart::kFoot) {
    *found = {nearest.distance, nearest.part == SegmentPart::kStart ? a : b};
    return GM_OK;
  }
  found->point = a;  // stays where the segment is too short to project on
  if (wants_point || IsTracing()) {
    const long status = measure.PerpendicularProjection(p, a, b, &found->point);
    if (status != GM_OK) return status;
  }
  return measure.PointTolineDistance(p, a, b, &found->distance);
}

}  // namespace

long ZorGeometryMeasure::PointToSegmentDistance(ZorPoint& point, ZorPoint& segStart,
                                                ZorPoint& segEnd, int mode, double* distance,
                                                ZorPoint* resultPoint) {
  Trace trace("PointToSegmentDistance");
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  if (!IsMode(mode, 2)) return GM_E_PARAM_4;
  NearestPoint found;
  if (mode == 0) {
    const long status =
        NearestOnSegment(*this, point, segStart, segEnd, resultPoint != nullptr, &found);
    if (status != GM_OK) return status;
  } else if (mode == 1) {
    found = FartherEnd(point, segStart, segEnd);
  } else {
    const ZorPoint middle = elementary::Midpoint(segStart, segEnd);
    found = {elementary::Distance(point, middle), middle};
  }
  Store(resultPoint, elementary::WithoutNegativeZeros(found.point));
  Store(distance, found.distance);
  return trace.Done();
}

long ZorGeometryMeasure::SegmentToLineDistance(ZorPoint& segStart, ZorPoint& segEnd,
                                               ZorPoint& lineStart, ZorPoint& lineEnd, int mode,
                                               ZorPoint* resultPoint, double* distance) {
  Trace trace("SegmentToLineDistance");
  if (IsDegenerate(lineStart, lineEnd) || IsDegenerate(segStart, segEnd)) {
    return GM_E_DEGENERATE_LINE;
  }
  if (!IsMode(mode, 1)) return GM_E_PARAM_5;
  const LineFunction f(lineStart, lineEnd);
  const double f1 = f(segStart);
  const double f2 = f(segEnd);
  const double length = std::hypot(f.a, f.b);
  const bool is_end_farther = std::fabs(f2) > std::fabs(f1);
  NearestPoint found;
  if (mode == 1) {
    found = is_end_farther ? NearestPoint{std::fabs(f2) / length, segEnd}
                           : NearestPoint{std::fabs(f1) / length, segStart};
  } else if (f1 * f2 < 0.0) {
    const long status = LinesIntersection(segStart, segEnd, lineStart, lineEnd, &found.point);
    if (status != GM_OK) return status;
  } else {
    found = is_end_farther ? NearestPoint{std::fabs(f1) / length, segStart}
                           : NearestPoint{std::fabs(f2) / length, segEnd};
  }
  Store(resultPoint, found.point);
  Store(distance, found.distance);
  return trace.Done();
}
