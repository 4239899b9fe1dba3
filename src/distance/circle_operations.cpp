#include "ZorGeometryMeasure.h"
#include "distance/circle_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::Store;
using zor::frame::Trace;

long ZorGeometryMeasure::PointToCircleDistance(ZorPoint& point, ZorPoint& centre, double radius,
                                               double* distance, ZorPoint* nearestPoint) {
  Trace trace("PointToCircleDistance");
  if (!IsPositive(radius)) return InvalidArgument(3);
  double from_centre = 0.0;
  const long status = PointToPointDistance(point, centre, &from_centre);
  if (status != GM_OK) return status;
  const zor::distance::Nearest nearest =
      zor::distance::NearestOnCircle(point, centre, radius, from_centre);
  Store(distance, nearest.distance);
  Store(nearestPoint, nearest.point);
  return trace.Done();
}
