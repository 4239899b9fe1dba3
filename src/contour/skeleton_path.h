#pragma once

#include <vector>

#include "ZorImage.h"
#include "ZorPoint.h"

namespace zor::contour {

/// Of every 8-connected part of a skeleton (pixels other than 0) the longest way through it, pixel
/// by pixel, in the image's coordinates; parts of one pixel are left out. The way runs from its
/// pixel that comes first, row by row. Where the skeleton has loops the way does not go round them.
///
/// The longest of the shortest ways, found in two sweeps: what is farthest from anywhere is one of
/// its ends. O(n log n) in the number of pixels.
[[nodiscard]] std::vector<std::vector<ZorPoint>> LongestWays(const ZorImage& skeleton);

}  // namespace zor::contour
