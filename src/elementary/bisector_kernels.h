#pragma once

#include <array>
#include <optional>
#include <utility>

#include "ZorPoint.h"

namespace zor::elementary {

/// Unit vector at a screen angle in degrees (from +x towards -y), with the ten-digit pi.
[[nodiscard]] ZorPoint ScreenDirection(double angle_deg);

/// Direction in degrees that halves the smaller angle between two directions in [0, 360).
[[nodiscard]] double MiddleDirection(double first_deg, double second_deg);

/// Where the line through `origin` in the unit direction `direction` first and last meets one of
/// the segments; nothing when those two points are not more than kCoincident apart. A segment that
/// lies along the line meets it at both of its ends.
[[nodiscard]] std::optional<std::pair<ZorPoint, ZorPoint>> ClipLine(
    const ZorPoint& origin, const ZorPoint& direction,
    const std::array<std::pair<ZorPoint, ZorPoint>, 4>& segments);

/// Unit vector halving the smaller angle between two non-zero vectors; nothing when they are
/// opposite: their unit vectors add up to at most kCoincident.
[[nodiscard]] std::optional<ZorPoint> MiddleVector(const ZorPoint& u, const ZorPoint& v);

}  // namespace zor::elementary
