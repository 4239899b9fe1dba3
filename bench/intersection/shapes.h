#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include "ZorPoint.h"

namespace zor::bench {

/// An outline of n vertices about (cx, 1000) whose radius varies at random between 800 (1 - rough)
/// and 800: a contour as edges in an image give it for a small roughness, a star for a large one.
inline std::vector<ZorPoint> Outline(std::size_t n, double rough, double cx, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> radius(800 * (1 - rough), 800);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n);
    const double r = radius(rng);
    points.emplace_back(cx + r * std::cos(t), 1000 + r * std::sin(t));
  }
  return points;
}

/// A power of two of random points in the square from 0 to 2000.
inline std::vector<ZorPoint> Scatter(std::size_t n, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> coordinate(0, 2000);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = coordinate(rng);
    points.emplace_back(x, coordinate(rng));
  }
  return points;
}

}  // namespace zor::bench
