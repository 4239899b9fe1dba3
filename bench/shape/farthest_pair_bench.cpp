#include <cstddef>
#include <iterator>
#include <vector>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/convex_hull_2.h>
#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include "outlines.h"
#include <ZorGeometryMeasure.h>

// The farthest pair of a cloud (few points on its hull), of an outline with ripples and noise, and
// of a clean circle (all points on the hull, all nearly tie). The peers find a hull, then compare
// its points with one another.

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

enum Shape { kCloud, kOutline, kCircle };

std::vector<ZorPoint> Points(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(1));
  if (state.range(0) == kCloud) return zor::bench::Cloud(n);
  if (state.range(0) == kOutline) return zor::bench::Outline(n, 400, 300, 0.05, 0.3);
  return zor::bench::Outline(n, 400, 400);
}

/// Returned so that the work is not optimised away.
template <typename Point, typename Distance2>
std::size_t FarthestByComparing(const std::vector<Point>& hull, Distance2 distance2) {
  std::size_t first = 0;
  double farthest = 0.0;
  for (std::size_t i = 0; i < hull.size(); ++i) {
    for (std::size_t j = i + 1; j < hull.size(); ++j) {
      const double d2 = distance2(hull[i], hull[j]);
      if (d2 > farthest) {
        farthest = d2;
        first = i;
      }
    }
  }
  return first;
}

void Zor(benchmark::State& state) {
  ZorPointArray points(Points(state));
  ZorPoint first, second;
  for (auto _ : state) {
    ZorGeometryMeasure().FindMaxDistancePointPair(points, &first, &second);
    benchmark::DoNotOptimize(first);
  }
  state.SetItemsProcessed(state.iterations() * state.range(1));
}

void OpenCv(benchmark::State& state) {
  std::vector<cv::Point2f> points, hull;
  for (const ZorPoint& p : Points(state)) {
    points.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  for (auto _ : state) {
    cv::convexHull(points, hull);
    benchmark::DoNotOptimize(FarthestByComparing(hull, [](const auto& a, const auto& b) {
      const double dx = static_cast<double>(a.x) - static_cast<double>(b.x);
      const double dy = static_cast<double>(a.y) - static_cast<double>(b.y);
      return dx * dx + dy * dy;
    }));
  }
  state.SetItemsProcessed(state.iterations() * state.range(1));
}

void Cgal(benchmark::State& state) {
  std::vector<Kernel::Point_2> points, hull;
  for (const ZorPoint& p : Points(state)) points.emplace_back(p.x, p.y);
  for (auto _ : state) {
    hull.clear();
    CGAL::convex_hull_2(points.begin(), points.end(), std::back_inserter(hull));
    benchmark::DoNotOptimize(FarthestByComparing(
        hull, [](const auto& a, const auto& b) { return CGAL::squared_distance(a, b); }));
  }
  state.SetItemsProcessed(state.iterations() * state.range(1));
}

/// The hull alone, where comparing all of its points is hopeless.
void CgalHull(benchmark::State& state) {
  std::vector<Kernel::Point_2> points, hull;
  for (const ZorPoint& p : Points(state)) points.emplace_back(p.x, p.y);
  for (auto _ : state) {
    hull.clear();
    CGAL::convex_hull_2(points.begin(), points.end(), std::back_inserter(hull));
    benchmark::DoNotOptimize(hull.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(1));
}

void CloudsAndOutlines(benchmark::internal::Benchmark* b) {
  b->ArgNames({"shape", "n"})->Unit(benchmark::kMicrosecond);
  for (const int n : {10000, 100000}) {
    b->Args({kCloud, n})->Args({kOutline, n});
  }
}

void Circles(benchmark::internal::Benchmark* b) {
  b->ArgNames({"shape", "n"})->Unit(benchmark::kMicrosecond);
  b->Args({kCircle, 10000})->Args({kCircle, 100000});
}

BENCHMARK(Zor)->Name("FarthestPair/zor")->Apply(CloudsAndOutlines)->Apply(Circles);
BENCHMARK(OpenCv)->Name("FarthestPair/cv_convexHull")->Apply(CloudsAndOutlines);
BENCHMARK(Cgal)->Name("FarthestPair/cgal")->Apply(CloudsAndOutlines);
BENCHMARK(CgalHull)->Name("FarthestPair/cgal_hull_alone")->Apply(Circles);

}  // namespace
