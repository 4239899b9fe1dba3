#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::image {

/// Rows of 8-bit pixels, read only.
struct PixelView {
  const unsigned char* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;
};

enum class Extremum { kMinimum, kMaximum };

/// Local minima (grey value below the threshold) or maxima (above it), in scan order. Row 0 and
/// column 0 are neither searched nor compared with. A pixel counts when no pixel within `radius` in
/// both directions, as far as the picture reaches, is more extreme, and none of the same value that
/// far away was found before or stands in `known`: of a plateau the first pixel in scan order is
/// found, and another one wherever it is wider than the radius. A radius below 0 compares with
/// nothing.
///
/// A pixel that equals the extreme value of its window is settled by a window filter: erosion for
/// small radii, else WindowMinima. The pixels found block the columns around them for `radius`
/// rows. Linear in the pixels times the logarithm of the radius, or of the picture's side where
/// that is less, whatever is found; so is the memory in the pixels.
[[nodiscard]] std::vector<ZorPoint> FindExtrema(const PixelView& view, Extremum which,
                                                int threshold, int radius,
                                                std::span<const ZorPoint> known);

}  // namespace zor::image
