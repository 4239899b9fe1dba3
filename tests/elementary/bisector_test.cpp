#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::elementary::Cross;
using zor::elementary::Distance;
using zor::elementary::Dot;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::UntouchedPoint;

TEST(FacadeBissectingLine, IsTheBisectorAsSeen) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(-50, 50);
  ZORMV::ZorGeometryMeasureDlg dlg;
  for (int i = 0; i < 200; ++i) {
    ZorPoint vertex(1000, 700), out;
    ZorPoint p1 = vertex + ZorPoint(coordinate(rng), coordinate(rng));
    ZorPoint p3 = vertex + ZorPoint(coordinate(rng), coordinate(rng));
    const double d1 = Distance(p1, vertex), d3 = Distance(p3, vertex);
    if (std::fabs(Cross(p1 - vertex, p3 - vertex)) < 0.05 * d1 * d3) continue;
    ASSERT_EQ(dlg.BissectingLine(p1, vertex, p3, &out), GM_OK);
    // The bisector divides the far side in the ratio of the arms.
    const ZorPoint expected =
        ZorPoint((p1.x * d3 + p3.x * d1) / (d1 + d3), (p1.y * d3 + p3.y * d1) / (d1 + d3));
    ExpectNear(out, expected, 1e-4);  // the direction angles near 0 cost half the digits
  }
}

TEST(FacadeBissectingLine, TakesThinAndNearlyStraightAngles) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint near(1, 0), vertex(0, 0), thin(1000, 1.5e-5), far(1000, 0), opposite(-1000, 1e-5), out;
  EXPECT_EQ(dlg.BissectingLine(near, vertex, thin, &out), GM_OK);
  ExpectNear(out, {2, 0}, 0.5);  // the ten-digit pi costs a sixth of this half angle of 7.5e-9
  EXPECT_EQ(dlg.BissectingLine(far, vertex, opposite, &out), GM_OK);
  ExpectNear(out, {0, 1000}, 1e-4);
}

TEST(BissectingLine2, RunsBetweenTheEnds) {
  struct Case {
    const char* what;
    ZorPoint p1, p2, p3, p4, out1, out2;
  };
  for (const Case& c : {
           Case{"edges side by side", {0, -4}, {10, -2}, {0, 4}, {10, 2}, {0, 0}, {10, 0}},
           {"crossing segments", {-3, -1}, {3, 1}, {-3, 1}, {3, -1}, {-3, 0}, {3, 0}},
           {"common start", {0, 0}, {4, 3}, {0, 0}, {4, -3}, {0, 0}, {4, 0}},
           {"arms of which one starts beyond the vertex",
            {0, 0},
            {8, -6},
            {4, 3},
            {8, 6},
            {0, 0},
            {8, 0}},
           {"towards each other: the other bisector, unclipped",
            {0, -4},
            {10, -2},
            {10, 2},
            {0, 4},
            {20, 0},
            {20, std::sqrt(104.0)}},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint out1, out2;
    EXPECT_EQ(ZorGeometryMeasure().BissectingLine2(c.p1, c.p2, c.p3, c.p4, &out1, &out2), GM_OK);
    ExpectNear(out1, c.out1, 1e-6);
    ExpectNear(out2, c.out2, 1e-6);
  }
}

TEST(Bisectors, RejectDegenerateAndParallelInput) {
  ZorGeometryMeasure m;
  const ZorPoint o(0, 0), x(5, 0), y(0, 5), near(0.0005, 0), left(-5, 0);
  ZorPoint out1 = UntouchedPoint(), out2 = UntouchedPoint();
  EXPECT_EQ(m.BissectingLine(near, o, x, &out1), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.BissectingLine(x, o, x, &out1), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.BissectingLine2(o, near, o, x, &out1, &out2), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.BissectingLine2(o, x, y, x + y, &out1, &out2), GM_E_PARALLEL);
  EXPECT_EQ(m.MidLine(o, x, near, &out1, &out2), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.MidLine(o, x, left, &out1, &out2), GM_E_PARALLEL);
  EXPECT_EQ(m.BissectingVector(near, x, &out1), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.BissectingVector(x, left, &out1), GM_E_COLLINEAR);
  EXPECT_TRUE(IsUntouched(out1) && IsUntouched(out2));
}

TEST(BissectingLine, OlderFormUsesTheHeadingLessHalfTheOpening) {
  // Opening 60, heading p1 -> vertex 180: the line at 150 degrees through the vertex meets p1p3.
  const double rise = std::sqrt(3.0);
  ZorGeometryMeasure m;
  ZorPoint out;
  EXPECT_EQ(m.BissectingLine({4, 0}, {0, 0}, {2, -2 * rise}, &out), GM_OK);
  // p1p3 is (4 - 2t, -2 rise t), the line y = x tan(30 degrees).
  const double slope = std::tan(30 * std::acos(-1.0) / 180);
  const double t = 4 * slope / (2 * slope - 2 * rise);
  ExpectNear(out, {4 - 2 * t, -2 * rise * t}, 1e-6);
  ZorPoint parallel = UntouchedPoint();  // here that line runs along p1p3
  EXPECT_EQ(m.BissectingLine({1, 0}, {0, 0}, {0, -1}, &parallel), GM_E_PARALLEL);
  EXPECT_TRUE(IsUntouched(parallel));
}

TEST(BissectingVector, HalvesTheAngleWithUnitLength) {
  ZorPoint out;
  for (const double scale : {1.0, 1e200}) {
    EXPECT_EQ(ZorGeometryMeasure().BissectingVector({5 * scale, 0}, {0, -scale}, &out), GM_OK);
    ExpectNear(out, {std::sqrt(0.5), -std::sqrt(0.5)}, 1e-15);
  }
  EXPECT_EQ(ZorGeometryMeasure().BissectingVector({3, 4}, {6, 8}, &out), GM_OK);
  ExpectNear(out, {0.6, 0.8}, 1e-15);
}

TEST(MidLine, JoinsTheMidpointsOfTheTwoSidesAtTheFirstVertex) {
  ZorPoint out1, out2;
  EXPECT_EQ(ZorGeometryMeasure().MidLine({0, 0}, {4, 0}, {0, 6}, &out1, &out2), GM_OK);
  EXPECT_EQ(out1, ZorPoint(2, 0));
  EXPECT_EQ(out2, ZorPoint(0, 3));
}
