#pragma once

#include <span>

#include "ZorPoint.h"
#include "shape/circle.h"

namespace zor::shape {

/// The smallest circle about the points in single precision, as cv::minEnclosingCircle gives it:
/// a point may lie 1e-4 outside the exact one, which the radius makes up for, and rounding comes to
/// as much for coordinates in the thousands. A coordinate that is not finite in single precision
/// makes the circle not a number. At least one point; about linear, whatever the order.
[[nodiscard]] Circle SmallestEnclosingCircle(std::span<const ZorPoint> points);

}  // namespace zor::shape
