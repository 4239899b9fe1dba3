#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <geos_c.h>

#include "outlines.h"
#include <ZorGeometryMeasure.h>

// The largest circle in polygons of 1 000 vertices. GEOS searches down to a tolerance, given here
// relative to the extent: 1e-7 is ours, 1e-3 is GEOS's usual. "error" is by how many pixels the
// radius falls short of ours.

namespace {

enum Shape { kEllipse, kRippled, kNoisyCircle, kStar };

constexpr std::size_t kVertices = 1000;

std::vector<ZorPoint> Polygon(benchmark::State& state) {
  switch (state.range(0)) {
    case kEllipse:
      return zor::bench::Outline(kVertices, 400, 300);
    case kRippled:
      return zor::bench::Outline(kVertices, 400, 300, 0.1, 0.3);
    case kNoisyCircle:
      return zor::bench::Outline(kVertices, 400, 400, 0.0, 0.3);
    default:
      return zor::bench::Outline(kVertices, 400, 300, 0.4, 2.0);
  }
}

double RadiusZor(const std::vector<ZorPoint>& vertices) {
  ZorPointArray polygon(vertices);
  double radius = 0.0;
  ZorGeometryMeasure().IncisionCircle(polygon, nullptr, &radius);
  return radius;
}

void Zor(benchmark::State& state) {
  ZorPointArray polygon(Polygon(state));
  double radius = 0.0;
  for (auto _ : state) {
    ZorGeometryMeasure().IncisionCircle(polygon, nullptr, &radius);
    benchmark::DoNotOptimize(radius);
  }
}

struct Delete {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy(geometry); }
};
using Geometry = std::unique_ptr<GEOSGeometry, Delete>;

Geometry GeosPolygon(const std::vector<ZorPoint>& vertices) {
  const auto n = static_cast<unsigned>(vertices.size());
  GEOSCoordSequence* ring = GEOSCoordSeq_create(n + 1, 2);
  for (unsigned i = 0; i <= n; ++i) {
    const ZorPoint& p = vertices[i < n ? i : 0];
    GEOSCoordSeq_setXY(ring, i, p.x, p.y);
  }
  return Geometry(GEOSGeom_createPolygon(GEOSGeom_createLinearRing(ring), nullptr, 0));
}

template <int kDigits>
void Geos(benchmark::State& state) {
  initGEOS(nullptr, nullptr);
  const std::vector<ZorPoint> vertices = Polygon(state);
  const Geometry polygon = GeosPolygon(vertices);
  const double tolerance = 800 * std::pow(10.0, -kDigits);
  double radius = 0.0;
  for (auto _ : state) {
    const Geometry spoke(GEOSMaximumInscribedCircle(polygon.get(), tolerance));
    GEOSLength(spoke.get(), &radius);
    benchmark::DoNotOptimize(radius);
  }
  state.SetLabel("misses by " + std::to_string(RadiusZor(vertices) - radius));
}

void Shapes(benchmark::internal::Benchmark* b) {
  b->ArgName("shape")->Unit(benchmark::kMicrosecond);
  for (const int shape : {kEllipse, kRippled, kNoisyCircle, kStar}) b->Arg(shape);
}

BENCHMARK(Zor)->Name("InscribedCircle/zor")->Apply(Shapes);
BENCHMARK(Geos<7>)->Name("InscribedCircle/geos")->Apply(Shapes);
BENCHMARK(Geos<3>)->Name("InscribedCircle/geos_coarse")->Apply(Shapes);

}  // namespace
