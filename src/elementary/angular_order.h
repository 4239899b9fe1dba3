#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::elementary {

/// Orders the points by their direction from the centre, from +x towards +y, in [0, 360) degrees:
/// as if at each position in turn every later point with a strictly smaller angle were exchanged
/// into it. That decides the order of different points at the same angle; of more than 1000 points
/// these keep their order, and what is no number goes last. O(n log n) for many points.
void OrderByAngle(std::span<ZorPoint> points, const ZorPoint& centre);

}  // namespace zor::elementary
