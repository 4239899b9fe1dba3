#pragma once

#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

// Iteratively re-weighted polynomials y(x) (robust_fit.h), coefficients c0 .. cn in ascending
// order, by the normal equations in the raw powers of x. Precondition: a point, order >= 0,
// passes >= 1.

/// By least squares. Nothing when the equations of a pass cannot be solved. O(passes N order).
[[nodiscard]] std::optional<std::vector<double>> FitPolynomialSquares(
    std::span<const ZorPoint> points, int order, int passes, double clip);

/// By least absolute deviations. Singular equations give zeros. O(passes N order), times the steps
/// of a pass, at most 50.
[[nodiscard]] std::vector<double> FitPolynomialAbsolute(std::span<const ZorPoint> points, int order,
                                                        int passes, double clip);

/// c0 + c1 x + ... by Horner's rule, highest power first. Precondition: a coefficient.
[[nodiscard]] double PolynomialAt(std::span<const double> ascending, double x);

}  // namespace zor::fitting
