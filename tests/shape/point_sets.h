#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include <ZorData.h>

namespace zor::test {

/// Points on an ellipse about (800, 600), the first axis turned by 0.3, in order.
inline std::vector<ZorPoint> EllipsePoints(std::size_t count, double a, double b) {
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
    const double u = a * std::cos(t);
    const double v = b * std::sin(t);
    points.emplace_back(800 + u * std::cos(0.3) - v * std::sin(0.3),
                        600 + u * std::sin(0.3) + v * std::cos(0.3));
  }
  return points;
}

/// Points in a square of the given side.
inline std::vector<ZorPoint> SquareCloud(std::mt19937_64& rng, std::size_t count, double side) {
  std::uniform_real_distribution<double> within(0, side);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < count; ++i) points.emplace_back(within(rng), within(rng));
  return points;
}

}  // namespace zor::test
