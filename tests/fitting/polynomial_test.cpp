#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <oneapi/tbb/global_control.h>

#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

enum class Fit { kSquares, kAbsolute, kGenerator };

struct Fitter {
  ZorVarArray c = ZorVarArray({7.0});
  ZorPointArray curve = ZorPointArray(std::vector<ZorPoint>(1, ZorPoint(7, 7)));

  long operator()(Fit fit, ZorPointArray points, int order, int passes, double clip) {
    ZORMV::ZorGeometryMeasureDlg dlg;
    return fit == Fit::kSquares
               ? dlg.LeastSqaurePolynomialFit(points, order, passes, clip, &c, &curve)
           : fit == Fit::kAbsolute
               ? dlg.LeastAbsolutePolynomialFit(points, order, passes, clip, &c, &curve)
               : ZorGeometryMeasure().GenPolynomialCurve(points, order, passes, clip, &c, &curve);
  }
};

}  // namespace

TEST(PolynomialFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> along(-2, 3);
  std::normal_distribution<double> noise(0, 4);
  for (int i = 0; i < 80; ++i) {
    const int order = i % 7, passes = i % 10 == 9 ? 60 : 1 + i % 4, clip = 8 + i % 5;
    SCOPED_TRACE(testing::Message() << "profile " << i << ", order " << order);
    ZorPointArray points;
    for (int k = 0; k < 20 + i; ++k) {
      const double x = along(rng);
      points.Append({x, 3 - x + x * x / 2 + x * x * x / 4 + (k % 9 == 4 ? 40 : noise(rng))});
    }
    zor::test::MatrixFit reference(points, clip, [&](const ZorPoint& p) {
      std::vector<double> row = {1.0};
      for (int j = 0; j < order; ++j) row.push_back(row.back() * p.x);
      row.push_back(p.y);
      return row;
    });
    reference.least_weights = order + 1;
    for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
      Fitter fitter;
      ASSERT_EQ(fitter(fit, points, order, passes, clip), GM_OK);
      const cv::Mat c = reference.Run(fit == Fit::kAbsolute, passes);
      ASSERT_EQ(fitter.c.Length(), order + 1);
      for (int j = 0; j <= order; ++j) EXPECT_NEAR(fitter.c[j].D(), c.at<double>(j), 1e-7) << j;
    }
    Fitter generated, fitted;  // the generator clips at whole distances
    static_cast<void>(generated(Fit::kGenerator, points, order, passes, clip + 0.9));
    static_cast<void>(fitted(Fit::kSquares, points, order, passes, clip));
    EXPECT_EQ(generated.c == fitted.c, order > 0);
  }
}

TEST(PolynomialFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray one = {{1, 1}}, two = {{0, 0}, {1, 3}}, stacked = {{2, 1}, {2, 5}, {2, 3}},
                      infinite = {{0, 0}, {kInfinity, 1}, {2, 3}};
  ZorPointArray ten, far = {{0, 0}, {1e300, 1}};
  for (int i = 0; i < 10; ++i) ten.Append({i * 7.0, i % 3 * 1.0});
  Fitter fit;
  EXPECT_EQ(fit(Fit::kSquares, one, 101, 0, -1), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(fit(Fit::kSquares, two, 101, 0, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kAbsolute, two, -1, 0, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kAbsolute, two, 0, 0, -1), GM_E_PARAM_3);
  EXPECT_EQ(fit(Fit::kSquares, two, 1, 1, -1e-9), GM_E_PARAM_4);
  EXPECT_EQ(fit(Fit::kSquares, stacked, 1, 1, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit(Fit::kSquares, far, 0, 1, 1), GM_E_PARAM_1);
  EXPECT_EQ(fit(Fit::kGenerator, one, 0, -1, -1), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(fit(Fit::kGenerator, two, 0, -1, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kGenerator, two, 21, 100, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 100, -1), GM_E_PARAM_3);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 99, -1e-9), GM_E_PARAM_4);
  EXPECT_EQ(fit(Fit::kGenerator, infinite, 1, 2, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit.c, Fitter().c);
  // What is not a number is listed, with its code: an offset of 0, and orders that overflow.
  EXPECT_EQ(fit(Fit::kAbsolute, {{0, 0}, {1, 9}, {2, -9}}, 0, 1, 1), GM_E_FIT_FAILED);
  EXPECT_TRUE(fit.c.Length() == 1 && std::isnan(fit.c[0].D()));
  EXPECT_EQ(fit(Fit::kSquares, infinite, 1, 2, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit.c.Length(), 2);
  EXPECT_EQ(fit(Fit::kSquares, ten, 100, 3, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit(Fit::kAbsolute, ten, 100, 3, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit.curve, Fitter().curve);
  EXPECT_EQ(ZorGeometryMeasure().LeastSqaurePolynomialFit(far, 0, 1, 1, &fit.c, nullptr), GM_OK);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 9, kInfinity), GM_OK);
  EXPECT_EQ(fit(Fit::kAbsolute, stacked, 1, 9, kNaN), GM_OK);
  EXPECT_EQ(fit.c, ZorVarArray({0.0, 0.0})) << "singular";
}

TEST(LeastAbsolutePolynomial, EqualSumDoesNotEndThePass) {
  // Every sum is exact: the second step repeats the first one's, the third moves to the majority.
  ZorPointArray points;
  for (const double y : {1.5, -0.5, -0.5, -0.5, 1.5, -0.5, -0.5, -0.5}) points.Append({1, y});
  Fitter fit;
  EXPECT_EQ(fit(Fit::kAbsolute, points, 0, 1, 1), GM_OK);
  EXPECT_LT(fit.c[0].D(), 0);
}

TEST(PolynomialFits, SampleEveryHalfUnitDescendingOneStepShort) {
  const auto check = [](double first, double last, int count, double start) {
    const ZorPointArray points = {{first, 1}, {5, 11}, {-5, -9}, {1, 3}, {last, 1}};
    Fitter fits[2];
    for (const std::size_t threads : {1U, 4U}) {
      const tbb::global_control limit(tbb::global_control::max_allowed_parallelism, threads);
      ASSERT_EQ(fits[threads / 4](Fit::kSquares, points, 2, 1, 1), GM_OK);
    }
    EXPECT_EQ(fits[0].curve, fits[1].curve);
    ASSERT_EQ(fits[0].curve.Length(), count) << first << " to " << last;
    for (int k = 0; k < count; ++k) {
      const double x = start + 0.5 * k, y = (fits[0].c[2].D() * x + fits[0].c[1].D()) * x;
      ASSERT_EQ(fits[0].curve[k], ZorPoint(x, y + fits[0].c[0].D()));
    }
  };
  check(0, 10, 21, 0);
  check(10, 0, 19, 0);
  check(0.5, 0, 0, 0);
  check(-3.25, 1, 9, -3.25);
  check(2, 2, 1, 2);
  check(0, 30000, 60001, 0);
}

TEST(SolveLinerEquationsPolynomialFit, GivesOneAndTheHighestPowerFirstOrPrintsAndGivesZero) {
  ZorVarArray c = {7.0};
  const auto solve = [&](ZorPointArray points, int order) {
    testing::internal::CaptureStderr();
    const long result =
        ZorGeometryMeasure().SolveLinerEquationsPolynomialFit(points, order, &c, nullptr);
    return std::pair(result, testing::internal::GetCapturedStderr());
  };
  const std::pair solved(1L, std::string());
  const std::pair singular(0L, std::string("Singular matrix in routine ludcmp\n"));
  const ZorPointArray at_zero = {{0, 1}, {0, 2}, {0, 3}};
  EXPECT_EQ(solve(at_zero, 1), singular);
  EXPECT_EQ(solve({{kNaN, 1}, {1, 1}, {2, 3}}, 2), singular);
  EXPECT_EQ(solve(at_zero, std::numeric_limits<int>::max()), singular);
  EXPECT_EQ(c, ZorVarArray({7.0}));

  ZorPointArray points;  // x^3 - 4 x^2 + 2.5 x - 7
  for (double x = -2.5; x <= 3; x += 0.5) points.Append({x, ((x - 4) * x + 2.5) * x - 7});
  EXPECT_EQ(solve(points, 3), solved);
  const double expected[] = {1, -4, 2.5, -7};
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(c[i].D(), expected[i], 1e-12);
  EXPECT_EQ(solve(points, 100), solved);
  EXPECT_EQ(solve({{0, 1}, {5, 2}, {9, 6}}, -4), solved);
  EXPECT_EQ(c, ZorVarArray({3.0})) << "a negative order counts as 0";
}

TEST(FitPlane, DrawsThirtyNumbers) {
  std::srand(7);
  EXPECT_EQ(ZorGeometryMeasure().FitPlane(), GM_OK);
  const int next = std::rand();
  std::srand(7);
  for (int i = 0; i < 30; ++i) static_cast<void>(std::rand());
  EXPECT_EQ(std::rand(), next);
}
