#pragma once

#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

/// The most neighbours on either side of a point that its normal is taken from.
inline constexpr int kMaxNormalNeighbours = 100;

// Normals of an open sequence of points: unit vectors, the direction of travel turned by a quarter
// turn from +x towards +y (to the right of it on the screen):
//
//     p0 ---> p1 ---> p2
//      |       |       |
//      v n0    v n1    v n2

/// The normal of every point to the chord between its neighbours, at either end to the chord
/// between the end and its neighbour. A neighbour is the nearest point that differs from the point;
/// where the two neighbours coincide (a hairpin) the chord comes from the earlier one alone.
/// Nothing when all points coincide. O(n).
[[nodiscard]] std::optional<std::vector<ZorPoint>> ChordNormals(std::span<const ZorPoint> points);

/// The normal of every point to the parabola that approximates it and its neighbours, as many on
/// either side as given and as there are: v = a + b u + c u^2 by least squares, u along the chord
/// of the window and measured from the point, so that b is the slope there. While the window turns
/// past half a circle, where v is no function of u, the number of neighbours is halved. The chord
/// normal where three points with different u are not to be had, or the parabola runs against the
/// chord. Where one step in eight or more goes back on the one before, the points are noise about a
/// curve, on which neither can be told: the whole window counts. Nothing when all points coincide.
/// Precondition: 1 <= neighbours <= kMaxNormalNeighbours. O(n neighbours).
[[nodiscard]] std::optional<std::vector<ZorPoint>> ParabolaNormals(std::span<const ZorPoint> points,
                                                                   int neighbours);

}  // namespace zor::fitting
