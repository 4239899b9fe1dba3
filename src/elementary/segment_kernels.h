#pragma once

#include <optional>

#include "ZorPoint.h"
#include "elementary/point_kernels.h"

// Crossings of straight lines and segments. Segments are given by their ends, which belong to them.

namespace zor::elementary {

/// Beyond the ends of a segment that meets a line: (x - a) . (x - b), square pixels, inclusive.
inline constexpr double kEndSlack = 1e-5;

/// (p - a) . (p - b) <= 0: for a point on line ab, that it lies on segment ab; in general, that it
/// lies in the disc over ab.
[[nodiscard]] inline bool IsBetween(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  return Dot(p - a, p - b) <= 0;
}

/// As IsBetween, with the slack that the meeting of a segment with a line allows.
[[nodiscard]] inline bool IsAboutBetween(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  return Dot(p - a, p - b) <= kEndSlack;
}

/// The crossing of lines p1p2 and p3p4 with all the checks of the operation LinesIntersection:
/// nothing when either is degenerate, they count as parallel, or the denominator is 0.
[[nodiscard]] std::optional<ZorPoint> CrossLines(const ZorPoint& p1, const ZorPoint& p2,
                                                 const ZorPoint& p3, const ZorPoint& p4);

/// The crossing of segment a1a2 with segment b1b2: that of their lines, if it is between both pairs
/// of ends. Nothing for parallel segments, even where they overlap.
[[nodiscard]] std::optional<ZorPoint> CrossSegments(const ZorPoint& a1, const ZorPoint& a2,
                                                    const ZorPoint& b1, const ZorPoint& b2);

}  // namespace zor::elementary
