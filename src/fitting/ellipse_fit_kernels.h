#pragma once

#include <functional>
#include <optional>
#include <span>

#include "ZorPoint.h"

// Ellipses through at least five points.

namespace zor::fitting {

/// Semi-axes in pixels, the angle of the first in degrees, counter-clockwise on the screen.
struct Ellipse {
  ZorPoint centre;
  double a = 0.0;
  double b = 0.0;
  double angle_deg = 0.0;
};

/// OpenCV's fitEllipse, of coordinates cut to whole numbers towards zero, or rounded to single
/// precision; the sign of its angle is reversed.
[[nodiscard]] Ellipse FitEllipseToWholePoints(std::span<const ZorPoint> points);
[[nodiscard]] Ellipse FitEllipseToFloatPoints(std::span<const ZorPoint> points);

/// The distance of a point from an ellipse, for a caller that has to see every point measured; the
/// fits call it for all points in order between two passes. Empty: measured by our own kernel,
/// faster and with the same results.
using EllipseDistance = std::function<double(const ZorPoint&, const Ellipse&)>;

/// `passes` re-weighted fits of a conic x^2 + q0 x y + q1 y^2 + q2 x + q3 y + q4 = 0 in coordinates
/// divided by their largest magnitudes, weighted by the points' distances from the ellipse. The
/// axes are not ordered: where the origin lies outside, the first can be the minor one. Not guarded
/// against conics that are no ellipses: infinite values, or what is not a number. Precondition:
/// passes >= 1. Squares: nothing when a system cannot be solved.
[[nodiscard]] std::optional<Ellipse> FitEllipseSquares(std::span<const ZorPoint> points, int passes,
                                                       double clip,
                                                       const EllipseDistance& observed);
[[nodiscard]] Ellipse FitEllipseAbsolute(std::span<const ZorPoint> points, int passes, double clip,
                                         const EllipseDistance& observed);

}  // namespace zor::fitting
