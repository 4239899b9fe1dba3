#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// z = offset + normal . u, a plane over the points u.
struct Plane {
  ZorPoint normal;
  double offset;
};

struct Peak {
  ZorPoint place;
  double height;
};

/// The highest point of the roof min(planes) over the square |u.x|, |u.y| <= half_width. The height
/// is never too low, by more than rounding; where many planes agree in all but the last digits it
/// may be too high. At least one plane. Linear in the number of planes for each of a few steps.
[[nodiscard]] Peak HighestUnder(std::span<const Plane> planes, double half_width);

}  // namespace zor::shape
