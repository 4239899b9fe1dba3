#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;

namespace {

constexpr float kAbove360 = 360.00003F;  // the next single-precision number

}  // namespace

TEST(SampleArc, ChecksInOrderAndLeavesTheOutputOnFailure) {
  struct Case {
    const char* what;
    float a, b, phi, start, extent;
    int count;
    long status, circle_status;  // circle: radius b
  };
  for (const Case& c : {
           Case{"all bounds met", 2, 1, 360, 360, 360, 3, GM_OK, GM_OK},
           {"all wrong", 0, 0, -1, -1, 0, 2, GM_E_PARAM_2, GM_E_PARAM_2},
           {"second axis on", 2, 0, -1, -1, 0, 2, GM_E_PARAM_3, GM_E_PARAM_2},
           {"axis angle on", 2, 1, kAbove360, -1, 0, 2, GM_E_PARAM_4, GM_E_PARAM_3},
           {"start on", 2, 1, 0, kAbove360, 0, 2, GM_E_PARAM_5, GM_E_PARAM_3},
           {"extent on", 2, 1, 0, 0, 0, 2, GM_E_PARAM_6, GM_E_PARAM_4},
           {"extent too large", 2, 1, 0, 0, kAbove360, 2, GM_E_PARAM_6, GM_E_PARAM_4},
           {"count", 2, 1, 0, 0, 90, 2, GM_E_PARAM_7, GM_E_PARAM_5},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint centre(0, 0);
    const ZorPointArray before{{7, 7}};
    ZorPointArray out(before), circle_out(before);
    EXPECT_EQ(
        ZorGeometryMeasure().SampleArc(centre, c.a, c.b, c.phi, c.start, c.extent, c.count, &out),
        c.status);
    EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().CircleArcSample(centre, c.b, c.start, c.extent,
                                                             c.count, &circle_out),
              c.circle_status);
    EXPECT_EQ(out == before, c.status != GM_OK);
    EXPECT_EQ(circle_out == before, c.circle_status != GM_OK);
  }
  const zor::test::TraceCapture capture;
  ZorPoint centre(0, 0);
  static_cast<void>(ZORMV::ZorGeometryMeasureDlg().CircleArcSample(centre, 1, 0, 90, 2, nullptr));
  EXPECT_EQ(capture.Events(), "+CircleArcSample +SampleArc");
}

TEST(SampleArc, CircleRunsCounterClockwiseOnTheScreen) {
  ZorPoint centre(100, 200);
  ZorPointArray out;
  ZORMV::ZorGeometryMeasureDlg dlg;
  dlg.CircleArcSample(centre, 10, 0, 360, 4, &out);
  ASSERT_EQ(out.Length(), 4);  // a full turn does not repeat its first point
  const ZorPoint expected[] = {{110, 200}, {100, 190}, {90, 200}, {100, 210}};
  for (int i = 0; i < 4; ++i) ExpectNear(out[i], expected[i], 2e-8);
  dlg.CircleArcSample(centre, 10, 0, 90, 3, &out);
  ASSERT_EQ(out.Length(), 3);  // a part of a turn has both ends
  ExpectNear(out[1], {100 + 10 * std::sqrt(0.5), 200 - 10 * std::sqrt(0.5)}, 2e-8);
  ExpectNear(out[2], {100, 190}, 2e-8);
  ZorPointArray round;
  dlg.OvalArcSample(centre, 10, 10, 77, 0, 90, 3, &round);
  EXPECT_EQ(round, out);
}

TEST(SampleArc, StepIsASinglePrecisionQuotient) {
  ZorPoint centre(0, 0);
  ZorPointArray out;
  ZorGeometryMeasure().SampleArc(centre, 1000, 1000, 0, 0, 1, 8, &out);
  const double t = 7 * static_cast<double>(1.0F / 7.0F) / -180 * 3.141592653;
  EXPECT_EQ(out[7], ZorPoint(1000 * std::cos(t), 1000 * std::sin(t)));
}

TEST(SampleArc, EllipseIsSampledInPolarAngle) {
  const double phi_deg = 30, start_deg = 350, extent_deg = 300;
  ZorPoint centre(40, -7);
  ZorPointArray out;
  ZorGeometryMeasure().SampleArc(centre, 5, 2, 30, 350, 300, 41, &out);
  ASSERT_EQ(out.Length(), 41);
  for (int i = 0; i < 41; ++i) {
    const ZorPoint d = out[i] - centre;
    const double polar = std::atan2(-d.y, d.x) * 180 / std::numbers::pi;
    EXPECT_NEAR(std::remainder(polar - (start_deg + i * extent_deg / 40), 360), 0, 2e-7);
    const double turn = phi_deg * std::numbers::pi / 180;  // into the frame of the axes, y up
    const double u = d.x * std::cos(turn) - d.y * std::sin(turn);
    const double v = -d.x * std::sin(turn) - d.y * std::cos(turn);
    EXPECT_NEAR(u * u / 25 + v * v / 4, 1, 1e-8);
  }
}
