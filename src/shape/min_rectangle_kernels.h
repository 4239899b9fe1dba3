#pragma once

#include <array>
#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// Corners, in order around it, of the rectangle of least area about the points in single
/// precision. A coordinate that is not finite in single precision makes all corners not a number.
/// At least one point; linear but for what a sort of the outer points takes.
[[nodiscard]] std::array<ZorPoint, 4> MinAreaRectangle(std::span<const ZorPoint> points);

}  // namespace zor::shape
