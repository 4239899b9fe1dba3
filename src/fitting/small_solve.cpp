#include "fitting/small_solve.h"

#include <array>
#include <cassert>
#include <cmath>
#include <cstddef>

#include <opencv2/core.hpp>

namespace zor::fitting {
namespace {

inline constexpr double kSurelyRegular = 1e-9;  // of a diagonal; the solver doubts below 1e-15
inline constexpr double kSurelyFinite = 1e150;  // its square is finite

int FlagOf(Decomposition decomposition) {
  switch (decomposition) {
    case Decomposition::kLu:
      return cv::DECOMP_LU;
    case Decomposition::kQr:
      return cv::DECOMP_QR;
    case Decomposition::kEigen:
      return cv::DECOMP_EIG;
  }
  return cv::DECOMP_LU;
}

cv::Mat Square(std::span<double> values, int rows) {
  assert(values.size() == static_cast<std::size_t>(rows) * static_cast<std::size_t>(rows));
  return {rows, rows, CV_64F, values.data()};
}

/// Two equations by Cramer's rule, operation for operation as the solver does it, without its cost
/// of a call (0.1 us, as much as a sweep over 60 points).
bool SolvePair(std::span<const double> m, std::span<const double> b, std::span<double> solution) {
  const double determinant = m[0] * m[3] - m[1] * m[2];
  if (determinant == 0.0) return false;
  const double d = 1.0 / determinant;
  const double first = (b[0] * m[3] - b[1] * m[1]) * d;
  solution[1] = (b[1] * m[0] - b[0] * m[2]) * d;
  solution[0] = first;
  return true;
}

/// Three equations by Householder reflections (G. H. Golub, "Numerical methods for solving linear
/// least squares problems", 1965), as the solver decomposes them, at a sixth of the cost of a call.
/// False, with nothing written, where the solver's own verdict on a singular matrix is wanted.
bool ReflectThree(std::span<const double> m, std::span<const double> b,
                  std::span<double> solution) {
  constexpr std::size_t kRows = 3;
  std::array<std::array<double, kRows + 1>, kRows> a{
      {{m[0], m[1], m[2], b[0]}, {m[3], m[4], m[5], b[1]}, {m[6], m[7], m[8], b[2]}}};
  for (std::size_t c = 0; c < kRows; ++c) {
    double squares = 0.0;
    for (std::size_t i = c; i < kRows; ++i) squares += a[i][c] * a[i][c];
    const double norm = std::sqrt(squares);
    if (!(norm > kSurelyRegular && norm < kSurelyFinite)) return false;
    const double diagonal = a[c][c] >= 0 ? -norm : norm;
    a[c][c] -= diagonal;                        // the column is the reflection's normal now
    const double normal = -diagonal * a[c][c];  // half its square
    for (std::size_t j = c + 1; j <= kRows; ++j) {
      double along = 0.0;
      for (std::size_t i = c; i < kRows; ++i) along += a[i][c] * a[i][j];
      for (std::size_t i = c; i < kRows; ++i) a[i][j] -= along / normal * a[i][c];
    }
    a[c][c] = diagonal;
  }
  for (std::size_t i = kRows; i-- > 0;) {
    double value = a[i][kRows];
    for (std::size_t j = i + 1; j < kRows; ++j) value -= a[i][j] * solution[j];
    solution[i] = value / a[i][i];
  }
  return true;
}

}  // namespace

bool SolveSystem(std::span<double> matrix, std::span<double> right_side, std::span<double> solution,
                 Decomposition decomposition) {
  const int rows = static_cast<int>(right_side.size());
  if (rows == 2 && decomposition == Decomposition::kLu) {
    return SolvePair(matrix, right_side, solution);
  }
  if (rows == 3 && decomposition == Decomposition::kQr &&
      ReflectThree(matrix, right_side, solution)) {
    return true;
  }
  cv::Mat out(rows, 1, CV_64F, solution.data());  // of the right shape: written in place
  return cv::solve(Square(matrix, rows), cv::Mat(rows, 1, CV_64F, right_side.data()), out,
                   FlagOf(decomposition));
}

void Invert(std::span<double> matrix, std::span<double> inverse, Decomposition decomposition) {
  int rows = 1;
  while (static_cast<std::size_t>(rows) * static_cast<std::size_t>(rows) < matrix.size()) ++rows;
  cv::Mat out = Square(inverse, rows);
  cv::invert(Square(matrix, rows), out, FlagOf(decomposition));
}

}  // namespace zor::fitting
