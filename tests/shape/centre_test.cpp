#include <cmath>

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

TEST(PolygonCenters, OfAreaAndOfWeights) {
  struct Case {
    const char* what;
    bool by_weight;
    ZorPointArray points;
    ZorPoint centre;
    const char* trace;
  };
  const char* plain = "+PolygonCenter -PolygonCenter";
  const char* mean = "+PolygonCenter +PointArrayCenter -PointArrayCenter -PolygonCenter";
  const char* weightless = "+PointArrayCenter -PointArrayCenter";
  for (const Case& c : {
           Case{"cut", false, {{0.9, 0.9}, {2.9, 0.9}, {2.9, 4.9}, {0.9, 4.9}}, {1, 2}, plain},
           {"clockwise too", false, {{0, 3}, {3, 0}, {0, 0}}, {1, 1}, plain},
           {"no mean", false, {{0, 0}, {6, 0}, {6, 6}, {3, 6}, {0, 6}}, {3, 3}, plain},
           {"collinear", false, {{0, 0.5}, {1, 0.5}, {5.6, 0.5}}, {2.2, 0.5}, mean},
           {"cut away", false, {{0.1, 0.1}, {0.9, 0.1}, {0.5, 0.7}}, {0.5, 0.3}, mean},
           {"one", true, {{3, 4}}, {3, 4}, ""},
           {"two", true, {{0, 0}, {3, 5}}, {1.5, 2.5}, ""},
           {"three, whatever their area", true, {{0, 0}, {1, 1}, {5, 5}}, {2, 2}, ""},
           // The five triples weigh 18, 9, 9, 18 and 36, about (4,1), (5,3), (3,5), (1,4), (2,2).
           {"no fan", true, {{0, 0}, {6, 0}, {6, 3}, {3, 6}, {0, 6}}, {2.6, 2.6}, ""},
           {"cancel", true, {{0, 0}, {1, 0}, {0, 1}, {1, 1}}, {0.5, 0.5}, weightless},
       }) {
    SCOPED_TRACE(c.what);
    ZorGeometryMeasure m;
    ZorPointArray points = c.points;
    const zor::test::TraceCapture capture;
    ZorPoint centre = UntouchedPoint();
    EXPECT_EQ(
        c.by_weight ? m.PolygonWeightCenter(points, &centre) : m.PolygonCenter(points, &centre),
        GM_OK);
    ExpectNear(centre, c.centre, 1e-12);
    EXPECT_EQ(capture.Events(), c.trace);
  }
  ZorPointArray none;
  EXPECT_EQ(ZorGeometryMeasure().PolygonWeightCenter(none, nullptr), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(ZorGeometryMeasure().PolygonCenter({{0, 0}, {1, 1}}, nullptr), GM_E_TOO_FEW_POINTS);
}

TEST(PrincipalComponentAnalysis, AppendsSmallThenLargeInSinglePrecision) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  // Along (0.6, 0.8) at 3, 0 and -3, and 1 to either side of the middle.
  ZorPointArray one = {{1, 1}}, axes = {{8, 9}},
                points = {{11.8, 22.4}, {8.2, 17.6}, {9.2, 20.6}, {10.8, 19.4}};
  ZorVarArray values = {7.0};
  EXPECT_EQ(dlg.PrincipalComponentAnalysis(one, &values, &axes), GM_E_PARAM_1);
  EXPECT_EQ(dlg.PrincipalComponentAnalysis(points, &values, &axes), GM_OK);
  ASSERT_EQ(values.Length(), 3) << "appended, not replaced";
  ASSERT_EQ(axes.Length(), 3);
  EXPECT_EQ(values[1].D(), static_cast<double>(0.5F)) << "divided by n";
  EXPECT_EQ(values[2].D(), static_cast<double>(4.5F));
  EXPECT_EQ(std::fabs(axes[1].x), static_cast<double>(0.8F));
  EXPECT_EQ(std::fabs(axes[2].x), static_cast<double>(0.6F));
  EXPECT_NEAR(axes[1].x * axes[2].x + axes[1].y * axes[2].y, 0, 1e-7);
}
