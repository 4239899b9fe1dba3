#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <ZorFindDefectRegion.h>
#include <ZorGeometryMeasureDlg.h>

namespace {

constexpr double kTolerance = 10.0;
constexpr double kDistance = 2.0;
constexpr int kMinLength = 10;

/// A regular polygon, 4000 pixels across, with noisy points and a nick five pixels deep in the
/// middle of every eighth side.
std::vector<ZorPoint> NickedOutline(std::size_t count, std::size_t sides) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.1);
  const std::size_t each = count / sides;
  constexpr double radius = 2000;
  const auto corner = [&](std::size_t s) {
    const double t = 2 * std::numbers::pi * static_cast<double>(s) / static_cast<double>(sides);
    return ZorPoint(radius * (1 + std::cos(t)), radius * (1 + std::sin(t)));
  };
  std::vector<ZorPoint> points;
  for (std::size_t s = 0; s < sides; ++s) {
    const ZorPoint a = corner(s), d = corner(s + 1) - a;
    const double length = std::hypot(d.x, d.y);
    for (std::size_t k = 0; k < each; ++k) {
      const double share = static_cast<double>(k) / static_cast<double>(each);
      const bool is_nick = s % 8 == 3 && k > each / 2 && k < each / 2 + each / 16;
      const double depth = (is_nick ? 5.0 : 0.0) + noise(rng);
      points.emplace_back(a.x + share * d.x - depth * d.y / length,
                          a.y + share * d.y + depth * d.x / length);
    }
  }
  return points;
}

std::vector<ZorPoint> OutlineOf(const benchmark::State& state) {
  return NickedOutline(static_cast<std::size_t>(state.range(0)),
                       static_cast<std::size_t>(state.range(1)));
}

std::vector<cv::Point2f> InSinglePrecision(const std::vector<ZorPoint>& points) {
  std::vector<cv::Point2f> converted;
  for (const ZorPoint& p : points) {
    converted.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return converted;
}

void Defects(benchmark::State& state) {
  ZorContour contour(OutlineOf(state));
  int found = 0;
  for (auto _ : state) {
    ZorContourArray defects;
    benchmark::DoNotOptimize(ZORMV::ZorGeometryMeasureDlg().FindDefectRegion(
        contour, kTolerance, 0, kDistance, kMinLength, &defects));
    found = defects.Length();
  }
  state.counters["defects"] = found;
}

void Polygon(benchmark::State& state) {
  ZorPointArray points(OutlineOf(state));
  for (auto _ : state) {
    ZorPointArray polygon;
    benchmark::DoNotOptimize(
        ZORMV::ZorGeometryMeasureDlg().FindPolygon(points, kTolerance, 0, true, &polygon));
    benchmark::DoNotOptimize(polygon.begin());
  }
}

void ReductionByOpenCv(benchmark::State& state) {
  const std::vector<cv::Point2f> points = InSinglePrecision(OutlineOf(state));
  for (auto _ : state) {
    std::vector<cv::Point2f> polygon;
    cv::approxPolyDP(points, polygon, kTolerance, true);
    benchmark::DoNotOptimize(polygon.data());
  }
}

void SizesAndSides(benchmark::internal::Benchmark* family) {
  family->Args({1000, 8})->Args({100000, 16})->Args({100000, 32});
  family->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Defects)->Name("FindDefectRegion/zor")->Apply(SizesAndSides);
BENCHMARK(ReductionByOpenCv)->Name("FindDefectRegion/approxPolyDP")->Apply(SizesAndSides);
BENCHMARK(Polygon)->Name("FindPolygon/zor")->Apply(SizesAndSides);
BENCHMARK(ReductionByOpenCv)->Name("FindPolygon/approxPolyDP")->Apply(SizesAndSides);

}  // namespace
