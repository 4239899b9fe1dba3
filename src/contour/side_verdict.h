#pragma once

#include <optional>
#include <span>

#include "ZorLine.h"
#include "ZorPoint.h"

namespace zor::contour {

/// A line from which the same points of the side are farther away than `distance` as from the line
/// that FitExtentLine gives, found without that fit: for about 10 ns a point, where it takes 300.
/// Nothing when that cannot be told, because a point comes too close to `distance`; see the
/// argument in the source. Nothing as well for a side too short for a fitted line.
[[nodiscard]] std::optional<ZorLine> LineOfSameVerdict(std::span<const ZorPoint> side,
                                                       double distance);

}  // namespace zor::contour
