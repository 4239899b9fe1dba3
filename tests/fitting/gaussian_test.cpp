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

using zor::fitting::CurveParameters;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

ZorPointArray Peak(const CurveParameters& p, double step, int count) {
  ZorPointArray points;
  for (int i = 0; i < count; ++i) {
    const double x = i * step;
    points.Append({x, p[0] * std::exp(-(x - p[1]) * (x - p[1]) / (2 * p[2])) + p[3]});
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
    problem.AddResidualBlock(new ceres::AutoDiffCostFunction<Sample, 1, 4>(new Sample{p.x, p.y}),
                             nullptr, parameters.data());
  }
  ceres::Solver::Options options;
  options.linear_solver_type = ceres::DENSE_QR;
  ceres::Solver::Summary summary;
  ceres::Solve(options, &problem, &summary);
  return parameters;
}

}  // namespace

TEST(FitGaussianCurveClosedForm, FindsThePeakOrSaysWhyNot) {
  ZorGeometryMeasure m;
  double amplitude = kUntouched, mean = kUntouched, variance = kUntouched;
  const auto fit = [&](ZorPointArray points) {
    return m.FitGaussianCurve(points, &amplitude, &mean, &variance);
  };
  EXPECT_EQ(fit({{1, 1}, {2, 2}, {3, 0}}), GM_E_GAUSS_TOO_FEW_POINTS);
  EXPECT_EQ(fit({{1, 1}, {2, 0}, {3, 1}, {4, 1}}), GM_E_PARAM_1);
  testing::internal::CaptureStderr();
  EXPECT_EQ(fit({{0, 1}, {0, 2}, {0, 3}, {0, 4}}), GM_OK) << "silent: the equations are singular";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Singular matrix in routine ludcmp\n");
  EXPECT_TRUE(IsUntouched(amplitude) && IsUntouched(mean) && IsUntouched(variance));
  ASSERT_EQ(fit(Peak({7.5, 2.25, 1.5, 0}, 0.5, 12)), GM_OK);
  EXPECT_NEAR(amplitude, 7.5, 1e-9);
  EXPECT_NEAR(mean, 2.25, 1e-9);
  EXPECT_NEAR(variance, 1.5, 1e-9);
  ASSERT_EQ(fit(Peak({1e-9, 0, 1e-10, 0}, 1e-5, 5)), GM_E_DEGENERATE_RESULT);
  EXPECT_NEAR(variance, 1e-10, 1e-14) << "written all the same";
}

TEST(GaussianStart, TakesTheFirstHighestPointAndTheExtents) {
  const ZorPointArray points = {{3, 1}, {5, 9}, {-2, 4}, {8, 9}, {6, -3}};
  EXPECT_EQ(zor::fitting::GaussianStart(points.View()), (CurveParameters{9, 5, 10, -3}));
}

TEST(SolverThreads, OneBelowAHundredPointsThenTheSettingOrOneAProcessor) {
  const int processors = cv::getNumberOfCPUs();
  struct Case {
    std::size_t points;
    int setting, threads;
  };
  for (const Case& c : {Case{99, 3, 1},
                        {99, 0, 1},
                        {100, 3, 3},
                        {100, 1, 1},
                        {100, 0, processors},
                        {100000, -5, processors}}) {
    EXPECT_EQ(zor::fitting::SolverThreads(c.points, c.setting), c.threads) << c.points;
  }
}

TEST(FitGaussianCurveSolver, GivesWhatThePlainSolverGives) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise;
  std::uniform_real_distribution<double> share(0.2, 0.8);
  for (const int count : {4, 20, 60, 99}) {
    const CurveParameters truth = {50 * share(rng), 40 * share(rng), 30 * share(rng), 20};
    ZorPointArray points = Peak(truth, 40.0 / count, count);
    for (ZorPoint& p : points) p.y += 0.1 * noise(rng);
    ZorVarArray fitted;
    ASSERT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, 0, &fitted), GM_OK);
    ASSERT_EQ(fitted.Length(), 4);
    const CurveParameters plain = PlainSolve(points, zor::fitting::GaussianStart(points.View()));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(fitted[i].D(), plain[static_cast<std::size_t>(i)]);
    if (count < 20) continue;
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(fitted[i].D(), truth[static_cast<std::size_t>(i)], 1);
  }
}

TEST(FitGaussianCurveSolver, SeveralThreadsAgreeWithinTheirSummation) {
  const CurveParameters truth = {30, 210, 900, 5};
  const ZorPointArray points = Peak(truth, 0.5, 1000);
  const CurveParameters start = zor::fitting::GaussianStart(points.View());
  for (const int threads : {1, 2, 1000000}) {
    const CurveParameters fitted =
        zor::fitting::RefineGaussian(points.View(), {}, start, {.threads = threads});
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(fitted[i], truth[i], 1e-5) << threads;
  }
}

TEST(FitGaussianCurveSolver, SaysNothingAndKeepsTheStartWhereItCannotStep) {
  struct Case {
    const char* what;
    ZorPointArray points;
    int iterations;
    long status;
    ZorVarArray expected;
  };
  const ZorVarArray before = {kUntouched};
  testing::internal::CaptureStderr();
  for (const Case& c :
       {Case{"three points", {{0, 1}, {1, 2}, {2, 1}}, -1, GM_E_PARAM_1, before},
        {"negative limit", {{0, 1}, {1, 2}, {2, 1}, {3, 1}}, -1, GM_E_PARAM_2, before},
        {"one x", {{5, 1}, {5, 2}, {5, 3}, {5, 2}}, 0, GM_OK, {3.0, 5.0, 0.0, 1.0}},
        {"huge", {{0, 1e200}, {1, 2e200}, {2, 1e200}, {3, 0}}, 0, GM_OK, {2e200, 1., 3., 0.}},
        {"infinite y", {{0, 1}, {1, kInfinity}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before},
        {"infinite x", {{0, 1}, {-kInfinity, 2}, {2, 1}, {3, 1}}, 0, GM_E_FIT_UNBOUNDED, before},
        {"NaN y", {{0, 1}, {1, 2}, {2, kNaN}, {3, 1}}, 0, GM_OK, {2.0, 1.0, 3.0, 1.0}}}) {
    SCOPED_TRACE(c.what);
    ZorVarArray parameters = before;
    EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(c.points, c.iterations, &parameters), c.status);
    EXPECT_EQ(parameters, c.expected);
  }
  ZorVarArray few, many;
  const ZorPointArray points = Peak({30, 20, 9, 5}, 0.5, 99);
  EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, 1, &few), GM_OK);
  EXPECT_EQ(ZorGeometryMeasure().FitGaussianCurve(points, 0, &many), GM_OK);
  EXPECT_GT(std::fabs(few[2].D() - 9), 1) << "one step from a spread of 49";
  EXPECT_NEAR(many[2].D(), 9, 1e-6);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(GaussianRange, RejectsInfinitiesAndTheLargestDouble) {
  const double largest = std::numeric_limits<double>::max();
  for (const double bad : {kInfinity, -kInfinity, largest}) {
    EXPECT_TRUE(zor::fitting::IsBeyondRange(bad));
  }
  for (const double good : {kNaN, -largest, largest * (1 - 1e-15)}) {
    EXPECT_FALSE(zor::fitting::IsBeyondRange(good));
  }
}
