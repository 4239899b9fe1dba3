#pragma once

#include <span>
#include <vector>

#include "ZorPointArray.h"

// What the selections of both exported classes share. Kept are the points whose relation to the
// region is not "outside", in order. While a sink is attached every point's relation is the traced
// operation, which has been given valid arguments; without one the prepared region is asked.

namespace zor::intersection {

[[nodiscard]] std::vector<ZorPoint> KeptByCircle(std::span<const ZorPoint> points,
                                                 const ZorPoint& centre, double radius);

[[nodiscard]] std::vector<ZorPoint> KeptByOval(std::span<const ZorPoint> points,
                                               const ZorPoint& centre, double a, double b,
                                               double angle_deg);

/// One point after the other; the polygon has at least 3 vertices.
[[nodiscard]] std::vector<ZorPoint> KeptByPolygon(std::span<const ZorPoint> points,
                                                  ZorPointArray& polygon);

/// As KeptByPolygon, as a parallel reduction over the points.
[[nodiscard]] std::vector<ZorPoint> KeptByPolygonInParallel(std::span<const ZorPoint> points,
                                                            ZorPointArray& polygon);

}  // namespace zor::intersection
