#pragma once

#include <cstddef>
#include <span>

#include "ZorPoint.h"
#include "fitting/curve_solver.h"

namespace zor::fitting {

// Gaussian curves y = height exp(-(x - position)^2 / (2 spread)) + baseline; CurveParameters in
// that order. The spread is thus a variance.

inline constexpr std::size_t kMinGaussianPoints = 4;

[[nodiscard]] double GaussianAt(const CurveParameters& gaussian, double x);

/// A peak without a baseline: y = amplitude exp(-(x - mean)^2 / (2 variance)).
struct GaussianPeak {
  double amplitude = 0.0;
  double mean = 0.0;
  double variance = 0.0;
};

/// The peak whose logarithm is q2 x^2 + q1 x + q0.
[[nodiscard]] GaussianPeak PeakOfLogarithm(double q2, double q1, double q0);

/// Amplitude, mean and variance all below 1e-8 in magnitude.
[[nodiscard]] bool Vanishes(const GaussianPeak& peak);

/// Where the solver starts: the largest y, the x of its first occurrence, the extent in x (although
/// it acts as a variance), the smallest y. Precondition: a point.
[[nodiscard]] CurveParameters GaussianStart(std::span<const ZorPoint> points);

/// A start near short and narrow peaks too: at the position of GaussianStart, of the widths (roots
/// of the spread) that double from half the distance to half the height on up to the extent the one
/// whose linear fit of height and baseline leaves the smallest sum of squares, the narrowest on a
/// tie. GaussianStart where there is none. Precondition: a point. O(N) a width, at most 64.
[[nodiscard]] CurveParameters GaussianStartByWidth(std::span<const ZorPoint> points);

/// The curve through the points by the solver from GaussianStartByWidth on, in `passes` re-weighted
/// passes (curve_passes.h) and one thread. Precondition: a point.
[[nodiscard]] CurveParameters FitGaussian(std::span<const ZorPoint> points, int passes,
                                          double clip);

/// Threads of the solver: 1 below 100 points, else the setting, or one a processor when that is
/// below 1.
[[nodiscard]] int SolverThreads(std::size_t points, int setting);

/// Infinite, or the largest finite double.
[[nodiscard]] bool IsBeyondRange(double parameter);

}  // namespace zor::fitting
