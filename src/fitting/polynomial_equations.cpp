#include "fitting/polynomial_equations.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace zor::fitting {
namespace {

constexpr double kTinyPivot = 1e-20;

/// Square, row by row.
class Matrix {
 public:
  explicit Matrix(std::size_t size) : size_(size), elements_(size * size, 0.0) {}
  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] double* operator[](std::size_t row) { return elements_.data() + row * size_; }
  [[nodiscard]] const double* operator[](std::size_t row) const {
    return elements_.data() + row * size_;
  }

 private:
  std::size_t size_;
  std::vector<double> elements_;
};

// The square by multiplication, the higher powers by pow: they differ in the last bit.
void FillPowers(double x, std::vector<double>& powers) {
  const double low[] = {1.0, x, x * x};
  for (std::size_t j = 0; j < powers.size(); ++j) {
    powers[j] = j < 3 ? low[j] : std::pow(x, static_cast<double>(j));
  }
}

void AccumulateEquations(std::span<const ZorPoint> points, Matrix& a, std::vector<double>& side) {
  const std::size_t size = a.Size();
  std::vector<double> powers(size);
  for (const ZorPoint& p : points) {
    FillPowers(p.x, powers);
    for (std::size_t j = 0; j < size; ++j) {
      for (std::size_t k = j; k < size; ++k) a[j][k] += powers[j] * powers[k];
      side[j] += p.y * powers[j];
    }
  }
  for (std::size_t j = 0; j < size; ++j) {
    for (std::size_t k = 0; k < j; ++k) a[j][k] = a[k][j];
  }
}

// 1 / largest magnitude of each row.
std::optional<std::vector<double>> RowScales(const Matrix& a) {
  std::vector<double> scales(a.Size());
  for (std::size_t i = 0; i < a.Size(); ++i) {
    double largest = 0.0;
    for (std::size_t j = 0; j < a.Size(); ++j) {
      const double magnitude = std::fabs(a[i][j]);
      if (magnitude > largest) largest = magnitude;
    }
    if (largest == 0.0) return std::nullopt;
    scales[i] = 1.0 / largest;
  }
  return scales;
}

// a[i][j] less the sum of the first `terms` products of row i with column j.
double Reduced(const Matrix& a, std::size_t i, std::size_t j, std::size_t terms) {
  double sum = a[i][j];
  for (std::size_t k = 0; k < terms; ++k) sum -= a[i][k] * a[k][j];
  return sum;
}

// In place, column by column: the unit lower factor below the diagonal, the upper one on and above
// it. Gives the row exchanges in order.
std::optional<std::vector<std::size_t>> Decompose(Matrix& a) {
  auto scales = RowScales(a);
  if (!scales) return std::nullopt;
  const std::size_t size = a.Size();
  std::vector<std::size_t> exchanges(size);
  for (std::size_t j = 0; j < size; ++j) {
    for (std::size_t i = 0; i < j; ++i) a[i][j] = Reduced(a, i, j, i);
    std::size_t pivot = j;
    double best = 0.0;
    for (std::size_t i = j; i < size; ++i) {
      a[i][j] = Reduced(a, i, j, j);
      const double merit = (*scales)[i] * std::fabs(a[i][j]);
      if (merit >= best) {
        best = merit;
        pivot = i;
      }
    }
    if (pivot != j) {
      for (std::size_t k = 0; k < size; ++k) std::swap(a[pivot][k], a[j][k]);
      (*scales)[pivot] = (*scales)[j];
    }
    exchanges[j] = pivot;
    if (a[j][j] == 0.0) a[j][j] = kTinyPivot;
    const double reciprocal = 1.0 / a[j][j];
    for (std::size_t i = j + 1; i < size; ++i) a[i][j] *= reciprocal;
  }
  return exchanges;
}

void Substitute(const Matrix& lu, const std::vector<std::size_t>& exchanges,
                std::vector<double>& side) {
  const std::size_t size = lu.Size();
  for (std::size_t i = 0; i < size; ++i) {
    std::swap(side[i], side[exchanges[i]]);
    for (std::size_t k = 0; k < i; ++k) side[i] -= lu[i][k] * side[k];
  }
  for (std::size_t i = size; i-- > 0;) {
    for (std::size_t k = i + 1; k < size; ++k) side[i] -= lu[i][k] * side[k];
    side[i] /= lu[i][i];
  }
}

}  // namespace

std::optional<std::vector<double>> SolvePolynomialEquations(std::span<const ZorPoint> points,
                                                            int order) {
  if (order > kMaxEquationOrder) return std::nullopt;
  Matrix a(static_cast<std::size_t>(order) + 1);
  std::vector<double> side(a.Size(), 0.0);
  AccumulateEquations(points, a, side);
  const auto exchanges = Decompose(a);
  if (!exchanges) return std::nullopt;
  Substitute(a, *exchanges, side);
  return side;
}

}  // namespace zor::fitting
