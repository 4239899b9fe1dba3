#include "fitting/ellipse_fit_kernels.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "distance/oval_kernels.h"
#include "fitting/robust_fit.h"
#include "frame/checks.h"
#include "frame/opencv_points.h"

namespace zor::fitting {
namespace {

inline constexpr double kTinyCentre = 1e-8;  // pixels, exclusive; smaller coordinates become 0

using Conic = std::array<double, 5>;

/// The ellipse of a conic in coordinates divided by sx and sy.
Ellipse EllipseOf(const Conic& q, double sx, double sy) {
  const double a = 1 / (sx * sx * q[4]);
  const double b = q[0] / (sy * sx * q[4]);
  const double c = q[1] / (sy * sy * q[4]);
  const double d = q[2] / (q[4] * sx);
  const double e = q[3] / (q[4] * sy);
  const double den = 4 * a * c - b * b;
  const double cx = (e * b - 2 * c * d) / den;
  const double cy = (d * b - 2 * a * e) / den;
  const double k = 2 * (a * cx * cx + c * cy * cy + b * cx * cy - 1);
  const double root = std::sqrt((a - c) * (a - c) + b * b);
  const double angle = std::atan2(b, a - c) * 0.5 / -std::numbers::pi * 180;
  return {{cx, cy},
          std::sqrt(std::fabs(k / (a + c + root))),
          std::sqrt(std::fabs(k / (a + c - root))),
          angle < 0 ? angle + 360 : angle};
}

/// q0 X Y + q1 Y^2 + q2 X + q3 Y + q4 = -X^2, with X = x / sx and Y = y / sy.
template <bool kIsObserved>
class EllipseModel {
 public:
  using Lane = Pair;
  using Vector = Conic;
  template <typename Real>
  using Row = std::array<Real, 5>;
  template <typename Real>
  using Sums = NormalSums<5, Real>;
  static constexpr int kInnerPasses = 10;
  static constexpr bool kRestoreOnEqual = false;
  static constexpr Decomposition kSolve = Decomposition::kEigen;
  static constexpr Decomposition kInverse = Decomposition::kEigen;
  static constexpr bool kStopOnFailedSolve = true;
  static constexpr bool kErrorsAreObserved = kIsObserved;

  EllipseModel(std::span<const ZorPoint> points, const EllipseDistance& observed)
      : points_(points),
        observed_(observed),
        sx_(std::fabs(points[0].x)),
        sy_(std::fabs(points[0].y)) {
    for (const ZorPoint& p : points) {
      if (std::fabs(p.x) > sx_) sx_ = std::fabs(p.x);
      if (std::fabs(p.y) > sy_) sy_ = std::fabs(p.y);
    }
  }

  [[nodiscard]] Vector MakeVector() const { return {}; }
  template <typename Real>
  [[nodiscard]] Row<Real> MakeRow() const {
    return {};
  }
  [[nodiscard]] std::size_t PointCount() const { return points_.size(); }
  [[nodiscard]] std::size_t MinimumWeights() const { return 5; }

  template <typename Real>
  void FillRow(std::size_t i, Row<Real>& row) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
    const Real x = p.x / sx_;
    const Real y = p.y / sy_;
    row = {x * y, y * y, x, y, Real(1.0)};
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    const Real x = LoadPoint<Real>(points_, i).x / sx_;
    return -(x * x);
  }
  void Settle(const Vector& q) { ellipse_ = EllipseOf(q, sx_, sy_); }

  void FindErrors() {
    errors_.resize(points_.size());
    if constexpr (kIsObserved) {
      for (std::size_t i = 0; i < points_.size(); ++i) errors_[i] = observed_(points_[i], ellipse_);
    } else if (frame::IsPositive(ellipse_.a) && frame::IsPositive(ellipse_.b)) {
      const distance::OvalMeasure oval(ellipse_.centre, ellipse_.a, ellipse_.b, ellipse_.angle_deg);
      oval.DistancesOf(points_, errors_);
    } else {
      std::ranges::fill(errors_, 0.0);  // as an observer that cannot measure either
    }
  }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    return Magnitude(Load<Real>(errors_, i));
  }

  /// Only at the very end: the passes go by the centre as it is.
  [[nodiscard]] Ellipse Settled() const {
    Ellipse ellipse = ellipse_;
    if (std::fabs(ellipse.centre.x) < kTinyCentre) ellipse.centre.x = 0;
    if (std::fabs(ellipse.centre.y) < kTinyCentre) ellipse.centre.y = 0;
    return ellipse;
  }

 private:
  std::span<const ZorPoint> points_;
  const EllipseDistance& observed_;
  double sx_;
  double sy_;
  Ellipse ellipse_;
  std::vector<double> errors_;
};

template <bool kIsObserved>
std::optional<Ellipse> Squares(std::span<const ZorPoint> points, int passes, double clip,
                               const EllipseDistance& observed) {
  EllipseModel<kIsObserved> model(points, observed);
  auto q = model.MakeVector();
  if (!FitLeastSquares(model, passes, FixedClip(clip), q)) return std::nullopt;
  return model.Settled();
}

template <bool kIsObserved>
Ellipse Absolute(std::span<const ZorPoint> points, int passes, double clip,
                 const EllipseDistance& observed) {
  EllipseModel<kIsObserved> model(points, observed);
  auto q = model.MakeVector();
  FitLeastAbsolute(model, passes, FixedClip(clip), q);
  return model.Settled();
}

// Deliberate: the angle changes its sign, since OpenCV's grows clockwise on the screen.
Ellipse EllipseIn(const cv::RotatedRect& box) {
  return {frame::FromFloatPoint(box.center), static_cast<double>(box.size.width) * 0.5,
          static_cast<double>(box.size.height) * 0.5, -static_cast<double>(box.angle)};
}

}  // namespace

Ellipse FitEllipseToWholePoints(std::span<const ZorPoint> points) {
  return EllipseIn(cv::fitEllipse(frame::ToTruncatedPoints(points)));
}

Ellipse FitEllipseToFloatPoints(std::span<const ZorPoint> points) {
  return EllipseIn(cv::fitEllipse(frame::ToFloatPoints(points)));
}

std::optional<Ellipse> FitEllipseSquares(std::span<const ZorPoint> points, int passes, double clip,
                                         const EllipseDistance& observed) {
  return observed ? Squares<true>(points, passes, clip, observed)
                  : Squares<false>(points, passes, clip, observed);
}

Ellipse FitEllipseAbsolute(std::span<const ZorPoint> points, int passes, double clip,
                           const EllipseDistance& observed) {
  return observed ? Absolute<true>(points, passes, clip, observed)
                  : Absolute<false>(points, passes, clip, observed);
}

}  // namespace zor::fitting
