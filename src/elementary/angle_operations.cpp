#include <limits>
#include <optional>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureTools.h"
#include "elementary/angle_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::CatchAs;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

// What an inner angle holds at first: a direction of what is not a number is never written, and
// must not come out as one of 0 degrees.
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

}  // namespace

long ZorGeometryMeasure::AngleFromHorizontal(ZorPoint p1, ZorPoint p2, double* angle) {
  Trace trace("AngleFromHorizontal");
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  const std::optional<double> direction = elementary::DirectionFromHorizontal(p1, p2);
  // Deliberate: the end record is left only when no quadrant holds (a coordinate is not a number);
  // readers of traces tell the ordinary call by its bare "start".
  if (!direction) return trace.Done();
  Store(angle, *direction);
  return GM_OK;
}

long ZorGeometryMeasure::AngleFromVertical(ZorPoint p1, ZorPoint p2, double* angle) {
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  const std::optional<double> direction = elementary::DirectionFromVertical(p1, p2);
  if (direction) Store(angle, *direction);
  return GM_OK;
}

long ZorGeometryMeasure::AngleFrom3Point(ZorPoint p1, ZorPoint vertex, ZorPoint p3, double* angle) {
  Trace trace("AngleFrom3Point");
  if (IsDegenerate(p1, vertex) || IsDegenerate(p3, vertex)) return GM_E_DEGENERATE_LINE;
  return CatchAs(GM_E_ANGLE_FAILED, [&] {
    double from_deg = kUnknown;
    double to_deg = kUnknown;
    static_cast<void>(AngleFromHorizontal(vertex, p1, &from_deg));
    static_cast<void>(AngleFromHorizontal(vertex, p3, &to_deg));
    Store(angle, elementary::TurnBetween(from_deg, to_deg));
    return trace.Done();
  });
}

long ZorGeometryMeasure::AngleFrom4Point(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4,
                                         double* angle) {
  Trace trace("AngleFrom4Point");
  if (IsDegenerate(p1, p2) || IsDegenerate(p3, p4)) return GM_E_DEGENERATE_LINE;
  return CatchAs(GM_E_ANGLE_FAILED, [&] {
    double from_deg = kUnknown;
    double to_deg = kUnknown;
    static_cast<void>(AngleFromVertical(p1, p2, &from_deg));
    static_cast<void>(AngleFromVertical(p3, p4, &to_deg));
    Store(angle, elementary::TurnBetween(from_deg, to_deg));
    return trace.Done();
  });
}

long ZorGeometryMeasure::IncludedAngle(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4,
                                       int mode, double* angle) {
  Trace trace("IncludedAngle");
  if (IsDegenerate(p1, p2) || IsDegenerate(p3, p4)) return GM_E_DEGENERATE_LINE;
  double turn_deg = kUnknown;
  static_cast<void>(AngleFrom4Point(p1, p2, p3, p4, &turn_deg));
  if (!IsMode(mode, 1)) return InvalidArgument(5);
  turn_deg = elementary::FoldToHalfTurn(turn_deg);
  Store(angle, mode == 1 ? elementary::FoldToQuarterTurn(turn_deg) : turn_deg);
  return trace.Done();
}

double ZorGeometryMeasureTools::CalcVectorAngle(ZorPoint& v) {
  return elementary::VectorDirection(v);
}
