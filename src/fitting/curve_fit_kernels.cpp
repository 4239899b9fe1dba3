#include "fitting/curve_fit_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include <opencv2/core.hpp>

namespace zor::fitting {
namespace {

constexpr std::size_t kMostCoefficients = kMaxCurveOrder + 1;

double Along(const ZorPoint& p, CurveAxis axis) { return axis == CurveAxis::kX ? p.x : p.y; }
double Across(const ZorPoint& p, CurveAxis axis) { return axis == CurveAxis::kX ? p.y : p.x; }

bool HasDistinct(std::span<const ZorPoint> points, CurveAxis axis, std::size_t wanted) {
  std::array<double, kMostCoefficients> found{};
  std::size_t count = 0;
  for (const ZorPoint& p : points) {
    const auto end = found.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::find(found.begin(), end, Along(p, axis)) != end) continue;
    found[count++] = Along(p, axis);
    if (count == wanted) return true;
  }
  return false;
}

struct Window {
  double middle = 0.0;
  double half_width = 0.0;
};

Window WindowOf(std::span<const ZorPoint> points, CurveAxis axis) {
  double low = Along(points.front(), axis);
  double high = low;
  for (const ZorPoint& p : points) {
    if (Along(p, axis) < low) low = Along(p, axis);
    if (Along(p, axis) > high) high = Along(p, axis);
  }
  return {low + (high - low) / 2, (high - low) / 2};
}

/// The sums of T_m(t) and of v T_j(t), T_m the Chebyshev polynomials, in the scaled coordinate t.
struct Moments {
  std::array<double, 2 * kMostCoefficients - 1> of_t{};
  std::array<double, kMostCoefficients> of_v{};
};

Moments Gather(std::span<const ZorPoint> points, CurveAxis axis, const Window& window,
               std::size_t size) {
  Moments sums;
  for (const ZorPoint& p : points) {
    const double t = (Along(p, axis) - window.middle) / window.half_width;
    const double v = Across(p, axis);
    double value = 1.0;
    double next = t;
    const auto advance = [&] { value = std::exchange(next, 2 * t * next - value); };
    for (std::size_t j = 0; j < size; ++j, advance()) {
      sums.of_t[j] += value;
      sums.of_v[j] += v * value;
    }
    for (std::size_t m = size; m + 1 < 2 * size; ++m, advance()) sums.of_t[m] += value;
  }
  return sums;
}

// Coefficients of T_0, T_1, ...: unlike those of the powers of t their equations stay regular in
// double precision up to the highest order, even on as few evenly spaced points as it takes.
// T_j T_k = (T_(j+k) + T_|j-k|) / 2. Means rather than sums, so that the solver's bound on pivots
// does not depend on the count.
bool Solve(const Moments& sums, std::size_t size, std::array<double, kMostCoefficients>& c) {
  const int rows = static_cast<int>(size);
  std::array<double, kMostCoefficients * kMostCoefficients> equations;
  std::array<double, kMostCoefficients> side;
  for (std::size_t j = 0; j < size; ++j) {
    for (std::size_t k = 0; k < size; ++k) {
      const double twice = sums.of_t[j + k] + sums.of_t[j > k ? j - k : k - j];
      equations[j * size + k] = twice / (2 * sums.of_t[0]);
    }
    side[j] = sums.of_v[j] / sums.of_t[0];
  }
  cv::Mat solution(rows, 1, CV_64F, c.data());
  return cv::solve(cv::Mat(rows, rows, CV_64F, equations.data()),
                   cv::Mat(rows, 1, CV_64F, side.data()), solution, cv::DECOMP_LU);
}

using PowerTable = std::array<std::array<double, kMostCoefficients>, kMostCoefficients>;

// Row m: T_m in ascending powers, T_m = 2 t T_(m-1) - T_(m-2); whole numbers below 2^53.
constexpr PowerTable ChebyshevPowers() {
  PowerTable table{};
  table[0][0] = 1.0;
  table[1][1] = 1.0;
  for (std::size_t m = 2; m < kMostCoefficients; ++m) {
    for (std::size_t j = 0; j <= m; ++j) {
      table[m][j] = (j > 0 ? 2 * table[m - 1][j - 1] : 0.0) - table[m - 2][j];
    }
  }
  return table;
}

// From the coefficients of T_0, T_1, ... to those of the powers of t, ascending.
void ExpandToPowers(std::size_t size, std::array<double, kMostCoefficients>& c) {
  static constexpr PowerTable kPowers = ChebyshevPowers();
  for (std::size_t j = 0; j < size; ++j) {  // T_m has powers up to m only
    double sum = 0.0;
    for (std::size_t m = j; m < size; m += 2) sum += c[m] * kPowers[m][j];
    c[j] = sum;
  }
}

// From ascending coefficients in t = (x - middle) / half_width to those in x, by Horner's scheme.
void Unscale(const Window& window, std::size_t size, std::array<double, kMostCoefficients>& c) {
  double scale = 1.0;
  for (std::size_t j = 0; j < size; ++j, scale *= window.half_width) c[j] /= scale;
  for (std::size_t i = 0; i + 1 < size; ++i) {
    for (std::size_t j = size - 1; j-- > i;) c[j] -= window.middle * c[j + 1];
  }
}

}  // namespace

std::optional<std::vector<double>> FitCurvePolynomial(std::span<const ZorPoint> points, int order,
                                                      CurveAxis axis) {
  const std::size_t size = static_cast<std::size_t>(order) + 1;
  if (!HasDistinct(points, axis, size)) return std::nullopt;
  const Window window = WindowOf(points, axis);
  std::array<double, kMostCoefficients> c{};
  if (!Solve(Gather(points, axis, window, size), size, c)) return std::nullopt;
  ExpandToPowers(size, c);
  Unscale(window, size, c);
  const auto end = c.begin() + static_cast<std::ptrdiff_t>(size);
  if (!std::all_of(c.begin(), end, [](double value) { return std::isfinite(value); })) {
    return std::nullopt;
  }
  return std::vector<double>(std::make_reverse_iterator(end), c.rend());
}

}  // namespace zor::fitting
