#pragma once

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorData.h>

namespace zor::test {

inline constexpr int kContourKinds = 9;

/// Contours that are hard for a search: full of ties, without locality, lining up afar, dense, with
/// repeated points, and (the last kind) with coordinates that are not finite.
inline std::vector<ZorPoint> HardContour(int kind, int count, double size, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> unit(-1, 1);
  const auto corner = [](double s) {  // along the outline of a square, s in [0, 4)
    const double side = std::floor(s);
    const double t = 2 * (s - side) - 1;
    return side == 0   ? ZorPoint(t, -1)
           : side == 1 ? ZorPoint(1, t)
           : side == 2 ? ZorPoint(-t, 1)
                       : ZorPoint(-1, -t);
  };
  std::vector<ZorPoint> points;
  for (int i = 0; i < count; ++i) {
    const double share = static_cast<double>(i) / count;
    const double turn = 2 * std::numbers::pi * share;
    ZorPoint p(std::cos(turn), std::sin(turn));
    if (kind == 1) p = ZorPoint(unit(rng), unit(rng));
    if (kind == 2) p = ZorPoint(std::round(5 * unit(rng)) / 5, std::round(5 * unit(rng)) / 5);
    if (kind == 3) p = corner(4 * share);
    if (kind == 4) p = ZorPoint(p.x * (1 + 0.05 * unit(rng)), p.y * (1 + 0.05 * unit(rng)));
    if (kind == 5) p = ZorPoint(p.x * (1 + 0.3 * std::sin(7 * turn)), p.y);
    if (kind == 6) p = ZorPoint(1 + 1e-4 * p.x, 1e-4 * p.y);
    if (kind == 7 && i % 40 != 0) p = ZorPoint(points.back().x / size, points.back().y / size);
    if (kind == 8 && i % 5 == 3) p.x = i % 2 == 0 ? kNaN : kInfinity;
    points.emplace_back(p.x * size, p.y * size);
  }
  return points;
}

/// What the contour to contour distances report.
struct PairResult {
  long status = 0;
  ZorPoint min_a, min_b;
  double low = kUntouched;
  ZorPoint max_a, max_b;
  double high = kUntouched;
};

/// Calls one of these operations of either class.
template <class Measure>
PairResult MeasurePair(ZorContour& a, ZorContour& b, int mode, Measure method) {
  PairResult r;
  r.status = method(a, b, mode, &r.min_a, &r.min_b, &r.low, &r.max_a, &r.max_b, &r.high);
  return r;
}

inline bool IsSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
inline bool IsSame(const ZorPoint& a, const ZorPoint& b) {
  return IsSame(a.x, b.x) && IsSame(a.y, b.y);
}

inline void ExpectSame(const PairResult& actual, const PairResult& expected) {
  EXPECT_EQ(actual.status, expected.status);
  EXPECT_TRUE(IsSame(actual.low, expected.low)) << actual.low << " for " << expected.low;
  EXPECT_TRUE(IsSame(actual.high, expected.high)) << actual.high << " for " << expected.high;
  EXPECT_TRUE(IsSame(actual.min_a, expected.min_a) && IsSame(actual.min_b, expected.min_b));
  EXPECT_TRUE(IsSame(actual.max_a, expected.max_a) && IsSame(actual.max_b, expected.max_b));
}

}  // namespace zor::test
