#include "ZorGeometryMeasure.h"
#include "distance/oval_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::distance::OvalFoot;
using zor::distance::OvalMeasure;
using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Store;
using zor::frame::Trace;

long ZorGeometryMeasure::PointToOvalDistance(ZorPoint& point, ZorPoint& centre, double a, double b,
                                             double angleDeg, double* distance,
                                             ZorPoint* nearestPoint) {
  Trace trace("PointToOvalDistance");
  if (!IsDegreeAngle(angleDeg)) return InvalidArgument(5);
  if (!IsPositive(a)) return InvalidArgument(3);
  if (!IsPositive(b)) return InvalidArgument(4);
  const OvalFoot foot = OvalMeasure(centre, a, b, angleDeg).FootOf(point);
  Store(distance, foot.distance);
  Store(nearestPoint, foot.nearest);
  return trace.Done();
}
