#include "fitting/small_solve.h"

#include <cassert>
#include <cstddef>

#include <opencv2/core.hpp>

namespace zor::fitting {
namespace {

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

}  // namespace

bool SolveSystem(std::span<double> matrix, std::span<double> right_side, std::span<double> solution,
                 Decomposition decomposition) {
  const int rows = static_cast<int>(right_side.size());
  if (rows == 2 && decomposition == Decomposition::kLu) {
    return SolvePair(matrix, right_side, solution);
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
