#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::UntouchedPoint;

TEST(LinesIntersection, ChecksInOrder) {
  struct Case {
    const char* what;
    ZorPoint p1, p2, p3, p4;
    long status;
  };
  const double big = 1 << 24;  // single precision loses the odd numbers from here on
  for (const Case& c : {
           Case{"crossing", {0, 0}, {1, 0}, {2, -1}, {2, 1}, GM_OK},
           {"first of exactly 0.0005", {0, 0}, {0.0005, 0}, {2, -1}, {2, 1}, GM_E_DEGENERATE_LINE},
           {"second degenerate, also parallel",
            {0, 0},
            {1, 0},
            {2, 0},
            {2, 0},
            GM_E_DEGENERATE_LINE},
           {"0.00051", {0, 0}, {0.00051, 0}, {2, -1}, {2, 1}, GM_OK},
           {"cross product 5e-6", {0, 0}, {1, 0}, {0, 1}, {1, 1.000005}, GM_E_PARALLEL},
           {"cross product 1.1e-5", {0, 0}, {1, 0}, {0, 1}, {1, 1.000011}, GM_OK},
           {"short at right angles", {0, 0}, {0.003, 0}, {0, 0}, {0, 0.003}, GM_E_PARALLEL},
           {"differences equal in single precision only",
            {0, 0},
            {big + 1, 1},
            {0, 1},
            {big, 2},
            GM_E_PARALLEL},
           {"not a number passes", {0, 0}, {1, 0}, {0, 1}, {kNaN, 1}, GM_OK},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint out = UntouchedPoint();
    EXPECT_EQ(ZorGeometryMeasure().LinesIntersection(c.p1, c.p2, c.p3, c.p4, &out), c.status);
    EXPECT_EQ(IsUntouched(out), c.status != GM_OK);
  }
}

TEST(LinesIntersection, LinesParallelInDoubleCanPassTheRoundedTest) {
  // In single precision (3, 7) and 5592407 * (3, 7) are not parallel; in double the areas cancel.
  const double k = 5592407;
  ZorPoint out = UntouchedPoint();
  EXPECT_EQ(
      ZorGeometryMeasure().LinesIntersection({0, 0}, {3, 7}, {0, 1}, {3 * k, 7 * k + 1}, &out),
      GM_E_PARAM_1);
  EXPECT_TRUE(IsUntouched(out));
}

TEST(LinesIntersection, LiesOnBothLines) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(-50, 4000);
  const auto point = [&] { return ZorPoint(coordinate(rng), coordinate(rng)); };
  for (int i = 0; i < 300; ++i) {
    ZorPoint p1 = point(), p2 = point(), p3 = point(), p4 = point(), out;
    if (ZorGeometryMeasure().LinesIntersection(p1, p2, p3, p4, &out) != GM_OK) continue;
    const double sine =
        ((p2.x - p1.x) * (p4.y - p3.y) - (p2.y - p1.y) * (p4.x - p3.x)) /
        (std::hypot(p2.x - p1.x, p2.y - p1.y) * std::hypot(p4.x - p3.x, p4.y - p3.y));
    if (std::fabs(sine) < 0.01) continue;
    double d1 = 0, d2 = 0;
    ZorGeometryMeasure().PointTolineDistance(out, p1, p2, &d1);
    ZorGeometryMeasure().PointTolineDistance(out, p3, p4, &d2);
    EXPECT_LT(d1 + d2, 1e-7) << zor::test::Show(p1) << zor::test::Show(p2) << zor::test::Show(p3);
  }
}

TEST(PerpendicularProjection, FailsOnlyOnADegenerateLine) {
  ZorGeometryMeasure m;
  ZorPoint foot = UntouchedPoint();
  EXPECT_EQ(m.PerpendicularProjection({3, 4}, {0, 0}, {0.0005, 0}, &foot), GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(foot));
  EXPECT_EQ(m.PerpendicularProjection({3, 4}, {0, 0}, {10, 0}, &foot), GM_OK);
  ExpectNear(foot, {3, 0}, 1e-14);
}

TEST(PerpendicularProjection, WritesNothingOnAShortLineAndSucceeds) {
  const zor::test::TraceCapture capture;
  ZorPoint foot = UntouchedPoint();
  EXPECT_EQ(ZorGeometryMeasure().PerpendicularProjection({3, 4}, {0, 0}, {0.002, 0}, &foot), GM_OK);
  EXPECT_TRUE(IsUntouched(foot));
  EXPECT_EQ(capture.Events(),
            "+PerpendicularProjection +LinesIntersection -PerpendicularProjection");
}

TEST(ParallerLine, PassesThroughThePointOrSaysWhyNot) {
  ZorPoint a(0, 0), b(4, 2), on(2, 1.00001), off(0, 5), short_b(0.0004, 0), out = UntouchedPoint();
  ZorGeometryMeasure m;
  EXPECT_EQ(m.ParallerLine(off, a, short_b, &out), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.ParallerLine(on, a, b, &out), GM_E_COLLINEAR);
  EXPECT_TRUE(IsUntouched(out));
  EXPECT_EQ(m.ParallerLine(off, a, b, &out), GM_OK);
  EXPECT_EQ(out, ZorPoint(4, 7));
}

TEST(Perpendicular, RejectsOnlyExactlyEqualPoints) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(1, 1), b(1, 1), near(1, 1 + 1e-9), p(5, 5), out = UntouchedPoint();
  EXPECT_EQ(dlg.Perpendicular(a, b, p, &out), GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(out));
  EXPECT_EQ(dlg.Perpendicular(a, near, p, &out), GM_OK);
  ZorPoint c(4, 3);
  EXPECT_EQ(dlg.Perpendicular(a, c, p, &out), GM_OK);
  EXPECT_EQ(out, ZorPoint(5 - 2, 5 + 3));
}

TEST(MidVertLine, GivesTheSlopeOfThePerpendicularBisector) {
  ZorPoint a(0, 0), b(4, 2), level(4, 0), mid;
  double slope = 0;
  ZorGeometryMeasure().MidVertLine(a, b, &mid, &slope);
  EXPECT_EQ(mid, ZorPoint(2, 1));
  EXPECT_EQ(slope, -2);
  ZorGeometryMeasure().MidVertLine(a, level, &mid, &slope);
  EXPECT_TRUE(std::isinf(slope));
}

TEST(PointTolineDistance, IsUnsignedAndRejectsAShortLine) {
  ZorGeometryMeasure m;
  double d = kUntouched;
  EXPECT_EQ(m.PointTolineDistance({5, 5}, {0, 0}, {0, 0.0005}, &d), GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(d));
  for (const double y : {3.0, -3.0, 0.0}) {
    EXPECT_EQ(m.PointTolineDistance({50, y}, {0, 0}, {10, 0}, &d), GM_OK);
    EXPECT_EQ(d, std::fabs(y));
  }
}
