#include <cstddef>
#include <iterator>
#include <vector>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>
#include <CGAL/convex_hull_2.h>
#include <CGAL/min_quadrilateral_2.h>
#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include "outlines.h"
#include <ZorGeometryMeasure.h>

// Smallest rectangle and smallest circle about a cloud, an ordered outline with ripples and noise,
// and an ordered clean circle. The bare routine of OpenCV for the circle takes seconds on the
// ordered ones, so it has the cloud only.

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using CircleTraits = CGAL::Min_circle_2_traits_2<Kernel>;

enum Shape { kCloud, kOutline, kCircle };

constexpr std::size_t kCount = 10000;

std::vector<ZorPoint> Points(benchmark::State& state) {
  if (state.range(0) == kCloud) return zor::bench::Cloud(kCount);
  if (state.range(0) == kOutline) return zor::bench::Outline(kCount, 400, 300, 0.05, 0.3);
  return zor::bench::Outline(kCount, 400, 400);
}

std::vector<cv::Point2f> FloatPoints(benchmark::State& state) {
  std::vector<cv::Point2f> points;
  for (const ZorPoint& p : Points(state)) {
    points.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return points;
}

std::vector<Kernel::Point_2> CgalPoints(benchmark::State& state) {
  std::vector<Kernel::Point_2> points;
  for (const ZorPoint& p : Points(state)) points.emplace_back(p.x, p.y);
  return points;
}

void CountPoints(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

void RectangleZor(benchmark::State& state) {
  ZorPointArray points(Points(state));
  double angle = 0.0;
  for (auto _ : state) {
    ZorGeometryMeasure().MinAreaRectangularity(points, nullptr, nullptr, nullptr, &angle);
    benchmark::DoNotOptimize(angle);
  }
  CountPoints(state);
}

void RectangleOpenCv(benchmark::State& state) {
  const std::vector<cv::Point2f> points = FloatPoints(state);
  for (auto _ : state) benchmark::DoNotOptimize(cv::minAreaRect(points));
  CountPoints(state);
}

void RectangleCgal(benchmark::State& state) {
  const std::vector<Kernel::Point_2> points = CgalPoints(state);
  for (auto _ : state) {
    std::vector<Kernel::Point_2> hull, corners;
    CGAL::convex_hull_2(points.begin(), points.end(), std::back_inserter(hull));
    CGAL::min_rectangle_2(hull.begin(), hull.end(), std::back_inserter(corners));
    benchmark::DoNotOptimize(corners.data());
  }
  CountPoints(state);
}

void CircleZor(benchmark::State& state) {
  ZorPointArray points(Points(state));
  double radius = 0.0;
  for (auto _ : state) {
    ZorGeometryMeasure().ExternalCircle(points, nullptr, &radius);
    benchmark::DoNotOptimize(radius);
  }
  CountPoints(state);
}

void CircleOpenCv(benchmark::State& state) {
  const std::vector<cv::Point2f> points = FloatPoints(state);
  cv::Point2f centre;
  float radius = 0.0F;
  for (auto _ : state) {
    cv::minEnclosingCircle(points, centre, radius);
    benchmark::DoNotOptimize(radius);
  }
  CountPoints(state);
}

void CircleCgal(benchmark::State& state) {
  const std::vector<Kernel::Point_2> points = CgalPoints(state);
  for (auto _ : state) {
    const CGAL::Min_circle_2<CircleTraits> circle(points.begin(), points.end(), true);
    benchmark::DoNotOptimize(circle.number_of_support_points());
  }
  CountPoints(state);
}

void AllShapes(benchmark::internal::Benchmark* b) {
  b->ArgName("shape")->Unit(benchmark::kMicrosecond)->Arg(kCloud)->Arg(kOutline)->Arg(kCircle);
}

void CloudOnly(benchmark::internal::Benchmark* b) {
  b->ArgName("shape")->Unit(benchmark::kMicrosecond)->Arg(kCloud);
}

BENCHMARK(RectangleZor)->Name("MinRectangle/zor")->Apply(AllShapes);
BENCHMARK(RectangleOpenCv)->Name("MinRectangle/cv_minAreaRect")->Apply(AllShapes);
BENCHMARK(RectangleCgal)->Name("MinRectangle/cgal")->Apply(AllShapes);
BENCHMARK(CircleZor)->Name("EnclosingCircle/zor")->Apply(AllShapes);
BENCHMARK(CircleOpenCv)->Name("EnclosingCircle/cv_minEnclosingCircle")->Apply(CloudOnly);
BENCHMARK(CircleCgal)->Name("EnclosingCircle/cgal")->Apply(AllShapes);

}  // namespace
