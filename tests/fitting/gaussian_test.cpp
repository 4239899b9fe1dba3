#include <cmath>
#include <limits>

#include <gtest/gtest.h>
#include <opencv2/core/utility.hpp>

#include "fitting/curve_solver.h"
#include "fitting/gaussian_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::fitting::CurveParameters;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

ZorPointArray Peak(const CurveParameters& p, double step, int count) {
  ZorPointArray points;
  for (int i = 0; i < count; ++i) {
    points.Append({i * step, zor::fitting::GaussianAt(p, i * step)});
  }
  return points;
}

}  // namespace

TEST(FitGaussianCurveClosedForm, FindsThePeakOrSaysWhyNot) {
  double amplitude = kUntouched, mean = kUntouched, variance = kUntouched;
  const auto fit = [&](ZorPointArray points) {
    return ZorGeometryMeasure().FitGaussianCurve(points, &amplitude, &mean, &variance);
  };
  EXPECT_EQ(fit({{1, 1}, {2, 2}, {3, 0}}), GM_E_GAUSS_TOO_FEW_POINTS);
  EXPECT_EQ(fit({{1, 1}, {2, 0}, {3, 1}, {4, 1}}), GM_E_PARAM_1);
  EXPECT_EQ(fit({{0, 1}, {0, 2}, {0, 3}, {0, 4}}), GM_OK) << "silent: singular equations";
  EXPECT_EQ(amplitude, kUntouched);
  ASSERT_EQ(fit(Peak({7.5, 2.25, 1.5, 0}, 0.5, 12)), GM_OK);
  EXPECT_NEAR(amplitude, 7.5, 1e-9);
  EXPECT_NEAR(mean, 2.25, 1e-9);
  EXPECT_NEAR(variance, 1.5, 1e-9);
  ASSERT_EQ(fit(Peak({1e-9, 0, 1e-10, 0}, 1e-5, 5)), GM_E_DEGENERATE_RESULT);
  EXPECT_NEAR(variance, 1e-10, 1e-14) << "written all the same";
}

TEST(GaussianKernels, DecideStartThreadsAndRange) {
  const ZorPointArray points = {{3, 1}, {5, 9}, {-2, 4}, {8, 9}, {6, -3}};
  EXPECT_EQ(zor::fitting::GaussianStart(points.View()), (CurveParameters{9, 5, 10, -3}));
  EXPECT_EQ(zor::fitting::SolverThreads(99, 3), 1);
  EXPECT_EQ(zor::fitting::SolverThreads(100, 3), 3);
  EXPECT_EQ(zor::fitting::SolverThreads(100, 0), cv::getNumberOfCPUs());
  const double largest = std::numeric_limits<double>::max();
  for (const double p : {kInfinity, -kInfinity, largest, kNaN, -largest, largest * (1 - 1e-15)}) {
    EXPECT_EQ(zor::fitting::IsBeyondRange(p), std::isinf(p) || p == largest) << p;
  }
}

TEST(FitGaussianCurveSolver, FindsThePeakWithAnyNumberOfPointsAndThreads) {
  const CurveParameters truth = {25, 18, 12, 20};
  for (const int count : {5, 99, 1000}) {
    ZorPointArray points = Peak(truth, 40.0 / count, count);
    ZorVarArray fitted, few;
    ASSERT_EQ(ZORMV::ZorGeometryMeasureDlg().FitGaussianCurve(points, 0, &fitted), GM_OK);
    ASSERT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, 1, &few), GM_OK);
    ASSERT_EQ(fitted.Length(), 4);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(fitted[i].D(), truth[std::size_t(i)], 1e-4) << count;
    EXPECT_GT(std::fabs(few[2].D() - 12), 1) << "after one step";
    EXPECT_NEAR(zor::fitting::RefineGaussian(points.View(), {}, truth, {.threads = 1 << 20})[0], 25,
                1e-9);
  }
}

TEST(FitGaussianCurveSolver, SaysNothingAndKeepsTheStartWhereItCannotStep) {
  const ZorVarArray before = {kUntouched};
  const auto check = [&](ZorPointArray points, int iterations, long status,
                         const ZorVarArray& expected) {
    ZorVarArray parameters = before;
    EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, iterations, &parameters), status);
    EXPECT_EQ(parameters, expected) << zor::test::Show(points[1]);
  };
  testing::internal::CaptureStderr();
  check({{0, 1}, {1, 2}, {2, 1}}, -1, GM_E_PARAM_1, before);
  check({{0, 1}, {1, 2}, {2, 1}, {3, 1}}, -1, GM_E_PARAM_2, before);
  check({{5, 1}, {5, 2}, {5, 3}, {5, 2}}, 0, GM_OK, {3.0, 5.0, 0.0, 1.0});
  check({{0, 1e200}, {1, 2e200}, {2, 1e200}, {3, 0}}, 0, GM_OK, {2e200, 1.0, 3.0, 0.0});
  check({{0, 1}, {1, 2}, {2, kNaN}, {3, 1}}, 0, GM_OK, {2.0, 1.0, 3.0, 1.0});
  check({{0, 1}, {1, kInfinity}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before);
  check({{0, 1}, {-kInfinity, 2}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(FitGaussianCurveSolver, KeepsTheLastStepThatHasDerivatives) {
  // In units of height / spread the derivative by the spread is 0.22 at the start, 0.33 after one
  // step and 0.37 after two; 0.35 of them are 1e140.
  const double spread = 1e-70, height = 1e140 * spread / 0.35;
  ZorPointArray points;
  for (const double t : {-2.0, -1.0, 0.0, 1.0, 2.0}) {
    points.Append({t * std::sqrt(spread / 2), height * std::exp(-t * t / 4)});
  }
  const CurveParameters start = {height / 2, 0, 0.8 * spread, 0};
  const auto solve = [&](int steps) {
    return zor::fitting::RefineGaussian(points.View(), {}, start, {.max_iterations = steps});
  };
  EXPECT_EQ(solve(0), solve(1));
  EXPECT_NE(solve(1), start);
}
