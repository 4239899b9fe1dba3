#pragma once

#include <optional>

#include "ZorPoint.h"

// Lines are given by two points on them, segments by their ends; pixels.

namespace zor::elementary {

/// |d1.x * d2.y - d1.y * d2.x| < kParallelCross, each component rounded to single precision first.
/// Deliberate: the rounding and the missing normalisation decide borderline cases, and hosts rely
/// on those decisions.
[[nodiscard]] bool AreParallel(const ZorPoint& d1, const ZorPoint& d2);

/// Crossing of the lines p1p2 and p3p4 as the point that divides p3p4 in the ratio of the triangle
/// areas over p1p2; nothing when the two areas cancel exactly. Does not test for parallel lines.
///
///          p3            a1 = twice the area of p1 p3 p2
///         / .
///   p1 --x----- p2       x = (a2 p3 + a1 p4) / (a1 + a2)
///       /
///      p4                a2 = twice the area of p1 p2 p4
[[nodiscard]] std::optional<ZorPoint> IntersectLines(const ZorPoint& p1, const ZorPoint& p2,
                                                     const ZorPoint& p3, const ZorPoint& p4);

/// Unsigned distance of p from the line ab: the area over p, relative to p, over the length.
[[nodiscard]] double PointToLine(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b);

/// A second point of the perpendicular to ab through p: p plus ab turned by a quarter turn.
[[nodiscard]] inline ZorPoint PerpendicularThrough(const ZorPoint& p, const ZorPoint& a,
                                                   const ZorPoint& b) {
  return {p.x + (a.y - b.y), p.y + (b.x - a.x)};
}

/// Slope of the perpendicular bisector of ab; infinite or not a number when a.y equals b.y.
[[nodiscard]] inline double BisectorSlope(const ZorPoint& a, const ZorPoint& b) {
  return -(a.x - b.x) / (a.y - b.y);
}

/// The third vertex of triangle t0 t1 t2 when t0t1 is turned onto the direction of s0s1 and t0 put
/// on s0. Not a number when t0 = t1 or s0 = s1.
[[nodiscard]] ZorPoint CarryThirdVertex(const ZorPoint& t0, const ZorPoint& t1, const ZorPoint& t2,
                                        const ZorPoint& s0, const ZorPoint& s1);

}  // namespace zor::elementary
