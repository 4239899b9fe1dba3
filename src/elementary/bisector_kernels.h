#pragma once

#include <array>
#include <optional>
#include <utility>

#include "ZorPoint.h"

namespace zor::elementary {

/// Unit vector at a screen angle in degrees (from +x towards -y), with the ten-digit pi.
[[nodiscard]] ZorPoint ScreenDirection(double angle_deg);

/// Direction in degrees that halves the smaller angle between two directions in [0, 360].
[[nodiscard]] double MiddleDirection(double first_deg, double second_deg);

/// Where the line through `origin` in the unit direction `direction` first and last meets one of
/// the segments; nothing when those two points are not more than kCoincident apart. A segment with
/// an end within kCoincident of the origin meets the line there and nowhere else; any other one
/// where its ends lie on different sides, on the line counting as the side of the positive cross
/// product. Being near the line counts for nothing: along a thin angle every end is.
[[nodiscard]] std::optional<std::pair<ZorPoint, ZorPoint>> ClipLine(
    const ZorPoint& origin, const ZorPoint& direction,
    const std::array<std::pair<ZorPoint, ZorPoint>, 4>& segments);

/// Unit vector halving the smaller angle between two non-zero vectors; nothing when they are
/// opposite: their unit vectors add up to at most kCoincident.
[[nodiscard]] std::optional<ZorPoint> MiddleVector(const ZorPoint& u, const ZorPoint& v);

}  // namespace zor::elementary
