#pragma once

#include <algorithm>

#include "ZorPoint.h"
#include "distance/point_pair.h"
#include "elementary/segment_distance_kernels.h"

namespace zor::distance {

/// A point this close to a centre (inclusive) has no direction from it. Pixels.
inline constexpr double kAtCentre = 1e-5;

/// Signed distances of at most this size (inclusive) count as 0 where a segment touches a circle.
inline constexpr double kTouchesCircle = 1e-5;

/// A distance to a figure with the figure's nearest point.
struct Nearest {
  double distance;
  ZorPoint point;
};

/// Signed distance to the circle of a point `from_centre` away from its centre: negative inside.
[[nodiscard]] inline double DistanceFromCircle(double from_centre, double radius) {
  return from_centre <= kAtCentre ? -radius : from_centre - radius;
}

/// Signed distance of p, `from_centre` away from the centre, to the circle: negative inside. From
/// the centre itself the nearest point is the one below it on the screen.
[[nodiscard]] inline Nearest NearestOnCircle(const ZorPoint& p, const ZorPoint& centre,
                                             double radius, double from_centre) {
  if (from_centre <= kAtCentre) return {-radius, {centre.x, centre.y + radius}};
  return {from_centre - radius,
          {centre.x + radius * (p.x - centre.x) / from_centre,
           centre.y + radius * (p.y - centre.y) / from_centre}};
}

/// The least signed distance along segment ab, which is not degenerate, to the circle; 0 where the
/// segment meets or touches the outline. The distances of its ends from the centre are given.
[[nodiscard]] inline double LeastAlongSegment(const ZorPoint& a, double a_from_centre,
                                              const ZorPoint& b, double b_from_centre,
                                              const ZorPoint& centre, double radius) {
  const double from_centre = elementary::PointToSegment(centre, a, b);
  // What is not a number meets nothing.
  const bool is_in_reach = from_centre - radius <= kTouchesCircle;
  const bool reaches_out = radius - std::max(a_from_centre, b_from_centre) <= kTouchesCircle;
  return is_in_reach && reaches_out ? 0.0 : DistanceFromCircle(from_centre, radius);
}

/// The points of LeastAlongSegment: where the segment first meets the outline or else comes closest
/// to it for a distance of 0, and where it is nearest to the centre for any other.
[[nodiscard]] PointPair LeastPairAlongSegment(const ZorPoint& a, const ZorPoint& b,
                                              const ZorPoint& centre, double radius, double least);

}  // namespace zor::distance
