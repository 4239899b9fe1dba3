#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::shape {

struct PointPair {
  ZorPoint first;
  ZorPoint second;
};

/// The pair that comparing every point with every later one finds: the largest distance as
/// computed, sqrt(dx*dx + dy*dy) in double, of equal ones the earliest in the order (0,1), (0,2),
/// ..., (1,2), .... Two points are given back as they are; of more that all coincide, or have no
/// comparable distance, two default points. At least two points.
///
/// Linear in the number of points but for those that lie where a farthest point can lie; these take
/// about n log n. Quadratic only for up to a few dozen points, for coordinates that are infinite or
/// differ by less than 1e-100 or more than 1e100, and for clusters whose distances are made to
/// agree in all but the last bits.
[[nodiscard]] PointPair FarthestPair(std::span<const ZorPoint> points);

}  // namespace zor::shape
