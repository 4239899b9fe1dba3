#include <algorithm>
#include <cmath>

#include "ZorGeometryMeasure.h"
#include "fitting/sine_kernels.h"
#include "frame/trace.h"

using zor::frame::Trace;
namespace fitting = zor::fitting;

long ZorGeometryMeasure::FitSinCurve(ZorPointArray& points, int maxIterations,
                                     ZorVarArray* parameters) {
  Trace trace("FitSinCurve");
  const ZorPointView view = points.View();
  if (view.size() < fitting::kMinSinePoints) return GM_E_TOO_FEW_POINTS;
  if (maxIterations < 0) return GM_E_PARAM_2;
  const auto fitted = fitting::FitSine(view, 1, 0.0, maxIterations);
  if (!fitted) return GM_E_FIT_FAILED;
  if (parameters != nullptr) parameters->Assign({fitted->begin(), fitted->end()});
  return trace.Done();
}
