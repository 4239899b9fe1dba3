#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/gaussian_kernels.h"
#include "fitting/sine_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::fitting::CurveParameters;
using zor::fitting::SineAt;
using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

constexpr double kSolved = 1e-4;  // the solver stops at a relative change of 1e-6

void ExpectParameters(const ZorVarArray& actual, const CurveParameters& expected) {
  ASSERT_EQ(actual.Length(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(actual[i].D(), expected[std::size_t(i)], kSolved) << i;
}

}  // namespace

TEST(FitSinCurve, FindsKnownSines) {
  std::mt19937_64 rng(20240607);
  const auto check = [&](const CurveParameters& truth, double first, double step, int count) {
    std::uniform_real_distribution<double> jitter(-0.8, 0.8);
    ZorPointArray points;
    for (int i = 0; i < count; ++i) {
      const double x = first + step * i + (count == 600 ? jitter(rng) : 0);  // unsorted then
      points.Append({x, SineAt(truth, x)});
    }
    ZorVarArray found = {7.0};
    ASSERT_EQ(ZorGeometryMeasure().FitSinCurve(points, 0, &found), GM_OK);
    if (found[2].D() < -std::numbers::pi + 1e-3) found[2] = found[2].D() + 2 * std::numbers::pi;
    ExpectParameters(found, truth);
  };
  check({4, 0.7, 1.1, 20}, 0, 1, 108);  // a dozen periods
  check({2, 2.8, -2, 0}, 0, 1, 64);     // near the sampling limit
  check({2, 2.8, -2, 0}, -50000, 1, 100000);
  check({3, 0.1, 0.2, -5}, 0, 1, 32);  // half a period
  check({5, 0.9, -1, 100}, 4000, 0.5, 200);
  check({1, 0.4, 2.5, 3}, -300, 1, 600);
  check({2, 0.5, std::numbers::pi, 1}, 0, 1, 50);  // the seam of the phase
}

TEST(FitSinCurve, StaysBelowTheSamplingLimitUpToIt) {
  for (const int count : {16, 20, 64, 100, 3000}) {
    for (double frequency = 0.3; frequency < std::numbers::pi * (1 - 1.2 / count);
         frequency += 0.043) {
      ZorPointArray points;
      for (int i = 0; i < count; ++i) points.Append({i + 1.0, 2 * std::sin(frequency * i + 1)});
      ZorVarArray found;
      ASSERT_EQ(ZorGeometryMeasure().FitSinCurve(points, 0, &found), GM_OK);
      EXPECT_NEAR(found[1].D(), frequency, kSolved) << count;
    }
  }
}

TEST(CurveGenerators, LeaveOutliersOutAndListTheCurve) {
  const CurveParameters peak = {30, 21.5, 40, 5}, wave = {6, 0.5, 1, 12};
  for (const bool is_peak : {true, false}) {
    const CurveParameters& truth = is_peak ? peak : wave;
    const auto y_at = [&](double x) {
      return is_peak ? zor::fitting::GaussianAt(truth, x) : SineAt(truth, x);
    };
    ZORMV::ZorGeometryMeasureDlg dlg;
    ZorPointArray points, curve = {{7, 7}};
    for (int i = 0; i < 60; ++i) points.Append({i * 0.75, y_at(i * 0.75) + (i % 20 == 7 ? 9 : 0)});
    const auto generate = [&](int passes, double clip) {
      ZorVarArray c;
      EXPECT_EQ(is_peak ? dlg.SolveLinerEquationsGaussianFit(points, passes, clip, &c, &curve)
                        : dlg.SolveLinerEquationsSinFit(points, passes, clip, &c, &curve),
                GM_OK);
      return c;
    };
    EXPECT_EQ(generate(0, 3), generate(1, 3));
    EXPECT_EQ(generate(20, 0.9), generate(1, 3)) << "clipping at 0 ends the fit";
    EXPECT_GT(std::fabs(generate(1, 3)[3].D() - truth[3]), 0.1);
    ExpectParameters(generate(20, 3.9), truth);
    ASSERT_EQ(curve.Length(), 89);
    for (int k = 0; k < 89; ++k) {
      zor::test::ExpectNear(curve[k], {0.5 * k, y_at(0.5 * k)}, kSolved);
    }
  }
}

TEST(GenGaussianCurve, FindsNarrowPeaksInShortProfiles) {
  for (const int count : {7, 11}) {
    for (const double deviation : {0.6, 0.8, 1.0, 1.5}) {
      for (const double shift : {0.0, 0.3, 0.5}) {
        const CurveParameters truth = {100, (count - 1) / 2 + shift, deviation * deviation, 20};
        ZorPointArray points;
        for (double x = 0; x < count; ++x) points.Append({x, zor::fitting::GaussianAt(truth, x)});
        ZorVarArray found;
        ASSERT_EQ(ZorGeometryMeasure().GenGaussianCurve(points, 1, 0, &found, nullptr), GM_OK);
        ExpectParameters(found, truth);
      }
    }
  }
}

TEST(FitCurve, KeepsItsDigitsFarFromTheOriginInEitherDirection) {
  ZorPointArray along, up;
  for (int i = 5; i < 16; ++i) {
    along.Append({3990.0 + i, 0.013 * i * i - 0.8 * i + 7});
    up.Append({0.013 * i * i - 0.8 * i + 7, 3990.0 + i});
  }
  ZorVarArray c = {7.0}, inverse;
  ASSERT_EQ(ZorGeometryMeasure().FitCurve(along, 2, &c), GM_OK);
  ASSERT_EQ(ZorGeometryMeasure().FitCurveInv(up, 2, &inverse), GM_OK);
  EXPECT_TRUE(c == inverse && c.Length() == 3);
  for (const ZorPoint& p : along) {
    EXPECT_NEAR((c[0].D() * p.x + c[1].D()) * p.x + c[2].D(), p.y, 1e-8);
  }
}

TEST(FitCurve, ResolvesItsHighestOrderOnAsFewPointsAsItTakes) {
  for (const int count : {21, 25, 30, 1000}) {
    ZorPointArray points;
    for (int i = 0; i < count; ++i) {
      const double x = -1 + 2.0 * i / (count - 1);
      points.Append({x, std::cos(3 * x + 1)});
    }
    ZorVarArray c;
    ASSERT_EQ(ZorGeometryMeasure().FitCurve(points, 20, &c), GM_OK) << count;
    for (const ZorPoint& p : points) {
      double y = 0.0;
      for (const ZorVar& power : c) y = y * p.x + power.D();
      EXPECT_NEAR(y, p.y, 1e-6) << count << ' ' << p.x;
    }
  }
}

TEST(CurveFits, CheckTheirArgumentsInOrder) {
  ZorPointArray three = {{0, 1}, {1, 2}, {2, 1}}, good = {{0, 1}, {1, 3}, {2, 2}, {3, 0}},
                wide = {{0, 1}, {1, 3}, {2, 2}, {1e300, 0}}, curve = {{7, 7}},
                infinite = {{0, 1}, {kInfinity, 2}, {2, 1}, {3, 0}},
                overflow = {{-1e308, 1}, {1e308, 2}, {2, 1}, {3, 0}},
                stacked = {{5, 1}, {5, 2}, {5, 1}, {5, 0}};
  ZorGeometryMeasure m;
  ZorVarArray v = {7.0};
  EXPECT_EQ(m.FitSinCurve(three, -1, &v), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.FitSinCurve(good, -1, &v), GM_E_PARAM_2);
  EXPECT_EQ(m.GenSinCurve(three, -1, -1, &v, &curve), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.GenSinCurve(good, -1, -1, &v, &curve), GM_E_PARAM_2);
  EXPECT_EQ(m.GenSinCurve(good, 99, -1e-9, &v, &curve), GM_E_PARAM_3);
  EXPECT_EQ(m.GenSinCurve(wide, 1, 1, &v, &curve), GM_E_PARAM_1);
  EXPECT_EQ(m.GenGaussianCurve(good, 100, -1, &v, &curve), GM_E_PARAM_2);
  EXPECT_EQ(m.GenGaussianCurve(infinite, 1, 1, &v, &curve), GM_E_FIT_UNBOUNDED);
  EXPECT_EQ(m.GenGaussianCurve(wide, 1, 1, &v, &curve), GM_E_PARAM_1);
  EXPECT_EQ(m.GenGaussianCurve(stacked, 1, 1, &v, &curve), GM_E_FIT_FAILED);
  EXPECT_EQ(m.FitCurve(three, 3, &v), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.FitCurve(three, 0, &v), GM_E_PARAM_2);
  EXPECT_EQ(m.FitCurveInv(good, -1, &v), GM_E_PARAM_2);
  for (ZorPointArray* points : {&stacked, &infinite, &overflow}) {
    EXPECT_EQ(m.FitCurve(*points, 2, &v), GM_E_FIT_FAILED);
    EXPECT_EQ(m.FitSinCurve(*points, 0, &v), GM_E_FIT_FAILED);
  }
  EXPECT_TRUE(v == ZorVarArray({7.0}) && curve == ZorPointArray({{7, 7}}));
  EXPECT_EQ(m.GenGaussianCurve(good, 99, kNaN, &v, &curve), GM_OK);
}
