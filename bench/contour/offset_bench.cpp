#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <memory>
#include <numbers>
#include <vector>

#include <benchmark/benchmark.h>
#include <geos_c.h>
#include <polyclipping/clipper.hpp>

#include <ZorGeometryMeasure.h>

namespace {

constexpr double kDistance = 3.0;

/// A smooth closed outline with points about a pixel apart.
std::vector<ZorPoint> SmoothOutline(std::size_t count) {
  const double radius = static_cast<double>(count) / (2 * std::numbers::pi);
  std::vector<ZorPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
    const double r = radius * (1 + 0.1 * std::sin(5 * t));
    points.emplace_back(2000 + r * std::cos(t), 1500 + r * std::sin(t));
  }
  return points;
}

std::size_t PointCount(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void CountPoints(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

using Offset = long (ZorGeometryMeasure::*)(ZorContour&, double, ZorContour*);

template <Offset kOffset>
void OffsetBySliding(benchmark::State& state) {
  ZorContour contour(SmoothOutline(PointCount(state)));
  for (auto _ : state) {
    ZorContour result;
    benchmark::DoNotOptimize((ZorGeometryMeasure().*kOffset)(contour, kDistance, &result));
    benchmark::DoNotOptimize(result.begin());
  }
  CountPoints(state);
}

void OffsetByGeos(benchmark::State& state) {
  const std::vector<ZorPoint> points = SmoothOutline(PointCount(state));
  const GEOSContextHandle_t geos = GEOS_init_r();
  GEOSCoordSequence* ring =
      GEOSCoordSeq_create_r(geos, static_cast<unsigned>(points.size() + 1), 2);
  for (std::size_t i = 0; i <= points.size(); ++i) {
    const ZorPoint& p = points[i % points.size()];
    GEOSCoordSeq_setXY_r(geos, ring, static_cast<unsigned>(i), p.x, p.y);
  }
  GEOSGeometry* polygon =
      GEOSGeom_createPolygon_r(geos, GEOSGeom_createLinearRing_r(geos, ring), nullptr, 0);
  for (auto _ : state) {
    GEOSGeometry* grown = GEOSBuffer_r(geos, polygon, kDistance, 8);
    benchmark::DoNotOptimize(grown);
    GEOSGeom_destroy_r(geos, grown);
  }
  GEOSGeom_destroy_r(geos, polygon);
  GEOS_finish_r(geos);
  CountPoints(state);
}

void OffsetByClipper(benchmark::State& state) {
  constexpr double kScale = 1000;  // whole numbers inside
  ClipperLib::Path path;
  for (const ZorPoint& p : SmoothOutline(PointCount(state))) {
    path.emplace_back(std::llround(p.x * kScale), std::llround(p.y * kScale));
  }
  for (auto _ : state) {
    ClipperLib::ClipperOffset offset;
    offset.AddPath(path, ClipperLib::jtMiter, ClipperLib::etClosedPolygon);
    ClipperLib::Paths grown;
    offset.Execute(grown, kDistance * kScale);
    benchmark::DoNotOptimize(grown.data());
  }
  CountPoints(state);
}

void Sizes(benchmark::internal::Benchmark* family) {
  family->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(OffsetBySliding<&ZorGeometryMeasure::ContourScaling_Closed>)
    ->Name("ContourScaling_Closed/zor")
    ->Apply(Sizes);
BENCHMARK(OffsetByGeos)->Name("ContourScaling_Closed/geos")->Apply(Sizes);
BENCHMARK(OffsetByClipper)->Name("ContourScaling_Closed/clipper")->Apply(Sizes);
BENCHMARK(OffsetBySliding<&ZorGeometryMeasure::ContourScaling3>)
    ->Name("ContourScaling3/zor")
    ->Apply(Sizes);

}  // namespace
