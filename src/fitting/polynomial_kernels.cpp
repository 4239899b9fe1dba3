#include "fitting/polynomial_kernels.h"

#include <array>
#include <cstddef>

#include "fitting/robust_fit.h"

namespace zor::fitting {
namespace {

/// What both models below share: how their passes solve, repeat and end.
struct PolynomialRules {
  static constexpr int kInnerPasses = 50;
  static constexpr bool kRestoreOnEqual = false;
  static constexpr Decomposition kSolve = Decomposition::kLu;
  static constexpr Decomposition kInverse = Decomposition::kLu;
  static constexpr bool kStopOnFailedSolve = true;
  static constexpr bool kErrorsAreObserved = false;
};

/// The sums of w^2 x^m and w^2 y x^j: the normal equations hold no others, since the entry of row j
/// and column k is that of x^(j + k).
template <std::size_t K, typename Real>
class MomentSums {
 public:
  template <typename Model>
  explicit MomentSums(const Model& /*model*/) {}

  template <typename Model>
  void Add(const Model& model, std::size_t i, Real squared_weight) {
    const Coordinates<Real> p = LoadPoint<Real>(model.Points(), i);
    Real power = squared_weight;
    Unrolled<2 * K - 1>([&](auto m) {
      if constexpr (m > 0) power = power * p.x;
      of_x_[m] += power;
      if constexpr (m < K) of_y_[m] += power * p.y;
    });
  }

  void AddTo(std::span<double> matrix, std::span<double> right_side) const {
    for (std::size_t j = 0; j < K; ++j) {
      for (std::size_t k = 0; k < K; ++k) matrix[j * K + k] += Total(of_x_[j + k]);
      right_side[j] += Total(of_y_[j]);
    }
  }

 private:
  std::array<Real, 2 * K - 1> of_x_{};
  std::array<Real, K> of_y_{};
};

/// A polynomial of K coefficients, two points at a time.
template <std::size_t K>
class SmallPolynomial : public PolynomialRules {
 public:
  using Lane = Pair;
  using Vector = std::array<double, K>;
  template <typename Real>
  using Row = std::array<Real, K>;
  template <typename Real>
  using Sums = MomentSums<K, Real>;

  explicit SmallPolynomial(std::span<const ZorPoint> points) : points_(points) {}

  [[nodiscard]] Vector MakeVector() const { return {}; }
  template <typename Real>
  [[nodiscard]] Row<Real> MakeRow() const {
    return {};
  }
  [[nodiscard]] std::span<const ZorPoint> Points() const { return points_; }
  [[nodiscard]] std::size_t PointCount() const { return points_.size(); }
  [[nodiscard]] std::size_t MinimumWeights() const { return K; }

  template <typename Real>
  void FillRow(std::size_t i, Row<Real>& row) const {
    const Real x = LoadPoint<Real>(points_, i).x;
    row[0] = Real(1.0);
    for (std::size_t j = 1; j < K; ++j) row[j] = row[j - 1] * x;
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    return LoadPoint<Real>(points_, i).y;
  }
  void Settle(const Vector& c) { c_ = c; }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    Row<Real> row;
    return Magnitude(Residual<Real>(*this, i, c_, row));
  }

 private:
  std::span<const ZorPoint> points_;
  Vector c_{};
};

/// As MomentSums, for any number of coefficients.
class ManyMomentSums {
 public:
  template <typename Model>
  explicit ManyMomentSums(const Model& model)
      : of_x_(2 * model.MinimumWeights() - 1), of_y_(model.MinimumWeights()) {}

  template <typename Model>
  void Add(const Model& model, std::size_t i, double squared_weight) {
    const ZorPoint p = model.Points()[i];
    double power = squared_weight;
    for (std::size_t m = 0; m < of_x_.size(); ++m) {
      if (m > 0) power *= p.x;
      of_x_[m] += power;
      if (m < of_y_.size()) of_y_[m] += power * p.y;
    }
  }

  void AddTo(std::span<double> matrix, std::span<double> right_side) const {
    const std::size_t size = of_y_.size();
    for (std::size_t j = 0; j < size; ++j) {
      for (std::size_t k = 0; k < size; ++k) matrix[j * size + k] += of_x_[j + k];
      right_side[j] += of_y_[j];
    }
  }

 private:
  std::vector<double> of_x_;
  std::vector<double> of_y_;
};

/// A polynomial of any order, a point at a time.
class AnyPolynomial : public PolynomialRules {
 public:
  using Lane = double;
  using Vector = std::vector<double>;
  template <typename Real>
  using Row = std::vector<double>;
  template <typename Real>
  using Sums = ManyMomentSums;

  AnyPolynomial(std::span<const ZorPoint> points, std::size_t size)
      : points_(points), c_(size), row_(size) {}

  [[nodiscard]] Vector MakeVector() const { return Vector(c_.size()); }
  template <typename Real>
  [[nodiscard]] Row<Real> MakeRow() const {
    return Vector(c_.size());
  }
  [[nodiscard]] std::span<const ZorPoint> Points() const { return points_; }
  [[nodiscard]] std::size_t PointCount() const { return points_.size(); }
  [[nodiscard]] std::size_t MinimumWeights() const { return c_.size(); }

  template <typename Real>
  void FillRow(std::size_t i, Row<Real>& row) const {
    row[0] = 1.0;
    for (std::size_t j = 1; j < row.size(); ++j) row[j] = row[j - 1] * points_[i].x;
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    return points_[i].y;
  }
  void Settle(const Vector& c) { c_ = c; }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    return Magnitude(Residual<Real>(*this, i, c_, row_));
  }

 private:
  std::span<const ZorPoint> points_;
  Vector c_;
  mutable Vector row_;  // scratch of Error
};

/// Calls fit(model) with the model for the order.
template <typename Fit>
auto WithModel(std::span<const ZorPoint> points, int order, const Fit& fit) {
  switch (order) {
    case 1:
      return fit(SmallPolynomial<2>(points));
    case 2:
      return fit(SmallPolynomial<3>(points));
    case 3:
      return fit(SmallPolynomial<4>(points));
    case 4:
      return fit(SmallPolynomial<5>(points));
    default:
      return fit(AnyPolynomial(points, static_cast<std::size_t>(order) + 1));
  }
}

}  // namespace

std::optional<std::vector<double>> FitPolynomialSquares(std::span<const ZorPoint> points, int order,
                                                        int passes, double clip) {
  return WithModel(points, order, [&](auto model) -> std::optional<std::vector<double>> {
    auto c = model.MakeVector();
    if (!FitLeastSquares(model, passes, FixedClip(clip), c)) return std::nullopt;
    return std::vector<double>(c.begin(), c.end());
  });
}

std::vector<double> FitPolynomialAbsolute(std::span<const ZorPoint> points, int order, int passes,
                                          double clip) {
  return WithModel(points, order, [&](auto model) {
    auto c = model.MakeVector();
    FitLeastAbsolute(model, passes, FixedClip(clip), c);
    return std::vector<double>(c.begin(), c.end());
  });
}

double PolynomialAt(std::span<const double> ascending, double x) {
  double y = ascending.back();
  for (std::size_t j = ascending.size() - 1; j-- > 0;) y = y * x + ascending[j];
  return y;
}

}  // namespace zor::fitting
