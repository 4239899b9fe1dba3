#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include <ZorData.h>

namespace zor::bench {

/// An ordered outline: an ellipse about (800, 600) with ripples and half a pixel of noise.
inline std::vector<ZorPoint> Outline(std::size_t count, double a, double b, double ripple = 0.0,
                                     double noise = 0.0) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> normal(0, 1);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
    const double scale = 1 + ripple * std::cos(17 * t);
    points.emplace_back(800 + a * scale * std::cos(t) + noise * normal(rng),
                        600 + b * scale * std::sin(t) + noise * normal(rng));
  }
  return points;
}

/// Unordered points of a normal distribution about (800, 600).
inline std::vector<ZorPoint> Cloud(std::size_t count) {
  std::mt19937_64 rng(20240608);
  std::normal_distribution<double> normal(0, 1);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    points.emplace_back(800 + 100 * normal(rng), 600 + 60 * normal(rng));
  }
  return points;
}

}  // namespace zor::bench
