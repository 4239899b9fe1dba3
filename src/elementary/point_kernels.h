#pragma once

#include <cmath>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::elementary {

[[nodiscard]] inline double Distance(const ZorPoint& a, const ZorPoint& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

[[nodiscard]] inline ZorPoint Midpoint(const ZorPoint& a, const ZorPoint& b) {
  return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

/// u.x * v.y - u.y * v.x: positive when v lies clockwise of u on the screen (y grows downwards).
[[nodiscard]] inline double Cross(const ZorPoint& u, const ZorPoint& v) {
  return u.x * v.y - u.y * v.x;
}

[[nodiscard]] inline double Dot(const ZorPoint& u, const ZorPoint& v) {
  return u.x * v.x + u.y * v.y;
}

[[nodiscard]] inline double Norm(const ZorPoint& v) { return std::sqrt(v.x * v.x + v.y * v.y); }

/// Twice the signed area of the triangle a, b, c.
[[nodiscard]] inline double TriangleCross(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
  return Cross(b - a, c - a);
}

/// -0.0 becomes +0.0, all else stays.
[[nodiscard]] inline ZorPoint WithoutNegativeZeros(const ZorPoint& p) {
  return {std::fabs(p.x) == 0.0 ? 0.0 : p.x, std::fabs(p.y) == 0.0 ? 0.0 : p.y};
}

/// p turned about centre by angle_deg, counter-clockwise on the screen, with the ten-digit pi.
[[nodiscard]] ZorPoint RotateOnScreen(const ZorPoint& p, const ZorPoint& centre, double angle_deg);

/// p turned about centre by angle_deg from +x towards +y (clockwise on the screen), with full pi.
[[nodiscard]] ZorPoint RotateInCoordinates(const ZorPoint& p, const ZorPoint& centre,
                                           double angle_deg);

/// The points less every one within kCoincident (inclusive) of its predecessor in the given list,
/// then less the last one left when it lies that close to the first: a lone point is within reach
/// of itself and goes too.
[[nodiscard]] std::vector<ZorPoint> WithoutCoincidentNeighbours(std::span<const ZorPoint> points);

/// The points less every one within kNearby = 1.0 (inclusive) of any earlier point of the given
/// list, removed ones included. Linear in the number of points, but quadratic in that of the points
/// with a coordinate of about 1e9 or more.
[[nodiscard]] std::vector<ZorPoint> WithoutNearbyPoints(std::span<const ZorPoint> points);

/// The sequence that begins at `start`, taken cyclically.
[[nodiscard]] std::vector<ZorPoint> RotatedSequence(std::span<const ZorPoint> points, int start);

}  // namespace zor::elementary
