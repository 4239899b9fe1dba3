#include "intersection/circle_pair_kernels.h"

#include <algorithm>
#include <cmath>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::intersection {

using elementary::Distance;
using frame::kPi;

namespace {

inline constexpr double kTouching = 1e-3;  // pixels, inclusive

double HalfSine(double gamma_deg) { return std::fabs(std::sin(gamma_deg / 180 * kPi)) / 2; }

}  // namespace

CirclePair MeetCircles(const ZorPoint& c1, double r1, const ZorPoint& c2, double r2) {
  CirclePair pair;
  const double d = Distance(c1, c2);
  if (d <= frame::kDegenerateLength) {
    pair.which = CirclePairCase::kConcentric;
    return pair;
  }
  const double gap = d - (r1 + r2);
  const double inner_gap = d - std::fabs(r1 - r2);
  const ZorPoint u((c2.x - c1.x) / d, (c2.y - c1.y) / d);
  if (gap > kTouching) {
    pair.which = CirclePairCase::kApart;
  } else if (inner_gap < -kTouching) {
    pair.which = CirclePairCase::kInside;
  } else if (std::fabs(gap) <= kTouching) {
    pair.which = CirclePairCase::kTouchOutside;
    pair.first = ZorPoint(c1.x + (c2.x - c1.x) * r1 / d, c1.y + (c2.y - c1.y) * r1 / d);
  } else if (std::fabs(inner_gap) <= kTouching) {
    pair.which = CirclePairCase::kTouchInside;
    // Deliberate: away from the second centre, whichever circle is the larger; hosts rely on it.
    pair.first = ZorPoint(c1.x - (c2.x - c1.x) * r1 / d, c1.y - (c2.y - c1.y) * r1 / d);
  } else {
    pair.which = CirclePairCase::kCrossing;
    const double cosine = (d * d + r1 * r1 - r2 * r2) / (2 * r1 * d);
    const double sine = std::sqrt(1 - cosine * cosine);
    pair.first = ZorPoint(c1.x + u.x * r1 * cosine - u.y * r1 * sine,
                          c1.y + u.y * r1 * cosine + u.x * r1 * sine);
    pair.second = ZorPoint(c1.x + u.x * r1 * cosine + u.y * r1 * sine,
                           c1.y + u.y * r1 * cosine - u.x * r1 * sine);
  }
  return pair;
}

double SmallerDisc(double r1, double r2) {
  const double radius = std::min(r1, r2);
  return kPi * (radius * radius);
}

double MinorSegment(double radius, double gamma_deg) {
  return radius * radius * (gamma_deg * kPi / 360 - HalfSine(gamma_deg));
}

double MajorSegment(double radius, double gamma_deg) {
  return radius * radius * (kPi - gamma_deg * kPi / 360 + HalfSine(gamma_deg));
}

}  // namespace zor::intersection
