#pragma once

#include <array>
#include <cmath>
#include <optional>

#include "ZorPoint.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"

// Distances of segment A = a1a2 and segment B = b1b2, neither of them degenerate; pixels.

namespace zor::distance {

/// An end of one segment with its distance from the other one.
struct EndDistance {
  int end = 0;  // 0: a1, 1: a2, 2: b1, 3: b2
  double distance = 0.0;
};

/// The distances of a1 and a2 from B, then of b1 and b2 from A.
[[nodiscard]] inline std::array<double, 4> EndDistances(const ZorPoint& a1, const ZorPoint& a2,
                                                        const ZorPoint& b1, const ZorPoint& b2) {
  return {elementary::PointToSegment(a1, b1, b2), elementary::PointToSegment(a2, b1, b2),
          elementary::PointToSegment(b1, a1, a2), elementary::PointToSegment(b2, a1, a2)};
}

/// The end nearest to the other segment, the earliest on ties.
[[nodiscard]] inline EndDistance NearestEnd(const ZorPoint& a1, const ZorPoint& a2,
                                            const ZorPoint& b1, const ZorPoint& b2) {
  const std::array<double, 4> distances = EndDistances(a1, a2, b1, b2);
  EndDistance nearest{0, distances[0]};
  for (int end = 1; end < 4; ++end) {
    const double d = distances[static_cast<std::size_t>(end)];
    if (d < nearest.distance) nearest = {end, d};
  }
  return nearest;
}

/// The end farthest from the other segment, the earliest on ties.
[[nodiscard]] inline EndDistance FarthestEnd(const ZorPoint& a1, const ZorPoint& a2,
                                             const ZorPoint& b1, const ZorPoint& b2) {
  const std::array<double, 4> distances = EndDistances(a1, a2, b1, b2);
  EndDistance farthest{0, distances[0]};
  for (int end = 1; end < 4; ++end) {
    const double d = distances[static_cast<std::size_t>(end)];
    if (d > farthest.distance) farthest = {end, d};
  }
  return farthest;
}

/// 0 for segments that touch by the loose test, else the distance of the nearest end.
[[nodiscard]] inline double ShortestDistance(const ZorPoint& a1, const ZorPoint& a2,
                                             const ZorPoint& b1, const ZorPoint& b2) {
  if (elementary::SegmentsTouch(a1, a2, b1, b2)) return 0.0;
  return NearestEnd(a1, a2, b1, b2).distance;
}

/// For lines that are exactly parallel the difference of their offsets from the origin, unsigned.
/// Deliberate: an offset has the sign that the line's direction gives it, so that lines in opposite
/// directions yield the sum of their offsets; hosts give both lines the same direction.
[[nodiscard]] inline std::optional<double> ParallelLineDistance(const ZorPoint& a1,
                                                                const ZorPoint& a2,
                                                                const ZorPoint& b1,
                                                                const ZorPoint& b2) {
  const ZorPoint da = a2 - a1;
  const ZorPoint db = b2 - b1;
  if (db.x * da.y - da.x * db.y != 0.0) return std::nullopt;
  const double ca = a2.x * a1.y - a1.x * a2.y;
  const double cb = b2.x * b1.y - b1.x * b2.y;
  return std::fabs(ca / elementary::Norm(da) - cb / elementary::Norm(db));
}

}  // namespace zor::distance
