#include "elementary/angle_kernels.h"

#include <cmath>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::elementary {

using frame::kPi;
using frame::kTwoPi;

namespace {

inline constexpr double kFullTurnSlack = 1e-6;  // degrees, exclusive

enum class Quadrant { kRightUp, kLeftUp, kLeftDown, kRightDown, kNone };

// The half-open quadrants of p1 -> p2 on the screen; none when a coordinate is not a number.
Quadrant QuadrantOf(const ZorPoint& p1, const ZorPoint& p2) {
  if (p2.x > p1.x && p1.y >= p2.y) return Quadrant::kRightUp;
  if (p1.x >= p2.x && p1.y > p2.y) return Quadrant::kLeftUp;
  if (p1.x > p2.x && p2.y >= p1.y) return Quadrant::kLeftDown;
  if (p2.x >= p1.x && p2.y > p1.y) return Quadrant::kRightDown;
  return Quadrant::kNone;
}

}  // namespace

std::optional<double> DirectionFromHorizontal(const ZorPoint& p1, const ZorPoint& p2) {
  const double theta_rad = std::asin(std::fabs(p1.y - p2.y) / Distance(p1, p2));
  switch (QuadrantOf(p1, p2)) {
    case Quadrant::kRightUp:
      return theta_rad * 180 / kPi;
    case Quadrant::kLeftUp:
      return (kPi - theta_rad) * 180 / kPi;
    case Quadrant::kLeftDown:
      return (theta_rad + kPi) * 180 / kPi;
    case Quadrant::kRightDown:
      return (kTwoPi - theta_rad) * 180 / kPi;
    case Quadrant::kNone:
      break;
  }
  return std::nullopt;
}

std::optional<double> DirectionFromVertical(const ZorPoint& p1, const ZorPoint& p2) {
  const double theta_rad = std::acos(std::fabs(p1.y - p2.y) / Distance(p1, p2));
  switch (QuadrantOf(p1, p2)) {
    case Quadrant::kRightUp:
      return (kPi - theta_rad) * 180 / kPi;
    case Quadrant::kLeftUp:
      return (theta_rad + kPi) * 180 / kPi;
    case Quadrant::kLeftDown:
      return (kTwoPi - theta_rad) * 180 / kPi;
    case Quadrant::kRightDown:
      return theta_rad * 180 / kPi;
    case Quadrant::kNone:
      break;
  }
  return std::nullopt;
}

double TurnBetween(double from_deg, double to_deg) {
  double turn = to_deg - from_deg;
  if (to_deg <= from_deg) turn += 360;
  return std::fabs(turn - 360) < kFullTurnSlack ? 0.0 : turn;
}

double VectorDirection(const ZorPoint& v) {
  const double angle_deg = std::atan2(v.y, v.x) / kPi * 180;
  return angle_deg < 0 ? angle_deg + 360 : angle_deg;
}

}  // namespace zor::elementary
