#include <cmath>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include "../idle_sink.h"
#include "distance/oval_kernels.h"
#include "fitting/ellipse_fit_kernels.h"
#include "frame/opencv_points.h"
#include <ZorGeometryMeasure.h>

// Slots of n points with noise: re-weighted fits of ours beside one fit of each kind in OpenCV. A
// pass of ours spends most of its time on the points' distances from the ellipse, which are
// measured alone too.

namespace {

constexpr int kPasses = 5;
constexpr double kClip = 2.0;
constexpr double kLongAxis = 150;
constexpr double kShortAxis = 60;

ZorPointArray Slot(std::mt19937_64& rng, int n) {
  std::normal_distribution<double> noise(0, 0.2);
  const double co = std::cos(0.5), si = std::sin(0.5);
  ZorPointArray points;
  points.Reserve(n);
  for (int i = 0; i < n; ++i) {
    const double t = 6.283185307 * i / n;
    const double u = kLongAxis * std::cos(t) + noise(rng);
    const double v = kShortAxis * std::sin(t) + noise(rng);
    points.Append({900 + co * u + si * v, 700 - si * u + co * v});
  }
  return points;
}

template <typename Fit>
void OnSlots(benchmark::State& state, Fit fit) {
  const int n = static_cast<int>(state.range(0));
  std::mt19937_64 rng(20240607);
  std::vector<ZorPointArray> slots;
  for (int k = 0; k < 16; ++k) slots.push_back(Slot(rng, n));
  std::size_t i = 0;
  for (auto _ : state) fit(slots[i++ & 15U]);
  state.SetItemsProcessed(state.iterations() * n);
}

void Squares(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    ZorPoint centre;
    float a = 0, b = 0, angle = 0;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(
        measure.LeastSqaureEllipseFit(points, kPasses, kClip, &centre, &a, &b, &angle));
    benchmark::DoNotOptimize(angle);
  });
}

void SquaresTraced(benchmark::State& state) {
  const zor::bench::IdleSink sink;
  Squares(state);
}

void Absolute(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    ZorPoint centre;
    float a = 0, b = 0, angle = 0;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(
        measure.LeastAbsoluteEllipseFit(points, kPasses, kClip, &centre, &a, &b, &angle));
    benchmark::DoNotOptimize(angle);
  });
}

/// A pass without distances: the first one, alone.
void OnePass(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    benchmark::DoNotOptimize(zor::fitting::FitEllipseSquares(points.View(), 1, kClip, {}));
  });
}

/// All passes, the distances as good as free.
void PassesAlone(benchmark::State& state) {
  const zor::fitting::EllipseDistance close = [](const ZorPoint&, const zor::fitting::Ellipse&) {
    return 0.1;
  };
  OnSlots(state, [&](ZorPointArray& points) {
    benchmark::DoNotOptimize(zor::fitting::FitEllipseSquares(points.View(), kPasses, kClip, close));
  });
}

void OpenCv(benchmark::State& state, cv::RotatedRect (*fit)(cv::InputArray)) {
  OnSlots(state, [fit](ZorPointArray& points) {
    const auto converted = zor::frame::ToFloatPoints(points.View());
    benchmark::DoNotOptimize(fit(converted));
  });
}

/// As many fits as ours has passes; OpenCV's takes no weights.
void OpenCvRepeated(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    const auto converted = zor::frame::ToFloatPoints(points.View());
    for (int pass = 0; pass < kPasses; ++pass) benchmark::DoNotOptimize(cv::fitEllipse(converted));
  });
}

void Distances(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    std::vector<double> distances(static_cast<std::size_t>(points.Length()));
    zor::distance::OvalMeasure({900, 700}, kLongAxis, kShortAxis, 28)
        .DistancesOf(points.View(), distances);
    benchmark::DoNotOptimize(distances.data());
  });
}

void DistancesThroughClass(benchmark::State& state) {
  OnSlots(state, [](ZorPointArray& points) {
    ZorGeometryMeasure measure;
    ZorPoint centre(900, 700);
    for (ZorPoint& p : points) {
      double distance = 0;
      benchmark::DoNotOptimize(
          measure.PointToOvalDistance(p, centre, kLongAxis, kShortAxis, 28, &distance, nullptr));
    }
  });
}

}  // namespace

BENCHMARK(OnePass)->Name("EllipseOnePass/zor")->Arg(500)->Arg(10000);
BENCHMARK_CAPTURE(OpenCv, plain, cv::fitEllipse)
    ->Name("EllipseOnePass/opencv")
    ->Arg(500)
    ->Arg(10000);
BENCHMARK_CAPTURE(OpenCv, ams, cv::fitEllipseAMS)
    ->Name("EllipseOnePass/opencv_ams")
    ->Arg(500)
    ->Arg(10000);
BENCHMARK_CAPTURE(OpenCv, direct, cv::fitEllipseDirect)
    ->Name("EllipseOnePass/opencv_direct")
    ->Arg(500)
    ->Arg(10000);

BENCHMARK(PassesAlone)->Name("EllipseFivePasses/zor")->Arg(500);
BENCHMARK(OpenCvRepeated)->Name("EllipseFivePasses/opencv_5_fits")->Arg(500);

BENCHMARK(Squares)->Name("LeastSqaureEllipseFit/zor")->Arg(500);
BENCHMARK(SquaresTraced)->Name("LeastSqaureEllipseFit/zor_with_sink")->Arg(500);
BENCHMARK(OpenCvRepeated)->Name("LeastSqaureEllipseFit/opencv_5_fits")->Arg(500);
BENCHMARK(Absolute)->Name("LeastAbsoluteEllipseFit/zor")->Arg(500);

BENCHMARK(Distances)->Name("PointToOvalDistance/zor")->Arg(10000);
BENCHMARK(DistancesThroughClass)->Name("PointToOvalDistance/one_by_one")->Arg(10000);
