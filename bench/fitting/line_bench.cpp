#include <cmath>
#include <random>
#include <vector>

#include <Eigen/Dense>
#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include "../idle_sink.h"
#include "fitting/huber_line.h"
#include "fitting/line_fit_kernels.h"
#include <ZorGeometryMeasure.h>

// Edges of n points with a tenth of outliers: five passes of ours, one fit of OpenCV, five
// re-weighted passes over matrices in Eigen.

namespace fitting = zor::fitting;

namespace {

constexpr int kPasses = 5;
constexpr double kClip = 2.0;

ZorPointArray Edge(std::mt19937_64& rng, int n, double angle) {
  std::uniform_real_distribution<double> unit(0, 1);
  std::normal_distribution<double> noise(0, 0.2);
  ZorPointArray points;
  points.Reserve(n);
  for (int i = 0; i < n; ++i) {
    const double along = 500.0 * i / n;
    const double across = unit(rng) < 0.1 ? 60 * unit(rng) - 30 : noise(rng);
    points.Append({1000 + std::cos(angle) * along - std::sin(angle) * across,
                   700 + std::sin(angle) * along + std::cos(angle) * across});
  }
  return points;
}

/// Runs `fit` on edges at angles from `angle` on, many enough that branches are not learnt.
template <typename Fit>
void OnEdges(benchmark::State& state, Fit fit, double angle = 0.3, double turn = 0.09) {
  const int n = static_cast<int>(state.range(0));
  std::mt19937_64 rng(20240607);
  std::vector<ZorPointArray> edges;
  const std::size_t count = n > 1000 ? 4 : 64;
  for (std::size_t k = 0; k < count; ++k) {
    edges.push_back(Edge(rng, n, angle + turn * static_cast<double>(k % 8)));
  }
  std::size_t i = 0;
  for (auto _ : state) fit(edges[i++ & (count - 1)]);
  state.SetItemsProcessed(state.iterations() * n);
}

void SquaresOf(ZorPointArray& points) {
  ZorPoint start, end;
  ZorGeometryMeasure measure;
  benchmark::DoNotOptimize(measure.LeastSqaureLineFit(points, kPasses, kClip, &start, &end));
  benchmark::DoNotOptimize(end);
}

void AbsoluteOf(ZorPointArray& points) {
  ZorPoint start, end;
  ZorGeometryMeasure measure;
  benchmark::DoNotOptimize(measure.LeastAbsoluteLineFit(points, kPasses, kClip, &start, &end));
  benchmark::DoNotOptimize(end);
}

void Squares(benchmark::State& state) { OnEdges(state, SquaresOf); }
void SquaresTraced(benchmark::State& state) {
  const zor::bench::IdleSink sink;
  OnEdges(state, SquaresOf);
}
void SquaresOfUprightEdges(benchmark::State& state) { OnEdges(state, SquaresOf, 1.5708, 1e-4); }
void Absolute(benchmark::State& state) { OnEdges(state, AbsoluteOf); }
void AbsoluteTraced(benchmark::State& state) {
  const zor::bench::IdleSink sink;
  OnEdges(state, AbsoluteOf);
}

void PassesAlone(benchmark::State& state) {
  OnEdges(state, [](ZorPointArray& points) {
    benchmark::DoNotOptimize(
        fitting::FitLineSquares(points.View(), fitting::Axis::kX, kPasses, kClip));
  });
}

void ProbeAlone(benchmark::State& state) {
  OnEdges(state, [](ZorPointArray& points) {
    benchmark::DoNotOptimize(fitting::IsHuberLineSteep(points.View()));
  });
}

void OpenCv(benchmark::State& state, int distance) {
  OnEdges(state, [distance](ZorPointArray& points) {
    const cv::Mat view(points.Length(), 1, CV_64FC2, points.begin());
    cv::Vec4f line;
    cv::fitLine(view, line, distance, 0, 0.001, 0.001);
    benchmark::DoNotOptimize(line);
  });
}

void Eigens(benchmark::State& state) {
  OnEdges(state, [](ZorPointArray& points) {
    const int n = points.Length();
    Eigen::MatrixX2d a(n, 2);
    Eigen::VectorXd b(n);
    for (int i = 0; i < n; ++i) {
      a.row(i) << 1.0, points[i].x;
      b[i] = points[i].y;
    }
    Eigen::ArrayXd weights = Eigen::ArrayXd::Ones(n);
    Eigen::Vector2d c;
    for (int pass = 0; pass < kPasses; ++pass) {
      const auto weighted = a.transpose() * weights.square().matrix().asDiagonal();
      c = (weighted * a).eval().ldlt().solve((weighted * b).eval());
      const Eigen::ArrayXd ratio = (a * c - b).array().abs() / kClip;
      weights = (ratio < 1).select(1 - ratio.square(), 0.0);
    }
    benchmark::DoNotOptimize(c);
  });
}

}  // namespace

BENCHMARK(Squares)->Name("LeastSqaureLineFit/zor")->Arg(500)->Arg(100000);
BENCHMARK(SquaresTraced)->Name("LeastSqaureLineFit/zor_with_sink")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, l2, cv::DIST_L2)
    ->Name("LeastSqaureLineFit/opencv_l2")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, huber, cv::DIST_HUBER)
    ->Name("LeastSqaureLineFit/opencv_huber")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, welsch, cv::DIST_WELSCH)
    ->Name("LeastSqaureLineFit/opencv_welsch")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK(Eigens)->Name("LeastSqaureLineFit/eigen_reweighted")->Arg(500)->Arg(100000);

BENCHMARK(Absolute)->Name("LeastAbsoluteLineFit/zor")->Arg(500)->Arg(100000);
BENCHMARK(AbsoluteTraced)->Name("LeastAbsoluteLineFit/zor_with_sink")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, absolute_huber, cv::DIST_HUBER)
    ->Name("LeastAbsoluteLineFit/opencv_huber")
    ->Arg(500)
    ->Arg(100000);

BENCHMARK(PassesAlone)->Name("LinePasses/zor")->Arg(500)->Arg(100000);
BENCHMARK(Eigens)->Name("LinePasses/eigen_reweighted")->Arg(500)->Arg(100000);
BENCHMARK(ProbeAlone)->Name("LineOrientation/zor")->Arg(500)->Arg(100000);
BENCHMARK_CAPTURE(OpenCv, orientation_huber, cv::DIST_HUBER)
    ->Name("LineOrientation/opencv_huber")
    ->Arg(500)
    ->Arg(100000);
BENCHMARK(SquaresOfUprightEdges)->Name("LeastSqaureLineFitUpright/zor")->Arg(500);
