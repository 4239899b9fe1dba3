#include <algorithm>
#include <cmath>

#include "ZorGeometryMeasure.h"
#include "fitting/curve_solver.h"
#include "fitting/gaussian_kernels.h"
#include "frame/settings.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::LoadedSettings;
using zor::frame::Store;
using zor::frame::Trace;
namespace fitting = zor::fitting;

long ZorGeometryMeasure::FitGaussianCurve(ZorPointArray& points, double* amplitude, double* mean,
                                          double* variance) {
  const ZorPointView view = points.View();
  if (view.size() < fitting::kMinGaussianPoints) return GM_E_GAUSS_TOO_FEW_POINTS;
  if (std::any_of(view.begin(), view.end(), [](const ZorPoint& p) { return p.y <= 0; })) {
    return GM_E_PARAM_1;
  }
  ZorPointArray logarithms = points;
  for (ZorPoint& p : logarithms) p.y = std::log(p.y);
  ZorVarArray q;
  // Deliberate: equations that cannot be solved leave the outputs alone and are no failure.
  if (SolveLinerEquationsPolynomialFit(logarithms, 2, &q, nullptr) == 0) return GM_OK;
  const fitting::GaussianPeak peak = fitting::PeakOfLogarithm(q[0].D(), q[1].D(), q[2].D());
  Store(amplitude, peak.amplitude);
  Store(mean, peak.mean);
  Store(variance, peak.variance);
  // Deliberate: the outputs of a vanishing peak are written all the same.
  return fitting::Vanishes(peak) ? GM_E_DEGENERATE_RESULT : GM_OK;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes a copy.
long ZorGeometryMeasure::FitGaussianCurve(ZorPointArray points, int maxIterations,
                                          ZorVarArray* parameters) {
  Trace trace("FitGaussianCurve");
  const ZorPointView view = points.View();
  if (view.size() < fitting::kMinGaussianPoints) return GM_E_PARAM_1;
  if (maxIterations < 0) return GM_E_PARAM_2;
  const int threads = fitting::SolverThreads(view.size(), LoadedSettings().parallelism);
  const fitting::CurveParameters fitted =
      fitting::RefineGaussian(view, {}, fitting::GaussianStart(view),
                              {.max_iterations = maxIterations, .threads = threads});
  if (std::any_of(fitted.begin(), fitted.end(), fitting::IsBeyondRange)) return GM_E_FIT_UNBOUNDED;
  if (parameters != nullptr) parameters->Assign({fitted.begin(), fitted.end()});
  return trace.Done();
}
