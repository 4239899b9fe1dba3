#include "ZorGeometryMeasure.h"
#include "fitting/curve_limits.h"
#include "fitting/spline_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::fitting::SplineType;
using zor::frame::CatchAs;
using zor::frame::IsMode;
using zor::frame::Trace;
namespace fitting = zor::fitting;

long ZorGeometryMeasure::GenSplineCurve(ZorPointArray& points, int splineType, int insertCount,
                                        ZorPointArray* curve) {
  Trace trace("GenSplineCurve");
  const ZorPointView view = points.View();
  if (view.size() < 2) return GM_E_TOO_FEW_POINTS;
  if (!IsMode(splineType, 2)) return GM_E_PARAM_2;
  if (insertCount < 1) return GM_E_PARAM_3;
  if (view.front() == view.back()) return GM_E_PARAM_1;
  if (view.size() < fitting::kMinSplinePoints) return GM_E_TOO_FEW_POINTS;
  if (fitting::SplinePointCount(view.size(), insertCount) > fitting::kMaxCurvePoints) {
    return GM_E_PARAM_3;
  }
  if (curve == nullptr) return trace.Done();
  const SplineType type = static_cast<SplineType>(splineType);
  const auto insert_points = [&] {
    curve->Assign(fitting::InsertSplinePoints(view, type, insertCount));
    return GM_OK;
  };
  // Deliberate: only the B-spline turns an exception into a code; from the others it passes.
  const long status =
      type == SplineType::kBSpline ? CatchAs(GM_E_FIT_NO_RESULT, insert_points) : insert_points();
  return status == GM_OK ? trace.Done() : status;
}
