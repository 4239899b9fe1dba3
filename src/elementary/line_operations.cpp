#include <optional>

#include "ZorGeometryMeasure.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"

using zor::frame::CatchAs;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

long Intersect(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& p3, const ZorPoint& p4,
               ZorPoint* out) {
  if (IsDegenerate(p1, p2) || IsDegenerate(p3, p4)) return GM_E_DEGENERATE_LINE;
  if (elementary::AreParallel(p2 - p1, p4 - p3)) return GM_E_PARALLEL;
  const std::optional<ZorPoint> crossing = elementary::IntersectLines(p1, p2, p3, p4);
  if (!crossing) return InvalidArgument(1);
  Store(out, *crossing);
  return GM_OK;
}

}  // namespace

long ZorGeometryMeasure::LinesIntersection(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4,
                                           ZorPoint* out) {
  // The innermost call of many operations: the way without a sink stands apart, because the mere
  // possibility of a record would send all coordinates through memory first.
  if (!IsTracing()) [[likely]]
    return Intersect(p1, p2, p3, p4, out);
  Trace trace("LinesIntersection");
  if (const long status = Intersect(p1, p2, p3, p4, out); status != GM_OK) return status;
  return trace.Done();
}

long ZorGeometryMeasure::PerpendicularProjection(ZorPoint p, ZorPoint a, ZorPoint b,
                                                 ZorPoint* foot) {
  Trace trace("PerpendicularProjection");
  if (IsDegenerate(a, b)) return GM_E_DEGENERATE_LINE;
  return CatchAs(GM_E_PROJECTION_FAILED, [&] {
    const ZorPoint q = elementary::PerpendicularThrough(p, a, b);
    // Deliberate: the status is ignored. On a line shorter than about 0.003 the intersection finds
    // line and perpendicular parallel, writes nothing, and this operation still succeeds.
    static_cast<void>(LinesIntersection(a, b, q, p, foot));
    return trace.Done();
  });
}

long ZorGeometryMeasure::ParallerLine(ZorPoint& p, ZorPoint& a, ZorPoint& b, ZorPoint* out) {
  Trace trace("ParallerLine");
  if (IsDegenerate(a, b)) return GM_E_DEGENERATE_LINE;
  double distance = 0.0;
  if (const long status = PointTolineDistance(p, a, b, &distance); status != GM_OK) return status;
  if (distance <= zor::frame::kCoincident) return GM_E_COLLINEAR;
  Store(out, p + b - a);
  return trace.Done();
}

long ZorGeometryMeasure::MidVertLine(ZorPoint& a, ZorPoint& b, ZorPoint* mid, double* slope) {
  const ZorPoint middle = elementary::Midpoint(a, b);
  const double bisector_slope = elementary::BisectorSlope(a, b);
  Store(mid, middle);
  Store(slope, bisector_slope);
  return GM_OK;
}
