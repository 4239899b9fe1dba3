#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::elementary::Distance;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;
using zor::test::Show;
using zor::test::UntouchedPoint;

namespace {

constexpr double kDegree = 3.141592653 / 180;
// The quarter turn that swaps the axes is 3e-10 short with the ten-digit pi; ovals up to 160 wide.
constexpr double kPixels = 1e-7;

struct Oval {
  ZorPoint centre;
  double a, b, angle;

  [[nodiscard]] ZorPoint Local(const ZorPoint& p) const {
    const double c = std::cos(angle * kDegree), s = std::sin(angle * kDegree);
    const ZorPoint d = p - centre;
    return {c * d.x - s * d.y, s * d.x + c * d.y};
  }
  [[nodiscard]] double Equation(const ZorPoint& p) const {
    const ZorPoint q = Local(p);
    return std::pow(q.x / a, 2) + std::pow(q.y / b, 2) - 1;
  }
  /// The signed distance, by bisection for the multiplier t of the normal: the nearest point is
  /// (a^2 u / (t + a^2), b^2 v / (t + b^2)).
  [[nodiscard]] double Distance(const ZorPoint& p) const {
    const ZorPoint q = Local(p);
    const double u = std::fabs(q.x) + 1e-12, v = std::fabs(q.y) + 1e-12, m = std::min(a, b);
    double low = -m * m, high = (a + b) * (u + v) + 1;
    for (int i = 0; i < 60; ++i) {
      const double t = (low + high) / 2;
      const double f = std::pow(a * u / (t + a * a), 2) + std::pow(b * v / (t + b * b), 2) - 1;
      (f > 0 ? low : high) = t;
    }
    const double x = a * a * u / (low + a * a), y = b * b * v / (low + b * b);
    return std::copysign(std::hypot(x - u, y - v), Equation(p));
  }
};

/// Least and greatest of f over points evenly spread from p to q, ends included.
template <typename Function>
std::pair<double, double> Sampled(const ZorPoint& p, const ZorPoint& q, int steps, Function&& f) {
  double low = f(p), high = low;
  for (int i = 1; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    const double value = f(ZorPoint(p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)));
    low = std::min(low, value);
    high = std::max(high, value);
  }
  return {low, high};
}

struct Found {
  double distance = kUntouched;
  ZorPoint own = UntouchedPoint(), figure = UntouchedPoint();
};

struct MinMax {
  Found min, max;
  long status = 0;
};

MinMax MeasureSegment(ZorPoint p, ZorPoint q, Oval oval) {
  MinMax r;
  r.status = ZORMV::ZorGeometryMeasureDlg().LineSegmentToOvalDistance(
      p, q, oval.centre, oval.a, oval.b, oval.angle, &r.min.distance, &r.min.own, &r.min.figure,
      &r.max.distance, &r.max.own, &r.max.figure);
  return r;
}

Oval RandomOval(std::mt19937_64& rng) {
  std::uniform_real_distribution<double> unit(0, 1);
  const double a = 20 + 60 * unit(rng);
  return {{500 * unit(rng), 500 * unit(rng)}, a, a * (0.5 + 1.5 * unit(rng)), 360 * unit(rng)};
}

ZorPoint PointAbout(const Oval& oval, double reach, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> offset(-reach, reach);
  return oval.centre + ZorPoint(offset(rng), offset(rng));
}

}  // namespace

TEST(LineSegmentToOval, AgreesWithDenseSampling) {
  std::mt19937_64 rng(20240607);
  int meeting = 0, within = 0;
  for (int i = 0; i < 400; ++i) {
    const Oval oval = RandomOval(rng);
    const double reach = i % 4 == 0 ? std::min(oval.a, oval.b) * 0.7 : 120;
    const ZorPoint p = PointAbout(oval, reach, rng), q = PointAbout(oval, reach, rng);
    const MinMax r = MeasureSegment(p, q, oval);
    ASSERT_EQ(r.status, GM_OK);
    const int steps = 500;
    const double reach_of_step = Distance(p, q) / steps / 2;
    const auto [low, high] =
        Sampled(p, q, steps, [&](const ZorPoint& s) { return std::fabs(oval.Distance(s)); });
    const std::string what =
        Show(p) + Show(q) + Show(oval.centre) + Show({oval.a, oval.b}) + std::to_string(oval.angle);
    EXPECT_NEAR(r.min.distance, low, reach_of_step + kPixels) << what;
    EXPECT_LE(r.min.distance, low + kPixels) << what;
    EXPECT_NEAR(r.max.distance, high, reach_of_step + kPixels) << what;
    EXPECT_GE(r.max.distance, high - kPixels) << what;
    for (const Found& f : {r.min, r.max}) {
      EXPECT_NEAR(Distance(f.own, f.figure), f.distance, kPixels) << what;
      EXPECT_NEAR(Distance(p, f.own) + Distance(f.own, q), Distance(p, q), kPixels) << what;
      EXPECT_NEAR(oval.Equation(f.figure), 0, 1e-8) << what;
    }
    meeting += r.min.distance == 0;
    within += r.min.distance > 0 && oval.Equation(p) < 0;
  }
  EXPECT_GT(meeting, 100);
  EXPECT_GT(within, 50);
}

TEST(LineSegmentToOval, ReportsSegmentPointThenOvalPoint) {
  struct Case {
    const char* what;
    ZorPoint p, q;
    Found min, max;
  };
  // Of (2, 0) within the ellipse both (3.125, +-y) are nearest.
  const double depth = 6 * std::sqrt(1 - 4.0 / 64), y = 6 * std::sqrt(1 - 0.3125 * 0.3125);
  const ZorPoint crossing(2, -6 * std::sqrt(1 - 0.04));
  for (const Case& c : {
           Case{"past it, farthest at both ends",
                {-9, -8},
                {9, -8},
                {2, {0, -8}, {0, -6}},
                {-1, {-9, -8}, {}}},
           Case{"beyond it", {14, 0}, {12, 0}, {2, {12, 0}, {10, 0}}, {4, {14, 0}, {10, 0}}},
           Case{
               "through it", {2, -8}, {2, 8}, {0, crossing, crossing}, {depth, {2, 0}, {3.125, y}}},
           Case{"within it, nearest at both ends",
                {-2, 0},
                {2, 0},
                {depth, {-2, 0}, {-3.125, y}},
                {6, {0, 0}, {0, -6}}},
       }) {
    SCOPED_TRACE(c.what);
    const MinMax r = MeasureSegment(c.p, c.q, {{0, 0}, 10, 6, 0});
    for (const auto& [found, expected] : {std::pair(r.min, c.min), std::pair(r.max, c.max)}) {
      ExpectNear(found.own, expected.own, kPixels);
      if (expected.distance < 0) continue;
      EXPECT_NEAR(found.distance, expected.distance, kPixels);
      ExpectNear({found.figure.x, std::fabs(found.figure.y)},
                 {expected.figure.x, std::fabs(expected.figure.y)}, kPixels);
    }
  }
}

TEST(LineSegmentToOval, CodesOfTheLongFormsAndTheInertShortOne) {
  struct Case {
    const char* what;
    ZorPoint end;
    double a, b, angle;
    long status;
  };
  for (Case c : {Case{"too short", {0.0005, 0}, 0, 0, 361, GM_E_DEGENERATE_LINE},
                 {"first axis", {0.00051, 0}, 0, 0, 361, GM_E_PARAM_3},
                 {"second axis", {1, 0}, 1, 0, 361, GM_E_PARAM_4},
                 {"angle above", {1, 0}, 1, 1, 360.000001, GM_E_PARAM_5},
                 {"angle below", {1, 0}, 1, 1, -1e-9, GM_E_PARAM_5},
                 {"angle 360", {1, 0}, 1, 1, 360, GM_OK}}) {
    SCOPED_TRACE(c.what);
    ZorGeometryMeasure m;
    ZorPoint start(0, 0), centre(5, 5), own = UntouchedPoint(), figure = own;
    double d = kUntouched;
    EXPECT_EQ(m.LineSegmentToOvalDistance(start, c.end, centre, c.a, c.b, c.angle, &d, &own,
                                          &figure, nullptr, nullptr, nullptr),
              c.status);
    EXPECT_EQ(IsUntouched(d) && IsUntouched(own) && IsUntouched(figure), c.status != GM_OK);
    d = kUntouched;
    EXPECT_EQ(m.LineSegmentToOvalDistance2(start, c.end, centre, c.a, c.b, c.angle, nullptr,
                                           nullptr, nullptr, &d, &own, &figure),
              c.status);
    EXPECT_EQ(IsUntouched(d), c.status != GM_OK);
    d = kUntouched;
    EXPECT_EQ(
        m.LineSegmentToOvalDistance(start, c.end, centre, c.a, c.b, c.angle, &d, nullptr, nullptr),
        GM_OK);
    EXPECT_TRUE(IsUntouched(d));
  }
}

TEST(FindOvalTangentPoint, GivesTheBranchItsOrder) {
  struct Case {
    const char* what;
    ZorPoint direction, first;
  };
  for (Case c :
       {Case{"level", {7, 0}, {0, 3}},
        {"level, backwards", {-7, 0}, {0, 3}},
        {"upright", {0, 7}, {5, 0}},
        {"diagonal counts as shallow", {1, 1}, {-25 / std::sqrt(34.0), 9 / std::sqrt(34.0)}},
        {"shallow", {2, -1}, {12.5 / std::sqrt(15.25), 9 / std::sqrt(15.25)}},
        {"steep", {-1, 2}, {25 / std::sqrt(27.25), 4.5 / std::sqrt(27.25)}}}) {
    SCOPED_TRACE(c.what);
    ZorPoint first, second;
    EXPECT_EQ(ZorGeometryMeasure().FindOvalTangentPoint(c.direction, 5, 3, &first, &second), GM_OK);
    ExpectNear(first, c.first, 1e-12);
    ExpectNear(second, {-first.x, -first.y}, 0);
  }
}

TEST(LineToOval, CodesCasesAndUnwrittenMaximum) {
  const auto measure = [](ZorPoint p, ZorPoint q, double a, double b, double angle, Found* found) {
    ZorPoint centre(100, 50);
    p = p + centre;
    q = q + centre;
    double max = kUntouched;
    ZorPoint max_line = UntouchedPoint(), max_oval = max_line;
    const long status = ZorGeometryMeasure().LineToOvalDistance(
        p, q, centre, a, b, angle, &found->distance, &found->own, &found->figure, &max, &max_line,
        &max_oval);
    EXPECT_TRUE(IsUntouched(max) && IsUntouched(max_line) && IsUntouched(max_oval));
    return status;
  };
  Found f;
  EXPECT_EQ(measure({0, 0}, {1, 0}, 0, 0, 360.000001, &f), GM_E_PARAM_6);
  EXPECT_EQ(measure({0, 0}, {1, 0}, 0, 0, 360, &f), GM_E_PARAM_4);
  EXPECT_EQ(measure({0, 0}, {1, 0}, 1, 0, 0, &f), GM_E_PARAM_5);
  EXPECT_TRUE(IsUntouched(f.distance));

  struct Case {
    const char* what;
    ZorPoint p, q;
    double a, b, angle, distance;
    ZorPoint line, oval;
  };
  const double half = std::sqrt(0.5), root = std::sqrt(41.0);
  for (const Case& c : {
           Case{"level, past", {-9, -8}, {9, -8}, 5, 4, 0, 4, {0, -8}, {0, -4}},
           Case{"level, touching", {1, 4}, {9, 4}, 5, 4, 0, 0, {0, 4}, {0, 4}},
           Case{"level, through", {-9, 0}, {9, 0}, 5, 4, 0, 0, {5, 0}, {5, 0}},
           Case{"upright, past", {-7, 3}, {-7, 4}, 5, 4, 0, 2, {-7, 0}, {-5, 0}},
           Case{"upright, touching", {5.000009, 3}, {5.000009, 4}, 5, 4, 0, 0, {5, 0}, {5, 0}},
           Case{"upright, past by a hair",
                {5.000011, 3},
                {5.000011, 4},
                5,
                4,
                0,
                1.1e-5,
                {5, 0},
                {5, 0}},
           Case{"upright, through", {3, -9}, {3, 9}, 5, 4, 0, 0, {3, 3.2}, {3, 3.2}},
           Case{"as good as upright", {0, 9}, {9e-6, 0}, 5, 4, 0, 0, {0, 4}, {0, 4}},
           Case{"steep", {0, 9}, {1.1e-5, 0}, 5, 4, 0, 0, {0, -4}, {0, -4}},
           Case{"two equal points", {7, 0}, {7, 0}, 5, 4, 0, 2, {7, 0}, {5, 0}},
           Case{"diagonal, past",
                {0, -10},
                {10, 0},
                5,
                4,
                0,
                (10 - root) * half,
                {5 + 4.5 / root, -5 + 4.5 / root},
                {25 / root, -16 / root}},
           Case{"axes swapped", {-9, -8}, {9, -8}, 4, 5, 90, 4, {0, -8}, {0, -4}},
           Case{"turned up the screen", {-9, -9}, {9, -9}, 5, 4, 90, 4, {0, -9}, {0, -5}},
           Case{"turned by 45",
                {0, -10},
                {-10, 0},
                5,
                4,
                45,
                10 * half - 4,
                {-5, -5},
                {-4 * half, -4 * half}},
       }) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(measure(c.p, c.q, c.a, c.b, c.angle, &f), GM_OK);
    EXPECT_NEAR(f.distance, c.distance, kPixels);
    ExpectNear(f.own - ZorPoint(100, 50), c.line, 2.1e-5);
    ExpectNear(f.figure - ZorPoint(100, 50), c.oval, 2.1e-5);
  }
}

TEST(LineToOval, AgreesWithDenseSampling) {
  std::mt19937_64 rng(7);
  for (int i = 0; i < 80; ++i) {
    Oval oval = RandomOval(rng);
    ZorPoint p = PointAbout(oval, 120, rng), q = PointAbout(oval, 120, rng);
    const ZorPoint way = q - p;
    const double stretch = 400 / Distance(p, q);
    const ZorPoint far(way.x * stretch, way.y * stretch);
    const auto [low, high] =
        Sampled(p - far, p + far, 2000, [&](const ZorPoint& s) { return oval.Distance(s); });
    Found f;
    EXPECT_EQ(ZorGeometryMeasure().LineToOvalDistance(p, q, oval.centre, oval.a, oval.b, oval.angle,
                                                      &f.distance, &f.own, &f.figure, nullptr,
                                                      nullptr, nullptr),
              GM_OK);
    EXPECT_NEAR(f.distance, std::max(low, 0.0), 0.2) << Show(p) << Show(q) << Show(oval.centre);
    EXPECT_LE(f.distance, std::max(low, 0.0) + kPixels);
    EXPECT_NEAR(Distance(f.own, f.figure), f.distance, kPixels);
    EXPECT_NEAR(oval.Equation(f.figure), 0, 1e-8);
    EXPECT_NEAR(way.x * (f.own - p).y - way.y * (f.own - p).x, 0, kPixels * Distance(p, q));
  }
}

TEST(OvalToContour, MeasuresAlongThePolylineAndListsTheVertices) {
  std::mt19937_64 rng(11);
  int outside = 0, within = 0, meeting = 0;
  for (int i = 0; i < 150; ++i) {
    Oval oval = RandomOval(rng);
    const double reach = i % 3 == 0 ? std::min(oval.a, oval.b) * 0.7 : 120;
    std::vector<ZorPoint> points;
    for (int k = 0; k < 3; ++k) points.push_back(PointAbout(oval, reach, rng));
    points.insert(points.begin() + 1, points[1]);  // a segment without a direction
    ZorContour contour(points);
    Found min, max;
    ZorVarArray list{1.0};
    ASSERT_EQ(ZorGeometryMeasure().OvalToContourDistance(
                  contour, oval.centre, oval.a, oval.b, oval.angle, &list, &min.own, &min.figure,
                  &min.distance, &max.own, &max.figure, &max.distance),
              GM_OK);
    ASSERT_EQ(list.Length(), 4);
    double least = 1e9, greatest = -1e9, step = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
      EXPECT_NEAR(list[static_cast<int>(k)].D(), oval.Distance(points[k]), kPixels);
      greatest = std::max(greatest, oval.Distance(points[k]));
      if (k == 0 || points[k] == points[k - 1]) continue;
      const auto [low, high] = Sampled(points[k - 1], points[k], 500,
                                       [&](const ZorPoint& s) { return oval.Distance(s); });
      least = std::min(least, low < 0 && high > 0 ? 0.0 : low);
      step = std::max(step, Distance(points[k - 1], points[k]) / 500);
    }
    EXPECT_NEAR(min.distance, least, step) << Show(oval.centre) << Show(points[0]);
    EXPECT_NEAR(max.distance, greatest, kPixels);
    for (const Found& f : {min, max}) {
      EXPECT_NEAR(Distance(f.own, f.figure), std::fabs(f.distance), kPixels);
      EXPECT_NEAR(oval.Equation(f.figure), 0, 1e-8);
    }
    (least > 0 ? outside : least < 0 ? within : meeting) += 1;
  }
  EXPECT_GT(std::min({outside, within, meeting}), 20);
}
