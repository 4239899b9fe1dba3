#include "ZorGeometryMeasure.h"
#include "elementary/shape_frame.h"
#include "frame/checks.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
namespace elementary = zor::elementary;

long ZorGeometryMeasure::RectAngularToPolygon(ZorPoint& centre, double width, double height,
                                              double angle, ZorPointArray* corners) {
  if (!IsPositive(width)) return InvalidArgument(2);
  if (!IsPositive(height)) return InvalidArgument(3);
  if (!IsDegreeAngle(angle)) return InvalidArgument(4);
  if (corners == nullptr) return GM_OK;
  const elementary::ShapeFrame frame(centre, elementary::ReduceByHalfTurn(angle));
  const auto points = elementary::RectangleCorners(frame, width, height);
  corners->Assign(ZorPointView(points.data(), points.size()));
  return GM_OK;
}
