#include "fitting/circle_fit_kernels.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "fitting/robust_fit.h"

namespace zor::fitting {
namespace {

/// D x + E y + F = -(x^2 + y^2).
class CircleModel {
 public:
  using Lane = Pair;
  using Vector = std::array<double, 3>;
  template <typename Real>
  using Row = std::array<Real, 3>;
  template <typename Real>
  using Sums = NormalSums<3, Real>;
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
  void FillRow(std::size_t i, Row<Real>& row) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
    row = {p.x, p.y, Real(1.0)};
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
    return -(p.x * p.x + p.y * p.y);
  }
  void Settle(const Vector& c) {
    const ZorPoint centre(-c[0] / 2, -c[1] / 2);
    circle_ = {centre, std::sqrt(centre.x * centre.x + centre.y * centre.y - c[2])};
  }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
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
