#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/segment_kernels.h"
#include "intersection/contour_kernels.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::intersection::CrossContour;
using zor::test::kNaN;

TEST(LineSegmentPolygonIntersection, ReportsEveryEdgeClosingEdgeFirst) {
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, pair{{0, 0}, {10, 0}};
  struct Case {
    const char* what;
    ZorPoint p1, p2;
    ZorPointArray hits;
  };
  for (Case c : {
           Case{"through two edges", {-5, 5}, {15, 5}, {{0, 5}, {10, 5}}},
           {"through two corners", {-5, -5}, {15, 15}, {{0, 0}, {0, 0}, {10, 10}, {10, 10}}},
           {"along an edge: its neighbours", {-5, 0}, {15, 0}, {{0, 0}, {10, 0}}},
           {"inside", {1, 1}, {9, 9}, {}},
           {"degenerate", {0, 5}, {0, 5}, {}},
       }) {
    SCOPED_TRACE(c.what);
    ZorPointArray hits{{-99, -99}};
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentPolygonIntersection(c.p1, c.p2, square, &hits), 0);
    EXPECT_EQ(hits, c.hits);
    const zor::test::TraceCapture capture;
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentPolygonIntersection(c.p1, c.p2, square, &hits), 0);
    EXPECT_EQ(hits, c.hits);
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentPolygonIntersection(c.p1, c.p2, pair, &hits),
              GM_E_PARAM_3);
    EXPECT_EQ(hits, c.hits);
  }
}

TEST(LineContourIntersection, AppendsWhatIsNotYetListed) {
  ZorContour zigzag{{0, 0}, {2, 2}, {4, 0}, {4, 4}, {0, 4}}, single{{5, 1}}, none;
  ZorPoint p1(-1, 1), p2(-2, 1);  // the crossings need not be between the two points
  ZorGeometryMeasure m;
  ZorPointArray points{{3, 1}, {7, 7}};  // one of the crossings is there already
  std::vector<ZorPoint> starts{{9, 9}}, ends;
  std::vector<int> indices{-1}, unused{5};
  EXPECT_EQ(m.LineContourIntersection(p1, p2, zigzag, &points, &starts, &ends, &indices, &unused),
            GM_OK);
  EXPECT_EQ(points, (ZorPointArray{{3, 1}, {7, 7}, {1, 1}, {4, 1}}));
  EXPECT_EQ(starts, (std::vector<ZorPoint>{{9, 9}, {0, 0}, {4, 0}}));
  EXPECT_EQ(ends, (std::vector<ZorPoint>{{2, 2}, {4, 4}}));
  EXPECT_EQ(indices, (std::vector<int>{-1, 0, 1, 2, 3}));
  EXPECT_EQ(unused, std::vector<int>{5});
  EXPECT_EQ(m.LineContourIntersection(p1, p2, zigzag, &points), GM_OK);
  EXPECT_EQ(points.Length(), 4);

  // Through a vertex, once; along the last segment, only the end of its neighbour.
  ZorPoint q1(0, 2), q2(9, 2), r1(0, 4), r2(9, 4);
  ZorPointArray through, along;
  EXPECT_EQ(m.LineContourIntersection(q1, q2, zigzag, &through), GM_OK);
  EXPECT_EQ(through, (ZorPointArray{{2, 2}, {4, 2}}));
  EXPECT_EQ(m.LineContourIntersection(r1, r2, zigzag, &along), GM_OK);
  EXPECT_EQ(along, (ZorPointArray{{4, 4}}));

  EXPECT_EQ(m.LineContourIntersection(p1, p2, single, &points), GM_OK);
  EXPECT_EQ(m.LineContourIntersection(p1, p1, none, &points), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.LineContourIntersection(p1, p2, none, &points), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(m.LineContourIntersection(p1, p2, none, &points, nullptr, nullptr, nullptr, nullptr),
            GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(points.Length(), 4);
}

TEST(LineContourIntersection, ListsEachPointOnceBitByBit) {
  ZorContour upright{{0, -1}, {0, 1}, {0, 3}};
  ZorPoint p1(-1, 0), p2(1, 0);
  ZorPointArray found;
  EXPECT_EQ(ZorGeometryMeasure().LineContourIntersection(p1, p2, upright, &found), GM_OK);
  ASSERT_EQ(found, (ZorPointArray{{0, 0}}));  // as numbers; either zero may be negative
  ZorPointArray others{{-found[0].x, found[0].y}, {found[0].x, -found[0].y}, {kNaN, 0}};
  EXPECT_EQ(ZorGeometryMeasure().LineContourIntersection(p1, p2, upright, &others), GM_OK);
  EXPECT_EQ(others.Length(), 4);  // a zero of the other sign makes another point

  std::vector<ZorPoint> comb;  // 40 teeth, walked twice
  for (int i = 0; i < 160; ++i) comb.emplace_back(i % 80 / 2 * 2 + 10, i % 2 * 2);
  ZorContour teeth(comb);
  ZorPoint q1(-1, 1), q2(1, 1);
  std::vector<ZorPoint> expected{{10, 1}};
  ZorPointArray listed(expected);
  for (const auto& c : CrossContour(q1, q2, comb)) {
    if (std::find(expected.begin(), expected.end(), c.point) == expected.end()) {
      expected.push_back(c.point);
    }
  }
  EXPECT_EQ(ZorGeometryMeasure().LineContourIntersection(q1, q2, teeth, &listed), GM_OK);
  EXPECT_EQ(listed, ZorPointArray(expected));
}

TEST(LineContourIntersection, TooShortASegmentHasNoCrossing) {
  ZorContour at_origin{{-0.0001, -0.0001}, {0.0001, 0.0001}};
  ZorPoint p1(-900, 500), p2(900, 500);
  ZorPointArray points;
  EXPECT_EQ(ZorGeometryMeasure().LineContourIntersection(p1, p2, at_origin, &points), GM_OK);
  const zor::test::TraceCapture capture;
  EXPECT_EQ(ZorGeometryMeasure().LineContourIntersection(p1, p2, at_origin, &points), GM_OK);
  EXPECT_TRUE(points.Empty());
}

TEST(CrossContour, FindsWhatTestingEachSegmentFinds) {
  std::mt19937_64 rng(20240614);
  std::uniform_real_distribution<double> along(-3, 3), off(-1, 1);
  std::size_t found = 0;
  for (int i = 0; i < 400; ++i) {
    const double scale = std::pow(10.0, i % 7 - 1);
    const ZorPoint p1(scale * off(rng), scale * off(rng));
    const ZorPoint p2(p1.x + off(rng), p1.y + off(rng));  // short beside what it crosses
    std::vector<ZorPoint> contour;
    for (int k = 0; k < 30; ++k) {  // on the line, within rounding of it, beside it
      const double t = scale * along(rng), d = std::pow(10.0, 1 - k % 16) * off(rng);
      contour.emplace_back(p1.x + t * (p2.x - p1.x) + d, p1.y + t * (p2.y - p1.y) - d);
    }
    if (i % 5 == 0) contour[7] = {kNaN, zor::test::kInfinity};
    std::vector<ZorPoint> expected, actual;
    for (std::size_t k = 1; k < contour.size(); ++k) {
      const auto hit = zor::elementary::CrossLines(contour[k - 1], contour[k], p1, p2);
      if (hit && zor::intersection::IsInBox(*hit, contour[k - 1], contour[k])) {
        expected.push_back(*hit);
      }
    }
    for (const auto& c : CrossContour(p1, p2, contour)) actual.push_back(c.point);
    EXPECT_EQ(actual, expected) << "line " << i;
    found += expected.size();
  }
  EXPECT_GT(found, 2000U);
}
