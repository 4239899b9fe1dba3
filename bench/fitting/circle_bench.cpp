#include <cmath>
#include <random>
#include <vector>

#include <Eigen/Dense>
#include <benchmark/benchmark.h>
#include <opencv2/core.hpp>

#include "../idle_sink.h"
#include <ZorGeometryMeasure.h>

// Bores of n points with a tenth of outliers. The peers fit the same algebraic model over an n x 3
// matrix: Eigen by normal equations, OpenCV by cv::solve.

namespace {

constexpr int kPasses = 5;
constexpr double kClip = 2.0;

ZorPointArray Bore(std::mt19937_64& rng, int n) {
  std::uniform_real_distribution<double> unit(0, 1);
  std::normal_distribution<double> noise(0, 0.2);
  ZorPointArray points;
  points.Reserve(n);
  for (int i = 0; i < n; ++i) {
    const double t = 6.283185307 * i / n;
    const double r = 120 + (unit(rng) < 0.1 ? 40 * unit(rng) - 20 : noise(rng));
    points.Append({900 + r * std::cos(t), 700 + r * std::sin(t)});
  }
  return points;
}

template <typename Fit>
void OnBores(benchmark::State& state, Fit fit) {
  const int n = static_cast<int>(state.range(0));
  std::mt19937_64 rng(20240607);
  std::vector<ZorPointArray> bores;
  const std::size_t count = n > 1000 ? 4 : 64;
  for (std::size_t k = 0; k < count; ++k) bores.push_back(Bore(rng, n));
  std::size_t i = 0;
  for (auto _ : state) fit(bores[i++ & (count - 1)]);
  state.SetItemsProcessed(state.iterations() * n);
}

void Squares(benchmark::State& state, int passes) {
  OnBores(state, [passes](ZorPointArray& points) {
    ZorPoint centre;
    double radius = 0;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(measure.LeastSqaureCircleFit(points, passes, kClip, &centre, &radius));
    benchmark::DoNotOptimize(radius);
  });
}

void SquaresTraced(benchmark::State& state) {
  const zor::bench::IdleSink sink;
  Squares(state, kPasses);
}

void Absolute(benchmark::State& state) {
  OnBores(state, [](ZorPointArray& points) {
    ZorPoint centre;
    double radius = 0;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(
        measure.LeastAbsoluteCircleFit(points, kPasses, kClip, &centre, &radius));
    benchmark::DoNotOptimize(radius);
  });
}

void FitByEigen(const ZorPointArray& points) {
  const int n = points.Length();
  Eigen::MatrixX3d a(n, 3);
  Eigen::VectorXd b(n);
  for (int i = 0; i < n; ++i) {
    const ZorPoint& p = points.begin()[i];
    a.row(i) << p.x, p.y, 1.0;
    b[i] = -(p.x * p.x + p.y * p.y);
  }
  const Eigen::Vector3d c = (a.transpose() * a).eval().ldlt().solve((a.transpose() * b).eval());
  benchmark::DoNotOptimize(c.data());
}

void Eigens(benchmark::State& state, int repeats) {
  OnBores(state, [repeats](ZorPointArray& points) {
    for (int k = 0; k < repeats; ++k) FitByEigen(points);
  });
}

void OpenCv(benchmark::State& state, int method) {
  OnBores(state, [method](ZorPointArray& points) {
    const int n = points.Length();
    cv::Mat a(n, 3, CV_64F), b(n, 1, CV_64F), c;
    for (int i = 0; i < n; ++i) {
      const ZorPoint& p = points.begin()[i];
      double* row = a.ptr<double>(i);
      row[0] = p.x;
      row[1] = p.y;
      row[2] = 1.0;
      b.at<double>(i) = -(p.x * p.x + p.y * p.y);
    }
    cv::solve(a, b, c, method);
    benchmark::DoNotOptimize(c.data);
  });
}

/// Any n points that carry an angle each: cubic in n.
void Rotations(benchmark::State& state) {
  OnBores(state, [](ZorPointArray& points) {
    ZorVarArray angles;
    for (int i = 0; i < points.Length(); ++i) angles.Append(1.7 * i);
    ZorPoint centre;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(measure.PointAnglePairsCircleFit(points, angles, &centre, nullptr));
  });
}

void Bisectors(benchmark::State& state) {
  OnBores(state, [](ZorPointArray& points) {
    ZorPoint centre;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(measure.VerticalBisectorCircleFit(points, &centre, nullptr));
  });
}

}  // namespace

BENCHMARK_CAPTURE(Squares, once, 1)->Name("CircleOnePass/zor")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(Eigens, once, 1)->Name("CircleOnePass/eigen_normal")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, normal, cv::DECOMP_NORMAL | cv::DECOMP_CHOLESKY)
    ->Name("CircleOnePass/opencv_normal")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, qr, cv::DECOMP_QR)->Name("CircleOnePass/opencv_qr")->Arg(500);

BENCHMARK_CAPTURE(Squares, passes, kPasses)
    ->Name("LeastSqaureCircleFit/zor")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK(SquaresTraced)->Name("LeastSqaureCircleFit/zor_with_sink")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(Eigens, passes, kPasses)
    ->Name("LeastSqaureCircleFit/eigen_5_fits")
    ->Arg(500)
    ->Arg(100000);

BENCHMARK(Absolute)->Name("LeastAbsoluteCircleFit/zor")->Arg(500)->Arg(100000);
BENCHMARK(Rotations)->Name("PointAnglePairsCircleFit/zor")->Arg(10)->Arg(100);
BENCHMARK(Bisectors)->Name("VerticalBisectorCircleFit/zor")->Arg(100)->Arg(1000);
