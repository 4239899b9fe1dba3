#include <optional>

#include "ZorGeometryMeasure.h"
#include "fitting/ellipse_fit_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::CatchAs;
using zor::frame::InvalidArgument;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace fitting = zor::fitting;

namespace {

constexpr int kLeastPoints = 5;

void StoreEllipse(const fitting::Ellipse& ellipse, ZorPoint* center, float* a, float* b,
                  float* angle) {
  Store(center, ellipse.centre);
  Store(a, static_cast<float>(ellipse.a));
  Store(b, static_cast<float>(ellipse.b));
  Store(angle, static_cast<float>(ellipse.angle_deg));
}

/// The re-weighting measures by the traced operation; without a sink nobody sees, and it may be
/// measured the faster way.
fitting::EllipseDistance ObservedDistance(ZorGeometryMeasure& measure) {
  if (!IsTracing()) return {};
  return [&measure](const ZorPoint& p, const fitting::Ellipse& ellipse) {
    ZorPoint point = p;
    ZorPoint centre = ellipse.centre;
    double distance = 0.0;
    // Deliberate: a point ellipse cannot be measured and leaves the distance 0.
    static_cast<void>(measure.PointToOvalDistance(point, centre, ellipse.a, ellipse.b,
                                                  ellipse.angle_deg, &distance, nullptr));
    return distance;
  };
}

}  // namespace

long ZorGeometryMeasure::FitEllipse(ZorPointArray& points, ZorPoint* center, float* semiAxisA,
                                    float* semiAxisB, float* angle) {
  if (points.Length() < kLeastPoints) return GM_E_TOO_FEW_POINTS;
  return CatchAs(GM_E_FIT_FAILED, [&] {
    const fitting::Ellipse ellipse = fitting::FitEllipseToWholePoints(points.View());
    StoreEllipse(ellipse, center, semiAxisA, semiAxisB, angle);
    return GM_OK;
  });
}

long ZorGeometryMeasure::LeastSqaureEllipseFit(ZorPointArray& points, int iterations,
                                               double clipDistance, ZorPoint* center,
                                               float* semiAxisA, float* semiAxisB, float* angle) {
  Trace trace("LeastSqaureEllipseFit");
  if (points.Length() < kLeastPoints) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  if (iterations == 1) {
    const fitting::Ellipse ellipse = fitting::FitEllipseToFloatPoints(points.View());
    StoreEllipse(ellipse, center, semiAxisA, semiAxisB, angle);
    return GM_OK;  // Deliberate: one pass leaves no end record; hosts tell the two kinds by it.
  }
  const std::optional<fitting::Ellipse> ellipse =
      fitting::FitEllipseSquares(points.View(), iterations, clipDistance, ObservedDistance(*this));
  if (!ellipse) return GM_E_FIT_FAILED;
  StoreEllipse(*ellipse, center, semiAxisA, semiAxisB, angle);
  return trace.Done();
}

long ZorGeometryMeasure::LeastAbsoluteEllipseFit(ZorPointArray& points, int iterations,
                                                 double clipDistance, ZorPoint* center,
                                                 float* semiAxisA, float* semiAxisB, float* angle) {
  Trace trace("LeastAbsoluteEllipseFit");
  if (points.Length() < kLeastPoints) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  const fitting::Ellipse ellipse =
      fitting::FitEllipseAbsolute(points.View(), iterations, clipDistance, ObservedDistance(*this));
  StoreEllipse(ellipse, center, semiAxisA, semiAxisB, angle);
  return trace.Done();
}
