#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "ZorPoint.h"
#include "distance/segment_pair_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/tolerances.h"

// What the searches for nearest pairs measure between item i of one contour and item j of another.
// Distance is the value as the plain loops compute it. Reach(d) is a distance between boxes above
// which no computed value can be d or less.

namespace zor::distance {

/// Points and points.
class PointPairing {
 public:
  static constexpr bool kMayTouchAfar = false;

  PointPairing(std::span<const ZorPoint> a, std::span<const ZorPoint> b) : a_(a), b_(b) {}

  [[nodiscard]] double Distance(std::uint32_t i, std::uint32_t j) const {
    return elementary::Distance(a_[i], b_[j]);
  }
  /// Whether the distance is surely above the reach.
  [[nodiscard]] bool IsBeyond(std::uint32_t i, std::uint32_t j, double reach_squared) const {
    const ZorPoint v = a_[i] - b_[j];
    return elementary::Dot(v, v) > reach_squared;
  }
  [[nodiscard]] double Reach(double d) const { return d * kSameRoot; }

 private:
  // Squares this close may have the same rounded root.
  static constexpr double kSameRoot = 1.0 + 1e-15;

  std::span<const ZorPoint> a_;
  std::span<const ZorPoint> b_;
};

/// The computed distance of a point from a segment is off by a few roundings of |u| |v| / length,
/// with u and v its distances from the ends, that is of d^2 / length + length.
inline constexpr double kFootRounding = 4e-15;

[[nodiscard]] inline double SegmentReach(double d, double shortest, double longest) {
  const double least = std::max(d, frame::kCoincident);  // ends that coincide count as distance 0
  return least + kFootRounding * (least * least / shortest + least + longest);
}

/// A quarter, with room for rounding.
inline constexpr double kFootShare = 0.2501;

/// Points and the segments of a polyline, by PointToClosedSegment. The polyline's first point,
/// which is measured before its segments, goes with the first one.
class PointSegmentPairing {
 public:
  static constexpr bool kMayTouchAfar = false;

  PointSegmentPairing(std::span<const ZorPoint> a, std::span<const ZorPoint> b, double longest)
      : a_(a), b_(b), longest_(longest) {}

  [[nodiscard]] double Distance(std::uint32_t i, std::uint32_t j) const {
    const double d = elementary::PointToClosedSegment(a_[i], b_[j], b_[j + 1]).distance;
    return j == 0 ? std::min(elementary::Distance(a_[i], b_[0]), d) : d;
  }
  [[nodiscard]] bool IsBeyond(std::uint32_t i, std::uint32_t j, double reach_squared) const {
    // A foot is at most half a length from the nearer end.
    const ZorPoint u = b_[j] - a_[i];
    const ZorPoint v = b_[j + 1] - a_[i];
    const ZorPoint along = b_[j + 1] - b_[j];
    const double nearer = std::min(elementary::Dot(u, u), elementary::Dot(v, v));
    return nearer > reach_squared + kFootShare * elementary::Dot(along, along);
  }
  [[nodiscard]] double Reach(double d) const {
    return SegmentReach(d, frame::kCoincident, longest_);
  }

 private:
  std::span<const ZorPoint> a_;
  std::span<const ZorPoint> b_;
  double longest_;
};

/// The segments of two polylines, by the shortest distance of LineToLineDistance. Deliberate there
/// and a burden here: segments that nearly line up touch however far apart they are.
class SegmentPairing {
 public:
  static constexpr bool kMayTouchAfar = true;

  SegmentPairing(std::span<const ZorPoint> a, std::span<const ZorPoint> b, double longest)
      : a_(a), b_(b), longest_(longest) {}

  [[nodiscard]] double Distance(std::uint32_t i, std::uint32_t j) const {
    return ShortestDistance(a_[i], a_[i + 1], b_[j], b_[j + 1]);
  }
  [[nodiscard]] bool IsBeyond(std::uint32_t i, std::uint32_t j, double reach_squared) const {
    const auto squared = [](const ZorPoint& p, const ZorPoint& q) {
      return elementary::Dot(q - p, q - p);
    };
    const ZorPoint& a1 = a_[i];
    const ZorPoint& a2 = a_[i + 1];
    const ZorPoint& b1 = b_[j];
    const ZorPoint& b2 = b_[j + 1];
    const double nearest = std::min(std::min(squared(a1, b1), squared(a1, b2)),
                                    std::min(squared(a2, b1), squared(a2, b2)));
    const double longer = std::max(squared(a1, a2), squared(b1, b2));
    return nearest > reach_squared + kFootShare * longer &&
           !elementary::SegmentsTouch(a1, a2, b1, b2);
  }
  [[nodiscard]] double Reach(double d) const {
    return SegmentReach(d, frame::kDegenerateLength, longest_);
  }

 private:
  std::span<const ZorPoint> a_;
  std::span<const ZorPoint> b_;
  double longest_;
};

}  // namespace zor::distance
