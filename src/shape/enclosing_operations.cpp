#include <cmath>

#include "ZorGeometryMeasure.h"
#include "frame/checks.h"
#include "frame/rounding.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "shape/enclosing_circle_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::RoundToFloat;
using zor::frame::Store;
using zor::frame::Trace;
namespace shape = zor::shape;

long ZorGeometryMeasure::CircleExternalRectangle(ZorPoint& centre, double& radius,
                                                 ZorPoint* rectCentre, double* length,
                                                 double* width, double* angle) {
  Trace trace("CircleExternalRectangle");
  if (!IsPositive(radius)) return InvalidArgument(2);
  ZorPointArray corners = {{centre.x - radius, centre.y - radius},
                           {centre.x - radius, centre.y + radius},
                           {centre.x + radius, centre.y - radius},
                           {centre.x + radius, centre.y + radius}};
  static_cast<void>(MinAreaRectangularity(corners, rectCentre, length, width, angle));
  return trace.Done();
}

long ZorGeometryMeasure::EllipseExternalRectangle(ZorPoint& centre, double a, double b,
                                                  double angle, ZorPoint* rectCentre,
                                                  double* length, double* width,
                                                  double* rectAngle) {
  Trace trace("EllipseExternalRectangle");
  if (!IsPositive(a)) return InvalidArgument(2);
  if (!IsPositive(b)) return InvalidArgument(3);
  // Deliberate: the angle is taken as radians as it stands, unlike that of any other ellipse of the
  // library. Hosts convert it for this one operation.
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const ZorPoint a_end(centre.x + a * cosine, centre.y + a * sine);
  const ZorPoint a_start(centre.x - a * cosine, centre.y - a * sine);
  const ZorPoint b_end(centre.x - b * sine, centre.y + b * cosine);
  const ZorPoint b_start(centre.x + b * sine, centre.y - b * cosine);
  ZorPointArray corners = {b_end + a_end - centre, b_start + a_end - centre,
                           b_end + a_start - centre, b_start + a_start - centre};
  static_cast<void>(MinAreaRectangularity(corners, rectCentre, length, width, rectAngle));
  return trace.Done();
}

long ZorGeometryMeasure::PolygonExternalRectangle(ZorPointArray& points, ZorPoint* boxCentre,
                                                  double* width, double* height) {
  Trace trace("PolygonExternalRectangle");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  const auto in_single = [](const ZorPoint& p) {
    return ZorPoint(RoundToFloat(p.x), RoundToFloat(p.y));
  };
  ZorPoint low = in_single(points[0]);
  ZorPoint high = low;
  for (const ZorPoint& point : points) {
    const ZorPoint p = in_single(point);
    if (p.x < low.x) low.x = p.x;
    if (p.x > high.x) high.x = p.x;
    if (p.y < low.y) low.y = p.y;
    if (p.y > high.y) high.y = p.y;
  }
  Store(boxCentre, ZorPoint((low.x + high.x) / 2, (low.y + high.y) / 2));
  Store(width, high.x - low.x);
  Store(height, high.y - low.y);
  return trace.Done();
}

long ZorGeometryMeasure::ExternalCircle(ZorPointArray& points, ZorPoint* centre, double* radius) {
  Trace trace("ExternalCircle");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  const shape::Circle circle = shape::SmallestEnclosingCircle(points.View());
  Store(centre, circle.centre);
  Store(radius, circle.radius);
  return trace.Done();
}
