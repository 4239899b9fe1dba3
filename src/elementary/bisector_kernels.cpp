#include "elementary/bisector_kernels.h"

#include <algorithm>
#include <cmath>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::elementary {

using frame::kCoincident;

ZorPoint ScreenDirection(double angle_deg) {
  const double t = angle_deg / -180 * frame::kPi;
  return {std::cos(t), std::sin(t)};
}

double MiddleDirection(double first_deg, double second_deg) {
  const double smaller = std::min(first_deg, second_deg);
  const double larger = std::max(first_deg, second_deg);
  const double difference = larger - smaller;
  return difference < 180 ? smaller + difference / 2 : larger + (360 - difference) / 2;
}

std::optional<std::pair<ZorPoint, ZorPoint>> ClipLine(
    const ZorPoint& origin, const ZorPoint& direction,
    const std::array<std::pair<ZorPoint, ZorPoint>, 4>& segments) {
  std::optional<double> first;
  std::optional<double> last;
  const auto meet = [&](double along) {
    if (!first || along < *first) first = along;
    if (!last || along > *last) last = along;
  };
  for (const auto& [a, b] : segments) {
    const double along_a = Dot(direction, a - origin);
    const double along_b = Dot(direction, b - origin);
    const double side_a = Cross(direction, a - origin);
    const double side_b = Cross(direction, b - origin);
    const bool starts_there = Distance(a, origin) <= kCoincident;
    const bool ends_there = Distance(b, origin) <= kCoincident;
    if (starts_there) meet(along_a);
    if (ends_there) meet(along_b);
    if (!starts_there && !ends_there && (side_a < 0) != (side_b < 0)) {
      meet((along_a * side_b - along_b * side_a) / (side_b - side_a));
    }
  }
  if (!first || !(*last - *first > kCoincident)) return std::nullopt;
  const auto point_at = [&](double along) {
    return ZorPoint(origin.x + along * direction.x, origin.y + along * direction.y);
  };
  return std::pair(point_at(*first), point_at(*last));
}

std::optional<ZorPoint> MiddleVector(const ZorPoint& u, const ZorPoint& v) {
  // std::hypot, because the squares of vectors beyond 1e154 overflow.
  const double u_norm = std::hypot(u.x, u.y);
  const double v_norm = std::hypot(v.x, v.y);
  const ZorPoint sum(u.x / u_norm + v.x / v_norm, u.y / u_norm + v.y / v_norm);
  const double sum_norm = Norm(sum);
  if (sum_norm <= kCoincident) return std::nullopt;
  return ZorPoint(sum.x / sum_norm, sum.y / sum_norm);
}

}  // namespace zor::elementary
