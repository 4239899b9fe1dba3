#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

constexpr double kPiError = 1e-7;  // degrees: what the ten-digit pi costs

ZorPoint OnScreen(double angle_deg, double length) {  // independent of the ten-digit pi
  const double t = angle_deg * std::numbers::pi / 180;
  return {length * std::cos(t), -length * std::sin(t)};
}

}  // namespace

TEST(Angles, DirectionsFollowTheScreenAllTheWayRound) {
  ZorGeometryMeasure m;
  for (int angle_deg = 0; angle_deg < 360; angle_deg += 3) {
    const ZorPoint from(100, 50);
    const ZorPoint to = from + OnScreen(angle_deg, 7);
    double horizontal = 0, vertical = 0;
    EXPECT_EQ(m.AngleFromHorizontal(from, to, &horizontal), GM_OK);
    EXPECT_EQ(m.AngleFromVertical(from, to, &vertical), GM_OK);
    const double from_down = std::fmod(angle_deg + 90.0, 360.0);
    // At the seams the rounding of the input decides between 0 and 360.
    EXPECT_NEAR(std::remainder(horizontal - angle_deg, 360), 0, 2e-6) << angle_deg;
    EXPECT_NEAR(std::remainder(vertical - from_down, 360), 0, 2e-6) << angle_deg;
  }
  struct Case {
    ZorPoint to;
    double horizontal, vertical;
  };
  for (const Case& c :
       {Case{{1, 0}, 0, 90}, {{0, -1}, 90, 180}, {{-1, 0}, 180, 270}, {{0, 1}, 270, 0}}) {
    double horizontal = 0, vertical = 0;
    m.AngleFromHorizontal({0, 0}, c.to, &horizontal);
    m.AngleFromVertical({0, 0}, c.to, &vertical);
    EXPECT_NEAR(horizontal, c.horizontal, kPiError);
    EXPECT_NEAR(vertical, c.vertical, kPiError);
  }
  for (const ZorPoint& to : {ZorPoint(1, 1e-20), ZorPoint(-1e-20, 1)}) {  // rounded onto the seam
    double angle = kUntouched;
    EXPECT_EQ(to.x > 0 ? m.AngleFromHorizontal({0, 0}, to, &angle)
                       : m.AngleFromVertical({0, 0}, to, &angle),
              GM_OK);
    EXPECT_EQ(angle, 360.0);
  }
  double exact = kUntouched;
  m.AngleFromHorizontal({0, 0}, {-1, 0}, &exact);
  EXPECT_EQ(exact, 180.0);
}

TEST(Angles, DegenerateInputGetsItsCodeAndWritesNothing) {
  ZorGeometryMeasure m;
  const ZorPoint o(0, 0), near(0.0005, 0), far(3, 4);
  double angle = kUntouched;
  EXPECT_EQ(m.AngleFromHorizontal(o, near, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.AngleFromVertical(o, near, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.AngleFrom3Point(near, o, far, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.AngleFrom3Point(far, o, near, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.AngleFrom4Point(o, near, o, far, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.AngleFrom4Point(o, far, o, near, &angle), GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(angle));
}

TEST(Angles, NotANumberLeavesTheAngleUnwrittenAndTheEndRecord) {
  const zor::test::TraceCapture capture;
  double angle = kUntouched;
  EXPECT_EQ(ZorGeometryMeasure().AngleFromHorizontal({kNaN, 0}, {1, 1}, &angle), GM_OK);
  EXPECT_EQ(ZorGeometryMeasure().AngleFromVertical({kNaN, 0}, {1, 1}, &angle), GM_OK);
  EXPECT_TRUE(IsUntouched(angle));
  EXPECT_EQ(capture.Events(), "+AngleFromHorizontal -AngleFromHorizontal");
}

TEST(Angles, NotANumberComesOutOfTheAnglesBetween) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0), right(1, 0), up(0, -1), nowhere(0, kNaN);
  double angle3 = 0, angle4 = 0, included = 0;
  EXPECT_EQ(m.AngleFrom3Point(nowhere, o, up, &angle3), GM_OK);
  EXPECT_EQ(m.AngleFrom4Point(o, right, o, nowhere, &angle4), GM_OK);
  EXPECT_EQ(m.IncludedAngle(o, nowhere, o, up, 1, &included), GM_OK);
  EXPECT_TRUE(std::isnan(angle3) && std::isnan(angle4) && std::isnan(included));
}

TEST(Angles, BetweenRaysAndLines) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0), right(1, 0), up(0, -1), other(5, 5);
  double angle = kUntouched;
  m.AngleFrom3Point(right, o, up, &angle);
  EXPECT_NEAR(angle, 90, kPiError);
  m.AngleFrom3Point(up, o, right, &angle);
  EXPECT_NEAR(angle, 270, kPiError);
  m.AngleFrom3Point(right, o, right, &angle);
  EXPECT_EQ(angle, 0.0);
  m.AngleFrom4Point(o, right, other, other + up, &angle);
  EXPECT_NEAR(angle, 90, kPiError);
  m.AngleFrom4Point(other, other + up, o, right, &angle);
  EXPECT_NEAR(angle, 270, kPiError);
  m.AngleFrom3Point(right, o, OnScreen(-1e-7, 1), &angle);  // 1e-7 short of a full turn
  EXPECT_EQ(angle, 0.0);
  m.AngleFrom3Point(right, o, OnScreen(-2e-6, 1), &angle);
  EXPECT_NEAR(angle, 360 - 2e-6, kPiError);
}

TEST(IncludedAngle, FoldsAndChecksTheModeLast) {
  ZorGeometryMeasure m;
  ZorPoint o(0, 0), right(2, 0), near(0.0003, 0);
  for (const double turn : {45.0, 135.0, 225.0, 315.0}) {
    ZorPoint to = OnScreen(turn, 3);
    double wide = 0, narrow = 0;
    EXPECT_EQ(m.IncludedAngle(o, right, o, to, 0, &wide), GM_OK);
    EXPECT_EQ(m.IncludedAngle(o, right, o, to, 1, &narrow), GM_OK);
    EXPECT_NEAR(wide, turn < 180 ? turn : 360 - turn, kPiError) << turn;
    EXPECT_NEAR(narrow, 45, 2 * kPiError) << turn;
  }
  double angle = kUntouched;
  for (const int mode : {2, -1}) {
    const zor::test::TraceCapture capture;
    ZorPoint up(0, -3);
    EXPECT_EQ(m.IncludedAngle(o, right, o, up, mode, &angle), GM_E_PARAM_5);
    EXPECT_EQ(capture.Events(), "+IncludedAngle +AngleFrom4Point -AngleFrom4Point");
    EXPECT_EQ(m.IncludedAngle(o, near, o, up, mode, &angle), GM_E_DEGENERATE_LINE);
  }
  EXPECT_TRUE(IsUntouched(angle));
}

TEST(CalcVectorAngle, MeasuresInTheFrameOfTheCoordinates) {
  ZorGeometryMeasureTools tools;
  ZorPoint down(0, 1), up(0, -1), zero(0, 0);
  EXPECT_NEAR(tools.CalcVectorAngle(down), 90, kPiError);
  EXPECT_NEAR(tools.CalcVectorAngle(up), 270, kPiError);
  EXPECT_EQ(tools.CalcVectorAngle(zero), 0.0);
}
