#pragma once

#include <optional>
#include <span>

#include "ZorPoint.h"

// Circles through at least three points, by the algebraic model x^2 + y^2 + D x + E y + F = 0:
// centre
// (-D/2, -E/2), radius sqrt(cx^2 + cy^2 - F), not a number where that is no circle.

namespace zor::fitting {

struct Circle {
  ZorPoint centre;
  double radius = 0.0;
};

/// The circle with the least sum of squares of the model's equation, in closed form; nothing when
/// its sums are singular, as for points on a line. (I. Kasa, "A circle fitting procedure and its
/// error analysis", 1976.)
[[nodiscard]] std::optional<Circle> FitCircleAlgebraic(std::span<const ZorPoint> points);

/// `passes` re-weighted fits of the model, weighted by the points' distances from the circle.
/// Precondition: passes >= 1.
[[nodiscard]] Circle FitCircleSquares(std::span<const ZorPoint> points, int passes, double clip);
[[nodiscard]] Circle FitCircleAbsolute(std::span<const ZorPoint> points, int passes, double clip);

}  // namespace zor::fitting
