#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2_algorithms.h>
#include <benchmark/benchmark.h>
#include <boost/geometry/algorithms/correct.hpp>
#include <boost/geometry/algorithms/within.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/strategies/strategies.hpp>
#include <geos/algorithm/locate/IndexedPointInAreaLocator.h>
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LinearRing.h>
#include <geos/geom/Point.h>
#include <geos/geom/Polygon.h>
#include <geos/geom/prep/PreparedGeometry.h>
#include <geos/geom/prep/PreparedGeometryFactory.h>
#include <opencv2/imgproc.hpp>

#include "elementary/polygon_index.h"
#include "elementary/polygon_kernels.h"
#include "intersection/shapes.h"
#include <ZorGeometryMeasure.h>

// Where points lie with respect to a polygon: one point at a time, and many points including what
// it takes to prepare the polygon.

namespace elementary = zor::elementary;
using zor::bench::Outline;
using zor::bench::Scatter;

namespace {

constexpr double kRough[] = {0.002, 0.2};  // a smooth contour, a star
constexpr std::size_t kPool = 4096;
constexpr std::size_t kMany = 100000;

std::vector<ZorPoint> Polygon(const benchmark::State& state) {
  return Outline(static_cast<std::size_t>(state.range(0)), kRough[state.range(1)], 1000, 1);
}

/// `prepare(polygon)` is outside the measured loop and gives relation(point).
template <typename Prepare>
void RelateOne(benchmark::State& state, Prepare prepare) {
  const std::vector<ZorPoint> polygon = Polygon(state);
  const std::vector<ZorPoint> points = Scatter(kPool, 2);
  auto relation = prepare(std::span(polygon));
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(relation(points[i++ & (kPool - 1)]));
}

/// `prepare(polygon)` belongs to the work.
template <typename Prepare>
void RelateMany(benchmark::State& state, Prepare prepare) {
  const std::vector<ZorPoint> polygon = Polygon(state);
  const std::vector<ZorPoint> points = Scatter(kMany, 2);
  long sum = 0;
  for (auto _ : state) {
    auto relation = prepare(std::span(polygon));
    for (const ZorPoint& p : points) sum += static_cast<long>(relation(p));
  }
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * static_cast<long>(kMany));
}

/// The selection as a host calls it: on all processors.
void SelectZor(benchmark::State& state) {
  const std::vector<ZorPoint> outline = Polygon(state);
  const std::vector<ZorPoint> scatter = Scatter(kMany, 2);
  ZorPointArray polygon(outline);
  ZorPointArray points(scatter);
  for (auto _ : state) {
    ZorPointArray selected;
    benchmark::DoNotOptimize(
        ZorGeometryMeasure().PointArraySelectedByPolygon(points, polygon, &selected));
  }
}

/// `prepare(polygon)` gives the relation by which a peer's points are kept, one after the other.
template <typename Prepare, typename IsKept>
void SelectBy(benchmark::State& state, Prepare prepare, IsKept is_kept) {
  const std::vector<ZorPoint> polygon = Polygon(state);
  const std::vector<ZorPoint> points = Scatter(kMany, 2);
  for (auto _ : state) {
    auto relation = prepare(std::span(polygon));
    std::vector<ZorPoint> selected;
    for (const ZorPoint& p : points) {
      if (is_kept(relation(p))) selected.push_back(p);
    }
    benchmark::DoNotOptimize(selected.data());
  }
}

auto Walk(std::span<const ZorPoint> polygon) {
  return [polygon](const ZorPoint& p) { return elementary::PolygonRelation(p, polygon); };
}

auto ThroughClass(std::span<const ZorPoint> polygon) {
  return
      [measure = ZorGeometryMeasure(),
       vertices = ZorPointArray(ZorPointView(polygon.data(), polygon.size()))](ZorPoint p) mutable {
        int code = 0;
        measure.PointToPolygonPosRelation(p, vertices, &code);
        return code;
      };
}

auto Indexed(std::span<const ZorPoint> polygon) {
  return [index = elementary::PolygonIndex(polygon, kMany)](const ZorPoint& p) {
    return index.Relation(p);
  };
}

auto OpenCv(std::span<const ZorPoint> polygon) {
  std::vector<cv::Point2f> contour;
  for (const ZorPoint& p : polygon) {
    contour.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return [contour](const ZorPoint& p) {
    return cv::pointPolygonTest(
        contour, cv::Point2f(static_cast<float>(p.x), static_cast<float>(p.y)), false);
  };
}

auto Boost(std::span<const ZorPoint> polygon) {
  namespace bg = boost::geometry;
  using Point = bg::model::d2::point_xy<double>;
  bg::model::polygon<Point> ring;
  for (const ZorPoint& p : polygon) ring.outer().emplace_back(p.x, p.y);
  bg::correct(ring);
  return [ring](const ZorPoint& p) { return bg::within(Point(p.x, p.y), ring); };
}

auto Cgal(std::span<const ZorPoint> polygon) {
  using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
  std::vector<Kernel::Point_2> ring;
  for (const ZorPoint& p : polygon) ring.emplace_back(p.x, p.y);
  return [ring](const ZorPoint& p) {
    return CGAL::bounded_side_2(ring.begin(), ring.end(), Kernel::Point_2(p.x, p.y), Kernel());
  };
}

std::unique_ptr<geos::geom::Polygon> GeosPolygon(std::span<const ZorPoint> polygon) {
  auto ring = std::make_unique<geos::geom::CoordinateArraySequence>(polygon.size() + 1, 2U);
  for (std::size_t i = 0; i <= polygon.size(); ++i) {
    const ZorPoint& p = polygon[i % polygon.size()];
    ring->setAt({p.x, p.y}, i);
  }
  const geos::geom::GeometryFactory* factory = geos::geom::GeometryFactory::getDefaultInstance();
  return factory->createPolygon(factory->createLinearRing(std::move(ring)));
}

auto GeosLocator(std::span<const ZorPoint> polygon) {
  using Locator = geos::algorithm::locate::IndexedPointInAreaLocator;
  auto area = GeosPolygon(polygon);
  auto locator = std::make_unique<Locator>(*area);
  return [area = std::move(area), locator = std::move(locator)](const ZorPoint& p) {
    const geos::geom::Coordinate coordinate(p.x, p.y);
    return locator->locate(&coordinate);
  };
}

auto GeosPrepared(std::span<const ZorPoint> polygon) {
  auto area = GeosPolygon(polygon);
  auto prepared = geos::geom::prep::PreparedGeometryFactory::prepare(area.get());
  const geos::geom::GeometryFactory* factory = geos::geom::GeometryFactory::getDefaultInstance();
  return [factory, area = std::move(area), prepared = std::move(prepared)](const ZorPoint& p) {
    const std::unique_ptr<geos::geom::Point> point(
        factory->createPoint(geos::geom::Coordinate(p.x, p.y)));
    return prepared->intersects(point.get());
  };
}

void SelectGeos(benchmark::State& state) {
  SelectBy(state, GeosLocator, [](geos::geom::Location location) {
    return location != geos::geom::Location::EXTERIOR;
  });
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Args({100, 0})->Args({100, 1})->Args({10000, 0})->Args({10000, 1});
}

[[maybe_unused]] const bool kRegistered = [] {
  const auto one = [](const char* name, auto prepare) {
    benchmark::RegisterBenchmark(name,
                                 [prepare](benchmark::State& state) { RelateOne(state, prepare); })
        ->Args({100, 0})
        ->Args({100, 1});
  };
  one("PointToPolygonPosRelation/zor", ThroughClass);
  one("PointToPolygonPosRelation/kernel", Walk);
  one("PointToPolygonPosRelation/opencv", OpenCv);
  one("PointToPolygonPosRelation/boost", Boost);
  one("PointToPolygonPosRelation/cgal", Cgal);

  const auto many = [](const char* name, auto prepare) {
    benchmark::RegisterBenchmark(name,
                                 [prepare](benchmark::State& state) { RelateMany(state, prepare); })
        ->Apply(Sizes)
        ->Unit(benchmark::kMillisecond);
  };
  many("PolygonRelations/zor", Indexed);
  many("PolygonRelations/geos_locator", GeosLocator);
  many("PolygonRelations/geos_prepared", GeosPrepared);

  benchmark::RegisterBenchmark("PointArraySelectedByPolygon/zor", SelectZor)
      ->Apply(Sizes)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  benchmark::RegisterBenchmark("PointArraySelectedByPolygon/geos_locator", SelectGeos)
      ->Apply(Sizes)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  return true;
}();

}  // namespace
