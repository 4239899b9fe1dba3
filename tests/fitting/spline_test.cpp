#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/spline_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;

TEST(GenSplineCurve, TakesEvenlySpacedXAndLaggingYFromTheCubic) {
  ZorPointArray points = {{0, 0}, {4, 6}, {12, 0}, {14, 0}};
  // The cubics at 0.5, 1, 1.5 and 2.25 on unit spacing, where the second derivatives of the natural
  // one are 0, -21.6, 14.4, 0; the first lies over x = 2, the others lag behind theirs.
  const double expected[3][4] = {
      {2.875, 4, 2.875, 0.421875}, {3.375, 6, 3.375, -0.421875}, {4.35, 6, 3.45, -0.7875}};
  for (int type = 0; type < 3; ++type) {
    ZorPointArray curve = {{7, 7}};
    ASSERT_EQ(ZORMV::ZorGeometryMeasureDlg().SplineCurveInterpolate(points, type, 3, &curve),
              GM_OK);
    ASSERT_EQ(curve.Length(), 13);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(curve[4 * i], points[i]);
    ExpectNear(curve[2], {2, expected[type][0]}, 1e-12);
    ExpectNear(curve[5], {6, expected[type][1]}, 1e-12);
    ExpectNear(curve[7], {10, expected[type][2]}, 1e-12);
    ExpectNear(curve[11], {13.5, expected[type][3]}, 1e-12);
  }
}

TEST(NaturalSecondDerivatives, SolveTheirEquations) {
  ZorPointArray p;
  for (int i = 0; i < 12; ++i) p.Append({0, i * i * i % 17 * 1.0});
  const std::vector<double> m = zor::fitting::NaturalSecondDerivatives(p.View());
  EXPECT_EQ(m.front() + m.back(), 0);
  for (int i = 1; i < 11; ++i) {
    const auto k = static_cast<std::size_t>(i);
    EXPECT_NEAR(m[k - 1] + 4 * m[k] + m[k + 1], 6 * (p[i + 1].y - 2 * p[i].y + p[i - 1].y), 1e-11);
  }
}

TEST(GenSplineCurve, ChecksInTheOrderOfItsSteps) {
  ZorPointArray curve = {{7, 7}};
  const auto status = [&](ZorPointArray points, int type, int count) {
    return ZorGeometryMeasure().GenSplineCurve(points, type, count, &curve);
  };
  const int most = std::numeric_limits<int>::max();
  const ZorPointArray closed = {{0, 0}, {1, 1}, {0, 0}}, open = {{0, 0}, {1, 1}, {0, 1e-9}};
  EXPECT_EQ(status({{0, 0}}, 3, 0), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(status(closed, 3, 0), GM_E_PARAM_2);
  EXPECT_EQ(status(closed, -1, 0), GM_E_PARAM_2);
  EXPECT_EQ(status(closed, 2, 0), GM_E_PARAM_3);
  EXPECT_EQ(status(closed, 2, 1), GM_E_PARAM_1);
  EXPECT_EQ(status({{2, 2}, {2, 2}}, 0, 1), GM_E_PARAM_1);
  EXPECT_EQ(status({{0, 0}, {1, 1}}, 1, most), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(status(open, 0, (1 << 25) - 1), GM_E_PARAM_3);
  EXPECT_EQ(status(open, 2, most), GM_E_PARAM_3);
  EXPECT_EQ(curve, ZorPointArray({{7, 7}}));
  EXPECT_EQ(status({{0, kInfinity}, {kNaN, -1e308}, {1, kNaN}, {2, 1e308}}, 2, 3), GM_OK);
}
