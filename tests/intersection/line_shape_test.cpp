#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::kNaN;
using zor::test::Show;

namespace {

const ZorPointArray kLeft{{-99, -99}};  // what a caller left in the output

/// The status, and the points if there were any; without the output the status must be the same.
struct Outcome {
  long status;
  ZorPointArray points = kLeft;
};

using Call = std::function<long(ZorPointArray*)>;

Outcome Run(const Call& call) {
  Outcome outcome{GM_OK};
  outcome.status = call(&outcome.points);
  EXPECT_EQ(call(nullptr), outcome.status);
  return outcome;
}

Outcome Circle(ZorPoint p1, ZorPoint p2, ZorPoint c, double r) {
  return Run(
      [&](auto* out) { return ZorGeometryMeasure().LineCircleIntersection(p1, p2, c, r, out); });
}
Outcome SegmentCircle(ZorPoint p1, ZorPoint p2, ZorPoint c, double r) {
  return Run([&](auto* out) {
    return ZorGeometryMeasure().LineSegmentCircleIntersection(p1, p2, c, r, out);
  });
}
Outcome Oval(ZorPoint p1, ZorPoint p2, ZorPoint c, double a, double b, double angle) {
  return Run([&](auto* out) {
    return ZorGeometryMeasure().LineOvalIntersection(p1, p2, c, a, b, angle, out);
  });
}
Outcome SegmentOval(ZorPoint p1, ZorPoint p2, ZorPoint c, double a, double b, double angle) {
  return Run([&](auto* out) {
    return ZorGeometryMeasure().LineSegmentOvalIntersection(p1, p2, c, a, b, angle, out);
  });
}
Outcome Rectangle(ZorPoint p1, ZorPoint p2, ZorPoint c, double w, double h, double angle) {
  return Run([&](auto* out) {
    return ZorGeometryMeasure().LineRectangularIntersection(p1, p2, c, w, h, angle, out);
  });
}
Outcome Tangent(ZorPoint p, ZorPoint c, double r) {
  return Run(
      [&](auto* out) { return ZorGeometryMeasure().TangentFromPointToCircle(p, c, r, out); });
}

struct Case {
  const char* what;
  Outcome actual;
  long status;
  std::vector<ZorPoint> points;
  bool is_left_alone = false;  // the output keeps what it held
};

void Check(const std::vector<Case>& cases, double tolerance = 1e-9) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(c.actual.status, c.status);
    if (c.is_left_alone) {
      EXPECT_EQ(c.actual.points, kLeft);
      continue;
    }
    ASSERT_EQ(c.actual.points.Length(), static_cast<int>(c.points.size()));
    for (std::size_t i = 0; i < c.points.size(); ++i) {
      ExpectNear(c.actual.points[static_cast<int>(i)], c.points[i], tolerance);
    }
  }
}

}  // namespace

TEST(LineCircleIntersection, CountOrderAndChecks) {
  const ZorPoint o(0, 0), c(10, 10);
  Check({
      {"larger x first", Circle({0, 10}, {1, 10}, c, 5), GM_OK, {{15, 10}, {5, 10}}},
      {"vertical, larger y first", Circle({7, 9}, {7, 0}, c, 5), GM_OK, {{7, 14}, {7, 6}}},
      {"vertical, touching",
       Circle({15 + 0.9e-6, 0}, {15 + 0.9e-6, 1}, c, 5),
       GM_OK,
       {{15 + 0.9e-6, 10}}},
      {"vertical, missing", Circle({15 + 1.1e-6, 0}, {15 + 1.1e-6, 1}, c, 5), GM_OK, {}},
      {"touching from outside",
       Circle({0, 5 + 0.9e-6}, {1, 5 + 0.9e-6}, o, 5),
       GM_OK,
       {{0, 5 + 0.9e-6}}},
      {"touching from inside",
       Circle({0, 5 - 0.9e-6}, {1, 5 - 0.9e-6}, o, 5),
       GM_OK,
       {{0, 5 - 0.9e-6}}},
      {"missing", Circle({0, 5 + 1.1e-6}, {1, 5 + 1.1e-6}, o, 5), GM_OK, {}},
      {"degenerate, radius too", Circle(o, {0.0005, 0}, o, 0), GM_E_DEGENERATE_LINE, {}},
      {"radius", Circle(o, {1, 0}, o, 0), GM_E_PARAM_4, {}},
  });
}

TEST(LineSegmentCircleIntersection, KeepsThePointsBetweenTheEnds) {
  const ZorPoint c(10, 10);
  Check({
      {"both", SegmentCircle({0, 10}, {20, 10}, c, 5), GM_OK, {{15, 10}, {5, 10}}},
      {"one, at an end", SegmentCircle({5, 10}, {10, 10}, c, 5), GM_OK, {{5, 10}}},
      {"vertical, one", SegmentCircle({10, 0}, {10, 12}, c, 5), GM_OK, {{10, 5}}},
      {"vertical by tolerance, at x1",
       SegmentCircle({10, 0}, {10 + 0.9e-6, 20}, c, 5),
       GM_OK,
       {{10, 15}, {10, 5}}},
      {"vertical, touching", SegmentCircle({15, 0}, {15, 20}, c, 5), GM_OK, {{15, 10}}},
      {"vertical, just missing", SegmentCircle({15 + 1e-7, 0}, {15 + 1e-7, 20}, c, 5), GM_OK, {}},
      {"vertical: no radius check", SegmentCircle({10, 0}, {10, 20}, c, -5), GM_OK, {}},
      {"vertical: no length check", SegmentCircle({10, 15}, {10, 15}, c, 5), GM_OK, {{10, 15}}},
      {"slanted: radius", SegmentCircle({10, 0}, {11, 20}, c, 0), GM_E_PARAM_4, {}},
      {"slanted: length", SegmentCircle({10, 0}, {10.0004, 0}, c, 0), GM_E_DEGENERATE_LINE, {}},
  });
  // The ends may be points of the very list that receives the crossings.
  ZorPointArray list{{0, 10}, {20, 10}};
  ZorPoint centre = c;
  EXPECT_EQ(ZorGeometryMeasure().LineSegmentCircleIntersection(list[0], list[1], centre, 5, &list),
            GM_OK);
  EXPECT_EQ(list.Length(), 2);
}

TEST(LineOvalIntersection, CountOrderAndChecks) {
  const ZorPoint o(0, 0), c(10, 10);
  const double just_outside = 4 * (1 + 0.2e-5), outside = 4 * (1 + 0.6e-5);
  Check(
      {
          {"along the first axis", Oval({0, 10}, {1, 10}, c, 4, 2, 0), GM_OK, {{14, 10}, {6, 10}}},
          {"along the second axis", Oval({10, 0}, {10, 1}, c, 4, 2, 0), GM_OK, {{10, 12}, {10, 8}}},
          {"a < b: the order of the turned axes",
           Oval({10, 0}, {10, 1}, c, 2, 4, 0),
           GM_OK,
           {{10, 6}, {10, 14}}},
          {"45 degrees: up to the right",
           Oval({0, 20}, {20, 0}, c, std::sqrt(8.0), 1, 45),
           GM_OK,
           {{12, 8}, {8, 12}}},
          {"touching", Oval({0, 12}, {1, 12}, c, 4, 2, 0), GM_OK, {{10, 12}}},
          {"touching upright", Oval({14, 0}, {14, 1}, c, 4, 2, 0), GM_OK, {{14, 10}}},
          {"missing upright", Oval({outside, 0}, {outside, 1}, o, 4, 2, 0), GM_OK, {}},
          {"missing", Oval({0, 12.01}, {1, 12.01}, c, 4, 2, 0), GM_OK, {}},
          {"too short to project on",
           Oval({10, 10}, {10.001, 10}, c, 4, 2, 0),
           GM_OK,
           {{14, 10}, {6, 10}}},
          {"degenerate", Oval(o, o, c, 0, 0, -1), GM_E_DEGENERATE_LINE, {}, true},
          {"a", Oval(o, c, c, 0, 0, -1), GM_E_PARAM_4, {}, true},
          {"b", Oval(o, c, c, 1, 0, -1), GM_E_PARAM_5, {}, true},
          {"angle", Oval(o, c, c, 1, 1, 360.1), GM_E_PARAM_6, {}, true},
          {"segment: one", SegmentOval({10, 10}, {10, 99}, c, 4, 2, 0), GM_OK, {{10, 12}}},
          {"segment: cleared on failure", SegmentOval(o, c, c, 1, 0, 0), GM_E_PARAM_5, {}},
          {"segment: a miss is no point",
           SegmentOval({just_outside, -1}, {just_outside, 1}, o, 4, 2, 0),
           GM_OK,
           {}},
      },
      1e-6);
  // Beside the oval by less than the tolerance: a touch at a place that is no number.
  const Outcome beside = Oval({just_outside, 0}, {just_outside, 1}, o, 4, 2, 0);
  ASSERT_EQ(beside.points.Length(), 1);
  EXPECT_TRUE(std::isnan(beside.points[0].x) && std::isnan(beside.points[0].y));
}

TEST(LineOvalIntersection, PointsLieOnBothFigures) {
  std::mt19937_64 rng(20240613);
  std::uniform_real_distribution<double> coordinate(-50, 50), axis(5, 60), degrees(0, 360);
  int found = 0;
  for (int i = 0; i < 300; ++i) {
    const ZorPoint p1(coordinate(rng), coordinate(rng)), p2(coordinate(rng), coordinate(rng));
    ZorPoint c(coordinate(rng), coordinate(rng));
    const double a = axis(rng), b = axis(rng), angle = degrees(rng);
    for (const ZorPoint& p : Oval(p1, p2, c, a, b, angle).points) {
      EXPECT_NEAR(((p2 - p1).x * (p - p1).y - (p2 - p1).y * (p - p1).x), 0, 1e-6) << Show(p);
      int code = 77;
      ZorPoint q = p;
      EXPECT_EQ(ZorGeometryMeasure().PointToOvalPosRelation(q, c, a, b, angle, &code), GM_OK);
      EXPECT_EQ(code, 0) << Show(p);
      ++found;
    }
  }
  EXPECT_GT(found, 300);
}

TEST(LineRectangularIntersection, EdgesMergingAndChecks) {
  const ZorPoint o(0, 0), c(10, 10);
  Check({
      {"closing edge first", Rectangle({0, 11}, {1, 11}, c, 8, 4, 0), GM_OK, {{14, 11}, {6, 11}}},
      {"corners once", Rectangle({6, 8}, {14, 12}, c, 8, 4, 0), GM_OK, {{14, 12}, {6, 8}}},
      {"one corner", Rectangle({14, 12}, {15, 11}, c, 8, 4, 0), GM_OK, {{14, 12}}},
      {"along an edge", Rectangle({0, 12}, {1, 12}, c, 8, 4, 0), GM_OK, {{14, 12}, {6, 12}}},
      {"half a turn", Rectangle({0, 11}, {1, 11}, c, 8, 4, 180), GM_OK, {{14, 11}, {6, 11}}},
      {"missing", Rectangle({0, 13}, {1, 13}, c, 8, 4, 0), GM_OK, {}},
      {"short: passes here, fails at the edges",
       Rectangle(c, {10.0001, 10}, c, 8, 4, 0),
       GM_OK,
       {}},
      {"degenerate", Rectangle(o, {1e-5, 0}, c, 0, 0, -1), GM_E_DEGENERATE_LINE, {}, true},
      {"width", Rectangle(o, c, c, 0, 0, -1), GM_E_PARAM_4, {}, true},
      {"height", Rectangle(o, c, c, 1, 0, -1), GM_E_PARAM_5, {}, true},
      {"angle", Rectangle(o, c, c, 1, 1, -1), GM_E_PARAM_6, {}, true},
  });
}

TEST(TangentFromPointToCircle, InsideOnAndOutside) {
  const ZorPoint c(10, 10);
  Check({
      {"outside",
       Tangent({20, 10}, c, 5),
       GM_OK,
       {{12.5, 10 - 2.5 * std::sqrt(3.0)}, {12.5, 10 + 2.5 * std::sqrt(3.0)}}},
      {"below",
       Tangent({10, 20}, c, 5),
       GM_OK,
       {{10 + 2.5 * std::sqrt(3.0), 12.5}, {10 - 2.5 * std::sqrt(3.0), 12.5}}},
      {"on it", Tangent({13, 14}, c, 5), GM_OK, {{13, 14}}},
      {"inside", Tangent({11, 10}, c, 5), GM_OK, {}},
      {"at the centre", Tangent(c, c, 5), GM_OK, {}},
      {"radius", Tangent(c, c, 0), GM_E_PARAM_3, {}, true},
  });
}

TEST(PointToCircleDistance, SignNearestPointAndCentre) {
  ZorPoint c(10, 10), inside(13, 14), middle(10, 10 + 1e-5), nearest;
  double distance = 0;
  EXPECT_EQ(ZorGeometryMeasure().PointToCircleDistance(inside, c, 10, &distance, &nearest), GM_OK);
  EXPECT_DOUBLE_EQ(distance, -5);
  ExpectNear(nearest, {16, 18}, 1e-12);
  EXPECT_EQ(ZorGeometryMeasure().PointToCircleDistance(middle, c, 10, &distance, &nearest), GM_OK);
  EXPECT_EQ(distance, -10);
  ExpectNear(nearest, {10, 20}, 0);
  EXPECT_EQ(ZorGeometryMeasure().PointToCircleDistance(middle, c, 0, &distance, &nearest),
            GM_E_PARAM_3);
}
