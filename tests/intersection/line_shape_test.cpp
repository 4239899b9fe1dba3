#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::Show;

namespace {

using Measure = ZorGeometryMeasure;

const ZorPoint kOrigin(0, 0), kCentre(10, 10);
const ZorPointArray kLeft{{-99, -99}};  // what a caller left in the output

struct Outcome {
  long status;
  ZorPointArray points = kLeft;
};

template <typename Method, typename... Arguments>
Outcome Of(Method method, Arguments... arguments) {
  Outcome outcome{GM_OK};
  outcome.status = (Measure().*method)(arguments..., &outcome.points);
  return outcome;
}

const auto Circle = [](auto... x) { return Of(&Measure::LineCircleIntersection, x...); };
const auto CircleSegment = [](auto... x) {
  return Of(&Measure::LineSegmentCircleIntersection, x...);
};
const auto Oval = [](auto... x) { return Of(&Measure::LineOvalIntersection, x...); };
const auto OvalSegment = [](auto... x) { return Of(&Measure::LineSegmentOvalIntersection, x...); };
const auto Rectangle = [](auto... x) { return Of(&Measure::LineRectangularIntersection, x...); };
const auto Tangent = [](auto... x) { return Of(&Measure::TangentFromPointToCircle, x...); };

struct Case {
  const char* what;
  Outcome actual;
  long status;
  ZorPointArray points;
};

void Check(const std::vector<Case>& cases, double tolerance = 1e-9) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(c.actual.status, c.status);
    ASSERT_EQ(c.actual.points.Length(), c.points.Length());
    for (int i = 0; i < c.points.Length(); ++i) {
      ExpectNear(c.actual.points[i], c.points[i], tolerance);
    }
  }
}

ZorPoint P(double x, double y) { return {x, y}; }

}  // namespace

TEST(LineIntersections, WithCircles) {
  const ZorPoint o = kOrigin, c = kCentre;
  const double in = 5 - 0.9e-6, touch = 5 + 0.9e-6, miss = 5 + 1.1e-6, h = 2.5 * std::sqrt(3.0);
  Check({
      {"larger x first", Circle(P(0, 10), P(1, 10), c, 5.0), GM_OK, {{15, 10}, {5, 10}}},
      {"vertical: larger y first", Circle(P(7, 9), P(7, 0), c, 5.0), GM_OK, {{7, 14}, {7, 6}}},
      {"vertical, touching", Circle(P(touch, 0), P(touch, 1), o, 5.0), GM_OK, {{touch, 0}}},
      {"vertical, missing", Circle(P(miss, 0), P(miss, 1), o, 5.0), GM_OK, {}},
      {"touching from outside", Circle(P(0, touch), P(1, touch), o, 5.0), GM_OK, {{0, touch}}},
      {"touching from inside", Circle(P(0, in), P(1, in), o, 5.0), GM_OK, {{0, in}}},
      {"missing", Circle(P(0, miss), P(1, miss), o, 5.0), GM_OK, {}},
      {"degenerate, cleared", Circle(o, P(0.0005, 0), o, 0.0), GM_E_DEGENERATE_LINE, {}},
      {"radius, cleared", Circle(o, P(1, 0), o, 0.0), GM_E_PARAM_4, {}},
      {"segment: at an end", CircleSegment(P(5, 10), P(9, 10), c, 5.0), GM_OK, {{5, 10}}},
      {"segment: vertical", CircleSegment(P(10, 0), P(10, 12), c, 5.0), GM_OK, {{10, 5}}},
      {"segment: about vertical, at x1",
       CircleSegment(P(10, 0), P(10 + 0.9e-6, 20), c, 5.0),
       GM_OK,
       {{10, 15}, {10, 5}}},
      {"segment: upright touch", CircleSegment(P(15, 0), P(15, 20), c, 5.0), GM_OK, {{15, 10}}},
      {"segment: just beside", CircleSegment(P(15 + 1e-7, 0), P(15 + 1e-7, 20), c, 5.0), GM_OK, {}},
      {"segment: vertical, any radius", CircleSegment(P(10, 0), P(10, 20), c, -5.0), GM_OK, {}},
      {"segment: vertical, any length",
       CircleSegment(P(9, 7), P(9, 7), P(9, 2), 5.0),
       GM_OK,
       {{9, 7}}},
      {"segment: radius, cleared", CircleSegment(o, P(1, 2), c, 0.0), GM_E_PARAM_4, {}},
      {"segment: short", CircleSegment(o, P(0.0004, 0), c, 0.0), GM_E_DEGENERATE_LINE, {}},
      {"tangents", Tangent(P(20, 10), c, 5.0), GM_OK, {{12.5, 10 - h}, {12.5, 10 + h}}},
      {"tangents from below", Tangent(P(10, 20), c, 5.0), GM_OK, {{10 + h, 12.5}, {10 - h, 12.5}}},
      {"tangent on the circle", Tangent(P(13, 14), c, 5.0), GM_OK, {{13, 14}}},
      {"tangent inside", Tangent(P(11, 10), c, 5.0), GM_OK, {}},
      {"tangent at the centre", Tangent(c, c, 5.0), GM_OK, {}},
      {"tangent: radius, left alone", Tangent(c, c, 0.0), GM_E_PARAM_3, kLeft},
  });
  // The ends may be points of the very list that receives the crossings.
  ZorPointArray list{{0, 10}, {20, 10}};
  ZorPoint centre = c;
  EXPECT_EQ(Measure().LineSegmentCircleIntersection(list[0], list[1], centre, 5, &list), GM_OK);
  EXPECT_EQ(list, (ZorPointArray{{15, 10}, {5, 10}}));
}

TEST(LineIntersections, WithOvals) {
  const ZorPoint o = kOrigin, c = kCentre;
  const double beside = 4 * (1 + 0.2e-5), miss = 4 * (1 + 0.6e-5);
  Check(
      {
          {"along a", Oval(P(0, 10), P(1, 10), c, 4.0, 2.0, 0.0), GM_OK, {{14, 10}, {6, 10}}},
          {"along b", Oval(P(10, 0), P(10, 1), c, 4.0, 2.0, 0.0), GM_OK, {{10, 12}, {10, 8}}},
          {"a < b: in the order of the turned axes",
           Oval(P(10, 0), P(10, 1), c, 2.0, 4.0, 0.0),
           GM_OK,
           {{10, 6}, {10, 14}}},
          {"45 degrees: up to the right",
           Oval(P(0, 20), P(20, 0), c, std::sqrt(8.0), 1.0, 45.0),
           GM_OK,
           {{12, 8}, {8, 12}}},
          {"touching", Oval(P(0, 12), P(1, 12), c, 4.0, 2.0, 0.0), GM_OK, {{10, 12}}},
          {"missing", Oval(P(0, 12.01), P(1, 12.01), c, 4.0, 2.0, 0.0), GM_OK, {}},
          {"upright, touching", Oval(P(14, 0), P(14, 1), c, 4.0, 2.0, 0.0), GM_OK, {{14, 10}}},
          {"upright, missing", Oval(P(miss, 0), P(miss, 1), o, 4.0, 2.0, 0.0), GM_OK, {}},
          {"too short to project on",
           Oval(c, P(10.001, 10), c, 4.0, 2.0, 0.0),
           GM_OK,
           {{14, 10}, {6, 10}}},
          {"degenerate", Oval(o, o, c, 0.0, 0.0, -1.0), GM_E_DEGENERATE_LINE, kLeft},
          {"a", Oval(o, c, c, 0.0, 0.0, -1.0), GM_E_PARAM_4, kLeft},
          {"b", Oval(o, c, c, 1.0, 0.0, -1.0), GM_E_PARAM_5, kLeft},
          {"angle", Oval(o, c, c, 1.0, 1.0, 360.1), GM_E_PARAM_6, kLeft},
          {"segment", OvalSegment(c, P(10, 99), c, 4.0, 2.0, 0.0), GM_OK, {{10, 12}}},
          {"segment: just beside",
           OvalSegment(P(beside, -1), P(beside, 1), o, 4.0, 2.0, 0.0),
           GM_OK,
           {}},
          {"segment: cleared on failure", OvalSegment(o, c, c, 1.0, 0.0, 0.0), GM_E_PARAM_5, {}},
      },
      1e-6);
  // Just beside the oval along its second axis: a touch at a place that is no number.
  const Outcome touch = Oval(P(beside, 0), P(beside, 1), o, 4.0, 2.0, 0.0);
  ASSERT_EQ(touch.points.Length(), 1);
  EXPECT_TRUE(std::isnan(touch.points[0].x) && std::isnan(touch.points[0].y));
}

TEST(LineIntersections, PointsOfOvalsLieOnBothFigures) {
  std::mt19937_64 rng(20240613);
  std::uniform_real_distribution<double> coordinate(-50, 50), axis(5, 60), degrees(0, 360);
  int found = 0;
  for (int i = 0; i < 300; ++i) {
    const ZorPoint p1(coordinate(rng), coordinate(rng)), p2(coordinate(rng), coordinate(rng));
    ZorPoint c(coordinate(rng), coordinate(rng));
    const double a = axis(rng), b = axis(rng), angle = degrees(rng);
    for (ZorPoint p : Oval(p1, p2, c, a, b, angle).points) {
      EXPECT_NEAR((p2 - p1).x * (p - p1).y - (p2 - p1).y * (p - p1).x, 0, 1e-6) << Show(p);
      int code = 77;
      EXPECT_EQ(Measure().PointToOvalPosRelation(p, c, a, b, angle, &code), GM_OK);
      EXPECT_EQ(code, 0) << Show(p);
      ++found;
    }
  }
  EXPECT_GT(found, 300);
}

TEST(LineIntersections, WithRectangles) {
  const ZorPoint o = kOrigin, c = kCentre;
  const ZorPointArray both{{14, 11}, {6, 11}};
  Check({
      {"closing edge first", Rectangle(P(0, 11), P(1, 11), c, 8.0, 4.0, 0.0), GM_OK, both},
      {"half a turn", Rectangle(P(0, 11), P(1, 11), c, 8.0, 4.0, 180.0), GM_OK, both},
      {"corners once", Rectangle(P(6, 8), P(14, 12), c, 8.0, 4.0, 0.0), GM_OK, {{14, 12}, {6, 8}}},
      {"one corner", Rectangle(P(14, 12), P(15, 11), c, 8.0, 4.0, 0.0), GM_OK, {{14, 12}}},
      {"along an edge",
       Rectangle(P(0, 12), P(1, 12), c, 8.0, 4.0, 0.0),
       GM_OK,
       {{14, 12}, {6, 12}}},
      {"missing", Rectangle(P(0, 13), P(1, 13), c, 8.0, 4.0, 0.0), GM_OK, {}},
      {"short: fails at the edges", Rectangle(c, P(10.0001, 10), c, 8.0, 4.0, 0.0), GM_OK, {}},
      {"degenerate", Rectangle(o, P(1e-5, 0), c, 0.0, 0.0, -1.0), GM_E_DEGENERATE_LINE, kLeft},
      {"width", Rectangle(o, c, c, 0.0, 0.0, -1.0), GM_E_PARAM_4, kLeft},
      {"height", Rectangle(o, c, c, 1.0, 0.0, -1.0), GM_E_PARAM_5, kLeft},
      {"angle", Rectangle(o, c, c, 1.0, 1.0, -1.0), GM_E_PARAM_6, kLeft},
  });
}

TEST(PointToCircleDistance, SignNearestPointAndCentre) {
  ZorPoint c = kCentre, inside(13, 14), middle(10, 10 + 1e-5), nearest;
  double distance = 0;
  EXPECT_EQ(Measure().PointToCircleDistance(inside, c, 10, &distance, &nearest), GM_OK);
  EXPECT_DOUBLE_EQ(distance, -5);
  ExpectNear(nearest, {16, 18}, 1e-12);
  EXPECT_EQ(Measure().PointToCircleDistance(middle, c, 10, &distance, &nearest), GM_OK);
  EXPECT_EQ(distance, -10);
  EXPECT_EQ(nearest, ZorPoint(10, 20));
  EXPECT_EQ(Measure().PointToCircleDistance(middle, c, 0, &distance, &nearest), GM_E_PARAM_3);
}
