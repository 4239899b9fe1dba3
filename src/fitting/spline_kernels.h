#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::fitting {

/// The cubic that a signal on unit spacing is resampled with.
enum class SplineType {
  kBSpline = 0,     // uniform B-spline: approximates
  kCatmullRom = 1,  // Catmull-Rom: interpolates
  kNatural = 2,     // natural spline: interpolates, second derivative continuous and 0 at the ends
};

inline constexpr std::size_t kMinSplinePoints = 3;

/// Points of the densified sequence: the given ones and `insert_count` in every gap.
[[nodiscard]] constexpr long long SplinePointCount(std::size_t points, int insert_count) {
  const long long n = static_cast<long long>(points);
  return (n - 1) * insert_count + n;
}

/// The points unchanged, with `insert_count` points inserted into every gap: x divides the gap
/// evenly, y is read from the y values resampled to SplinePointCount values. Deliberate: the index
/// of that reading advances by insert_count a gap, where the resampled signal has insert_count + 1
/// values a gap, so from the second gap on y lags behind x. Profiles measured against such curves
/// rest on it.
/// Precondition: kMinSplinePoints points, insert_count >= 1, SplinePointCount <= kMaxCurvePoints.
[[nodiscard]] std::vector<ZorPoint> InsertSplinePoints(std::span<const ZorPoint> points,
                                                       SplineType type, int insert_count);

/// Second derivatives of the natural spline through the y values, unit spacing.
[[nodiscard]] std::vector<double> NaturalSecondDerivatives(std::span<const ZorPoint> points);

}  // namespace zor::fitting
