#include <cmath>
#include <limits>
#include <random>

#include <ceres/autodiff_cost_function.h>
#include <ceres/problem.h>
#include <ceres/solver.h>
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

struct Sample {
  double x, y;
  template <typename T>
  bool operator()(const T* p, T* residual) const {
    const T offset = x - p[1];
    residual[0] = y - (p[0] * exp(-(offset * offset) / (2.0 * p[2])) + p[3]);
    return true;
  }
};

// A cost function of its own on the heap for every point.
CurveParameters PlainSolve(const ZorPointArray& points, CurveParameters parameters) {
  ceres::Problem problem;
  for (const ZorPoint& p : points) {
    auto* cost = new ceres::AutoDiffCostFunction<Sample, 1, 4>(new Sample{p.x, p.y});
    problem.AddResidualBlock(cost, nullptr, parameters.data());
  }
  ceres::Solver::Options options;
  options.linear_solver_type = ceres::DENSE_QR;
  ceres::Solver::Summary summary;
  ceres::Solve(options, &problem, &summary);
  return parameters;
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
  EXPECT_EQ(zor::fitting::SolverThreads(100, -5), cv::getNumberOfCPUs());
  const double largest = std::numeric_limits<double>::max();
  for (const double p : {kInfinity, -kInfinity, largest, kNaN, -largest, largest * (1 - 1e-15)}) {
    EXPECT_EQ(zor::fitting::IsBeyondRange(p), std::isinf(p) || p == largest) << p;
  }
}

TEST(FitGaussianCurveSolver, GivesWhatThePlainSolverGives) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.1);
  const CurveParameters truth = {25, 18, 12, 20};
  for (const int count : {4, 20, 99, 1000}) {
    ZorPointArray points = Peak(truth, 40.0 / count, count);
    for (ZorPoint& p : points) p.y += noise(rng);
    ZorVarArray fitted;
    ASSERT_EQ(ZORMV::ZorGeometryMeasureDlg().FitGaussianCurve(points, 0, &fitted), GM_OK);
    ASSERT_EQ(fitted.Length(), 4);
    const CurveParameters plain = PlainSolve(points, zor::fitting::GaussianStart(points.View()));
    for (int i = 0; i < 4; ++i) {
      const double expected = plain[static_cast<std::size_t>(i)];
      // From 100 points on several threads add up the cost, in no fixed order.
      EXPECT_NEAR(fitted[i].D(), expected, count < 100 ? 0 : 1e-6) << count;
    }
  }
}

TEST(FitGaussianCurveSolver, SaysNothingAndKeepsTheStartWhereItCannotStep) {
  struct Case {
    ZorPointArray points;
    int iterations;
    long status;
    ZorVarArray expected;
  };
  const ZorVarArray before = {kUntouched};
  testing::internal::CaptureStderr();
  for (const Case& c :
       {Case{{{0, 1}, {1, 2}, {2, 1}}, -1, GM_E_PARAM_1, before},
        {{{0, 1}, {1, 2}, {2, 1}, {3, 1}}, -1, GM_E_PARAM_2, before},
        {{{5, 1}, {5, 2}, {5, 3}, {5, 2}}, 0, GM_OK, {3.0, 5.0, 0.0, 1.0}},
        {{{0, 1e200}, {1, 2e200}, {2, 1e200}, {3, 0}}, 0, GM_OK, {2e200, 1.0, 3.0, 0.0}},
        {{{0, 1}, {1, 2}, {2, kNaN}, {3, 1}}, 0, GM_OK, {2.0, 1.0, 3.0, 1.0}},
        {{{0, 1}, {1, kInfinity}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before},
        {{{0, 1}, {-kInfinity, 2}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before}}) {
    SCOPED_TRACE(zor::test::Show(c.points[1]));
    ZorVarArray parameters = before;
    EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(c.points, c.iterations, &parameters), c.status);
    EXPECT_EQ(parameters, c.expected);
  }
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

TEST(FitGaussianCurveSolver, LimitsItsStepsAndItsThreads) {
  const ZorPointArray points = Peak({30, 20, 9, 5}, 0.5, 120);
  ZorVarArray few;
  EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, 1, &few), GM_OK);
  EXPECT_GT(std::fabs(few[2].D() - 9), 1) << "one step from a spread of 60";
  const CurveParameters start = zor::fitting::GaussianStart(points.View());
  const auto fitted = zor::fitting::RefineGaussian(points.View(), {}, start, {.threads = 1000000});
  EXPECT_NEAR(fitted[2], 9, 1e-5);
}
