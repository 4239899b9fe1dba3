#pragma once

#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

/// Beyond it nothing is solved: the powers of a coordinate above 2 leave the range of a double long
/// before, and the matrix must not grow with whatever number a host passes.
inline constexpr int kMaxEquationOrder = 1000;

/// Coefficients c0 .. cn of the least-squares polynomial y(x), by the normal equations in the raw
/// powers of x: Crout's decomposition (P. D. Crout, "A short method for evaluating determinants and
/// solving systems of linear equations with real or complex coefficients", 1941) with partial
/// pivoting on implicitly scaled rows. An exactly zero pivot counts as 1e-20, so that consistent
/// equations of too few distinct points still give one of their solutions.
/// Nothing when a row of the matrix holds only zeros (or nothing comparable), or the order exceeds
/// kMaxEquationOrder. Precondition: order >= 0. O(N n^2 + n^3).
[[nodiscard]] std::optional<std::vector<double>> SolvePolynomialEquations(
    std::span<const ZorPoint> points, int order);

}  // namespace zor::fitting
