#pragma once

#include <algorithm>
#include <cmath>

#include "ZorStatus.h"
#include "fitting/curve_sampling.h"
#include <ZorData.h>

namespace zor::fitting {

/// Writes a fitted curve: its coefficients, and y_at sampled between the first and the last point's
/// x where the host wants it. Nothing is written when a coefficient is not a number
/// (GM_E_FIT_FAILED) or the wanted curve would be too long (GM_E_PARAM_1).
template <typename Coefficients, typename Curve>
[[nodiscard]] long StoreCurve(const ZorPointArray& points, const Coefficients& fitted,
                              const Curve& y_at, ZorVarArray* coefficients, ZorPointArray* curve) {
  if (std::any_of(fitted.begin(), fitted.end(), [](double c) { return std::isnan(c); })) {
    return GM_E_FIT_FAILED;
  }
  if (curve != nullptr) {
    const ZorPointView view = points.View();
    const auto steps = HalfUnitStepsBetween(view.front().x, view.back().x);
    if (!steps) return GM_E_PARAM_1;
    curve->Assign(SampleCurve(*steps, y_at));
  }
  if (coefficients != nullptr) coefficients->Assign({fitted.begin(), fitted.end()});
  return GM_OK;
}

}  // namespace zor::fitting
