#include <array>
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>
#include <ceres/autodiff_cost_function.h>
#include <ceres/problem.h>
#include <ceres/solver.h>
#include <ceres/tiny_solver.h>
#include <ceres/tiny_solver_autodiff_function.h>
#include <unsupported/Eigen/NonLinearOptimization>

#include "fitting/gaussian_kernels.h"
#include <ZorGeometryMeasure.h>

// A noisy peak on a baseline, from the same start values. The plain solver has the same options as
// ours and as many threads, with a cost function of its own on the heap for every sample; the two
// others are small dense solvers without any set-up.

namespace {

ZorPointArray Profile(int n) {
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double x = 100.0 * i / n;
    const double noise = 0.5 * std::sin(i * 12.9898) * std::cos(i * 78.233);
    points.Append({x, 80 * std::exp(-(x - 43) * (x - 43) / (2 * 60.0)) + 12 + noise});
  }
  return points;
}

void BM_Zor(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  ZorGeometryMeasure measure;
  ZorVarArray parameters;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measure.FitGaussianCurve(points, 0, &parameters));
  }
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

void BM_PlainCeres(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::array<double, 4> parameters = zor::fitting::GaussianStart(points.View());
    ceres::Problem problem;
    for (const ZorPoint& p : points) {
      problem.AddResidualBlock(new ceres::AutoDiffCostFunction<Sample, 1, 4>(new Sample{p.x, p.y}),
                               nullptr, parameters.data());
    }
    ceres::Solver::Options options;
    options.linear_solver_type = ceres::DENSE_QR;
    options.num_threads = zor::fitting::SolverThreads(points.View().size(), 0);
    ceres::Solver::Summary summary;
    ceres::Solve(options, &problem, &summary);
    benchmark::DoNotOptimize(parameters);
  }
}

struct AllSamples {
  ZorPointView points;
  template <typename T>
  bool operator()(const T* p, T* residuals) const {
    for (const ZorPoint& point : points) Sample{point.x, point.y}(p, residuals++);
    return true;
  }
  [[nodiscard]] int NumResiduals() const { return static_cast<int>(points.size()); }
};

void BM_TinySolver(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const std::array<double, 4> start = zor::fitting::GaussianStart(points.View());
    Eigen::Vector4d parameters(start.data());
    using Function = ceres::TinySolverAutoDiffFunction<AllSamples, Eigen::Dynamic, 4>;
    const AllSamples samples{points.View()};
    ceres::TinySolver<Function> solver;
    solver.Solve(Function(samples), &parameters);
    benchmark::DoNotOptimize(parameters);
  }
}

struct EigenModel {
  ZorPointView points;
  int operator()(const Eigen::VectorXd& p, Eigen::VectorXd& residuals) const {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double offset = points[i].x - p[1];
      residuals[static_cast<Eigen::Index>(i)] =
          points[i].y - (p[0] * std::exp(-(offset * offset) / (2.0 * p[2])) + p[3]);
    }
    return 0;
  }
  int df(const Eigen::VectorXd& p, Eigen::MatrixXd& jacobian) const {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double offset = points[i].x - p[1];
      const double e = std::exp(-(offset * offset) / (2.0 * p[2]));
      jacobian.row(static_cast<Eigen::Index>(i)) << -e, -p[0] * e * offset / p[2],
          -p[0] * e * offset * offset / (2.0 * p[2] * p[2]), -1.0;
    }
    return 0;
  }
  [[nodiscard]] int inputs() const { return 4; }
  [[nodiscard]] int values() const { return static_cast<int>(points.size()); }
};

void BM_EigenLm(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const std::array<double, 4> start = zor::fitting::GaussianStart(points.View());
    Eigen::VectorXd parameters = Eigen::Vector4d(start.data());
    EigenModel model{points.View()};
    Eigen::LevenbergMarquardt<EigenModel> solver(model);
    solver.minimize(parameters);
    benchmark::DoNotOptimize(parameters.data());
  }
}

}  // namespace

BENCHMARK(BM_Zor)->Name("GaussianSolver/zor")->Arg(50)->Arg(1000)->UseRealTime();
BENCHMARK(BM_PlainCeres)->Name("GaussianSolver/plain_ceres")->Arg(50)->Arg(1000)->UseRealTime();
BENCHMARK(BM_TinySolver)->Name("GaussianSolver/tiny_solver")->Arg(50)->Arg(1000)->UseRealTime();
BENCHMARK(BM_EigenLm)->Name("GaussianSolver/eigen_lm")->Arg(50)->Arg(1000)->UseRealTime();
