#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "distance/oval_kernels.h"
#include "elementary/point_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::distance::OvalMeasure;
using zor::elementary::Distance;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::Show;
using zor::test::UntouchedPoint;

namespace {

/// The point of the ellipse at the parametric angle t.
ZorPoint OnOval(const ZorPoint& centre, double a, double b, double angle_deg, double t) {
  const double alpha = angle_deg / 180 * 3.141592653;
  const double u = a * std::cos(t), v = b * std::sin(t);
  return {centre.x + std::cos(alpha) * u + std::sin(alpha) * v,
          centre.y - std::sin(alpha) * u + std::cos(alpha) * v};
}

/// The updates step by step, for a >= b and a point (u, v) of the first quadrant: the ninth point.
ZorPoint NinthPoint(double a, double b, double u, double v) {
  double tx = std::sqrt(2.0) / 2, ty = tx, x = 0, y = 0;
  for (int i = 0; i < 10; ++i) {
    x = a * tx;
    y = b * ty;
    const double ex = (a * a - b * b) * std::pow(tx, 3) / a;
    const double ey = (b * b - a * a) * std::pow(ty, 3) / b;
    const double r = std::hypot(y - ey, x - ex), q = std::hypot(v - ey, u - ex);
    tx = ((u - ex) * r / q + ex) / a;
    ty = ((v - ey) * r / q + ey) / b;
    const double t = std::hypot(tx, ty);
    tx /= t;
    ty /= t;
  }
  return {std::fabs(x), std::fabs(y)};  // it takes the signs of the point
}

}  // namespace

TEST(PointToOval, ChecksAngleThenAxes) {
  ZorPoint p(3, 4), centre(0, 0), nearest = UntouchedPoint();
  const auto call = [&](double a, double b, double angle) {
    return ZorGeometryMeasure().PointToOvalDistance(p, centre, a, b, angle, nullptr, &nearest);
  };
  EXPECT_EQ(call(0, 0, -1), GM_E_PARAM_5);
  EXPECT_EQ(call(1, 1, 360.000001), GM_E_PARAM_5);
  EXPECT_EQ(call(0, 0, 360), GM_E_PARAM_3);
  EXPECT_EQ(call(1, -1, 0), GM_E_PARAM_4);
  EXPECT_TRUE(IsUntouched(nearest));
  EXPECT_EQ(call(1e-9, 1e-9, 360), GM_OK);
}

TEST(PointToOval, KnownFeet) {
  struct Case {
    const char* what;
    ZorPoint p;
    double a, b, angle, distance;
    ZorPoint nearest;
  };
  for (const Case& c : {
           Case{"centre, first axis smaller", {0, 0}, 2, 5, 0, -2, {2, 0}},
           {"centre, first axis smaller, turned", {9e-6, 0}, 2, 5, 90, -2, {0, -2}},
           {"centre, second axis smaller", {0, 0}, 5, 2, 0, -2, {0, -2}},
           {"centre of a circle", {0, 0}, 3, 3, 30, -3, {3 * std::cos(0.5235988), -1.5}},
           {"just off the centre", {0, 1.1e-5}, 5, 2, 0, -1.999989, {0, 2}},
           {"on the outline by its equation", {5.00002, 0}, 5, 2, 0, 0, {5.00002, 0}},
           {"just off the outline", {5.0001, 0}, 5, 2, 0, 1e-4, {5, 0}},
           {"beyond the first axis", {-8, 0}, 5, 2, 0, 3, {-5, 0}},
           {"beyond the second axis, given as first", {0, -7}, 2, 5, 0, 2, {0, -5}},
           {"first axis turned up the screen", {0, -8}, 5, 2, 90, 3, {0, -5}},
           {"turned by 45", {3, -3}, 3, 2, 45, 1.2426407, {2.1213203, -2.1213203}},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint p = c.p, centre(0, 0), nearest;
    double distance = 0;
    EXPECT_EQ(
        ZorGeometryMeasure().PointToOvalDistance(p, centre, c.a, c.b, c.angle, &distance, &nearest),
        GM_OK);
    EXPECT_NEAR(distance, c.distance, 1e-7);  // ten-digit pi
    ExpectNear(nearest, c.nearest, 1e-7);
  }
}

TEST(PointToOval, AgreesWithDenseSampling) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 300; ++i) {
    const ZorPoint centre(900 * unit(rng), 700 * unit(rng));
    const double a = 10 + 50 * unit(rng), b = a * (0.36 + 2.2 * unit(rng)), angle = 360 * unit(rng);
    const double scale = 2.5 * unit(rng);
    const ZorPoint on = OnOval({0, 0}, a, b, angle, 7 * unit(rng));
    const ZorPoint p = centre + ZorPoint(scale * on.x, scale * on.y);
    const auto foot = OvalMeasure(centre, a, b, angle).FootOf(p);
    double sampled = kInfinity;
    for (int k = 0; k < 4000; ++k) {
      const double t = 2 * std::numbers::pi * k / 4000;
      sampled = std::min(sampled, Distance(p, OnOval(centre, a, b, angle, t)));
    }
    EXPECT_NEAR(std::fabs(foot.distance), sampled, 0.06) << Show(p) << " " << a << " " << b;
    EXPECT_LE(std::fabs(foot.distance), sampled + 1e-9);
    EXPECT_NEAR(Distance(p, foot.nearest), std::fabs(foot.distance), 1e-9);
    EXPECT_EQ(foot.distance < 0, scale < 1);
  }
}

TEST(PointToOval, ThinOnesKeepTheirNinthPoint) {
  // Far from settled by then, so one update more or less shows.
  for (const double b : {5.0, 10.0}) {
    for (const ZorPoint& p : {ZorPoint(140, 0.5), {140, 25}, {155, 25}, {155, 100}, {185, 175}}) {
      const ZorPoint expected = NinthPoint(100, b, p.x, p.y);
      const auto foot = OvalMeasure({0, 0}, 100, b, 0).FootOf({-p.x, p.y});
      ExpectNear(foot.nearest, {-expected.x, expected.y}, 1e-9);
      EXPECT_NEAR(std::fabs(foot.distance), Distance(p, expected), 1e-9);
    }
  }
}

TEST(PointToOval, ListsAreMeasuredAsSinglePoints) {
  std::mt19937_64 rng(3);
  std::uniform_real_distribution<double> coordinate(-60, 60);
  for (const double b : {4.0, 30.0, 50.0, 70.0}) {
    const OvalMeasure oval({1, 2}, 50, b, 33);
    for (const std::size_t count : {0U, 1U, 7U, 8U, 9U, 24U, 61U}) {
      std::vector<ZorPoint> points{{1, 2}, oval.FootOf({8, 9}).nearest, {kNaN, 1}, {kInfinity, 0}};
      while (points.size() < count) points.emplace_back(coordinate(rng), coordinate(rng));
      points.resize(count);
      std::vector<double> distances(count);
      oval.DistancesOf(points, distances);
      for (std::size_t i = 0; i < count; ++i) {
        const double single = oval.FootOf(points[i]).distance;
        EXPECT_TRUE(distances[i] == single || (std::isnan(distances[i]) && std::isnan(single)));
      }
    }
  }
}
