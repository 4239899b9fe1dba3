#include <cstddef>

#include "ZorGeometryMeasure.h"
#include "distance/point_pair.h"
#include "distance/store_pair.h"
#include "frame/trace.h"

using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::frame::Trace;

long ZorGeometryMeasure::PointArrayToRectAngularDistance(
    ZorPointArray& points, ZorPoint& centre, double width, double height, double angle,
    ZorPoint* minArrayPoint, ZorPoint* minRectanglePoint, double* minDistance,
    ZorPoint* maxArrayPoint, ZorPoint* maxRectanglePoint, double* maxDistance) {
  Trace trace("PointArrayToRectAngularDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  ZorPointArray corners;
  const long status = RectAngularToPolygon(centre, width, height, angle, &corners);
  if (status != GM_OK) return status + 1;  // so that the number names this method's own argument
  PointPair min;
  PointPair max;
  const ZorPointView all = points.View();
  for (std::size_t i = 0; i < all.size(); ++i) {
    ZorPoint p = all[i];
    PointPair pair{0.0, p, {}};
    const long inner = PointToPolygonDistance(p, corners, &pair.distance, &pair.figure);
    if (inner != GM_OK) return inner;
    if (i == 0 || pair.distance < min.distance) min = pair;
    if (i == 0 || pair.distance > max.distance) max = pair;
  }
  StorePair(min, minDistance, minArrayPoint, minRectanglePoint);
  StorePair(max, maxDistance, maxArrayPoint, maxRectanglePoint);
  return trace.Done();
}
