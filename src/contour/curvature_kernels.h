#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::contour {

/// Curvature of the circle through three points, one over its radius: positive where the way a, b,
/// c turns from +x towards +y (clockwise on the screen). Nothing when two of them are degenerate.
///
/// K. Menger's: 4 * area / (|ab| |bc| |ca|), exact for points on a circle however they are spaced.
[[nodiscard]] std::optional<double> CurvatureThrough(const ZorPoint& a, const ZorPoint& b,
                                                     const ZorPoint& c);

/// What a point's neighbours are: `reach` before and `reach` behind. A closed sequence has them
/// cyclically; of an open one the first and last `reach` points take the value of the nearest point
/// that has both. Precondition: 1 <= reach, 2 * reach < number of points.
struct Neighbourhood {
  std::size_t reach = 1;
  bool closed = true;
};

/// The curvature at every point through it and its two neighbours; 0 where there is none.
[[nodiscard]] std::vector<double> Curvatures(std::span<const ZorPoint> points,
                                             const Neighbourhood& neighbours);

/// The height of every point over the chord between its neighbours, positive where the curvature
/// is; 0 where the chord is degenerate.
[[nodiscard]] std::vector<double> ChordHeights(std::span<const ZorPoint> points,
                                               const Neighbourhood& neighbours);

/// Indices, ascending, of the local maxima: values greater than all `reach` before them and no less
/// than all `reach` behind them. Beyond the ends of an open sequence there is nothing to compare
/// with. Values that are not numbers are passed over. Values that are all equal have no maximum.
/// Linear.
[[nodiscard]] std::vector<std::size_t> LocalMaxima(std::span<const double> values,
                                                   const Neighbourhood& neighbours);

}  // namespace zor::contour
