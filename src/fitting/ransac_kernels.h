#pragma once

#include <cmath>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "ZorLine.h"
#include "ZorPoint.h"

namespace zor::fitting {

/// Two points less far apart than this make no candidate line; pixels, exclusive.
inline constexpr double kShortestPair = 0.1;

/// A line whose points are less far apart than this has no projections; pixels, exclusive.
inline constexpr double kShortestBase = 1e-5;

/// Signed distance from one line; the length of its base is taken once. Infinite or not a number
/// when the line's points are equal.
class LineDistance {
 public:
  explicit LineDistance(const ZorLine& line)
      : line_(line), length_(std::hypot(line.end.x - line.start.x, line.end.y - line.start.y)) {}

  [[nodiscard]] double operator()(const ZorPoint& p) const {
    const ZorPoint u = p - line_.start;
    const ZorPoint v = p - line_.end;
    return (v.y * u.x - v.x * u.y) / length_;
  }

 private:
  ZorLine line_;
  double length_;
};

/// Foot of the perpendicular from p; (0, 0) on a base shorter than kShortestBase.
[[nodiscard]] ZorPoint ProjectToLine(const ZorPoint& p, const ZorLine& line);

/// The line through two points; nothing when they are closer than kShortestPair.
[[nodiscard]] std::optional<ZorLine> LineThrough(const ZorPoint& first, const ZorPoint& second);

/// The number of points at most `distance` away from the line.
[[nodiscard]] int CountNear(std::span<const ZorPoint> points, const ZorLine& line, double distance);

/// The candidate with the most points at most `distance` away, counted modulo 65536; nothing when
/// there is no candidate.
[[nodiscard]] std::optional<ZorLine> BestSupported(std::span<const ZorLine> candidates,
                                                   std::span<const ZorPoint> points,
                                                   double distance);

/// A run of points by its first index and a length.
using Run = std::pair<int, int>;

/// Replaces `runs` by the runs of points far from the line: each starts above `distance` and goes
/// on at or above it, and its length is the number of its points less one. Longest first, equal
/// ones in the order of the points.
void CollectFarRuns(const ZorLine& line, double distance, std::span<const ZorPoint> points,
                    std::vector<Run>& runs);

/// The sine of the angle between the lines is below `angle_tolerance`, and both points of `a` are
/// closer to `b` than `distance_tolerance`.
[[nodiscard]] bool Coincide(const ZorLine& a, const ZorLine& b, double angle_tolerance,
                            double distance_tolerance);

}  // namespace zor::fitting
