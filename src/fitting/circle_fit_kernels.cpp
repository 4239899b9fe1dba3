#include "fitting/circle_fit_kernels.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "fitting/robust_fit.h"

namespace zor::fitting {
namespace {

/// The normal equations, whose last right side needs no sum of its own: that of -w^2 (x^2 + y^2) is
/// in the matrix.
template <typename Real>
class CircleSums {
 public:
  template <typename Model>
  explicit CircleSums(const Model& /*model*/) {}

  template <typename Model>
  void Add(const Model& model, std::size_t i, Real squared_weight) {
    const Coordinates<Real> p = model.template At<Real>(i);
    const Real target = model.template Target<Real>(i);
    const Real bx = squared_weight * p.x;
    const Real by = squared_weight * p.y;
    xx_ += bx * p.x;
    xy_ += bx * p.y;
    yy_ += by * p.y;
    x_ += bx;
    y_ += by;
    one_ += squared_weight;
    x_target_ += bx * target;
    y_target_ += by * target;
  }

  void AddTo(std::span<double> matrix, std::span<double> right_side) const {
    const double xx = Total(xx_), xy = Total(xy_), yy = Total(yy_), x = Total(x_), y = Total(y_);
    const std::array<double, 9> upper_and_lower{xx, xy, x, xy, yy, y, x, y, Total(one_)};
    for (std::size_t k = 0; k < matrix.size(); ++k) matrix[k] += upper_and_lower[k];
    right_side[0] += Total(x_target_);
    right_side[1] += Total(y_target_);
    right_side[2] -= xx + yy;
  }

 private:
  Real xx_{0.0}, xy_{0.0}, yy_{0.0}, x_{0.0}, y_{0.0}, one_{0.0}, x_target_{0.0}, y_target_{0.0};
};

/// D x + E y + F = -(x^2 + y^2).
class CircleModel {
 public:
  using Lane = Pair;
  using Vector = std::array<double, 3>;
  template <typename Real>
  using Row = std::array<Real, 3>;
  template <typename Real>
  using Sums = CircleSums<Real>;
  static constexpr int kInnerPasses = 10;
  static constexpr bool kRestoreOnEqual = false;
  static constexpr Decomposition kSolve = Decomposition::kQr;
  static constexpr Decomposition kInverse = Decomposition::kLu;
  static constexpr bool kStopOnFailedSolve = false;
  static constexpr bool kErrorsAreObserved = false;

  explicit CircleModel(std::span<const ZorPoint> points) : points_(points) {}

  [[nodiscard]] Vector MakeVector() const { return {}; }
  template <typename Real>
  [[nodiscard]] Row<Real> MakeRow() const {
    return {};
  }
  [[nodiscard]] std::size_t PointCount() const { return points_.size(); }
  [[nodiscard]] std::size_t MinimumWeights() const { return 3; }

  template <typename Real>
  [[nodiscard]] Coordinates<Real> At(std::size_t i) const {
    return LoadPoint<Real>(points_, i);
  }
  template <typename Real>
  void FillRow(std::size_t i, Row<Real>& row) const {
    const Coordinates<Real> p = At<Real>(i);
    row = {p.x, p.y, Real(1.0)};
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    const Coordinates<Real> p = At<Real>(i);
    return -(p.x * p.x + p.y * p.y);
  }
  void Settle(const Vector& c) {
    const ZorPoint centre(-c[0] / 2, -c[1] / 2);
    circle_ = {centre, std::sqrt(centre.x * centre.x + centre.y * centre.y - c[2])};
  }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    const Coordinates<Real> p = At<Real>(i);
    const Real dx = p.x - circle_.centre.x;
    const Real dy = p.y - circle_.centre.y;
    return Magnitude(Root(dx * dx + dy * dy) - circle_.radius);
  }
  [[nodiscard]] const Circle& Settled() const { return circle_; }

 private:
  std::span<const ZorPoint> points_;
  Circle circle_;
};

}  // namespace

std::optional<Circle> FitCircleAlgebraic(std::span<const ZorPoint> points) {
  double sx = 0, sy = 0, sxx = 0, syy = 0, sxy = 0, sxxx = 0, syyy = 0, sxyy = 0, sxxy = 0;
  for (const ZorPoint& p : points) {
    const double xx = p.x * p.x;
    const double yy = p.y * p.y;
    sx += p.x;
    sy += p.y;
    sxx += xx;
    syy += yy;
    sxy += p.x * p.y;
    sxxx += xx * p.x;
    syyy += yy * p.y;
    sxyy += p.x * yy;
    sxxy += xx * p.y;
  }
  const double n = static_cast<double>(points.size());
  const double c = n * sxx - sx * sx;
  const double d = n * sxy - sx * sy;
  const double e = n * sxxx + n * sxyy - (sxx + syy) * sx;
  const double g = n * syy - sy * sy;
  const double h = n * syyy + n * sxxy - (sxx + syy) * sy;
  if (g * c - d * d == 0) return std::nullopt;
  const double a = (h * d - g * e) / (c * g - d * d);
  const double b = (h * c - e * d) / (d * d - c * g);
  const double f = -(b * sy + a * sx + sxx + syy) / n;
  return Circle{{-a / 2, -b / 2}, std::sqrt(a * a + b * b - 4 * f) / 2};
}

Circle FitCircleSquares(std::span<const ZorPoint> points, int passes, double clip) {
  CircleModel model(points);
  auto c = model.MakeVector();
  static_cast<void>(FitLeastSquares(model, passes, FixedClip(clip), c));
  return model.Settled();
}

Circle FitCircleAbsolute(std::span<const ZorPoint> points, int passes, double clip) {
  CircleModel model(points);
  auto c = model.MakeVector();
  FitLeastAbsolute(model, passes, FixedClip(clip), c);
  return model.Settled();
}

}  // namespace zor::fitting
