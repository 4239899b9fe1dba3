#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

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

double SumOfBumps(const std::vector<double>& s, double t) {
  const int n = static_cast<int>(s.size());
  double sum = 0;
  for (int i = -2; i < n + 2; ++i) {
    sum += s[static_cast<std::size_t>(std::clamp(i, 0, n - 1))] * BSplineBump(t - i);
  }
  return sum;
}

// The cubic with the given values and slopes at its ends.
double Hermite(double s0, double s1, double d0, double d1, double u) {
  return s0 * (1 + 2 * u) * (1 - u) * (1 - u) + d0 * u * (1 - u) * (1 - u) +
         s1 * u * u * (3 - 2 * u) + d1 * u * u * (u - 1);
}

double CentralDifferences(const std::vector<double>& s, double t) {
  const int last = static_cast<int>(s.size()) - 1, i = std::min(static_cast<int>(t), last - 1);
  const auto at = [&](int k) { return s[static_cast<std::size_t>(std::clamp(k, 0, last))]; };
  return Hermite(at(i), at(i + 1), (at(i + 1) - at(i - 1)) / 2, (at(i + 2) - at(i)) / 2, t - i);
}

// Natural spline by its slopes: d_(i-1) + 4 d_i + d_(i+1) = 3 (s_(i+1) - s_(i-1)) inside, and
// 2 d_0 + d_1 = 3 (s_1 - s_0) at the ends, relaxed until nothing moves any more.
double Natural(const std::vector<double>& s, double t) {
  const std::size_t n = s.size(), i = std::min(static_cast<std::size_t>(t), n - 2);
  std::vector<double> d(n, 0.0);
  for (int sweep = 0; sweep < 60; ++sweep) {
    d[0] = (3 * (s[1] - s[0]) - d[1]) / 2;
    for (std::size_t k = 1; k + 1 < n; ++k) {
      d[k] = (3 * (s[k + 1] - s[k - 1]) - d[k - 1] - d[k + 1]) / 4;
    }
    d[n - 1] = (3 * (s[n - 1] - s[n - 2]) - d[n - 2]) / 2;
  }
  return Hermite(s[i], s[i + 1], d[i], d[i + 1], t - static_cast<double>(i));
}

}  // namespace

TEST(GenSplineCurve, TakesEvenlySpacedXAndLaggingYFromTheCubic) {
  const std::vector<std::function<double(const std::vector<double>&, double)>> cubics = {
      SumOfBumps, CentralDifferences, Natural};
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(0, 100);
  for (int round = 0; round < 60; ++round) {
    const int type = round % 3, n = 3 + round % 7, count = 1 + round / 3 % 4;
    ZorPointArray points, curve = {{7, 7}};
    std::vector<double> s;
    for (int i = 0; i < n; ++i) points.Append({coordinate(rng), s.emplace_back(coordinate(rng))});
    ASSERT_EQ(ZORMV::ZorGeometryMeasureDlg().SplineCurveInterpolate(points, type, count, &curve),
              GM_OK);
    ASSERT_EQ(curve.Length(), (n - 1) * count + n);
    for (int i = 0; i < n; ++i) {
      ASSERT_EQ(curve[i * (count + 1)], points[i]);
      for (int j = 1; i + 1 < n && j <= count; ++j) {
        const double share = j / (count + 1.0), t = (i * count + j) / (count + 1.0);
        const ZorPoint expected(points[i].x * (1 - share) + points[i + 1].x * share,
                                cubics[static_cast<std::size_t>(type)](s, t));
        zor::test::ExpectNear(curve[i * (count + 1) + j], expected, 1e-11);
      }
    }
  }
}

TEST(GenSplineCurve, SecondGapReadsTheValueOfTheMiddlePoint) {
  ZorPointArray points = {{0, 0}, {1, 1}, {2, 0}}, curve;
  ASSERT_EQ(ZorGeometryMeasure().GenSplineCurve(points, 1, 1, &curve), GM_OK);
  EXPECT_EQ(curve, (ZorPointArray{{0, 0}, {0.5, 0.5625}, {1, 1}, {1.5, 1}, {2, 0}}));
}

TEST(GenSplineCurve, ChecksInTheOrderOfItsSteps) {
  const int most = std::numeric_limits<int>::max();
  const ZorPointArray one = {{0, 0}}, pair = {{0, 0}, {1, 1}}, closed = {{0, 0}, {1, 1}, {0, 0}},
                      open = {{0, 0}, {1, 1}, {0, 1e-9}},
                      wild = {{0, kInfinity}, {kNaN, -1e308}, {1, kNaN}, {2, 1e308}};
  struct Case {
    const char* what;
    ZorPointArray points;
    int type, count;
    long status;
  };
  for (const Case& c : {Case{"one point", one, 3, 0, GM_E_TOO_FEW_POINTS},
                        {"type too large", closed, 3, 0, GM_E_PARAM_2},
                        {"type negative", closed, -1, 0, GM_E_PARAM_2},
                        {"no insertion", closed, 2, 0, GM_E_PARAM_3},
                        {"closed", closed, 2, 1, GM_E_PARAM_1},
                        {"two equal points", {{2, 2}, {2, 2}}, 0, 1, GM_E_PARAM_1},
                        {"two points", pair, 1, most, GM_E_TOO_FEW_POINTS},
                        {"nearly closed", open, 0, 1, GM_OK},
                        {"largest curve plus one", open, 0, (1 << 25) - 1, GM_E_PARAM_3},
                        {"huge", open, 2, most, GM_E_PARAM_3},
                        {"not finite", wild, 2, 3, GM_OK}}) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points, curve = {{7, 7}};
    EXPECT_EQ(ZorGeometryMeasure().GenSplineCurve(points, c.type, c.count, &curve), c.status);
    EXPECT_EQ(curve == ZorPointArray({{7, 7}}), c.status != GM_OK);
  }
}
