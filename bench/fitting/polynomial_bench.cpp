#include <random>

#include <Eigen/Dense>
#include <benchmark/benchmark.h>

#include <ZorGeometryMeasure.h>

// A cubic through n noisy points: one pass without a curve; several re-weighted passes; and the
// curve. The peers solve one pass by the normal equations (LDLT) and by QR of the design matrix.

namespace {

ZorPointArray Profile(int n) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.3);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double x = 10.0 * i / n;
    points.Append({x, 5 - x + 0.4 * x * x - 0.03 * x * x * x + noise(rng)});
  }
  return points;
}

void CountPoints(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_Squares(benchmark::State& state) {
  ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  const int passes = static_cast<int>(state.range(1));
  ZorGeometryMeasure measure;
  ZorVarArray c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measure.LeastSqaurePolynomialFit(points, 3, passes, 1, &c, nullptr));
  }
  CountPoints(state);
}

void BM_Absolute(benchmark::State& state) {
  ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  ZorGeometryMeasure measure;
  ZorVarArray c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measure.LeastAbsolutePolynomialFit(points, 3, 1, 1, &c, nullptr));
  }
  CountPoints(state);
}

void BM_Curve(benchmark::State& state) {
  ZorPointArray points = {{0, 1}, {1, 3}, {7, 2}, {static_cast<double>(state.range(0)) / 2, 5}};
  ZorGeometryMeasure measure;
  ZorPointArray curve;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measure.LeastSqaurePolynomialFit(points, 3, 1, 1, nullptr, &curve));
  }
  CountPoints(state);
}

Eigen::Matrix<double, Eigen::Dynamic, 4> Design(const ZorPointArray& points) {
  Eigen::Matrix<double, Eigen::Dynamic, 4> a(points.Length(), 4);
  for (int i = 0; i < points.Length(); ++i) {
    const double x = points[i].x;
    a.row(i) << 1, x, x * x, x * x * x;
  }
  return a;
}

Eigen::VectorXd Targets(const ZorPointArray& points) {
  Eigen::VectorXd b(points.Length());
  for (int i = 0; i < points.Length(); ++i) b[i] = points[i].y;
  return b;
}

void BM_EigenLdlt(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto a = Design(points);
    const Eigen::Matrix4d normal = a.transpose() * a;
    const Eigen::Vector4d c = normal.ldlt().solve(a.transpose() * Targets(points));
    benchmark::DoNotOptimize(c);
  }
  CountPoints(state);
}

void BM_EigenQr(benchmark::State& state) {
  const ZorPointArray points = Profile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const Eigen::Vector4d c = Design(points).householderQr().solve(Targets(points));
    benchmark::DoNotOptimize(c);
  }
  CountPoints(state);
}

}  // namespace

BENCHMARK(BM_Squares)->Name("PolynomialCubic/zor")->Args({1000, 1})->Args({100000, 1});
BENCHMARK(BM_EigenLdlt)->Name("PolynomialCubic/eigen_ldlt")->Args({1000, 1})->Args({100000, 1});
BENCHMARK(BM_EigenQr)->Name("PolynomialCubic/eigen_qr")->Args({1000, 1})->Args({100000, 1});
BENCHMARK(BM_Squares)->Name("PolynomialFivePasses/zor")->Args({1000, 5})->Args({100000, 5});
BENCHMARK(BM_Absolute)->Name("PolynomialAbsolute/zor")->Arg(1000)->Arg(100000);
BENCHMARK(BM_Curve)->Name("PolynomialCurve/zor")->Arg(20)->Arg(100000);
