#include <limits>

#include "ZorGeometryMeasure.h"
#include "elementary/polygon_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "intersection/pixel_relation_kernels.h"
#include "intersection/relation_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;
namespace intersection = zor::intersection;

long ZorGeometryMeasure::PointToCirclePosRelation(ZorPoint& point, ZorPoint& centre, double radius,
                                                  int* code) {
  Trace trace("PointToCirclePosRelation");
  if (!IsPositive(radius)) return InvalidArgument(3);
  Store(code, intersection::CircleRelation(point, centre, radius));
  return trace.Done();
}

long ZorGeometryMeasure::PointToOvalPosRelation(ZorPoint& point, ZorPoint& centre, double a,
                                                double b, double angle, int* code) {
  Trace trace("PointToOvalPosRelation");
  if (!IsPositive(a)) return InvalidArgument(3);
  if (!IsPositive(b)) return InvalidArgument(4);
  if (!IsDegreeAngle(angle)) return InvalidArgument(5);
  Store(code, intersection::OvalRelation(centre, a, b, angle)(point));
  return trace.Done();
}

long ZorGeometryMeasure::PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon,
                                                   int* code) {
  Trace trace("PointToPolygonPosRelation");
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  Store(code, elementary::PolygonRelation(point, polygon.View()));
  return trace.Done();
}

long ZorGeometryMeasure::PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon) {
  return elementary::PolygonRelation(point, polygon.View());
}

namespace {

/// The distance through the traced operation, for its records.
double TracedDistance(ZorGeometryMeasure& measure, ZorPoint p, ZorPoint a, ZorPoint b) {
  // Stays where the edge is too short to be a segment: such an edge has no reach.
  double distance = std::numeric_limits<double>::infinity();
  static_cast<void>(measure.PointToSegmentDistance(p, a, b, 0, &distance, nullptr));
  return distance;
}

}  // namespace

long ZorGeometryMeasure::PointToPolygonPosRelation2(ZorPoint& point, ZorPointArray& polygon,
                                                    double angle, int* code) {
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  Store(code, static_cast<int>(PointToPolygonPosRelation2(point, angle, polygon)));
  return GM_OK;
}

long ZorGeometryMeasure::PointToPolygonPosRelation2(ZorPoint& point, double angle,
                                                    ZorPointArray& polygon) {
  const bool is_wide = intersection::IsNearAxisOrDiagonal(angle);
  return intersection::PixelRelation(
      point, polygon.View(), is_wide, [&](const ZorPoint& a, const ZorPoint& b) {
        return IsTracing() ? TracedDistance(*this, point, a, b)
                           : intersection::DistanceWithinPixel(point, a, b);
      });
}
