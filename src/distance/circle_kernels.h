#pragma once

#include "ZorPoint.h"

namespace zor::distance {

/// A point this close to a centre (inclusive) has no direction from it. Pixels.
inline constexpr double kAtCentre = 1e-5;

/// A distance to a figure with the figure's nearest point.
struct Nearest {
  double distance;
  ZorPoint point;
};

/// Signed distance of p, `from_centre` away from the centre, to the circle: negative inside. From
/// the centre itself the nearest point is the one below it on the screen.
[[nodiscard]] inline Nearest NearestOnCircle(const ZorPoint& p, const ZorPoint& centre,
                                             double radius, double from_centre) {
  if (from_centre <= kAtCentre) return {-radius, {centre.x, centre.y + radius}};
  return {from_centre - radius,
          {centre.x + radius * (p.x - centre.x) / from_centre,
           centre.y + radius * (p.y - centre.y) / from_centre}};
}

}  // namespace zor::distance
