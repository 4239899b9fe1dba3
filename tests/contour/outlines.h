#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "ZorPoint.h"

namespace zor::test {

/// Points a pixel apart along the sides of a closed polygon with whole-numbered sides along the
/// axes.
inline std::vector<ZorPoint> Outline(const std::vector<ZorPoint>& corners) {
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const ZorPoint a = corners[i];
    const ZorPoint d = corners[(i + 1) % corners.size()] - a;
    const int steps = static_cast<int>(std::fabs(d.x) + std::fabs(d.y));
    for (int k = 0; k < steps; ++k) {
      points.emplace_back(a.x + d.x * k / steps, a.y + d.y * k / steps);
    }
  }
  return points;
}

}  // namespace zor::test
