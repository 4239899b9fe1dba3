#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;

namespace {

constexpr double kPi = std::numbers::pi;
// A regular polygon of n corners falls short of its circle by 2 pi^2 / (3 n^2) of it.
double Shortfall(int samples) { return 2 * kPi * kPi / (3.0 * samples * samples); }

}  // namespace

TEST(RegionPairs, CheckTheirArgumentsInOrder) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0);
  ZorPointArray points{{7, 7}}, square{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, two{{0, 0}, {4, 0}};
  double area = kUntouched;
  const auto circle = [&](double r, double w, double h, double angle) {
    return m.CircleRectangularIntersection(o, r, o, w, h, angle, &points, &area);
  };
  EXPECT_EQ(circle(0, 0, 0, -1), GM_E_PARAM_2);
  EXPECT_TRUE(points.Empty());  // emptied first
  EXPECT_EQ(circle(1, 0, 0, -1), GM_E_PARAM_4);
  EXPECT_EQ(circle(1, 1, 0, -1), GM_E_PARAM_5);
  EXPECT_EQ(circle(1, 1, 1, 360.5), GM_E_PARAM_6);
  const auto oval = [&](double a, double b, double turn, double w, double h, double angle) {
    points = ZorPointArray{{7, 7}};
    return m.OvalRectangularIntersection(o, a, b, turn, o, w, h, angle, &points, &area);
  };
  EXPECT_EQ(oval(0, 0, -1, 0, 0, -1), GM_E_PARAM_2);
  EXPECT_TRUE(points.Empty());
  EXPECT_EQ(oval(1, 0, -1, 0, 0, -1), GM_E_PARAM_3);
  EXPECT_EQ(oval(1, 1, -1, 0, 0, -1), GM_E_PARAM_4);
  EXPECT_EQ(oval(1, 1, 0, 0, 0, -1), GM_E_PARAM_6);
  EXPECT_EQ(oval(1, 1, 0, 1, 0, -1), GM_E_PARAM_7);
  EXPECT_EQ(oval(1, 1, 0, 1, 1, -1), GM_E_PARAM_8);
  points = ZorPointArray{{7, 7}};
  EXPECT_EQ(m.PolygonCircleIntersection(two, o, 0, &points, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.PolygonCircleIntersection(square, o, 0, &points, &area), GM_E_PARAM_3);
  EXPECT_EQ(m.PolygonOvalIntersection(two, o, 0, 0, -1, &points, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.PolygonOvalIntersection(square, o, 0, 0, -1, &points, &area), GM_E_PARAM_3);
  EXPECT_EQ(m.PolygonOvalIntersection(square, o, 1, 0, -1, &points, &area), GM_E_PARAM_4);
  EXPECT_EQ(m.PolygonOvalIntersection(square, o, 1, 1, -1, &points, &area), GM_E_PARAM_5);
  EXPECT_EQ(m.PolygonsIntersection2(two, square, &points, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.PolygonsIntersection2(square, two, &points, &area), GM_E_TOO_FEW_POINTS);
  ZORMV::ZorGeometryMeasureDlg dlg;
  EXPECT_EQ(dlg.RectAngularPolygonIntersection(o, 0, 1, 0, two, &points, &area), GM_E_PARAM_2);
  EXPECT_EQ(dlg.RectAngularPolygonIntersection(o, 1, 1, 0, two, &points, &area),
            GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(points.Length(), 1);
  EXPECT_TRUE(IsUntouched(area));
}

TEST(RegionPairs, AreasAreThoseOfTheSampledFigures) {
  ZorGeometryMeasure m;
  ZorPoint centre(100, 50), corner(110, 50);
  double area = 0;
  // Half a disc: the rectangle's left edge runs through the centre.
  EXPECT_EQ(m.CircleRectangularIntersection(centre, 8, corner, 20, 40, 0, nullptr, &area), GM_OK);
  EXPECT_NEAR(area, kPi * 32, kPi * 32 * (Shortfall(10000) + 1e-7));
  EXPECT_EQ(m.CircleRectangularIntersection(centre, 2000, corner, 20, 40, 0, nullptr, &area),
            GM_OK);
  EXPECT_NEAR(area, 800, 1e-9);
  ZorPointArray left{{0, 0}, {100, 0}, {100, 200}, {0, 200}};
  EXPECT_EQ(m.PolygonOvalIntersection(left, centre, 8, 4, 0, nullptr, &area), GM_OK);
  EXPECT_NEAR(area, kPi * 16, kPi * 16 * 2e-5);  // 1000 samples, even in polar angle
  EXPECT_EQ(m.PolygonCircleIntersection(left, centre, 8, nullptr, &area), GM_OK);
  EXPECT_NEAR(area, kPi * 32 * (1 - Shortfall(1000)), kPi * 32 * 1e-7);
  EXPECT_EQ(m.PolygonCircleIntersection(left, centre, 1e-300, nullptr, &area), GM_OK);
  EXPECT_EQ(area, 0.0);
  const double endless = std::numeric_limits<double>::infinity();
  EXPECT_EQ(m.PolygonCircleIntersection(left, centre, std::nan(""), nullptr, &area), GM_OK);
  EXPECT_EQ(
      m.OvalRectangularIntersection(centre, 5, endless, 0, corner, endless, 1, 0, nullptr, nullptr),
      GM_OK);
}

TEST(RegionPairs, RectanglesTurnEachTheirWay) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0);
  // A long rectangle at 30 degrees: where its axis leaves the figure tells the turn.
  const double reach = 10, c = std::cos(kPi / 6), s = std::sin(kPi / 6);
  const auto mean_of_right_hits = [](const ZorPointArray& points) {
    ZorPoint sum;
    int count = 0;
    for (const ZorPoint& p : points) {
      if (p.x > 0) {
        sum = sum + p;
        ++count;
      }
    }
    return ZorPoint(sum.x / count, sum.y / count);
  };
  ZorPointArray points;
  m.CircleRectangularIntersection(o, reach, o, 100, 4, 30, &points, nullptr);
  ASSERT_EQ(points.Length(), 4);
  EXPECT_NEAR(mean_of_right_hits(points).y / mean_of_right_hits(points).x, s / c, 1e-6);  // down
  m.CircleRectangularIntersection(o, reach, o, 100, 4, 210, &points, nullptr);
  EXPECT_NEAR(mean_of_right_hits(points).y / mean_of_right_hits(points).x, s / c, 1e-6);
  m.OvalRectangularIntersection(o, reach, 9.9, 0, o, 100, 4, 30, &points, nullptr);
  ASSERT_EQ(points.Length(), 4);
  EXPECT_LT(mean_of_right_hits(points).y, 0);  // up

  double area = 0;
  m.OvalRectangularIntersection(o, 30, 10, 180, o, 100, 4, 90, &points, &area);
  EXPECT_EQ(points.Length(), 4);
  m.OvalRectangularIntersection(o, 30, 10, 181, o, 100, 4, 90, &points, &area);
  EXPECT_TRUE(points.Empty());
  EXPECT_GT(area, 75);
}

TEST(PolygonsIntersection, CleansEachFormItsOwnWay) {
  ZorGeometryMeasure m;
  ZorPointArray square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  ZorPointArray wedge{{2, 2}, {9, 1.5}, {9, 2.5}};  // crosses the right edge twice, 0.29 apart
  ZorPointArray points;
  double area = kUntouched;
  EXPECT_EQ(m.PolygonsIntersection(square, wedge, &points, &area), GM_OK);
  EXPECT_TRUE(IsUntouched(area));
  EXPECT_EQ(points.Length(), 2);
  EXPECT_EQ(m.PolygonsIntersection2(square, wedge, &points, &area), GM_OK);
  EXPECT_EQ(points.Length(), 1);  // the second lies within a pixel of the first
  EXPECT_NEAR(area, 2 * (2.0 / 7) / 2, 1e-12);
  // Corner on an edge: one crossing, found on both edges at the corner, vanishes.
  ZorPointArray touching{{4, 2}, {9, 0}, {9, 4}};
  m.PolygonsIntersection(square, touching, &points, nullptr);
  EXPECT_TRUE(points.Empty());
  m.PolygonsIntersection2(square, touching, &points, &area);
  EXPECT_EQ(points, (ZorPointArray{{4, 2}}));
  EXPECT_NEAR(area, 0, 1e-12);
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().PolygonsIntersection(square, wedge, nullptr, &area),
            GM_OK);
  EXPECT_NEAR(area, 2.0 / 7, 1e-12);
}

TEST(ConvexPolygonIntersection, GathersWithItsMultiplicities) {
  ZorGeometryMeasure m;
  ZorPointArray p{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, q{{2, 2}, {6, 2}, {6, 6}, {2, 6}};
  ZorPointArray points;
  double area = 0;
  EXPECT_EQ(m.ConvexPolygonIntersection(p, q, &points, &area), GM_OK);
  EXPECT_NEAR(area, 4, 1e-12);
  // p's last edge (4,4)-(0,4) crosses q at (2,4): three times; (4,2) once; p's vertex (4,4) twice
  // and q's vertex (2,2) once. From the mean on, ascending from +x towards +y.
  std::vector<int> counts(4, 0);
  const ZorPoint corners[] = {{4, 4}, {2, 4}, {2, 2}, {4, 2}};
  for (const ZorPoint& point : points) {
    for (std::size_t i = 0; i < 4; ++i) counts[i] += point == corners[i] ? 1 : 0;
  }
  EXPECT_EQ(counts, (std::vector<int>{2, 3, 1, 1}));
  ZorPointArray far_away{{90, 90}, {94, 90}, {90, 94}};
  EXPECT_EQ(m.ConvexPolygonIntersection(p, far_away, &points, &area), GM_OK);
  EXPECT_TRUE(points.Empty());
  EXPECT_EQ(area, 0.0);
}

TEST(PolygonsIntersection2, IsTheSameWithASinkAndForAnyThreads) {
  ZorPointArray star, square{{-5, -3}, {6, -4}, {5, 6}, {-6, 5}};
  for (int i = 0; i < 14; ++i) {
    const double r = i % 2 == 0 ? 9 : 3.3;
    star.Append(ZorPoint(r * std::cos(i * kPi / 7), r * std::sin(i * kPi / 7)));
  }
  ZorGeometryMeasure m;
  ZorPointArray points, traced_points;
  double area = 0, traced_area = 0;
  EXPECT_EQ(m.PolygonsIntersection2(star, square, &points, &area), GM_OK);
  for (const std::size_t threads : {1U, 4U}) {
    const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
    const zor::test::TraceCapture capture;
    EXPECT_EQ(m.PolygonsIntersection2(star, square, &traced_points, &traced_area), GM_OK);
    EXPECT_EQ(traced_area, area);
    EXPECT_EQ(traced_points, points);
    const std::string events = capture.Events();
    EXPECT_NE(events.find("+PointArraySelectedByPolygon"), std::string::npos);
    EXPECT_NE(events.find("+LinesIntersection"), std::string::npos);
  }
}

TEST(RectAngularPolygonIntersection, EndsItsRecordBeforeTheMeasurement) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint o(0, 0);
  ZorPointArray triangle{{0, 0}, {9, 0}, {0, 9}};
  const zor::test::TraceCapture capture;
  EXPECT_EQ(dlg.RectAngularPolygonIntersection(o, 2, 2, 0, triangle, nullptr, nullptr), GM_OK);
  EXPECT_EQ(capture.Events(),
            "+RectAngularPolygonIntersection -RectAngularPolygonIntersection "
            "+PolygonsIntersection2 -PolygonsIntersection2");
}
