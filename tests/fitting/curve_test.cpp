#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <span>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/curve_passes.h"
#include "fitting/gaussian_kernels.h"
#include "fitting/sine_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::fitting::CurveParameters;
using zor::fitting::GaussianAt;
using zor::fitting::SineAt;
using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

constexpr double kSolved = 1e-4;  // the solver stops at a relative change of 1e-6

void ExpectParameters(const ZorVarArray& actual, const CurveParameters& expected, double bound) {
  ASSERT_EQ(actual.Length(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(actual[i].D(), expected[static_cast<std::size_t>(i)], bound) << i;
  }
}

}  // namespace

TEST(FitSinCurve, FindsKnownSines) {
  struct Case {
    const char* what;
    CurveParameters truth;
    double first, step, jitter;
    int count;
  };
  const double pi = std::numbers::pi;
  for (const Case& c : {Case{"a dozen periods", {4, 0.7, 1.1, 20}, 0, 1, 0, 108},
                        {"near the sampling limit", {2, 2.8, -2, 0}, 0, 1, 0, 64},
                        {"one period and a bit", {3, 0.1, 3.0, -5}, 0, 1, 0, 70},
                        {"half a period", {3, 0.1, 0.2, -5}, 0, 1, 0, 32},
                        {"far from the origin", {5, 0.9, -1, 100}, 4000, 0.5, 0, 200},
                        {"uneven and unsorted", {1, 0.4, 2.5, 3}, -300, 1, 0.8, 600},
                        {"four points", {2, 0.9, 0.4, 1}, 0, 1, 0, 4},
                        {"phase at the seam", {2, 0.5, pi, 1}, 0, 1, 0, 50}}) {
    SCOPED_TRACE(c.what);
    std::mt19937_64 rng(20240607);
    std::uniform_real_distribution<double> jitter(-c.jitter, c.jitter);
    ZorPointArray points;
    for (int i = 0; i < c.count; ++i) {
      const double x = c.first + c.step * i + jitter(rng);
      points.Append({x, SineAt(c.truth, x)});
    }
    if (c.jitter > 0) std::shuffle(points.begin(), points.end(), rng);
    ZorVarArray found = {7.0};
    ASSERT_EQ(ZorGeometryMeasure().FitSinCurve(points, 0, &found), GM_OK);
    if (found[2].D() < -pi + 1e-3) found[2] = found[2].D() + 2 * pi;
    ExpectParameters(found, c.truth, kSolved);
  }
}

TEST(NormalisedSine, IsTheSameCurve) {
  for (const CurveParameters& sine :
       {CurveParameters{-2, 0.7, 9, 1}, {2, -0.7, -9, 1}, {-2, -0.7, 0.3, 1}, {2, 0.7, -100, 0}}) {
    const CurveParameters normal = zor::fitting::NormalisedSine(sine);
    EXPECT_TRUE(normal[0] > 0 && normal[1] > 0 && std::fabs(normal[2]) <= std::numbers::pi);
    for (const double x : {-3.0, 2.5}) EXPECT_NEAR(SineAt(normal, x), SineAt(sine, x), 1e-12);
  }
}

TEST(CurveGenerators, LeaveOutliersOutAndListTheCurve) {
  const CurveParameters peak = {30, 21.5, 40, 5}, wave = {6, 0.5, 1, 12};
  for (const bool is_peak : {true, false}) {
    SCOPED_TRACE(is_peak ? "Gaussian" : "sine");
    const auto y_at = [&](double x) { return is_peak ? GaussianAt(peak, x) : SineAt(wave, x); };
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
    const ZorVarArray once = generate(1, 3);
    EXPECT_EQ(generate(0, 3), once) << "0 passes count as 1";
    EXPECT_EQ(generate(20, 0.9), once) << "clipping at 0 ends the fit";
    EXPECT_GT(std::fabs(once[3].D() - (is_peak ? peak : wave)[3]), 0.1);
    ExpectParameters(generate(20, 3.9), is_peak ? peak : wave, kSolved);
    ASSERT_EQ(curve.Length(), 89);
    for (int k = 0; k < 89; ++k) {
      zor::test::ExpectNear(curve[k], {0.5 * k, y_at(0.5 * k)}, kSolved);
    }
  }
}

TEST(RefineInPasses, WeighsByTheBiweightBelowTheClippingDistance) {
  const ZorPoint points[] = {{0, 0}, {1, 1}, {2, -1.5}, {3, 2}, {4, 0.5}, {5, 9}};
  std::vector<double> seen;
  const auto refine = [&](std::span<const double> weights, const CurveParameters& c) {
    seen.assign(weights.begin(), weights.end());
    return c;
  };
  const auto zero = [](const CurveParameters&, double) { return 0.0; };
  static_cast<void>(zor::fitting::RefineInPasses(points, {}, 2, 2.0, refine, zero));
  EXPECT_EQ(seen, (std::vector<double>{1, 0.75, 0.4375, 0, 0.9375, 0}));
}

TEST(FitCurve, KeepsItsDigitsFarFromTheOriginInEitherDirection) {
  ZorGeometryMeasure m;
  ZorPointArray along, up;
  const auto y_at = [](double x) { return 0.013 * (x - 3990) * (x - 3990) - 0.8 * (x - 3990) + 7; };
  for (int i = 0; i < 11; ++i) {
    along.Append({3995.0 + i, y_at(3995 + i)});
    up.Append({y_at(3995 + i), 3995.0 + i});
  }
  ZorVarArray c = {7.0}, inverse;
  ASSERT_EQ(m.FitCurve(along, 2, &c), GM_OK);
  ASSERT_EQ(m.FitCurveInv(up, 2, &inverse), GM_OK);
  EXPECT_EQ(c, inverse);
  ASSERT_EQ(c.Length(), 3);
  EXPECT_NEAR(c[0].D(), 0.013, 1e-13);
  for (const ZorPoint& p : along) {
    EXPECT_NEAR((c[0].D() * p.x + c[1].D()) * p.x + c[2].D(), p.y, 1e-8);
    EXPECT_NEAR(2 * c[0].D() * p.x + c[1].D(), 0.026 * (p.x - 3990) - 0.8, 1e-10);
  }
}

TEST(CurveFits, CheckTheirArgumentsInOrder) {
  ZorPointArray three = {{0, 1}, {1, 2}, {2, 1}}, good = {{0, 1}, {1, 3}, {2, 2}, {3, 0}},
                wide = {{0, 1}, {1, 3}, {2, 2}, {1e300, 0}}, curve = {{7, 7}},
                infinite = {{0, 1}, {kInfinity, 2}, {2, 1}, {3, 0}},
                overflow = {{-1e308, 1}, {1e308, 2}, {2, 1}, {3, 0}},
                stacked = {{5, 1}, {5, 2}, {5, 1}, {5, 0}},
                level = {{0, 1}, {1, 1}, {2, 1}, {3, 1}};
  ZorGeometryMeasure m;
  ZorVarArray v = {7.0};
  EXPECT_EQ(m.FitSinCurve(three, -1, &v), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.FitSinCurve(good, -1, &v), GM_E_PARAM_2);
  for (ZorPointArray* points : {&stacked, &level, &infinite, &overflow}) {
    EXPECT_EQ(m.FitSinCurve(*points, 0, &v), GM_E_FIT_FAILED);
  }
  EXPECT_EQ(m.GenSinCurve(three, 100, -1, &v, &curve), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.GenSinCurve(good, -1, -1, &v, &curve), GM_E_PARAM_2);
  EXPECT_EQ(m.GenSinCurve(good, 99, -1e-9, &v, &curve), GM_E_PARAM_3);
  EXPECT_EQ(m.GenSinCurve(wide, 1, 1, &v, &curve), GM_E_PARAM_1);
  EXPECT_EQ(m.GenGaussianCurve(three, 100, -1, &v, &curve), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.GenGaussianCurve(good, 100, -1, &v, &curve), GM_E_PARAM_2);
  EXPECT_EQ(m.GenGaussianCurve(good, 0, -1e-9, &v, &curve), GM_E_PARAM_3);
  EXPECT_EQ(m.GenGaussianCurve(infinite, 1, 1, &v, &curve), GM_E_FIT_UNBOUNDED);
  EXPECT_EQ(m.GenGaussianCurve(wide, 1, 1, &v, &curve), GM_E_PARAM_1);
  EXPECT_EQ(m.FitCurve(three, 3, &v), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.FitCurve(three, 0, &v), GM_E_PARAM_2);
  EXPECT_EQ(m.FitCurveInv(good, -1, &v), GM_E_PARAM_2);
  for (ZorPointArray* points : {&stacked, &infinite, &overflow}) {
    EXPECT_EQ(m.FitCurve(*points, 2, &v), GM_E_FIT_FAILED);
  }
  EXPECT_TRUE(v == ZorVarArray({7.0}) && curve == ZorPointArray({{7, 7}}));
  EXPECT_EQ(m.GenGaussianCurve(good, 99, kNaN, &v, &curve), GM_OK);
}
