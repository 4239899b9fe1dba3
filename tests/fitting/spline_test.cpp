#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/spline_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

// Cardinal cubic B-spline, support (-2, 2).
double BSplineBump(double t) {
  const double a = std::fabs(t);
  if (a >= 2) return 0;
  return a < 1 ? 2.0 / 3 - a * a + a * a * a / 2 : std::pow(2 - a, 3) / 6;
}

// The resampled signal at t, by other forms of the three cubics: a sum of bumps, Hermite's with
// central differences, and the one in the distances to both ends.
double Reference(const ZorPointArray& points, int type, double t) {
  const int last = points.Length() - 1, i = static_cast<int>(t);
  const auto s = [&](int k) { return points[std::clamp(k, 0, last)].y; };
  const double u = t - i, v = 1 - u;
  if (type == 0) {
    double sum = 0;
    for (int k = -2; k < last + 3; ++k) sum += s(k) * BSplineBump(t - k);
    return sum;
  }
  if (type == 1) {
    return s(i) * (1 + 2 * u) * v * v + (s(i + 1) - s(i - 1)) / 2 * u * v * v +
           s(i + 1) * u * u * (3 - 2 * u) - (s(i + 2) - s(i)) / 2 * u * u * v;
  }
  const std::vector<double> m = zor::fitting::NaturalSecondDerivatives(points.View());
  const double m0 = m[static_cast<std::size_t>(i)], m1 = m[static_cast<std::size_t>(i) + 1];
  return (m0 * v * v * v + m1 * u * u * u) / 6 + (s(i) - m0 / 6) * v + (s(i + 1) - m1 / 6) * u;
}

ZorPointArray RandomPoints(std::mt19937_64& rng, int n) {
  std::uniform_real_distribution<double> coordinate(0, 100);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) points.Append({coordinate(rng), coordinate(rng)});
  return points;
}

}  // namespace

TEST(GenSplineCurve, TakesEvenlySpacedXAndLaggingYFromTheCubic) {
  std::mt19937_64 rng(20240607);
  for (int round = 0; round < 60; ++round) {
    const int type = round % 3, n = 3 + round % 7, count = 1 + round / 3 % 4;
    ZorPointArray points = RandomPoints(rng, n), curve = {{7, 7}};
    ASSERT_EQ(ZORMV::ZorGeometryMeasureDlg().SplineCurveInterpolate(points, type, count, &curve),
              GM_OK);
    ASSERT_EQ(curve.Length(), (n - 1) * count + n);
    for (int i = 0; i < n; ++i) {
      ASSERT_EQ(curve[i * (count + 1)], points[i]);
      for (int j = 1; i + 1 < n && j <= count; ++j) {
        const double share = j / (count + 1.0), t = (i * count + j) / (count + 1.0);
        const double x = points[i].x * (1 - share) + points[i + 1].x * share;
        zor::test::ExpectNear(curve[i * (count + 1) + j], {x, Reference(points, type, t)}, 1e-11);
      }
    }
  }
}

TEST(NaturalSecondDerivatives, SolveTheirEquations) {
  std::mt19937_64 rng(20240607);
  const ZorPointArray p = RandomPoints(rng, 40);
  const std::vector<double> m = zor::fitting::NaturalSecondDerivatives(p.View());
  EXPECT_EQ(m.front() + m.back(), 0);
  for (int i = 1; i < 39; ++i) {
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
