#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::fitting {

/// A line by its unit direction and a point on it, in single precision.
struct HuberLine {
  float vx = 0.0F;
  float vy = 0.0F;
  float x0 = 0.0F;
  float y0 = 0.0F;
};

/// The line with the least Huber distances, by OpenCV's fitLine with its automatic constant and
/// 0.001 for both accuracies. About 0.5 us a point. Any points: with one that is not finite in
/// single precision all four numbers are 0.
[[nodiscard]] HuberLine FitHuberLine(std::span<const ZorPoint> points);

/// Whether FitHuberLine gives |vy / vx| > 1e6, that is a line within a millionth of vertical.
/// Mostly without running it, see the argument in the source; then about 5 ns a point.
[[nodiscard]] bool IsHuberLineSteep(std::span<const ZorPoint> points);

/// No less than the sum of the points' distances from the line that FitHuberLine gives; infinite
/// when that is not to be had without it. `extents` is the width and height that the points cover,
/// together, and `size` their largest coordinate. About 2 ns a point.
[[nodiscard]] double DistanceSumBound(std::span<const ZorPoint> points, double extents,
                                      double size);

/// The cheap half of IsHuberLineSteep, for its tests.
enum class Steepness { kSteep, kNotSteep, kDoubtful };
[[nodiscard]] Steepness JudgeSteepness(std::span<const ZorPoint> points);

}  // namespace zor::fitting
