#pragma once

#include <cmath>
#include <optional>

#include "ZorPoint.h"
#include "elementary/point_kernels.h"
#include "frame/rounding.h"
#include "frame/tolerances.h"

// Lines are given by two points on them, segments by their ends; pixels.

namespace zor::elementary {

/// |d1.x * d2.y - d1.y * d2.x| < kParallelCross, each component rounded to single precision first.
/// Deliberate: the rounding and the missing normalisation decide borderline cases, and hosts rely
/// on those decisions.
[[nodiscard]] inline bool AreParallel(const ZorPoint& d1, const ZorPoint& d2) {
  const double cross = frame::RoundToFloat(d1.x) * frame::RoundToFloat(d2.y) -
                       frame::RoundToFloat(d1.y) * frame::RoundToFloat(d2.x);
  return std::fabs(cross) < frame::kParallelCross;
}

/// Crossing of the lines p1p2 and p3p4 as the point that divides p3p4 in the ratio of the triangle
/// areas over p1p2; nothing when the two areas cancel exactly. Does not test for parallel lines.
///
///          p3            a1 = twice the area of p1 p3 p2
///         / .
///   p1 --x----- p2       x = (a2 p3 + a1 p4) / (a1 + a2)
///       /
///      p4                a2 = twice the area of p1 p2 p4
[[nodiscard]] inline std::optional<ZorPoint> IntersectLines(const ZorPoint& p1, const ZorPoint& p2,
                                                            const ZorPoint& p3,
                                                            const ZorPoint& p4) {
  const double a1 = TriangleCross(p1, p3, p2);
  const double a2 = TriangleCross(p1, p2, p4);
  if (a1 + a2 == 0.0) return std::nullopt;
  return ZorPoint((a2 * p3.x + a1 * p4.x) / (a1 + a2), (a2 * p3.y + a1 * p4.y) / (a1 + a2));
}

/// Unsigned distance of p from the line ab: the area over p, relative to p, over the length.
[[nodiscard]] inline double PointToLine(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  const ZorPoint u = a - p;
  const ZorPoint v = b - p;
  return std::fabs(u.x * v.y - v.x * u.y) / Norm(u - v);
}

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
