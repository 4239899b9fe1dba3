#pragma once

#include <algorithm>
#include <cmath>

#include "ZorPoint.h"

namespace zor::distance {

/// Axis-parallel box, borders included. Also the range of a set of vectors.
struct Box {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;

  [[nodiscard]] static Box Of(const ZorPoint& p) { return {p.x, p.y, p.x, p.y}; }
  [[nodiscard]] static Box Of(const ZorPoint& a, const ZorPoint& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
  }
  void Add(const Box& other) {
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
  }
  /// Half the circumference.
  [[nodiscard]] double Extent() const { return (right - left) + (bottom - top); }
};

/// A bound on |x| + |y| of the vectors in a range.
[[nodiscard]] inline double Largest(const Box& vectors) {
  return std::max(std::fabs(vectors.left), std::fabs(vectors.right)) +
         std::max(std::fabs(vectors.top), std::fabs(vectors.bottom));
}

/// The smallest squared distance of a point in a and one in b. Differences, squares and sum are
/// monotone also when rounded: no pair of points has a smaller square as computed.
[[nodiscard]] inline double SquaredGap(const Box& a, const Box& b) {
  const double dx = std::max(std::max(a.left - b.right, b.left - a.right), 0.0);
  const double dy = std::max(std::max(a.top - b.bottom, b.top - a.bottom), 0.0);
  return dx * dx + dy * dy;
}

/// The largest squared distance, in the same sense.
[[nodiscard]] inline double SquaredSpan(const Box& a, const Box& b) {
  const double dx = std::max(a.right - b.left, b.right - a.left);
  const double dy = std::max(a.bottom - b.top, b.bottom - a.top);
  return dx * dx + dy * dy;
}

}  // namespace zor::distance
