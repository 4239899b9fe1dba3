#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <geos/algorithm/LineIntersector.h>
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/noding/BasicSegmentString.h>
#include <geos/noding/MCIndexSegmentSetMutualIntersector.h>
#include <geos/noding/SegmentIntersector.h>

#include "elementary/edge_index.h"
#include "elementary/segment_kernels.h"
#include "intersection/shapes.h"

// Crossings of outlines with segments and with one another. Every variant starts from plain points
// and ends with the list of crossings.

namespace elementary = zor::elementary;
using zor::bench::Outline;
using zor::bench::Scatter;

namespace {

constexpr double kRough[] = {0.002, 0.2};  // a smooth contour, a star

std::size_t Count(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}
double Rough(const benchmark::State& state) { return kRough[state.range(1)]; }

// ---- two outlines ----------------------------------------------------------------------------

template <typename Cross>
void CrossPair(benchmark::State& state, Cross cross) {
  const std::vector<ZorPoint> p = Outline(Count(state), Rough(state), 900, 1);
  const std::vector<ZorPoint> q = Outline(Count(state), Rough(state), 1100, 2);
  std::size_t crossings = 0;
  for (auto _ : state) benchmark::DoNotOptimize(crossings = cross(p, q));
  state.counters["crossings"] = static_cast<double>(crossings);
}

void PairZor(benchmark::State& state) {
  CrossPair(state, [](std::span<const ZorPoint> p, std::span<const ZorPoint> q) {
    return elementary::CrossOutlines(elementary::EdgeIndex(p), elementary::EdgeIndex(q),
                                     elementary::ClosingEdge::kLastToFirst)
        .size();
  });
}

void PairPlain(benchmark::State& state) {
  CrossPair(state, [](std::span<const ZorPoint> p, std::span<const ZorPoint> q) {
    std::size_t crossings = 0;
    const ZorPoint* a = &p.back();
    for (const ZorPoint& b : p) {
      const ZorPoint* c = &q.back();
      for (const ZorPoint& d : q) {
        if (elementary::CrossSegments(*a, b, *c, d)) ++crossings;
        c = &d;
      }
      a = &b;
    }
    return crossings;
  });
}

class Collector : public geos::noding::SegmentIntersector {
 public:
  void processIntersections(geos::noding::SegmentString* p, std::size_t i,
                            geos::noding::SegmentString* q, std::size_t j) override {
    intersector_.computeIntersection(p->getCoordinate(i), p->getCoordinate(i + 1),
                                     q->getCoordinate(j), q->getCoordinate(j + 1));
    for (std::size_t k = 0; k < intersector_.getIntersectionNum(); ++k) {
      crossings.push_back(intersector_.getIntersection(k));
    }
  }

  std::vector<geos::geom::Coordinate> crossings;

 private:
  geos::algorithm::LineIntersector intersector_;
};

std::unique_ptr<geos::geom::CoordinateArraySequence> Ring(std::span<const ZorPoint> points) {
  auto ring = std::make_unique<geos::geom::CoordinateArraySequence>(points.size() + 1, 2U);
  for (std::size_t i = 0; i <= points.size(); ++i) {
    const ZorPoint& p = points[i % points.size()];
    ring->setAt({p.x, p.y}, i);
  }
  return ring;
}

std::size_t CrossByGeos(std::span<const ZorPoint> p, std::span<const ZorPoint> q) {
  const auto ring_p = Ring(p);
  const auto ring_q = Ring(q);
  geos::noding::BasicSegmentString string_p(ring_p.get(), nullptr);
  geos::noding::BasicSegmentString string_q(ring_q.get(), nullptr);
  geos::noding::SegmentString::ConstVect base{&string_p};
  geos::noding::SegmentString::ConstVect other{&string_q};
  Collector collector;
  geos::noding::MCIndexSegmentSetMutualIntersector intersector;
  intersector.setSegmentIntersector(&collector);
  intersector.setBaseSegments(&base);
  intersector.process(&other);
  return collector.crossings.size();
}

void PairGeos(benchmark::State& state) { CrossPair(state, CrossByGeos); }

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostLine = bg::model::linestring<BoostPoint>;

BoostLine BoostRing(std::span<const ZorPoint> points) {
  BoostLine line;
  for (const ZorPoint& p : points) line.emplace_back(p.x, p.y);
  line.emplace_back(points.front().x, points.front().y);
  return line;
}

void PairBoost(benchmark::State& state) {
  CrossPair(state, [](std::span<const ZorPoint> p, std::span<const ZorPoint> q) {
    bg::model::multi_point<BoostPoint> crossings;
    bg::intersection(BoostRing(p), BoostRing(q), crossings);
    return crossings.size();
  });
}

// ---- a segment and an outline ----------------------------------------------------------------

/// `prepare(outline)` is outside the measured loop and gives cross(a, b).
template <typename Prepare>
void CrossSegment(benchmark::State& state, Prepare prepare) {
  const std::vector<ZorPoint> outline = Outline(Count(state), Rough(state), 1000, 1);
  const std::vector<ZorPoint> ends = Scatter(4096, 2);
  auto cross = prepare(outline);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(cross(ends[i & 4095], ends[(i + 1) & 4095]));
    ++i;
  }
}

void SegmentZor(benchmark::State& state) {
  CrossSegment(state, [](std::span<const ZorPoint> outline) {
    return [outline, crossings = std::vector<ZorPoint>()](const ZorPoint& a,
                                                          const ZorPoint& b) mutable {
      crossings.clear();
      elementary::AppendSegmentCrossings(a, b, outline, crossings);
      return crossings.size();
    };
  });
}

void SegmentIndexed(benchmark::State& state) {
  CrossSegment(state, [](std::span<const ZorPoint> outline) {
    return [index = elementary::EdgeIndex(outline), crossings = std::vector<ZorPoint>()](
               const ZorPoint& a, const ZorPoint& b) mutable {
      crossings.clear();
      index.AppendCrossings(a, b, crossings);
      return crossings.size();
    };
  });
}

void SegmentPlain(benchmark::State& state) {
  CrossSegment(state, [](std::span<const ZorPoint> outline) {
    return [outline](const ZorPoint& a, const ZorPoint& b) {
      std::size_t crossings = 0;
      const ZorPoint* c = &outline.back();
      for (const ZorPoint& d : outline) {
        if (elementary::CrossSegments(a, b, *c, d)) ++crossings;
        c = &d;
      }
      return crossings;
    };
  });
}

/// The chains of the outline are built once, as ours in the indexed form.
void SegmentGeos(benchmark::State& state) {
  CrossSegment(state, [](std::span<const ZorPoint> outline) {
    struct Prepared {
      std::unique_ptr<geos::geom::CoordinateArraySequence> ring;
      std::unique_ptr<geos::noding::BasicSegmentString> string;
      Collector collector;
      geos::noding::MCIndexSegmentSetMutualIntersector intersector;
    };
    auto prepared = std::make_shared<Prepared>();
    prepared->ring = Ring(outline);
    prepared->string =
        std::make_unique<geos::noding::BasicSegmentString>(prepared->ring.get(), nullptr);
    geos::noding::SegmentString::ConstVect base{prepared->string.get()};
    prepared->intersector.setSegmentIntersector(&prepared->collector);
    prepared->intersector.setBaseSegments(&base);
    return [prepared](const ZorPoint& a, const ZorPoint& b) {
      geos::geom::CoordinateArraySequence ends(2U, 2U);
      ends.setAt({a.x, a.y}, 0);
      ends.setAt({b.x, b.y}, 1);
      geos::noding::BasicSegmentString segment(&ends, nullptr);
      geos::noding::SegmentString::ConstVect other{&segment};
      prepared->collector.crossings.clear();
      prepared->intersector.process(&other);
      return prepared->collector.crossings.size();
    };
  });
}

void SegmentBoost(benchmark::State& state) {
  CrossSegment(state, [](std::span<const ZorPoint> outline) {
    return [line = BoostRing(outline)](const ZorPoint& a, const ZorPoint& b) {
      bg::model::multi_point<BoostPoint> crossings;
      bg::intersection(BoostLine{{a.x, a.y}, {b.x, b.y}}, line, crossings);
      return crossings.size();
    };
  });
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  for (const int rough : {0, 1}) benchmark->Args({1000, rough});
}

BENCHMARK(PairZor)->Name("CrossOutlines/zor")->Apply(Sizes)->Args({20000, 0});
BENCHMARK(PairPlain)->Name("CrossOutlines/plain")->Apply(Sizes);
BENCHMARK(PairGeos)->Name("CrossOutlines/geos")->Apply(Sizes)->Args({20000, 0});
BENCHMARK(PairBoost)->Name("CrossOutlines/boost")->Apply(Sizes);
BENCHMARK(SegmentZor)->Name("SegmentCrossings/zor")->Apply(Sizes);
BENCHMARK(SegmentIndexed)->Name("SegmentCrossings/indexed")->Apply(Sizes);
BENCHMARK(SegmentPlain)->Name("SegmentCrossings/plain")->Apply(Sizes);
BENCHMARK(SegmentGeos)->Name("SegmentCrossings/geos_prepared")->Apply(Sizes);
BENCHMARK(SegmentBoost)->Name("SegmentCrossings/boost")->Apply(Sizes);

}  // namespace
