#include "ZorGeometryMeasure.h"
#include "fitting/curve_fit_kernels.h"

using zor::fitting::CurveAxis;
namespace fitting = zor::fitting;

namespace {

long FitAlong(const ZorPointArray& points, int order, CurveAxis axis, ZorVarArray* coefficients) {
  const ZorPointView view = points.View();
  if (points.Empty() || points.Length() <= order) return GM_E_TOO_FEW_POINTS;
  if (order < 1 || order > fitting::kMaxCurveOrder) return GM_E_PARAM_2;
  const auto fitted = fitting::FitCurvePolynomial(view, order, axis);
  if (!fitted) return GM_E_FIT_FAILED;
  if (coefficients != nullptr) coefficients->Assign({fitted->begin(), fitted->end()});
  return GM_OK;
}

}  // namespace

long ZorGeometryMeasure::FitCurve(ZorPointArray& points, int order, ZorVarArray* coefficients) {
  return FitAlong(points, order, CurveAxis::kX, coefficients);
}

long ZorGeometryMeasure::FitCurveInv(ZorPointArray& points, int order, ZorVarArray* coefficients) {
  return FitAlong(points, order, CurveAxis::kY, coefficients);
}
