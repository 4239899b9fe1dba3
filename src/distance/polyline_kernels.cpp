#include "distance/polyline_kernels.h"

#include <algorithm>
#include <cmath>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::distance {
namespace {

using elementary::NearestPoint;
using elementary::PointToClosedSegment;

inline constexpr std::size_t kFewPoints = 12;  // up to here the plain loop is as fast
inline constexpr std::size_t kStride = 8;      // every so many vertices give the first bound

// A segment can be passed over when both of its ends are farther than the bound, with room for the
// foot of a perpendicular: at most half a length from the nearer end, d^2 >= end^2 - length^2 / 4.
// The computed distance of a foot is off by a few roundings of |u| |v| / length, below 1e-8 of it
// as long as the segment is not shorter than a ten-millionth of its distance; hence the slacks.
inline constexpr double kBoundSlack = 1.0 + 1e-6;
inline constexpr double kFootShare = 0.2501;
inline constexpr double kShortShare = 1e-14;

double Square(double value) { return value * value; }
double SquaredNorm(const ZorPoint& v) { return v.x * v.x + v.y * v.y; }

// Squared distances at most this number may have the same rounded root as d2.
double SameRootReach(double d2) { return d2 * (1.0 + 1e-15); }

NearestPoint PlainNearest(const ZorPoint& p, std::span<const ZorPoint> polyline,
                          NearestPoint nearest) {
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    const NearestPoint candidate = PointToClosedSegment(p, polyline[i - 1], polyline[i]);
    if (candidate.distance < nearest.distance) nearest = candidate;
  }
  return nearest;
}

double Bound(double distance_squared) {
  return std::max(distance_squared, frame::kCoincidentSquared) * kBoundSlack;
}

double FirstBound(const ZorPoint& p, std::span<const ZorPoint> polyline, double seed_squared) {
  double d2 = seed_squared;
  for (std::size_t i = 0; i < polyline.size(); i += kStride) {
    d2 = std::min(d2, SquaredNorm(polyline[i] - p));
  }
  return Bound(d2);
}

}  // namespace

NearestPoint NearestOnPolyline(const ZorPoint& p, std::span<const ZorPoint> polyline,
                               const NearestPoint& seed) {
  if (polyline.size() <= kFewPoints) return PlainNearest(p, polyline, seed);
  double bound = FirstBound(p, polyline, Square(seed.distance));
  NearestPoint nearest = seed;
  double start_squared = SquaredNorm(polyline[0] - p);
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    const double end_squared = SquaredNorm(polyline[i] - p);
    const double length_squared = SquaredNorm(polyline[i] - polyline[i - 1]);
    const double nearer = std::min(start_squared, end_squared);
    const bool is_too_far = nearer > bound + kFootShare * length_squared &&
                            length_squared > kShortShare * start_squared;
    start_squared = end_squared;
    if (is_too_far) continue;
    const NearestPoint candidate = PointToClosedSegment(p, polyline[i - 1], polyline[i]);
    if (!(candidate.distance < nearest.distance)) continue;
    nearest = candidate;
    bound = std::min(bound, Bound(Square(nearest.distance)));
  }
  // Coordinates that are not finite can leave the bound unmet; then nothing was proved.
  return Square(nearest.distance) <= bound ? nearest : PlainNearest(p, polyline, seed);
}

PointRange RangeOfPoints(const ZorPoint& p, std::span<const ZorPoint> points) {
  // The rounded root is monotone: the extrema of the squares are those of the distances, and the
  // first point whose distance equals an extremum is the one that a loop over distances keeps.
  double low = SquaredNorm(p - points[0]);
  double high = low;
  for (const ZorPoint& q : points) {
    const double d2 = SquaredNorm(p - q);
    low = d2 < low ? d2 : low;
    high = d2 > high ? d2 : high;
  }
  PointRange range{{0, std::sqrt(low)}, {0, std::sqrt(high)}};
  const auto d2_of = [&](std::size_t i) { return SquaredNorm(p - points[i]); };
  const std::size_t count = points.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (d2_of(i) <= SameRootReach(low) && std::sqrt(d2_of(i)) == range.nearest.distance) {
      range.nearest.index = i;
      break;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (SameRootReach(d2_of(i)) >= high && std::sqrt(d2_of(i)) == range.farthest.distance) {
      range.farthest.index = i;
      break;
    }
  }
  return range;
}

}  // namespace zor::distance
