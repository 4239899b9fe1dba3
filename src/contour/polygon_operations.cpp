#include <cstddef>
#include <utility>
#include <vector>

#include "ZorGeometryMeasureTools.h"
#include "contour/reduction_kernels.h"
#include "elementary/angular_order.h"
#include "frame/checks.h"
#include "frame/rounding.h"
#include "shape/centre_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::RoundToFloat;
namespace contours = zor::contour;

long ZorGeometryMeasureTools::GetPolygon(ZorContour& contour, double tolerance,
                                         ZorPointArray* polygon) {
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!contours::IsApproximationTolerance(tolerance)) return InvalidArgument(2);
  if (polygon != nullptr) polygon->Assign(contours::ApproximateClosed(contour.View(), tolerance));
  return GM_OK;
}

long ZorGeometryMeasureTools::GetPolygon2(ZorPointArray& points, double tolerance, int n,
                                          bool closed, ZorPointArray* polygon) {
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(tolerance)) return InvalidArgument(2);
  if (n < 0) return InvalidArgument(3);
  if (polygon == nullptr) return GM_OK;
  std::vector<ZorPoint> vertices;
  for (const std::size_t i :
       contours::ReducePolyline(points.View(), tolerance, static_cast<std::size_t>(n), closed)) {
    const ZorPoint& p = points.View()[i];
    vertices.emplace_back(RoundToFloat(p.x), RoundToFloat(p.y));
  }
  polygon->Assign(std::move(vertices));
  return GM_OK;
}

long ZorGeometryMeasureTools::OrderConvexPolygonVertex(ZorPointArray& points) {
  zor::elementary::OrderByAngle({points.begin(), points.end()},
                                zor::shape::MeanPoint(points.View()));
  return GM_OK;
}

long ZorGeometryMeasureTools::ReorganizePolygon(ZorPointArray& polygon) {
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  polygon.Assign(contours::InStandardOrder(polygon.View()));
  return GM_OK;
}
