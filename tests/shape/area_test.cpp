#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

double Moment(ZorPointArray points, int order) {
  double moment = kUntouched;
  EXPECT_EQ(ZorGeometryMeasure().CalcMoment(points, order, &moment), GM_OK);
  return moment;
}

/// Integral of x^p y^q over the triangle abc by repeated quartering: each piece at its centre.
double TriangleIntegral(ZorPoint a, ZorPoint b, ZorPoint c, int p, int q, int depth) {
  const ZorPoint ab((a.x + b.x) / 2, (a.y + b.y) / 2), bc((b.x + c.x) / 2, (b.y + c.y) / 2),
      ca((c.x + a.x) / 2, (c.y + a.y) / 2);
  if (depth > 0) {
    return TriangleIntegral(a, ab, ca, p, q, depth - 1) +
           TriangleIntegral(ab, b, bc, p, q, depth - 1) +
           TriangleIntegral(ca, bc, c, p, q, depth - 1) +
           TriangleIntegral(ab, bc, ca, p, q, depth - 1);
  }
  const double area = ((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / 2;
  return area * std::pow((a.x + b.x + c.x) / 3, p) * std::pow((a.y + b.y + c.y) / 3, q);
}

}  // namespace

TEST(PolygonArea, SignsAndTooFewPoints) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray square = {{0, 0}, {1, 0}, {1, 1}, {0, 1}}, two = {{0, 0}, {1, 0}};
  double area = kUntouched;
  for (const double sign : {1.0, -1.0}) {
    EXPECT_EQ(m.Area2(square, &area), GM_OK);
    EXPECT_EQ(area, sign);
    EXPECT_EQ(dlg.PolygonArea(square, &area), GM_OK);
    EXPECT_EQ(area, 1.0);
    std::reverse(square.begin(), square.end());
  }
  EXPECT_EQ(m.Area2(two, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(area, 0.0) << "set although the call fails";
  area = kUntouched;
  const zor::test::TraceCapture capture;
  EXPECT_EQ(dlg.PolygonArea(two, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(area, 0.0) << "set although the call fails";
  EXPECT_EQ(capture.Events(), "+PolygonArea");
}

TEST(PolygonArea, SumsTheEdgesFromTheClosingOneOn) {
  // Two large terms cancel: only in this order the small third one is added after that.
  ZorPointArray polygon = {{1e9, 0}, {0, -1e9}, {0x1p-32, -1e9}};
  double area = kUntouched;
  EXPECT_EQ(ZorGeometryMeasure().Area2(polygon, &area), GM_OK);
  EXPECT_EQ(area, 0.5 * 1e9 * 0x1p-32);
}

TEST(Area, CutsVerticesTowardsZero) {
  struct Case {
    const char* what;
    ZorPointArray points;
    double area;
  };
  for (const Case& c : {
           Case{"not rounded", {{0.9, 0.9}, {2.9, 0.9}, {2.9, 2.9}, {0.9, 2.9}}, 4.0},
           {"negative ones upwards", {{-1.9, -1.9}, {2, -1.9}, {2, 2}, {-1.9, 2}}, 9.0},
           {"turned the other way", {{0, 4}, {3, 4}, {3, 0}, {0, 0}}, 12.0},
           {"not a number counts as 0", {{kNaN, 0}, {3, kNaN}, {3, 4}}, 6.0},
           {"beyond every int", {{0, 0}, {1e300, 0}, {kInfinity, 1}}, 1073741824.0},
       }) {
    SCOPED_TRACE(c.what);
    double area = kUntouched;
    EXPECT_EQ(ZorGeometryMeasure().Area(c.points, &area), GM_OK);
    EXPECT_EQ(area, c.area);
  }
  double area = kUntouched;
  EXPECT_EQ(ZorGeometryMeasure().Area({{0, 0}, {1, 0}}, &area), GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(IsUntouched(area));
}

TEST(CalcMoment, OrdersThatAreNotOfferedGiveZero) {
  const ZorPointArray square = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  for (const int order : {-1, 3, 9, 12, 19, 21, 23, 33, 100}) EXPECT_EQ(Moment(square, order), 0.0);
  ZorPointArray none;
  double moment = kUntouched;
  EXPECT_EQ(ZorGeometryMeasure().CalcMoment(none, 12, &moment), GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(IsUntouched(moment));
}

TEST(CalcMoment, AgreesWithSummingSmallPieces) {
  const ZorPoint v[4] = {{1, 2}, {7, 1}, {9, 6}, {4, 3}};
  const ZorPointArray polygon = {v[0], v[1], v[2], v[3]};
  const ZorPointArray reversed = {v[3], v[2], v[1], v[0]};
  for (const int order : {0, 1, 10, 2, 20, 11, 22}) {
    const int p = order / 10, q = order % 10;
    const double truth =
        TriangleIntegral(v[0], v[1], v[3], p, q, 7) + TriangleIntegral(v[1], v[2], v[3], p, q, 7);
    // A piece's error falls with its area: 4^-7 of what is at most 20 times the moment.
    EXPECT_NEAR(Moment(polygon, order), truth, truth * 20 / 16384) << order;
    EXPECT_DOUBLE_EQ(Moment(reversed, order), -Moment(polygon, order)) << order;
  }
}
