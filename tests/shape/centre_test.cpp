#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::UntouchedPoint;

TEST(PointArrayCenter, IsTheMean) {
  ZorPointArray none, points = {{1, 2}, {4, 0}, {4, 1}};
  ZorPoint centre = UntouchedPoint();
  EXPECT_EQ(ZorGeometryMeasure().PointArrayCenter(none, &centre), GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(IsUntouched(centre));
  EXPECT_EQ(ZorGeometryMeasure().PointArrayCenter(points, &centre), GM_OK);
  EXPECT_EQ(centre, ZorPoint(3, 1));
  EXPECT_EQ(ZorGeometryMeasureTools().PointArrayCenter(points), ZorPoint(3, 1));
  EXPECT_TRUE(std::isnan(ZorGeometryMeasureTools().PointArrayCenter(none).x));
}

TEST(PolygonCenter, TakesTheCutPolygonOrTheMean) {
  struct Case {
    const char* what;
    ZorPointArray points;
    ZorPoint centre;
    const char* trace;
  };
  const char* plain = "+PolygonCenter -PolygonCenter";
  const char* mean = "+PolygonCenter +PointArrayCenter -PointArrayCenter -PolygonCenter";
  for (const Case& c : {
           Case{
               "cut, not rounded", {{0.9, 0.9}, {2.9, 0.9}, {2.9, 4.9}, {0.9, 4.9}}, {1, 2}, plain},
           {"clockwise too", {{0, 3}, {3, 0}, {0, 0}}, {1, 1}, plain},
           {"centroid, not mean", {{0, 0}, {6, 0}, {6, 6}, {3, 6}, {0, 6}}, {3, 3}, plain},
           {"collinear: mean as given", {{0, 0.5}, {1, 0.5}, {5.6, 0.5}}, {2.2, 0.5}, mean},
           {"nothing left when cut", {{0.1, 0.1}, {0.9, 0.1}, {0.5, 0.7}}, {0.5, 0.3}, mean},
       }) {
    SCOPED_TRACE(c.what);
    const zor::test::TraceCapture capture;
    ZorPoint centre = UntouchedPoint();
    EXPECT_EQ(ZorGeometryMeasure().PolygonCenter(c.points, &centre), GM_OK);
    ExpectNear(centre, c.centre, 1e-12);
    EXPECT_EQ(capture.Events(), c.trace);
    EXPECT_EQ(ZorGeometryMeasure().PolygonCenter({{0, 0}, {1, 1}}, nullptr), GM_E_TOO_FEW_POINTS);
  }
}

TEST(PolygonWeightCenter, WeighsConsecutiveTriples) {
  struct Case {
    const char* what;
    ZorPointArray points;
    ZorPoint centre;
    const char* trace;
  };
  const char* mean = "+PointArrayCenter -PointArrayCenter";
  for (const Case& c : {
           Case{"one", {{3, 4}}, {3, 4}, ""},
           {"two", {{0, 0}, {3, 5}}, {1.5, 2.5}, ""},
           {"three, whatever their area", {{0, 0}, {1, 1}, {5, 5}}, {2, 2}, ""},
           {"a square", {{0, 0}, {2, 0}, {2, 2}, {0, 2}}, {1, 1}, ""},
           // The five triples weigh 18, 9, 9, 18 and 36, about (4,1), (5,3), (3,5), (1,4), (2,2).
           {"no fan", {{0, 0}, {6, 0}, {6, 3}, {3, 6}, {0, 6}}, {2.6, 2.6}, ""},
           {"weights cancel", {{0, 0}, {1, 0}, {0, 1}, {1, 1}}, {0.5, 0.5}, mean},
       }) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points;
    const zor::test::TraceCapture capture;
    ZorPoint centre = UntouchedPoint();
    EXPECT_EQ(ZorGeometryMeasure().PolygonWeightCenter(points, &centre), GM_OK);
    ExpectNear(centre, c.centre, 1e-12);
    EXPECT_EQ(capture.Events(), c.trace);
  }
  ZorPointArray none;
  EXPECT_EQ(ZorGeometryMeasure().PolygonWeightCenter(none, nullptr), GM_E_TOO_FEW_POINTS);
}

TEST(PrincipalComponentAnalysis, AppendsSmallThenLargeInSinglePrecision) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  std::mt19937_64 rng(5);
  std::normal_distribution<double> along(0, 50), across(0, 3);
  const ZorPoint axis(std::cos(0.4), std::sin(0.4));
  ZorPointArray points;
  for (int i = 0; i < 4000; ++i) {
    const double u = along(rng), v = across(rng);
    points.Append(ZorPoint(500 + u * axis.x - v * axis.y, 300 + u * axis.y + v * axis.x));
  }
  ZorVarArray values = {7.0};
  ZorPointArray axes = {{8, 9}};
  EXPECT_EQ(dlg.PrincipalComponentAnalysis(points, &values, &axes), GM_OK);
  ASSERT_EQ(values.Length(), 3) << "appended, not replaced";
  ASSERT_EQ(axes.Length(), 3);
  EXPECT_NEAR(values[1].D(), 9, 1);
  EXPECT_NEAR(values[2].D(), 2500, 250);
  EXPECT_NEAR(std::fabs(axes[2].x * axis.x + axes[2].y * axis.y), 1, 1e-4);
  EXPECT_NEAR(axes[1].x * axes[2].x + axes[1].y * axes[2].y, 0, 1e-6);
  EXPECT_EQ(values[2].D(), static_cast<double>(static_cast<float>(values[2].D())));
  EXPECT_EQ(axes[2].x, static_cast<double>(static_cast<float>(axes[2].x)));

  ZorPointArray one = {{1, 1}}, level = {{0, 0}, {1, 0}, {5, 0}};
  EXPECT_EQ(dlg.PrincipalComponentAnalysis(one, &values, &axes), GM_E_PARAM_1);
  EXPECT_EQ(values.Length(), 3);
  values.Clear();
  axes.Clear();
  EXPECT_EQ(dlg.PrincipalComponentAnalysis(level, &values, &axes), GM_OK);
  EXPECT_EQ(values[0].D(), 0.0);
  EXPECT_FLOAT_EQ(static_cast<float>(values[1].D()), 14.0F / 3) << "divided by n";
  EXPECT_EQ(std::fabs(axes[1].x), 1.0);
}
