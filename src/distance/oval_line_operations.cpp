#include "ZorGeometryMeasure.h"
#include "distance/oval_segment_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "intersection/line_shape_kernels.h"

using zor::distance::PointPair;
using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Store;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace intersection = zor::intersection;

long ZorGeometryMeasure::FindOvalTangentPoint(ZorPoint& direction, double a, double b,
                                              ZorPoint* tangentPoint1, ZorPoint* tangentPoint2) {
  const auto [first, second] = distance::OvalTangentPoints(direction, a, b);
  Store(tangentPoint1, first);
  Store(tangentPoint2, second);
  return GM_OK;
}

long ZorGeometryMeasure::LineToOvalDistance(ZorPoint& lineStart, ZorPoint& lineEnd,
                                            ZorPoint& centre, double a, double b, double angleDeg,
                                            double* distance, ZorPoint* linePoint,
                                            ZorPoint* ovalPoint, double* /*maxDistance*/,
                                            ZorPoint* /*maxLinePoint*/,
                                            ZorPoint* /*maxOvalPoint*/) {
  Trace trace("LineToOvalDistance");
  // Deliberate: numbered by this method's own arguments, unlike those of points and segments; hosts
  // tell them by these codes.
  if (!IsDegreeAngle(angleDeg)) return InvalidArgument(6);
  if (!IsPositive(a)) return InvalidArgument(4);
  if (!IsPositive(b)) return InvalidArgument(5);
  // The oval about the origin, so that the way back turns first and then moves.
  const intersection::Oval oval = intersection::MakeOval(ZorPoint(0, 0), a, b, angleDeg);
  const PointPair nearest = distance::NearestOfLine(
      oval.frame.ToShape(lineStart - centre), oval.frame.ToShape(lineEnd - centre), oval.a, oval.b);
  const ZorPoint own = oval.frame.ToImage(nearest.own.x, nearest.own.y) + centre;
  const ZorPoint figure = oval.frame.ToImage(nearest.figure.x, nearest.figure.y) + centre;
  Store(distance, nearest.distance);
  Store(linePoint, own);
  Store(ovalPoint, figure);
  return trace.Done();
}
