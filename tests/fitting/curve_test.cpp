#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

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
    ExpectParameters(found, c.truth, 1e-4);  // the solver stops at a relative change of 1e-6
  }
}

TEST(FitSinCurve, SaysWhyThereIsNoSine) {
  const ZorVarArray before = {7.0};
  struct Case {
    const char* what;
    ZorPointArray points;
    int iterations;
    long status;
  };
  for (const Case& c :
       {Case{"three points", {{0, 1}, {1, 2}, {2, 1}}, -1, GM_E_TOO_FEW_POINTS},
        {"negative limit", {{0, 1}, {1, 2}, {2, 1}, {3, 0}}, -1, GM_E_PARAM_2},
        {"one x", {{5, 1}, {5, 2}, {5, 1}, {5, 0}}, 0, GM_E_FIT_FAILED},
        {"one y", {{0, 1}, {1, 1}, {2, 1}, {3, 1}}, 0, GM_E_FIT_FAILED},
        {"not a number", {{0, 1}, {1, kNaN}, {2, 1}, {3, 0}}, 0, GM_E_FIT_FAILED},
        {"infinite x", {{0, 1}, {kInfinity, 2}, {2, 1}, {3, 0}}, 0, GM_E_FIT_FAILED},
        {"extent overflows", {{-1e308, 1}, {1e308, 2}, {2, 1}, {3, 0}}, 0, GM_E_FIT_FAILED}}) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points;
    ZorVarArray parameters = before;
    EXPECT_EQ(ZorGeometryMeasure().FitSinCurve(points, c.iterations, &parameters), c.status);
    EXPECT_EQ(parameters, before);
  }
}

TEST(SineKernels, NormalisingAndShiftingKeepTheCurve) {
  for (const CurveParameters& sine :
       {CurveParameters{-2, 0.7, 9, 1}, {2, -0.7, -9, 1}, {-2, -0.7, 0.3, 1}, {2, 0.7, -100, 0}}) {
    const CurveParameters normal = zor::fitting::NormalisedSine(sine);
    const CurveParameters shifted = zor::fitting::ShiftedSine(sine, 5);
    EXPECT_GE(normal[0], 0);
    EXPECT_GE(normal[1], 0);
    EXPECT_LE(std::fabs(normal[2]), std::numbers::pi);
    for (const double x : {-3.0, 0.0, 2.5}) {
      EXPECT_NEAR(SineAt(normal, x), SineAt(sine, x), 1e-12);
      EXPECT_NEAR(SineAt(shifted, x - 5), SineAt(sine, x), 1e-12);
    }
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
    const auto generate = [&](int passes, double clip, ZorVarArray& c) {
      return is_peak ? dlg.SolveLinerEquationsGaussianFit(points, passes, clip, &c, &curve)
                     : dlg.SolveLinerEquationsSinFit(points, passes, clip, &c, &curve);
    };
    ZorVarArray once, zero, fitted;
    ASSERT_EQ(generate(1, 3, once), GM_OK);
    ASSERT_EQ(generate(0, 3, zero), GM_OK);
    EXPECT_EQ(zero, once) << "0 passes count as 1";
    ASSERT_EQ(generate(20, 0.9, fitted), GM_OK);
    EXPECT_EQ(fitted, once) << "the clipping distance is cut to 0, and no further pass is made";
    EXPECT_GT(std::fabs(once[3].D() - (is_peak ? peak : wave)[3]), 0.1);
    ASSERT_EQ(generate(20, 3.9, fitted), GM_OK);
    ExpectParameters(fitted, is_peak ? peak : wave, 1e-4);
    ASSERT_EQ(curve.Length(), 89);
    for (int k = 0; k < 89; ++k) {
      zor::test::ExpectNear(curve[k], {0.5 * k, y_at(0.5 * k)}, 1e-4);
    }
  }
}

TEST(CurveGenerators, CheckTheirArgumentsInOrder) {
  const ZorPointArray three = {{0, 1}, {1, 2}, {2, 1}}, good = {{0, 1}, {1, 3}, {2, 2}, {3, 0}},
                      wide = {{0, 1}, {1, 3}, {2, 2}, {1e300, 0}},
                      nan = {{0, 1}, {1, 3}, {2, 2}, {kNaN, 0}};
  struct Case {
    const char* what;
    ZorPointArray points;
    int passes;
    double clip;
    long gaussian, sine;
  };
  for (const Case& c :
       {Case{"three points", three, 100, -1, GM_E_TOO_FEW_POINTS, GM_E_TOO_FEW_POINTS},
        {"setting above", good, 100, -1, GM_E_PARAM_2, GM_E_PARAM_2},
        {"setting below", good, -1, -1, GM_E_PARAM_2, GM_E_PARAM_2},
        {"negative clip", good, 99, -1e-9, GM_E_PARAM_3, GM_E_PARAM_3},
        {"clip not a number", good, 99, kNaN, GM_OK, GM_OK},
        {"too long a curve", wide, 1, 1, GM_E_PARAM_1, GM_E_PARAM_1},
        {"not a number", nan, 3, 1, GM_E_PARAM_1, GM_E_FIT_FAILED}}) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points, curve;
    ZorGeometryMeasure m;
    EXPECT_EQ(m.GenGaussianCurve(points, c.passes, c.clip, nullptr, &curve), c.gaussian);
    EXPECT_EQ(m.GenSinCurve(points, c.passes, c.clip, nullptr, &curve), c.sine);
  }
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

TEST(FitCurve, NeedsMoreDifferentCoordinatesThanTheOrder) {
  ZorPointArray many;
  for (int i = 0; i < 40; ++i) many.Append({i * 0.1, std::sin(i * 0.1)});
  struct Case {
    const char* what;
    ZorPointArray points;
    int order;
    long status;
  };
  for (const Case& c :
       {Case{"no point", {}, -1, GM_E_TOO_FEW_POINTS},
        {"as many as the order", {{0, 0}, {1, 1}}, 2, GM_E_TOO_FEW_POINTS},
        {"order 0", many, 0, GM_E_PARAM_2},
        {"order above", many, 21, GM_E_PARAM_2},
        {"largest order", many, 20, GM_OK},
        {"one more", {{0, 0}, {1, 1}, {2, 5}}, 2, GM_OK},
        {"an x twice", {{0, 0}, {1, 1}, {1, 5}}, 2, GM_E_FIT_FAILED},
        {"infinite", {{0, 0}, {kInfinity, 1}, {2, 5}}, 2, GM_E_FIT_FAILED},
        {"extent overflows", {{-1e308, 0}, {0, 1}, {1e308, 5}}, 2, GM_E_FIT_FAILED}}) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = c.points;
    ZorVarArray coefficients = {7.0};
    EXPECT_EQ(ZorGeometryMeasure().FitCurve(points, c.order, &coefficients), c.status);
    EXPECT_EQ(coefficients == ZorVarArray({7.0}), c.status != GM_OK);
  }
}
