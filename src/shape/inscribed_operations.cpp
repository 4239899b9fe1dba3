#include <cmath>
#include <optional>

#include "ZorGeometryMeasure.h"
#include "elementary/point_kernels.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"
#include "shape/inscribed_circle_kernels.h"

using zor::frame::kCoincident;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;
namespace shape = zor::shape;

namespace {

// Square pixels, inclusive: corners with twice this area are on a line.
constexpr double kFlatCross = 1e-5;

}  // namespace

long ZorGeometryMeasure::IncisionCircle(ZorPointArray& points, ZorPoint* centre, double* radius) {
  Trace trace("IncisionCircle");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  const std::optional<shape::Circle> circle = shape::LargestInscribedCircle(points.View());
  if (!circle) return GM_E_INSCRIBED_CIRCLE_FAILED;
  Store(centre, circle->centre);
  Store(radius, circle->radius);
  return trace.Done();
}

double ZorGeometryMeasure::GetInnerCircle(ZorPoint& a, ZorPoint& b, ZorPoint& c, ZorPoint* centre) {
  if (elementary::Distance(a, c) <= kCoincident) return 0.0;
  if (std::fabs(elementary::TriangleCross(a, b, c)) <= kFlatCross) return 0.0;
  const shape::Circle circle = shape::TriangleIncircle(a, b, c);
  Store(centre, circle.centre);
  return circle.radius;
}
