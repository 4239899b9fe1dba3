#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "intersection/ellipse_pair_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::intersection::Ellipse;
using zor::intersection::EllipsePair;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

constexpr double kPi = std::numbers::pi;

/// A point of the ellipse, written out from the image convention (y down, angles up the screen).
ZorPoint OnEllipse(const Ellipse& e, double t) {
  const double theta = e.angle_deg * kPi / 180;
  const double u = e.a * std::cos(t), v = e.b * std::sin(t);
  return {e.centre.x + u * std::cos(theta) + v * std::sin(theta),
          e.centre.y - u * std::sin(theta) + v * std::cos(theta)};
}

/// The chord of the ellipse at height y; empty when first > second. From the quadratic form.
std::pair<double, double> ChordAt(const Ellipse& e, double y) {
  const double theta = e.angle_deg * kPi / 180, c = std::cos(theta), s = std::sin(theta);
  const double dy = y - e.centre.y;
  const double xx = c * c / (e.a * e.a) + s * s / (e.b * e.b);
  const double xy = c * s * (1 / (e.b * e.b) - 1 / (e.a * e.a));
  const double yy = s * s / (e.a * e.a) + c * c / (e.b * e.b);
  const double d = xy * xy * dy * dy - xx * (yy * dy * dy - 1);
  if (d < 0) return {1, 0};
  const double middle = e.centre.x - xy * dy / xx;
  return {middle - std::sqrt(d) / xx, middle + std::sqrt(d) / xx};
}

double HalfHeight(const Ellipse& e) {
  const double theta = e.angle_deg * kPi / 180;
  return std::hypot(e.a * std::sin(theta), e.b * std::cos(theta));
}

/// The overlap by integrating the common part of the chords, denser towards both ends.
double IntegratedOverlap(const Ellipse& p, const Ellipse& q) {
  const double low = std::max(p.centre.y - HalfHeight(p), q.centre.y - HalfHeight(q));
  const double high = std::min(p.centre.y + HalfHeight(p), q.centre.y + HalfHeight(q));
  if (low >= high) return 0;
  const int steps = 40000;
  double sum = 0;
  for (int i = 0; i < steps; ++i) {
    const double phi = ((i + 0.5) / steps - 0.5) * kPi;
    const double y = (low + high) / 2 + (high - low) / 2 * std::sin(phi);
    const auto [p1, p2] = ChordAt(p, y);
    const auto [q1, q2] = ChordAt(q, y);
    if (p1 > p2 || q1 > q2) continue;
    sum += std::max(0.0, std::min(p2, q2) - std::max(p1, q1)) * std::cos(phi);
  }
  return sum * (high - low) / 2 * kPi / steps;
}

/// First-order distance of a point from an ellipse.
double Miss(const Ellipse& e, const ZorPoint& p) {
  const double theta = e.angle_deg * kPi / 180;
  const double dx = p.x - e.centre.x, dy = p.y - e.centre.y;
  const double u = (dx * std::cos(theta) - dy * std::sin(theta)) / e.a;
  const double v = (dx * std::sin(theta) + dy * std::cos(theta)) / e.b;
  return std::fabs(u * u + v * v - 1) / std::hypot(2 * u / e.a, 2 * v / e.b);
}

int SampledCrossings(const Ellipse& p, const Ellipse& q) {
  int changes = 0;
  bool was_inside = false;
  for (int i = 0; i <= 30000; ++i) {
    const ZorPoint point = OnEllipse(p, i * 2 * kPi / 30000);
    const auto [x1, x2] = ChordAt(q, point.y);
    const bool is_inside = x1 <= point.x && point.x <= x2;
    if (i > 0 && is_inside != was_inside) ++changes;
    was_inside = is_inside;
  }
  return changes;
}

void CheckPair(const Ellipse& p, const Ellipse& q) {
  const EllipsePair pair(p, q);
  const double expected = IntegratedOverlap(p, q);
  const double smaller = kPi * std::min(p.a * p.b, q.a * q.b);
  EXPECT_NEAR(pair.OverlapArea(), expected, 1e-6 * smaller);
  EXPECT_NEAR(EllipsePair(q, p).OverlapArea(), pair.OverlapArea(), 1e-9 * smaller);
  const std::vector<ZorPoint> points = pair.Points();
  for (const ZorPoint& point : points) {
    EXPECT_LT(Miss(p, point), 1e-6);
    EXPECT_LT(Miss(q, point), 2e-6);
  }
  EXPECT_LE(points.size(), 4U);
}

std::string Show(const Ellipse& e) {
  return zor::test::Show(e.centre) + " a " + std::to_string(e.a) + " b " + std::to_string(e.b) +
         " at " + std::to_string(e.angle_deg);
}

}  // namespace

TEST(EllipsePair, AgreesWithIntegrationInEveryPosition) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 250; ++i) {
    const double thinness = i % 5 == 0 ? 0.03 : 0.4;
    const auto random = [&](double reach) {
      const double a = 5 + 100 * unit(rng);
      return Ellipse{ZorPoint(2000 + reach * unit(rng), 1000 + reach * unit(rng)), a,
                     a * (thinness + (1 - thinness) * unit(rng)), 180 * unit(rng)};
    };
    const Ellipse p = random(0), q = random(i % 3 == 0 ? 10 : 120);
    SCOPED_TRACE(Show(p) + ", " + Show(q));
    CheckPair(p, q);
    EXPECT_GE(static_cast<int>(EllipsePair(p, q).Points().size()), SampledCrossings(p, q));
  }
}

TEST(EllipsePair, AgreesWithIntegrationAboutOsculation) {
  std::mt19937_64 rng(20240608);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 120; ++i) {
    // The circle of curvature at t, nearly: it crosses there, or stays within a hair for long.
    const double t = i % 4 == 0 ? 0 : 1.5 * unit(rng), c = std::cos(t), s = std::sin(t);
    const double speed2 = 100.0 * 100 * s * s + 50.0 * 50 * c * c;
    const double r = std::pow(speed2, 1.5) / 5000 + std::pow(10, -3 - 6 * unit(rng));
    const double length = std::sqrt(speed2);
    const Ellipse p{{0, 0}, 100, 50, 0},
        q{{100 * c - r * 50 * c / length, -(50 * s - r * 100 * s / length)}, r, r, 0};
    SCOPED_TRACE(Show(p) + ", " + Show(q));
    CheckPair(p, q);
  }
}

TEST(EllipsePair, AgreesWithIntegrationInSpecialPositions) {
  struct Case {
    const char* what;
    Ellipse p, q;
    std::size_t points;
  };
  for (const Case& c : {
           Case{"a cross", {{0, 0}, 10, 4, 0}, {{0, 0}, 10, 4, 90}, 4},
           {"centre on the other's axis", {{0, 0}, 10, 4, 0}, {{8, 0}, 6, 5, 0}, 2},
           {"on the minor axis, four crossings", {{0, 0}, 10, 4, 0}, {{0, 3}, 9, 5, 0}, 2},
           {"touching from outside", {{0, 0}, 10, 4, 0}, {{15, 0}, 5, 3, 0}, 1},
           {"touching inside at both ends", {{0, 0}, 10, 4, 0}, {{0, 0}, 4, 4, 0}, 2},
           {"touching once, crossing twice", {{0, 0}, 10, 5, 0}, {{-5, 0}, 5, 6, 0}, 3},
           {"osculating inside at a vertex", {{0, 0}, 10, 5, 0}, {{7.5, 0}, 2.5, 2.5, 0}, 1},
           {"apart, one above the other", {{0, 0}, 10, 4, 0}, {{0, 9}, 10, 4, 0}, 0},
           {"nested", {{0, 0}, 10, 4, 20}, {{1, 1}, 2, 1, 70}, 0},
           {"circles turned against each other", {{0, 0}, 7, 7, 0}, {{0, 0}, 7, 7, 30}, 0},
           {"nearly the same", {{0, 0}, 100, 60, 0}, {{3e-5, 0}, 100, 60, 0}, 2},
           {"crossing at an osculation",
            {{0, 0}, 100, 50, 0},
            {{74.719159858517656, -0.018726575191341244}, 25.2815415, 25.2815415, 0},
            2},
           {"almost the same",
            {{0, 0}, 10, 9, 40},
            {{1.3e-8, 1.55e-6}, 10 + 2.9e-7, 9 - 6.3e-7, 40.0000439},
            2},
           {"flatter than the other's tip by a hair",
            {{0, 0}, 2000, 1000, 0},
            {{1499.999, 0}, 500.001, 500.001, 0},
            1},
       }) {
    SCOPED_TRACE(c.what);
    CheckPair(c.p, c.q);
    EXPECT_EQ(EllipsePair(c.p, c.q).Points().size(), c.points);
  }
  const Ellipse nowhere{{kNaN, 0}, 1, 1, 0}, vast{{0, 0}, 1e200, 1e-200, 0};
  EXPECT_TRUE(EllipsePair(nowhere, vast).Points().empty());
  const Ellipse thread{{0, 0}, 1e154, 1, 0}, disc{{0, 0}, 1, 1, 0};  // in finite time
  EXPECT_LE(EllipsePair(thread, disc).Points().size(), 4U);
}

TEST(OvalsIntersection, ClearsTouchingPointsAndRefusesTheSameOval) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0), right(15, 0), near(0.9e-5, 0);
  ZorPointArray points{{7, 7}};
  double area = kUntouched;
  EXPECT_EQ(m.OvalsIntersection(o, 10, 4, 0, right, 5, 3, 0, &points, &area), GM_OK);
  EXPECT_TRUE(points.Empty());
  EXPECT_NEAR(area, 0, 1e-9);
  EXPECT_EQ(m.CircleOvalIntersection(o, 10, right, 5, 3, 0, &points, &area), GM_OK);
  ASSERT_EQ(points.Length(), 1);
  ExpectNear(points[0], {10, 0}, 1e-6);
  EXPECT_EQ(m.OvalsIntersection(o, 10, 4, 0, right, 10, 4, 90, &points, nullptr), GM_OK);
  EXPECT_TRUE(points.Empty());  // apart; the area is computed for the test all the same

  points = ZorPointArray{{7, 7}};
  area = kUntouched;
  struct Case {
    double a, b, angle;
    long status;
  };
  for (const Case& c : {Case{10, 4, 0, GM_E_NO_INTERSECTION},
                        {10, 4, 180, GM_E_NO_INTERSECTION},
                        {10, 4, 360, GM_E_NO_INTERSECTION},
                        {4, 10, 90, GM_E_NO_INTERSECTION},
                        {4, 10, 270, GM_E_NO_INTERSECTION},
                        {0, 4, 0, GM_E_PARAM_6},
                        {10, 0, 0, GM_E_PARAM_7},
                        {10, 4, 360.5, GM_E_PARAM_8}}) {
    EXPECT_EQ(m.OvalsIntersection(o, 10, 4, 0, near, c.a, c.b, c.angle, &points, &area), c.status);
  }
  EXPECT_EQ(m.OvalsIntersection(o, 0, 0, -1, o, 0, 0, -1, &points, &area), GM_E_PARAM_2);
  EXPECT_EQ(m.OvalsIntersection(o, 1, 0, -1, o, 0, 0, -1, &points, &area), GM_E_PARAM_3);
  EXPECT_EQ(m.OvalsIntersection(o, 1, 1, -1, o, 0, 0, -1, &points, &area), GM_E_PARAM_4);
  EXPECT_EQ(m.CircleOvalIntersection(o, 5, near, 5, 5, 90, &points, &area), GM_E_NO_INTERSECTION);
  EXPECT_EQ(m.CircleOvalIntersection(o, 0, o, 0, 0, -1, &points, &area), GM_E_PARAM_2);
  EXPECT_EQ(m.CircleOvalIntersection(o, 1, o, 0, 0, -1, &points, &area), GM_E_PARAM_4);
  EXPECT_EQ(m.CircleOvalIntersection(o, 1, o, 1, 0, -1, &points, &area), GM_E_PARAM_5);
  EXPECT_EQ(m.CircleOvalIntersection(o, 1, o, 1, 1, -1, &points, &area), GM_E_PARAM_6);
  EXPECT_TRUE(IsUntouched(area));
  EXPECT_EQ(points.Length(), 1);
  EXPECT_EQ(m.OvalsIntersection(o, 10, 4, 200, o, 10, 4, 20, nullptr, nullptr),
            GM_E_NO_INTERSECTION);  // 200 is reduced to 20
}

TEST(CircleToCircleIntersection, TellsTheCasesApartInOrder) {
  struct Case {
    const char* what;
    double r1, x2, r2;
    long status;
    int points;
    double first_x;  // where points are found
    double area;
  };
  const double small = 4 * kPi;  // a disc of radius 2
  for (const Case& c : {
           Case{"first radius", 0, 5, 0, GM_E_PARAM_2, -1, 0, kUntouched},
           {"second radius", 1, 5, 0, GM_E_PARAM_4, -1, 0, kUntouched},
           {"coincident", 2, 0.0005, 2.0000099, GM_E_NO_INTERSECTION, -1, 0, small},
           {"concentric", 2, 0, 3, GM_OK, 0, 0, small},
           {"equal, just apart: touching inside", 2, 0.0007, 2, GM_OK, 1, -2, small},
           {"apart", 2, 5.0011, 3, GM_OK, 0, 0, 0},
           {"touching outside", 2, 5.0009, 3, GM_OK, 1, 2, 0},
           {"inside", 5, 2.9989, 2, GM_OK, 0, 0, small},
           {"touching inside, first larger", 5, 2.9991, 2, GM_OK, 1, -5, small},
           {"touching inside, first smaller", 2, 3.0009, 5, GM_OK, 1, -2, small},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint c1(0, 0), c2(c.x2, 0);
    ZorPointArray points{{7, 7}, {8, 8}, {9, 9}};
    double area = kUntouched;
    EXPECT_EQ(ZorGeometryMeasure().CircleToCircleIntersection(c1, c.r1, c2, c.r2, &points, &area),
              c.status);
    EXPECT_NEAR(area, c.area, 1e-4);
    EXPECT_EQ(points.Length(), c.points < 0 ? 3 : c.points);
    if (c.points == 1) ExpectNear(points[0], {c.first_x, 0}, 1e-12);
  }
}

TEST(CircleToCircleIntersection, LensAgreesWithIntegration) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 120; ++i) {
    const double r1 = 20 + 80 * unit(rng), r2 = 20 + 80 * unit(rng);
    const double reach =
        std::fabs(r1 - r2) + (r1 + r2 - std::fabs(r1 - r2)) * (0.02 + 0.96 * unit(rng));
    const double turn = 2 * kPi * unit(rng);
    ZorPoint c1(500, 400), c2(500 + reach * std::cos(turn), 400 + reach * std::sin(turn));
    ZorPointArray points;
    double area = 0;
    ASSERT_EQ(ZorGeometryMeasure().CircleToCircleIntersection(c1, r1, c2, r2, &points, &area),
              GM_OK);
    ASSERT_EQ(points.Length(), 2);
    const Ellipse p{c1, r1, r1, 0}, q{c2, r2, r2, 0};
    const double smaller = kPi * std::min(r1, r2) * std::min(r1, r2);
    EXPECT_NEAR(area, IntegratedOverlap(p, q), 1e-6 * smaller) << r1 << ", " << r2 << ", " << reach;
    for (const ZorPoint& point : points) EXPECT_LT(Miss(p, point) + Miss(q, point), 1e-9);
    // Clockwise on the screen first: with y down, to the right of the way from c1 to c2.
    const ZorPoint d = c2 - c1, side = points[0] - c1;
    EXPECT_GT(d.x * side.y - d.y * side.x, 0);
  }
}
