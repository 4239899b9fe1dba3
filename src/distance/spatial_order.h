#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "ZorPoint.h"
#include "distance/box.h"

namespace zor::distance {

/// The indices of points in `box` in an order that keeps neighbours in the plane close together:
/// along a Z-shaped curve over a grid of 65 536 x 65 536 cells, by index within a cell. Linear.
[[nodiscard]] std::vector<std::uint32_t> SpatialOrder(std::span<const ZorPoint> points,
                                                      const Box& box);

}  // namespace zor::distance
