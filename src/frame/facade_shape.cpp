#include <cmath>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "shape/principal_axes_kernels.h"

using zor::frame::Store;
using zor::frame::Trace;

namespace ZORMV {

long ZorGeometryMeasureDlg::PolygonArea(ZorPointArray& points, double* area) {
  Trace trace("PolygonArea");
  double signed_area = 0.0;
  const long status = ZorGeometryMeasure().Area2(points, area != nullptr ? &signed_area : nullptr);
  Store(area, std::fabs(signed_area));
  return status == GM_OK ? trace.Done() : status;
}

long ZorGeometryMeasureDlg::PrincipalComponentAnalysis(ZorPointArray& points, ZorVarArray* values,
                                                       ZorPointArray* axes) {
  Trace trace("PrincipalComponentAnalysis");
  if (points.Length() < 2) return GM_E_PARAM_1;
  const zor::shape::PrincipalAxes found = zor::shape::AnalysePrincipalAxes(points.View());
  if (values != nullptr) {
    for (const float value : found.values) values->Append(ZorVar(value));
  }
  if (axes != nullptr) {
    for (const ZorPoint& axis : found.axes) axes->Append(axis);
  }
  return trace.Done();
}

}  // namespace ZORMV
