#include <optional>
#include <utility>

#include "ZorGeometryMeasure.h"
#include "fitting/normal_kernels.h"
#include "frame/trace.h"

using zor::frame::Trace;
namespace fitting = zor::fitting;

long ZorGeometryMeasure::Point2DNormal(ZorPointArray& points, int neighbours,
                                       ZorPointArray* normals) {
  Trace trace("Point2DNormal");
  const ZorPointView view = points.View();
  if (view.size() < 2) return GM_E_TOO_FEW_POINTS;
  if (neighbours < 1 || neighbours > fitting::kMaxNormalNeighbours) return GM_E_PARAM_2;
  auto found = fitting::ParabolaNormals(view, neighbours);
  if (!found) return GM_E_PARAM_1;
  if (normals != nullptr) normals->Assign(*std::move(found));
  return trace.Done();
}

long ZorGeometryMeasure::DiscretePoint2DNormal(ZorPointArray& points, ZorPointArray* normals) {
  Trace trace("DiscretePoint2DNormal");
  const ZorPointView view = points.View();
  if (view.size() < 2) return GM_E_TOO_FEW_POINTS;
  auto found = fitting::ChordNormals(view);
  if (!found) return GM_E_PARAM_1;
  if (normals != nullptr) normals->Assign(*std::move(found));
  return trace.Done();
}
