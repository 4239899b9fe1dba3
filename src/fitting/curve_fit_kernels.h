#pragma once

#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

/// Orders that FitCurvePolynomial can resolve in double precision.
inline constexpr int kMaxCurveOrder = 20;

/// Which coordinate a curve is a function of.
enum class CurveAxis { kX, kY };

/// Coefficients, highest power first, of the least-squares polynomial y(x) (kX) or x(y) (kY) over
/// all points. The equations are set up in the Chebyshev polynomials of the coordinate centred and
/// scaled to [-1, 1], so that a short window far from the origin keeps its digits until the
/// coefficients are expanded. Nothing with fewer than order + 1 different coordinates along the
/// axis, some so close together that the equations are singular, or coefficients that are not
/// finite.
/// Precondition: 1 <= order <= kMaxCurveOrder. O(N order).
[[nodiscard]] std::optional<std::vector<double>> FitCurvePolynomial(
    std::span<const ZorPoint> points, int order, CurveAxis axis);

}  // namespace zor::fitting
