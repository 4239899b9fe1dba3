#pragma once

#include <cmath>

#include "ZorPoint.h"
#include "elementary/point_kernels.h"
#include "elementary/relation_codes.h"
#include "elementary/shape_frame.h"

namespace zor::intersection {

inline constexpr double kCircleReach = 1e-5;  // pixels, exclusive
inline constexpr double kOvalReach = 1e-5;    // of the normalised equation, inclusive

/// Relation of p to the circle; on the outline within kCircleReach of it.
[[nodiscard]] inline int CircleRelation(const ZorPoint& p, const ZorPoint& centre, double radius) {
  const double d = elementary::Distance(p, centre);
  if (std::fabs(d - radius) < kCircleReach) return elementary::kOnOutline;
  return d > radius ? elementary::kOutside : elementary::kInside;
}

/// An oval prepared for the relations of many points.
class OvalRelation {
 public:
  OvalRelation(const ZorPoint& centre, double a, double b, double angle_deg)
      : frame_(centre, a >= b ? angle_deg : angle_deg + 90),
        major_(a >= b ? a : b),
        minor_(a >= b ? b : a) {}

  /// Relation of p; on the outline within kOvalReach of (u/M)^2 + (v/m)^2 = 1, which is no distance
  /// in pixels.
  [[nodiscard]] int operator()(const ZorPoint& p) const {
    const ZorPoint d = frame_.ToShape(p - frame_.Centre());
    const double along = d.x / major_;
    const double across = d.y / minor_;
    const double q = along * along + across * across - 1;
    if (std::fabs(q) <= kOvalReach) return elementary::kOnOutline;
    return q < 0 ? elementary::kInside : elementary::kOutside;
  }

 private:
  elementary::ShapeFrame frame_;
  double major_;
  double minor_;
};

}  // namespace zor::intersection
