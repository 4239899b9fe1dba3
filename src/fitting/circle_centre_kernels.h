#pragma once

#include <optional>
#include <span>

#include "ZorPoint.h"
#include "fitting/circle_fit_kernels.h"

// Circles put together from their centres' constructions instead of a fit.

namespace zor::fitting {

/// The mean of the intersections of all pairs of perpendicular bisectors of consecutive points,
/// with the points' mean distance; nothing without an intersection, or when a value is not a
/// number. Centre coordinates below 1e-6, negative ones too, become 0 before the radius is taken.
/// O(n^2): every pair of bisectors counts, 7 ms for 1000 points.
[[nodiscard]] std::optional<Circle> CircleByBisectors(std::span<const ZorPoint> points);

/// The centre of rotation of points that carry an angle each (degrees): every three of them
/// contribute the centre of the rotation by the difference of the first two's angles that carries
/// the first onto the second, taken in the sense that fits the three distances better. O(n^3), by
/// definition every three count; O(1) memory. Precondition: at least three points, as many angles.
[[nodiscard]] Circle CircleByRotations(std::span<const ZorPoint> points,
                                       std::span<const double> angles_deg);

/// The second point of the line through a point at its angle (degrees) from +x towards +y.
[[nodiscard]] ZorPoint AlongAngle(const ZorPoint& p, double angle_deg);

/// A point of the perpendicular bisector of ab other than its midpoint m. Precondition: a and b
/// differ by 1e-6 at least in one coordinate.
[[nodiscard]] ZorPoint AlongBisector(const ZorPoint& a, const ZorPoint& b, const ZorPoint& m);

/// The points differ by less than 1e-6 in both coordinates.
[[nodiscard]] bool AreOnePoint(const ZorPoint& a, const ZorPoint& b);

/// The circle from the points where the lines of two points at their angles meet the bisector: at
/// their middle, snapped to four decimals (below 1e-5 to 0), with the mean of the distances.
[[nodiscard]] Circle CircleOnBisector(const ZorPoint& p0, const ZorPoint& hit0, const ZorPoint& p1,
                                      const ZorPoint& hit1);

}  // namespace zor::fitting
