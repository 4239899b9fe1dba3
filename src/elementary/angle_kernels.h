#pragma once

#include <optional>

#include "ZorPoint.h"

// Directions in degrees as seen on the screen: y grows downwards, an angle grows from +x towards
// -y. All conversions use the ten-digit pi, so results differ from exact values by about 2e-8.
//
//              90 (-y)
//                |
//        180 ----+---- 0 (+x)
//                |
//              270 (+y)

namespace zor::elementary {

/// Direction of p1 -> p2 from +x, from 0 to below 360, or 360 by rounding a hair before +x; nothing
/// when a coordinate is not a number. Precondition: the points differ.
[[nodiscard]] std::optional<double> DirectionFromHorizontal(const ZorPoint& p1, const ZorPoint& p2);

/// Direction of p1 -> p2 from +y (down on the screen), right is 90; range and nothing as above.
[[nodiscard]] std::optional<double> DirectionFromVertical(const ZorPoint& p1, const ZorPoint& p2);

/// The turn from direction `from` onto direction `to`, both in [0, 360]: in [0, 360), a result
/// within 1e-6 of 360 becomes 0.
[[nodiscard]] double TurnBetween(double from_deg, double to_deg);

/// An angle in [0, 360) folded to [0, 180].
[[nodiscard]] inline double FoldToHalfTurn(double angle_deg) {
  return angle_deg >= 180 ? 360 - angle_deg : angle_deg;
}

/// An angle in [0, 180] folded to [0, 90].
[[nodiscard]] inline double FoldToQuarterTurn(double angle_deg) {
  return angle_deg >= 90 ? 180 - angle_deg : angle_deg;
}

/// atan2 of the vector in the frame of the coordinates (from +x towards +y), in [0, 360), or
/// 360 by rounding.
[[nodiscard]] double VectorDirection(const ZorPoint& v);

}  // namespace zor::elementary
