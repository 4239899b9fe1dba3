#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "../idle_sink.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::bench::IdleSink;
namespace elementary = zor::elementary;

namespace {

struct Quad {
  ZorPoint a, b, c, d;
};

std::vector<Quad> RandomQuads(std::size_t count, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> coordinate(0, 4000);
  std::vector<Quad> quads(count);
  for (Quad& quad : quads) {
    for (ZorPoint* p : {&quad.a, &quad.b, &quad.c, &quad.d}) {
      *p = ZorPoint(coordinate(rng), coordinate(rng));
    }
  }
  return quads;
}

/// Runs `call` on a pool of inputs large enough that branches are not learnt.
template <typename Call>
void RunOnQuads(benchmark::State& state, Call&& call) {
  std::vector<Quad> pool = RandomQuads(4096, 20240607);
  std::size_t i = 0;
  for (auto _ : state) call(pool[i++ & (pool.size() - 1)]);
  state.SetItemsProcessed(state.iterations());
}

void DistanceThroughClass(benchmark::State& state) {
  RunOnQuads(state, [](Quad& q) {
    double distance = 0;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(measure.PointToPointDistance(q.a, q.b, &distance));
    benchmark::DoNotOptimize(distance);
  });
}

void DistanceKernel(benchmark::State& state) {
  RunOnQuads(state, [](Quad& q) { benchmark::DoNotOptimize(elementary::Distance(q.a, q.b)); });
}

void DistanceTraced(benchmark::State& state) {
  const IdleSink sink;
  DistanceThroughClass(state);
}

void CrossingThroughClass(benchmark::State& state) {
  RunOnQuads(state, [](Quad& q) {
    ZorPoint out;
    ZorGeometryMeasure measure;
    benchmark::DoNotOptimize(measure.LinesIntersection(q.a, q.b, q.c, q.d, &out));
    benchmark::DoNotOptimize(out);
  });
}

void CrossingThroughFacade(benchmark::State& state) {
  RunOnQuads(state, [](Quad& q) {
    ZorPoint out;
    ZORMV::ZorGeometryMeasureDlg facade;
    benchmark::DoNotOptimize(facade.LinesIntersection(q.a, q.b, q.c, q.d, &out));
    benchmark::DoNotOptimize(out);
  });
}

void CrossingKernel(benchmark::State& state) {
  RunOnQuads(state, [](Quad& q) {
    ZorPoint out;
    if (!elementary::AreParallel(q.b - q.a, q.d - q.c)) {
      out = elementary::IntersectLines(q.a, q.b, q.c, q.d).value_or(out);
    }
    benchmark::DoNotOptimize(out);
  });
}

void CrossingTraced(benchmark::State& state) {
  const IdleSink sink;
  CrossingThroughClass(state);
}

BENCHMARK(DistanceThroughClass)->Name("PointToPointDistance/zor");
BENCHMARK(DistanceKernel)->Name("PointToPointDistance/kernel");
BENCHMARK(DistanceTraced)->Name("PointToPointDistance/sink");
BENCHMARK(CrossingThroughClass)->Name("LinesIntersection/zor");
BENCHMARK(CrossingThroughFacade)->Name("LinesIntersection/facade");
BENCHMARK(CrossingKernel)->Name("LinesIntersection/kernel");
BENCHMARK(CrossingTraced)->Name("LinesIntersection/sink");

}  // namespace
