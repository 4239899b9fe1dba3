#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "shape/point_sets.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::UntouchedPoint;

namespace {

/// Distance of p from the outline, negative outside.
double Clearance(const ZorPointArray& polygon, const ZorPoint& p) {
  double least = kInfinity;
  bool is_inside = false;
  const int n = polygon.Length();
  for (int i = 0; i < n; ++i) {
    const ZorPoint a = polygon[i], b = polygon[i + 1], d = b - a;
    const double t = ((p.x - a.x) * d.x + (p.y - a.y) * d.y) / (d.x * d.x + d.y * d.y);
    const double s = std::clamp(t, 0.0, 1.0);
    least = std::min(least, std::hypot(p.x - a.x - s * d.x, p.y - a.y - s * d.y));
    if ((a.y <= p.y) != (b.y <= p.y) && a.x + (p.y - a.y) / d.y * d.x > p.x) is_inside = !is_inside;
  }
  return is_inside ? least : -least;
}

}  // namespace

TEST(IncisionCircle, KnownShapes) {
  struct Case {
    const char* what;
    ZorPointArray points;
    ZorPoint centre;
    double radius;
  };
  const double l = 60 / (2 + std::sqrt(2.0));  // touches two sides and the inner corner of the L
  for (const Case& c : {
           Case{"square", {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {5, 5}, 5},
           {"right triangle, the other way", {{0, 3}, {4, 0}, {0, 0}}, {1, 1}, 1},
           {"L", {{0, 0}, {90, 0}, {90, 30}, {30, 30}, {30, 90}, {0, 90}}, {l, l}, l},
           {"sliver", {{0, 0}, {1e4, 0}, {1e4, 0.01}, {0, 0.01}}, UntouchedPoint(), 0.005},
           {"vertex twice", {{0, 0}, {10, 0}, {10, 10}, {10, 10}, {0, 10}}, {5, 5}, 5},
           {"crossing itself",
            {{0, 0}, {2, 2}, {2, 0}, {0, 2}},
            UntouchedPoint(),
            std::sqrt(2.0) - 1},
       }) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points;
    ZorPoint centre;
    double radius = kUntouched;
    EXPECT_EQ(ZorGeometryMeasure().IncisionCircle(points, &centre, &radius), GM_OK);
    EXPECT_NEAR(radius, c.radius, 1e-9);
    if (!zor::test::IsUntouched(c.centre)) ExpectNear(centre, c.centre, 1e-9);
  }
}

TEST(IncisionCircle, NoSampledPlaceHoldsALargerOne) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> radius_of(15, 100);
  for (int round = 0; round < 40; ++round) {
    ZorPointArray
        polygon;  // star-shaped, deeply notched; every third one on a grid, with level edges
    const int n = 3 + round;
    for (int i = 0; i < n; ++i) {
      const double t = 2 * std::numbers::pi * i / n, r = radius_of(rng);
      ZorPoint p(r * std::cos(t), r * std::sin(t));
      if (round % 3 == 0) p = ZorPoint(std::round(p.x / 10) * 10, std::round(p.y / 10) * 10);
      polygon.Append(p);
    }
    ZorPoint centre;
    double radius = 0.0;
    ASSERT_EQ(ZorGeometryMeasure().IncisionCircle(polygon, &centre, &radius), GM_OK) << round;
    // Duplicate vertices of the grid give distances that are not a number, passed over above.
    EXPECT_NEAR(Clearance(polygon, centre), radius, 1e-9) << round;
    for (int k = 0; k < 200 * 200; ++k) {
      const ZorPoint place(k % 200 - 100, k / 200 - 100);
      ASSERT_LE(Clearance(polygon, place), radius + 1e-9) << round;
    }
  }
}

TEST(IncisionCircle, FailsWhereNothingFits) {
  ZorGeometryMeasure m;
  ZorPoint centre = UntouchedPoint();
  ZorPointArray two = {{0, 0}, {1, 0}};
  EXPECT_EQ(m.IncisionCircle(two, &centre, nullptr), GM_E_TOO_FEW_POINTS);
  for (ZorPointArray points :
       {ZorPointArray{{0, 0}, {7, 3.5}, {14, 7}}, ZorPointArray{{1, 1}, {1, 1}, {1, 1}},
        ZorPointArray{{0, 0}, {5, 3}, {9, 4}, {5, 3}},  // there and back
        ZorPointArray{{0, 0}, {kNaN, 1}, {1, 1}},
        ZorPointArray{{0, 0}, {kInfinity, 0}, {0, kInfinity}}}) {
    EXPECT_EQ(m.IncisionCircle(points, &centre, nullptr), GM_E_INSCRIBED_CIRCLE_FAILED);
  }
  EXPECT_TRUE(zor::test::IsUntouched(centre));
}

TEST(GetInnerCircle, TouchesTheSidesOrGivesZero) {
  ZorGeometryMeasure m;
  ZorPoint a(0, 0), b(4, 0), c(0, 3), near(0.9e-5, 0), on_line(8, 0), centre = UntouchedPoint();
  EXPECT_EQ(m.GetInnerCircle(a, b, near, &centre), 0.0);
  EXPECT_EQ(m.GetInnerCircle(a, b, on_line, &centre), 0.0);
  EXPECT_TRUE(zor::test::IsUntouched(centre));
  EXPECT_DOUBLE_EQ(m.GetInnerCircle(a, b, c, &centre), 1.0);
  ExpectNear(centre, {1, 1}, 1e-15);
  EXPECT_DOUBLE_EQ(m.GetInnerCircle(c, b, a, nullptr), 1.0);
}
