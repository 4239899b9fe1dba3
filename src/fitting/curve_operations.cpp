#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "ZorGeometryMeasure.h"
#include "fitting/curve_output.h"
#include "fitting/gaussian_kernels.h"
#include "fitting/polynomial_kernels.h"
#include "fitting/sine_kernels.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::fitting::CurveParameters;
using zor::frame::IsMode;
using zor::frame::Trace;
namespace fitting = zor::fitting;

namespace {

constexpr int kMostOrder = 20;
constexpr unsigned kMostPasses = 99;

/// The two settings that the curve generators share, as they use them.
struct Settings {
  // Deliberate: clipping distances are whole numbers here. One that is not a number clips all
  // points off, as 0 does, and none that is too large for an int clips any.
  Settings(int int_setting, double real_setting) : passes(std::max(int_setting, 1)) {
    const double whole = std::trunc(real_setting);
    clip = std::isnan(whole) ? 0.0 : std::min(whole, double{std::numeric_limits<int>::max()});
  }
  int passes;
  double clip;
};

long CheckSettings(const ZorPointArray& points, std::size_t fewest, int int_setting,
                   double real_setting) {
  if (points.View().size() < fewest) return GM_E_TOO_FEW_POINTS;
  if (!IsMode(int_setting, kMostPasses)) return GM_E_PARAM_2;
  if (real_setting < 0) return GM_E_PARAM_3;
  return GM_OK;
}

}  // namespace

long ZorGeometryMeasure::GenPolynomialCurve(ZorPointArray& points, int order, int intSetting,
                                            double realSetting, ZorVarArray* coefficients,
                                            ZorPointArray* curve) {
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (order < 1 || order > kMostOrder) return GM_E_PARAM_2;
  if (!IsMode(intSetting, kMostPasses)) return GM_E_PARAM_3;
  if (realSetting < 0) return GM_E_PARAM_4;
  const Settings settings(intSetting, realSetting);
  const auto fitted =
      fitting::FitPolynomialSquares(points.View(), order, settings.passes, settings.clip);
  if (!fitted) return GM_E_FIT_FAILED;
  const auto y_at = [&](double x) { return fitting::PolynomialAt(*fitted, x); };
  return fitting::StoreCurve(points, *fitted, y_at, coefficients, curve);
}

long ZorGeometryMeasure::GenGaussianCurve(ZorPointArray& points, int intSetting, double realSetting,
                                          ZorVarArray* coefficients, ZorPointArray* curve) {
  Trace trace("GenGaussianCurve");
  long status = CheckSettings(points, fitting::kMinGaussianPoints, intSetting, realSetting);
  if (status != GM_OK) return status;
  const Settings settings(intSetting, realSetting);
  const CurveParameters fitted =
      fitting::FitGaussian(points.View(), settings.passes, settings.clip);
  if (std::any_of(fitted.begin(), fitted.end(), fitting::IsBeyondRange)) return GM_E_FIT_UNBOUNDED;
  const bool is_peak = fitted[2] > 0;
  if (!is_peak) return GM_E_FIT_FAILED;
  const auto y_at = [&](double x) { return fitting::GaussianAt(fitted, x); };
  status = fitting::StoreCurve(points, fitted, y_at, coefficients, curve);
  return status == GM_OK ? trace.Done() : status;
}

long ZorGeometryMeasure::GenSinCurve(ZorPointArray& points, int intSetting, double realSetting,
                                     ZorVarArray* coefficients, ZorPointArray* curve) {
  Trace trace("GenSinCurve");
  long status = CheckSettings(points, fitting::kMinSinePoints, intSetting, realSetting);
  if (status != GM_OK) return status;
  const Settings settings(intSetting, realSetting);
  const auto fitted = fitting::FitSine(points.View(), settings.passes, settings.clip, 0);
  if (!fitted) return GM_E_FIT_FAILED;
  const auto y_at = [&](double x) { return fitting::SineAt(*fitted, x); };
  status = fitting::StoreCurve(points, *fitted, y_at, coefficients, curve);
  return status == GM_OK ? trace.Done() : status;
}
