#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "contour/outlines.h"
#include "contour/reduction_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

// By trying places along the segment: an upper bound, close enough for the tolerance given.
double SampledDistance(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  double best = std::hypot(p.x - a.x, p.y - a.y);
  for (int k = 1; k <= 2000; ++k) {
    const double t = k / 2000.0;
    best = std::min(best, std::hypot(p.x - a.x - t * (b.x - a.x), p.y - a.y - t * (b.y - a.y)));
  }
  return best;
}

}  // namespace

TEST(GetPolygon2, EveryPointLiesWithinTheToleranceOfItsSide) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> step(0, 3);
  for (int round = 0; round < 20; ++round) {
    std::vector<ZorPoint> points = {{3000, 2000}};
    while (points.size() < 150) points.push_back(points.back() + ZorPoint(step(rng), step(rng)));
    const bool closed = round % 2 == 1;
    const double tolerance = 1 + round % 5;
    const auto kept = zor::contour::ReducePolyline(points, tolerance, 0, closed);
    ASSERT_TRUE(std::is_sorted(kept.begin(), kept.end()));
    const bool has_ends = kept.front() == 0 && kept.back() == points.size() - 1;
    ASSERT_TRUE(closed || has_ends);
    for (std::size_t k = 0; k + (closed ? 0 : 1) < kept.size(); ++k) {
      const std::size_t first = kept[k], last = kept[(k + 1) % kept.size()];
      for (std::size_t i = first; i != last; i = (i + 1) % points.size()) {
        EXPECT_LE(SampledDistance(points[i], points[first], points[last]), tolerance + 1e-3);
      }
    }
    for (const std::size_t most : {1U, 2U, 5U}) {
      EXPECT_LE(zor::contour::ReducePolyline(points, tolerance, most, closed).size(), most);
    }
  }
}

TEST(GetPolygon2, FindsTheCornersAndNoMore) {
  // Starts inside the upper side; the bump on the lower side is within the tolerance and reaches
  // further than the corners beside it.
  const std::vector<ZorPoint> outline = {{50, 0},  {100, 0}, {100, 60}, {90, 60}, {90, 64},
                                         {80, 64}, {80, 60}, {0, 60},   {0, 0}};
  const ZorPointArray corners = {{100, 0}, {100, 60}, {0, 60}, {0, 0}};
  ZorPointArray points(zor::test::Outline(outline)), polygon = {{7, 7}};
  ZorGeometryMeasureTools tools;
  EXPECT_EQ(tools.GetPolygon2(points, 5, 0, true, &polygon), GM_OK);
  EXPECT_EQ(polygon, corners);
  ZorPointArray with_ends = {{50, 0}};
  with_ends.Append(corners);
  with_ends.Append({49, 0});
  ZORMV::ZorGeometryMeasureDlg dlg;
  EXPECT_EQ(dlg.FindPolygon(points, 5, 0, false, &polygon), GM_OK);
  EXPECT_EQ(polygon, with_ends);
  EXPECT_EQ(dlg.FindPolygon(points, 0.5, 5, false, &polygon), GM_OK);
  EXPECT_EQ(polygon.Length(), 5);
  EXPECT_EQ(dlg.FindPolygon(points, 3, 0, true, &polygon), GM_OK);
  EXPECT_EQ(polygon.Length(), 8);  // with the bump
}

TEST(GetPolygon, VerticesAreInSinglePrecision) {
  ZorContour square = {{0.1, 0}, {5, 0}, {10, 0}, {10, 10.3}, {0.1, 10.3}};
  ZorPointArray polygon = {{7, 7}};
  ZorGeometryMeasureTools tools;
  ASSERT_EQ(tools.GetPolygon(square, 1, &polygon), GM_OK);
  ASSERT_EQ(polygon.Length(), 4);
  const double left = static_cast<double>(0.1F), low = static_cast<double>(10.3F);
  tools.ReorganizePolygon(polygon);
  EXPECT_EQ(polygon, (ZorPointArray{{left, 0}, {10, 0}, {10, low}, {left, low}}));
  ZorPointArray points = {{0.1, 10.3}, {5, 5}};
  ASSERT_EQ(tools.GetPolygon2(points, 1, 0, false, &polygon), GM_OK);
  EXPECT_EQ(polygon, (ZorPointArray{{left, low}, {5, 5}}));
}

TEST(Polygons, CodesInOrder) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorGeometryMeasureTools tools;
  struct Case {
    const char* what;
    std::vector<ZorPoint> points;
    double tolerance;
    int n;
    long reduced, approximated, reorganized;
  };
  const std::vector<ZorPoint> one = {{1, 1}}, two = {{1, 1}, {2, 5}},
                              wild = {{kNaN, 1},
                                      {kInfinity, 2},
                                      {3, -kInfinity},
                                      {1e308, -1e308},
                                      {0, 0}};
  for (const Case& c :
       {Case{"none", {}, 0, -1, GM_E_TOO_FEW_POINTS, GM_E_EMPTY_CONTOUR, GM_E_TOO_FEW_POINTS},
        {"one", one, 0, -1, GM_E_TOO_FEW_POINTS, GM_OK, GM_E_TOO_FEW_POINTS},
        {"no tolerance", two, 0, -1, GM_E_PARAM_2, GM_OK, GM_E_TOO_FEW_POINTS},
        {"negative tolerance", two, -1, -1, GM_E_PARAM_2, GM_E_PARAM_2, GM_E_TOO_FEW_POINTS},
        {"tolerance not a number", wild, kNaN, 0, GM_OK, GM_E_PARAM_2, GM_OK},
        {"negative bound", two, 1, -1, GM_E_PARAM_3, GM_OK, GM_E_TOO_FEW_POINTS},
        {"not finite", wild, 1, 2, GM_OK, GM_OK, GM_OK},
        {"all the same", std::vector<ZorPoint>(99, {5, 5}), 1, 0, GM_OK, GM_OK, GM_OK}}) {
    for (const bool closed : {false, true}) {
      SCOPED_TRACE(c.what);
      ZorPointArray points(c.points), untouched = {{7, 7}}, polygon = untouched, same = untouched;
      ZorContour contour(c.points);
      EXPECT_EQ(dlg.FindPolygon(points, c.tolerance, c.n, closed, &polygon), c.reduced);
      EXPECT_EQ(tools.GetPolygon2(points, c.tolerance, c.n, closed, &same), c.reduced);
      EXPECT_EQ(polygon == untouched, c.reduced != GM_OK);
      EXPECT_EQ(same == untouched, c.reduced != GM_OK);
      EXPECT_EQ(tools.GetPolygon(contour, c.tolerance, &polygon), c.approximated);
      EXPECT_EQ(tools.ReorganizePolygon(points), c.reorganized);
    }
  }
  // What is not a number hides no corner.
  ZorPointArray bent = {{0, 0}, {kNaN, kNaN}, {5, 9}, {10, 0}}, polygon;
  EXPECT_EQ(tools.GetPolygon2(bent, 1, 0, false, &polygon), GM_OK);
  EXPECT_EQ(polygon, (ZorPointArray{{0, 0}, {5, 9}, {10, 0}}));
}

TEST(ReorganizePolygon, EqualOutlinesBecomeEqualLists) {
  const std::vector<ZorPoint> standard = {{2, 0}, {5, 0}, {6, 4}, {3, 2}, {1, 5}};
  for (std::size_t start = 0; start < standard.size(); ++start) {
    for (const bool reversed : {false, true}) {
      std::vector<ZorPoint> turned = standard;
      std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(start),
                  turned.end());
      if (reversed) std::reverse(turned.begin(), turned.end());
      ZorPointArray polygon(turned);
      EXPECT_EQ(ZorGeometryMeasureTools().ReorganizePolygon(polygon), GM_OK);
      EXPECT_EQ(polygon, ZorPointArray(standard));
    }
  }
}

TEST(OrderConvexPolygonVertex, ExchangesEveryLaterSmallerAngleIn) {
  std::mt19937_64 rng(20240608);
  for (int round = 0; round < 40; ++round) {
    const bool on_grid = round % 2 == 0;  // many equal angles, and equal points
    std::uniform_real_distribution<double> coordinate(-3, 3);
    std::vector<ZorPoint> expected;
    for (int i = 0; i < 1 + round * 2; ++i) {
      const ZorPoint p(coordinate(rng), coordinate(rng));
      expected.push_back(on_grid ? ZorPoint(std::round(p.x), std::round(p.y)) : p);
    }
    if (on_grid) {  // so that the mean is exactly 0
      const std::size_t half = expected.size();
      for (std::size_t i = 0; i < half; ++i) expected.emplace_back(-expected[i].x, -expected[i].y);
    }
    ZorPointArray points(expected);
    const ZorPoint c = ZorGeometryMeasureTools().PointArrayCenter(points);
    const auto angle = [&c](const ZorPoint& p) {
      const double degrees = std::atan2(p.y - c.y, p.x - c.x) * 180 / 3.141592653;
      return degrees < 0 ? degrees + 360 : degrees;
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
      for (std::size_t j = i + 1; j < expected.size(); ++j) {
        if (angle(expected[j]) < angle(expected[i])) std::swap(expected[i], expected[j]);
      }
    }
    EXPECT_EQ(ZorGeometryMeasureTools().OrderConvexPolygonVertex(points), GM_OK);
    EXPECT_EQ(points, ZorPointArray(expected));
  }
}
