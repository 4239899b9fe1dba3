#pragma once

#include <array>
#include <span>

#include "ZorPoint.h"

namespace zor::fitting {

/// Both curves that need a non-linear solver have four parameters.
using CurveParameters = std::array<double, 4>;

struct SolverSettings {
  int max_iterations = 0;  // 0: the solver's own limit
  int threads = 1;
};

/// The parameters at which the solver stops when it minimises the sum of (w (y - curve(x)))^2 from
/// the start given. Whether it converged is not judged: where it comes upon derivatives that cannot
/// be used (not numbers, or beyond 1e140, where squares overflow) the step before comes back, and
/// so the start where no step can be taken. No weights stand for all ones; a point of weight 0 is
/// left out. The Gaussian: height, position, spread, baseline (gaussian_kernels.h).
[[nodiscard]] CurveParameters RefineGaussian(std::span<const ZorPoint> points,
                                             std::span<const double> weights,
                                             const CurveParameters& start,
                                             const SolverSettings& settings);
/// The sine: amplitude, frequency, phase, offset (sine_kernels.h).
[[nodiscard]] CurveParameters RefineSine(std::span<const ZorPoint> points,
                                         std::span<const double> weights,
                                         const CurveParameters& start,
                                         const SolverSettings& settings);

}  // namespace zor::fitting
