#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureTools.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "shape/centre_kernels.h"
#include "shape/farthest_pair_kernels.h"

using zor::frame::Store;
using zor::frame::Trace;
namespace shape = zor::shape;

long ZorGeometryMeasure::PointArrayCenter(ZorPointArray& points, ZorPoint* centre) {
  Trace trace("PointArrayCenter");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (centre != nullptr) *centre = shape::MeanPoint(points.View());
  return trace.Done();
}

ZorPoint ZorGeometryMeasureTools::PointArrayCenter(ZorPointArray& points) {
  return shape::MeanPoint(points.View());
}

long ZorGeometryMeasure::FindMaxDistancePointPair(ZorPointArray& points, ZorPoint* first,
                                                  ZorPoint* second) {
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (first == nullptr && second == nullptr) return GM_OK;
  const auto [a, b] = shape::FarthestPair(points.View());
  Store(first, a);
  Store(second, b);
  return GM_OK;
}
