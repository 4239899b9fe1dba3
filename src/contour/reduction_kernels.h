#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::contour {

/// Indices, ascending, of the points that stand for the sequence: every other point lies within
/// `tolerance` (inclusive) of the segment between the kept ones before and after it. With `most`
/// above 0 there are at most so many, those that deviate most, and then points may lie farther off.
///  - Open: the first and the last point are kept.
///  - Closed: starts from two points far apart, so that corners are found wherever the list begins.
/// Precondition: at least one point.
///
/// D. Douglas, T. Peucker: Algorithms for the reduction of the number of points required to
/// represent a digitized line or its caricature, 1973; always splitting where the deviation is
/// largest, and with the distance from the segment, not from its line, so that the ends of closed
/// contours may coincide. Afterwards points go that turn out to be within the tolerance of the
/// segment between their neighbours: the top of a bump can become a split long before the corners
/// beside it. O(n log n) unless the splits are badly unbalanced.
[[nodiscard]] std::vector<std::size_t> ReducePolyline(std::span<const ZorPoint> points,
                                                      double tolerance, std::size_t most,
                                                      bool closed);

/// Whether cv::approxPolyDP takes the tolerance.
[[nodiscard]] bool IsApproximationTolerance(double tolerance);

/// The vertices that cv::approxPolyDP keeps of the closed contour, in single precision.
/// Precondition: at least one point, and the tolerance is one.
[[nodiscard]] std::vector<ZorPoint> ApproximateClosed(std::span<const ZorPoint> points,
                                                      double tolerance);

/// The same outline from its topmost vertex (of several the leftmost) and clockwise on the screen,
/// so that equal outlines become equal lists. An outline without area keeps its direction.
[[nodiscard]] std::vector<ZorPoint> InStandardOrder(std::span<const ZorPoint> polygon);

}  // namespace zor::contour
