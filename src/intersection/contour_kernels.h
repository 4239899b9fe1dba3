#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

// Crossings of a line with an open contour, whose segment i runs from point i to point i + 1.

namespace zor::intersection {

struct ContourCrossing {
  ZorPoint point;
  std::size_t segment;
};

/// Whether the crossing of a line with the line of segment qr counts as one with the segment: it
/// lies in the segment's bounding box, to the last bit.
[[nodiscard]] bool IsInBox(const ZorPoint& crossing, const ZorPoint& q, const ZorPoint& r);

/// The crossings of line p1p2, not degenerate, with the contour's segments in order. Segments
/// parallel to the line by AreParallel, or too short to have a direction, have none. Linear, about
/// 1 ns a segment that the line misses.
[[nodiscard]] std::vector<ContourCrossing> CrossContour(const ZorPoint& p1, const ZorPoint& p2,
                                                        std::span<const ZorPoint> contour);

/// The crossings less those whose point equals, bit by bit, a listed point or that of a crossing
/// before it.
[[nodiscard]] std::vector<ContourCrossing> WithoutListed(std::vector<ContourCrossing> crossings,
                                                         std::span<const ZorPoint> listed);

}  // namespace zor::intersection
