#pragma once

#include <algorithm>
#include <cmath>
#include <span>

#include "ZorPoint.h"
#include "elementary/relation_codes.h"

// A polygon is closed: its last vertex joins its first.

namespace zor::elementary {

/// A point this close (inclusive) to an edge, along its scan line, or across a horizontal edge, is
/// on the outline. Pixels.
inline constexpr double kOutlineReach = 1e-5;

/// What one edge says of a point: nothing, the ray from the point towards +x crosses it, or the
/// point is on it.
enum class EdgeVerdict { kNothing, kCrosses, kTouches };

/// The half-open rule, min(y) <= p.y < max(y): a vertex on the scan line counts once.
[[nodiscard]] inline bool MeetsScanLine(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  return (a.y <= p.y) != (b.y <= p.y);
}

/// Where an edge that meets the scan line of p crosses it.
[[nodiscard]] inline double ScanCrossing(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  return (p.y - a.y) * (b.x - a.x) / (b.y - a.y) + a.x;
}

/// Whether p is on the horizontal edge ab.
[[nodiscard]] inline bool IsOnHorizontal(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  return std::fabs(p.y - a.y) <= kOutlineReach && std::min(a.x, b.x) <= p.x &&
         p.x <= std::max(a.x, b.x);
}

/// The verdict of edge ab on p.
[[nodiscard]] inline EdgeVerdict JudgeEdge(const ZorPoint& p, const ZorPoint& a,
                                           const ZorPoint& b) {
  // Deliberate: a vertex is on the outline, and only this test sees to it where both of its edges
  // run upwards on the screen: the half-open rule passes over their common end.
  if (b == p) return EdgeVerdict::kTouches;
  if (a.y == b.y) {
    return IsOnHorizontal(p, a, b) ? EdgeVerdict::kTouches : EdgeVerdict::kNothing;
  }
  if (!MeetsScanLine(p, a, b)) return EdgeVerdict::kNothing;
  const double x = ScanCrossing(p, a, b);
  if (std::fabs(x - p.x) <= kOutlineReach) return EdgeVerdict::kTouches;
  return x > p.x ? EdgeVerdict::kCrosses : EdgeVerdict::kNothing;
}

/// Relation of p to the polygon: on the outline when an edge says so, inside when the ray from p
/// towards +x crosses an odd number of edges. An empty polygon has every point outside. Linear;
/// PolygonIndex gives the same answers for many points.
///
///      _____________
///     /   p --------\--->   one crossing: inside
///    /_______________\      on the outline within 1e-5 along x of slanted edges, along y of
///                           horizontal ones
[[nodiscard]] int PolygonRelation(const ZorPoint& p, std::span<const ZorPoint> polygon);

}  // namespace zor::elementary
