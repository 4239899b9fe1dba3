#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

/// Where a curve fitted to a point sequence is sampled: every half unit of x from the smaller end's
/// x on.
struct HalfUnitSteps {
  double start = 0.0;
  std::size_t count = 0;
};

/// The steps for the x of the first and of the last point: trunc(|2 (last - first) + 1|) of them.
/// Deliberate: that is 2d + 1 over d units ascending but 2d - 1 descending, so that the descending
/// curve ends one step short (and has no point for d = 1/2); hosts rest on the counts. Nothing when
/// the count is not a number or exceeds kMaxCurvePoints.
[[nodiscard]] std::optional<HalfUnitSteps> HalfUnitStepsBetween(double first_x, double last_x);

/// Runs body(begin, end) over disjoint blocks that make up 0 .. count-1, in parallel.
void ForEachBlock(std::size_t count, const std::function<void(std::size_t, std::size_t)>& body);

/// The points (x, y_at(x)) at the steps, in order; y_at is called from several threads.
template <typename Curve>
[[nodiscard]] std::vector<ZorPoint> SampleCurve(const HalfUnitSteps& steps, const Curve& y_at) {
  std::vector<ZorPoint> samples(steps.count);
  ForEachBlock(steps.count, [&](std::size_t begin, std::size_t end) {
    for (std::size_t k = begin; k < end; ++k) {
      const double x = steps.start + 0.5 * static_cast<double>(k);
      samples[k] = {x, y_at(x)};
    }
  });
  return samples;
}

}  // namespace zor::fitting
