#include <cmath>
#include <optional>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "elementary/point_kernels.h"
#include "fitting/circle_centre_kernels.h"
#include "fitting/circle_fit_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::InvalidArgument;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;
namespace fitting = zor::fitting;

namespace {

constexpr double kLeastRadius = 1e-6;      // pixels, of what counts as fitted
constexpr int kMostBisectorPoints = 1000;  // all pairs of bisectors are tried

void StoreCircle(const fitting::Circle& circle, ZorPoint* center, double* radius) {
  Store(center, circle.centre);
  Store(radius, circle.radius);
}

bool HasNaN(const fitting::Circle& circle) {
  return std::isnan(circle.centre.x) || std::isnan(circle.radius) || std::isnan(circle.centre.y);
}

/// Neither a point nor, in a value, not a number.
bool IsCircle(const fitting::Circle& circle) {
  return !(std::fabs(circle.radius) < kLeastRadius) && !HasNaN(circle);
}

}  // namespace

long ZorGeometryMeasure::FitCircle(ZorPointArray& points, ZorPoint* center, double* radius) {
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  const std::optional<fitting::Circle> circle = fitting::FitCircleAlgebraic(points.View());
  if (!circle) return InvalidArgument(1);
  StoreCircle(*circle, center, radius);
  return GM_OK;
}

long ZorGeometryMeasure::LeastSqaureCircleFit(ZorPointArray& points, int iterations,
                                              double clipDistance, ZorPoint* center,
                                              double* radius) {
  Trace trace("LeastSqaureCircleFit");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  if (iterations == 1) {
    // Singular sums give no circle: one of radius 0 at the origin, which is rejected.
    const fitting::Circle circle =
        fitting::FitCircleAlgebraic(points.View()).value_or(fitting::Circle());
    StoreCircle(circle, center, radius);  // Deliberate: also where the circle is then rejected.
    if (!IsCircle(circle)) return GM_E_CIRCLE_FIT_FAILED;
    return GM_OK;  // Deliberate: one pass leaves no end record; hosts tell the two kinds by it.
  }
  const fitting::Circle circle = fitting::FitCircleSquares(points.View(), iterations, clipDistance);
  StoreCircle(circle, center, radius);  // Deliberate: also where the circle is then rejected.
  // Deliberate: unlike the other two, this path accepts a radius of 0.
  if (HasNaN(circle)) return GM_E_CIRCLE_FIT_FAILED;
  return trace.Done();
}

long ZorGeometryMeasure::LeastAbsoluteCircleFit(ZorPointArray& points, int iterations,
                                                double clipDistance, ZorPoint* center,
                                                double* radius) {
  Trace trace("LeastAbsoluteCircleFit");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  const fitting::Circle circle =
      fitting::FitCircleAbsolute(points.View(), iterations, clipDistance);
  StoreCircle(circle, center, radius);  // Deliberate: also where the circle is then rejected.
  if (!IsCircle(circle)) return GM_E_CIRCLE_FIT_FAILED;
  return trace.Done();
}

long ZorGeometryMeasure::PointAnglePairsCircleFit(ZorPointArray& points, ZorVarArray& angles,
                                                  ZorPoint* center, double* radius) {
  Trace trace("PointAnglePairsCircleFit");
  if (points.Length() < 2) return InvalidArgument(1);
  if (angles.Length() != points.Length()) return InvalidArgument(2);
  // Deliberate: a code from here on comes with a circle of radius 0 at the origin.
  StoreCircle({}, center, radius);
  if (points.Length() == 2) {
    const ZorPoint p0 = points[0];
    const ZorPoint p1 = points[1];
    if (fitting::AreOnePoint(p0, p1)) return GM_E_DEGENERATE_LINE;
    const ZorPoint middle = elementary::Midpoint(p0, p1);
    const ZorPoint beyond = fitting::AlongBisector(p0, p1, middle);
    const ZorPoint along0 = fitting::AlongAngle(p0, angles[0].D());
    const ZorPoint along1 = fitting::AlongAngle(p1, angles[1].D());
    ZorPoint hit0, hit1, crossing;  // the crossing has to exist, no more
    if (LinesIntersection(p0, along0, middle, beyond, &hit0) != GM_OK ||
        LinesIntersection(p1, along1, middle, beyond, &hit1) != GM_OK ||
        LinesIntersection(p0, along0, p1, along1, &crossing) != GM_OK) {
      return GM_E_FIT_FAILED;
    }
    StoreCircle(fitting::CircleOnBisector(p0, hit0, p1, hit1), center, radius);
    return GM_OK;  // Deliberate: two points leave no end record.
  }
  std::vector<double> angles_deg;
  angles_deg.reserve(static_cast<std::size_t>(angles.Length()));
  for (const ZorVar& angle : angles) angles_deg.push_back(angle.D());
  StoreCircle(fitting::CircleByRotations(points.View(), angles_deg), center, radius);
  return trace.Done();
}

long ZorGeometryMeasure::VerticalBisectorCircleFit(ZorPointArray& points, ZorPoint* center,
                                                   double* radius) {
  Trace trace("VerticalBisectorCircleFit");
  if (points.Length() < 3 || points.Length() > kMostBisectorPoints) return InvalidArgument(1);
  const std::optional<fitting::Circle> circle = fitting::CircleByBisectors(points.View());
  if (!circle) return InvalidArgument(1);
  StoreCircle(*circle, center, radius);
  return trace.Done();
}
