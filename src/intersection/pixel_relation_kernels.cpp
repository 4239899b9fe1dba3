#include "intersection/pixel_relation_kernels.h"

#include <algorithm>
#include <limits>
#include <numbers>

#include "elementary/segment_distance_kernels.h"
#include "elementary/shape_frame.h"
#include "frame/checks.h"

namespace zor::intersection {
namespace {

inline constexpr double kPixelReach = 1.1;                     // pixels, exclusive
inline constexpr double kDiagonalReach = std::numbers::sqrt2;  // pixels, inclusive
inline constexpr double kOutOfReach = 2;  // pixels along an axis; well above both

bool IsInside(double value, double low, double high) { return low < value && value < high; }

}  // namespace

bool IsNearAxisOrDiagonal(double angle_deg) {
  const double angle = elementary::ReduceByHalfTurn(angle_deg);
  return angle < 20 || angle > 160 || IsInside(angle, 80, 100) || IsInside(angle, 35, 55) ||
         IsInside(angle, 125, 145);
}

bool IsWithinPixel(double distance, bool is_wide) {
  return distance < kPixelReach || (is_wide && distance <= kDiagonalReach);
}

double DistanceWithinPixel(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  constexpr double kNoDistance = std::numeric_limits<double>::infinity();
  const bool is_far =
      p.x < std::min(a.x, b.x) - kOutOfReach || p.x > std::max(a.x, b.x) + kOutOfReach ||
      p.y < std::min(a.y, b.y) - kOutOfReach || p.y > std::max(a.y, b.y) + kOutOfReach;
  if (is_far || frame::IsDegenerate(a, b)) return kNoDistance;
  return elementary::PointToSegment(p, a, b);
}

}  // namespace zor::intersection
