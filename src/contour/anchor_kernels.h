#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::contour {

/// A vertex stands for points closer to it than this; pixels, exclusive.
inline constexpr double kAnchorReach = 0.001;

/// For each vertex in order the index of the first point that it stands for; vertices without one
/// are left out. The points are looked through once, whatever the number of vertices.
[[nodiscard]] std::vector<std::size_t> FindAnchors(std::span<const ZorPoint> vertices,
                                                   std::span<const ZorPoint> points);

}  // namespace zor::contour
