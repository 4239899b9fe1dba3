#pragma once

#include <optional>
#include <span>

#include "ZorPoint.h"
#include "shape/circle.h"

namespace zor::shape {

/// How much larger than the circle found another one may be, relative to the larger side of the
/// polygon's bounding box; no smaller circle is found.
inline constexpr double kInscribedTolerance = 1e-7;

/// The largest circle inside a simple polygon, convex or not, in either direction; of equally large
/// ones any. Nothing when none fits that is larger than the tolerance, or a coordinate is not
/// finite. Of a polygon that crosses itself the inside is what an odd number of turns encloses; the
/// circle crosses no edge.
///
/// Branch and bound over squares, as for the pole of inaccessibility, with two additions: a square
/// keeps only the edges that can be nearest to a point of it, and is bounded by the highest point
/// under the planes that these edges' distances are, or lie below, over the square. That bound is
/// exact for the three edges about a maximum and for the two along a level ridge, so that few
/// squares are split. Some milliseconds for thousands of vertices; combs and bands with as many
/// ridges take ten times as long.
[[nodiscard]] std::optional<Circle> LargestInscribedCircle(std::span<const ZorPoint> polygon);

/// The circle that touches the three sides of a triangle. Precondition: the corners are not on a
/// line.
[[nodiscard]] Circle TriangleIncircle(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c);

}  // namespace zor::shape
