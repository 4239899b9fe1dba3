#pragma once

#include <optional>
#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// Mean of the points; of none, not a number.
[[nodiscard]] ZorPoint MeanPoint(std::span<const ZorPoint> points);

/// Mean of the centres of all triples of consecutive vertices (cyclic), each weighted with twice
/// its signed area; nothing when the weights add up to exactly 0. At least one point; fewer than
/// four give their mean.
[[nodiscard]] std::optional<ZorPoint> TripleWeightedCentre(std::span<const ZorPoint> polygon);

}  // namespace zor::shape
