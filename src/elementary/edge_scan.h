#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "ZorPoint.h"

namespace zor::elementary {

/// A decision by the sign of a number, which the compiler can take for several edges at once where
/// it cannot with branches: "yes" is negative. The decision on a NaN is arbitrary.
using SignBits = std::int64_t;

[[nodiscard]] inline SignBits Bits(double value) { return std::bit_cast<SignBits>(value); }
[[nodiscard]] inline bool IsYes(SignBits bits) { return bits < 0; }

/// The largest |coordinate|; 0 for an empty list. A NaN counts for nothing.
[[nodiscard]] inline double LargestCoordinate(std::span<const ZorPoint> points) {
  double x = 0.0;
  double y = 0.0;
  for (const ZorPoint& p : points) {
    x = std::max(x, std::fabs(p.x));
    y = std::max(y, std::fabs(p.y));
  }
  return std::max(x, y);
}

/// Walks the edges (0, 1), (1, 2), ... of a polyline in order and calls judge(i) for each edge from
/// point i - 1 to point i on which interest(side of i - 1, side of i) decides yes, with side(point)
/// any number; some others may be judged too. Stops when a judge returns true, and returns whether
/// one did. Most edges of an outline have nothing to do with a given line or point: they are passed
/// over in blocks, at half a nanosecond to one an edge.
template <typename Side, typename Interest, typename Judge>
bool ScanEdges(std::span<const ZorPoint> points, Side side, Interest interest, Judge judge) {
  constexpr std::size_t kBlock = 8;
  std::size_t i = 1;
  for (; i + kBlock <= points.size(); i += kBlock) {
    std::array<double, kBlock + 1> sides;
    for (std::size_t j = 0; j <= kBlock; ++j) sides[j] = side(points[i + j - 1]);
    std::array<SignBits, kBlock> yes;
    SignBits any = 0;
    for (std::size_t j = 0; j < kBlock; ++j) {
      yes[j] = interest(sides[j], sides[j + 1]);
      any |= yes[j];
    }
    if (!IsYes(any)) continue;
    for (std::size_t j = 0; j < kBlock; ++j) {
      if (IsYes(yes[j]) && judge(i + j)) return true;
    }
  }
  for (; i < points.size(); ++i) {
    if (judge(i)) return true;
  }
  return false;
}

}  // namespace zor::elementary
