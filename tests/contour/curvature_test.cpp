#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "contour/outlines.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

std::vector<int> Whole(const ZorVarArray& values) {
  std::vector<int> numbers;
  for (const ZorVar& value : values) numbers.push_back(static_cast<int>(value.D()));
  return numbers;
}

}  // namespace

TEST(GetCurvatures, OneOverTheRadiusTurningClockwiseOnTheScreen) {
  ZorGeometryMeasureTools tools;
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> gap(0.01, 0.05);
  for (const double sense : {1.0, -1.0}) {  // +1: from +x towards +y
    std::vector<ZorPoint> points;
    for (double t = 0; t < 2 * std::numbers::pi - 0.05; t += gap(rng)) {
      points.emplace_back(3000 + 50 * std::cos(t), 2000 + sense * 50 * std::sin(t));
    }
    for (const bool closed : {true, false}) {
      ZorContour circle(points);
      ZorVarArray curvatures = {ZorVar(7)};
      ASSERT_EQ(tools.GetCurvatures(circle, 7, closed, &curvatures), GM_OK);
      ASSERT_EQ(curvatures.Length(), circle.Length());
      for (const ZorVar& value : curvatures) EXPECT_NEAR(value.D(), sense / 50, 1e-9);
    }
  }
  // A parabola, sampled densely, at its vertex and at its ends, which take the nearest full value.
  std::vector<ZorPoint> parabola;
  for (int i = -100; i <= 100; ++i) parabola.emplace_back(0.1 * i, 0.005 * i * i);
  ZorContour contour(parabola);
  ZorVarArray curvatures;
  ASSERT_EQ(tools.GetCurvatures(contour, 3, false, &curvatures), GM_OK);
  EXPECT_NEAR(curvatures[100].D(), 1, 0.03);  // y'' = 1
  EXPECT_EQ(curvatures[0].D(), curvatures[3].D());
  EXPECT_EQ(curvatures[200].D(), curvatures[197].D());
  EXPECT_NE(curvatures[3].D(), curvatures[4].D());
}

TEST(FindConvexPoint, CornersThatPointOutwards) {
  // An L: five corners point outwards, (40, 40) does not.
  const std::vector<ZorPoint> corners = {{0, 0}, {90, 0}, {90, 40}, {40, 40}, {40, 70}, {0, 70}};
  const std::vector<ZorPoint> outline = zor::test::Outline(corners);
  ZorGeometryMeasure m;
  for (const bool reversed : {false, true}) {
    for (std::size_t start = 0; start < outline.size(); start += 7) {
      std::vector<ZorPoint> points = outline;
      std::rotate(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(start),
                  points.end());
      if (reversed) std::reverse(points.begin(), points.end());
      std::vector<ZorPoint> expected;
      for (const ZorPoint& p : points) {
        const bool is_corner = std::find(corners.begin(), corners.end(), p) != corners.end();
        if (is_corner && p != ZorPoint(40, 40)) expected.push_back(p);
      }
      ZorContour contour(points);
      ZorPointArray convex = {{7, 7}};
      ASSERT_EQ(m.FindConvexPoint(contour, 10, 0.05, &convex), GM_OK);
      EXPECT_EQ(convex, ZorPointArray(expected));
      convex.Append({7, 7});
      ASSERT_EQ(m.FindConvexPoint2(contour, 10, 2, &convex), GM_OK);
      EXPECT_EQ(convex, ZorPointArray(expected));
      // Over a chord from 10 before to 10 behind a right corner the height is sqrt(50).
      ASSERT_EQ(m.FindConvexPoint2(contour, 10, 7.08, &convex), GM_OK);
      EXPECT_TRUE(convex.Empty());
      ASSERT_EQ(m.FindConvexPoint2(contour, 10, 7.07, &convex), GM_OK);
      EXPECT_EQ(convex.Length(), 5);
    }
  }
}

TEST(FindExtremeValue, AgreesWithComparingEachToItsNeighbours) {
  std::mt19937_64 rng(20240608);
  for (int round = 0; round < 200; ++round) {
    const int n = 3 + round % 23, reach = 1 + round % ((n - 1) / 2), mode = round / 2 % 2;
    const bool closed = round % 2 == 0;
    std::vector<double> values;
    for (int i = 0; i < n; ++i) values.push_back(static_cast<double>(rng() % 4));  // many ties
    ZorVarArray list;
    for (const double value : values) list.Append(ZorVar(value));
    std::vector<int> expected;
    for (int i = 0; i < n; ++i) {
      bool is_extreme = true;
      for (int k = -reach; k <= reach; ++k) {
        if (k == 0 || (!closed && (i + k < 0 || i + k >= n))) continue;
        const double d = (values[static_cast<std::size_t>(i)] -
                          values[static_cast<std::size_t>((i + k + n) % n)]) *
                         (mode == 0 ? -1 : 1);
        if (d < 0 || (k < 0 && d == 0)) is_extreme = false;
      }
      if (is_extreme) expected.push_back(i);
    }
    if (std::adjacent_find(values.begin(), values.end(), std::not_equal_to<>()) == values.end())
      expected.clear();
    ZorVarArray indices = {ZorVar(7)};
    ASSERT_EQ(ZorGeometryMeasure().FindExtremeValue(list, mode, reach, closed, &indices), GM_OK);
    EXPECT_EQ(Whole(indices), expected) << "round " << round;
  }
  ZorVarArray gap = {ZorVar(1.0), ZorVar(kNaN), ZorVar(3.0), ZorVar(kNaN), ZorVar(2.0)}, indices;
  ASSERT_EQ(ZorGeometryMeasure().FindExtremeValue(gap, 1, 2, true, &indices), GM_OK);
  EXPECT_EQ(Whole(indices), (std::vector<int>{2}));
}

TEST(Curvature, CodesInOrder) {
  ZorGeometryMeasure m;
  ZorGeometryMeasureTools tools;
  ZorContour none, two = {{0, 0}, {1, 0}}, five = {{0, 0}, {2, 0}, {3, 1}, {2, 3}, {0, 2}};
  struct Case {
    ZorContour* contour;
    int neighbours;
    double threshold;
    long status;
  };
  for (const Case& c : {Case{&none, 0, -1, GM_E_EMPTY_CONTOUR},
                        {&two, 0, -1, GM_E_PARAM_1},
                        {&five, 0, -1, GM_E_PARAM_2},
                        {&five, 3, -1, GM_E_PARAM_2},
                        {&five, 2, -1, GM_E_PARAM_3},
                        {&five, 2, 0, GM_OK}}) {
    EXPECT_EQ(m.FindConvexPoint(*c.contour, c.neighbours, c.threshold, nullptr), c.status);
    EXPECT_EQ(m.FindConvexPoint2(*c.contour, c.neighbours, c.threshold, nullptr), c.status);
    const bool has_threshold = c.status == GM_E_PARAM_3;
    EXPECT_EQ(tools.GetCurvatures(*c.contour, c.neighbours, true, nullptr),
              has_threshold ? GM_OK : c.status);
  }
  ZorVarArray pair = {ZorVar(1), ZorVar(2)},
              five_values = {ZorVar(1), ZorVar(2), ZorVar(1), ZorVar(0), ZorVar(0)};
  EXPECT_EQ(m.FindExtremeValue(pair, 2, 0, true, nullptr), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.FindExtremeValue(five_values, -1, 0, true, nullptr), GM_E_PARAM_2);
  EXPECT_EQ(m.FindExtremeValue(five_values, 1, 3, true, nullptr), GM_E_PARAM_3);

  ZorPoint a(0, 0), b(5e-4, 0), c(9, 9), convex;
  double value = kUntouched;
  EXPECT_EQ(tools.GetCurvature(a, c, b, &value), GM_E_DEGENERATE_LINE);
  ZorLine short_line(a, b), line(a, {10, 0});
  EXPECT_EQ(tools.PointTolineDistance(c, short_line, &value), GM_E_DEGENERATE_LINE);
  ZorPointArray no_points, points = {{1, 2}, {3, -4}, {5, 4}};
  EXPECT_EQ(tools.FindConvexPoint(no_points, short_line, &convex, &value), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(tools.FindConvexPoint(points, short_line, &convex, &value), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(value, kUntouched);
  EXPECT_EQ(tools.FindConvexPoint(points, line, &convex, &value), GM_OK);
  EXPECT_EQ(convex, points[1]);  // the earlier one of two as far
  EXPECT_EQ(value, 4);
}
