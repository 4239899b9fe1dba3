#pragma once

#include <span>

namespace zor::fitting {

enum class Decomposition { kLu, kQr, kEigen };

/// Solves matrix * solution = right_side for a square matrix stored by rows; false when the solver
/// reports failure. What it then leaves is the solver's: LU of up to three equations leaves
/// `solution` as it was, LU of more and QR leave zeros; the eigen-decomposition always succeeds. QR
/// does not see every singular matrix and then leaves what is not a number.
[[nodiscard]] bool SolveSystem(std::span<double> matrix, std::span<double> right_side,
                               std::span<double> solution, Decomposition decomposition);

/// The inverse of a square matrix stored by rows; by LU, zeros when it is singular.
void Invert(std::span<double> matrix, std::span<double> inverse, Decomposition decomposition);

}  // namespace zor::fitting
