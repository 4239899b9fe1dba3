#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <geos_c.h>

#include <ZorGeometryMeasure.h>

// A point to an outline of n vertices: the distance, signed by where the point lies. The peers give
// the distance to the outline and, in a second call, whether the point is inside.

namespace {

namespace bg = boost::geometry;

constexpr std::size_t kPool = 1024;

std::vector<ZorPoint> Outline(int n) {
  std::vector<ZorPoint> points;
  for (int i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * i / n;
    const double r = 400 * (1 + 0.1 * std::sin(7 * t));
    points.emplace_back(600 + r * std::cos(t), 600 + r * std::sin(t));
  }
  return points;
}

/// Inside, outside and near the outline.
std::vector<ZorPoint> Probes() {
  std::mt19937_64 rng(20240618);
  std::uniform_real_distribution<double> coordinate(0, 1200);
  std::vector<ZorPoint> probes;
  for (std::size_t i = 0; i < kPool; ++i) probes.emplace_back(coordinate(rng), coordinate(rng));
  return probes;
}

template <class Call>
void RunOnProbes(benchmark::State& state, const Call& call) {
  std::vector<ZorPoint> probes = Probes();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(call(probes[i++ % kPool]));
  state.SetItemsProcessed(state.iterations());
}

void Ours(benchmark::State& state) {
  ZorPointArray polygon(Outline(static_cast<int>(state.range(0))));
  RunOnProbes(state, [&](ZorPoint& p) {
    double distance = 0;
    ZorPoint nearest;
    ZorGeometryMeasure().PointToPolygonDistance(p, polygon, &distance, &nearest);
    return distance + nearest.x;
  });
}

void Boost(benchmark::State& state) {
  using Point = bg::model::d2::point_xy<double>;
  bg::model::polygon<Point> polygon;
  bg::model::linestring<Point> outline;
  for (const ZorPoint& p : Outline(static_cast<int>(state.range(0)))) {
    bg::append(polygon, Point(p.x, p.y));
    bg::append(outline, Point(p.x, p.y));
  }
  bg::correct(polygon);
  bg::append(outline, outline.front());
  RunOnProbes(state, [&](ZorPoint& p) {
    const Point point(p.x, p.y);
    const double distance = bg::distance(point, outline);
    return bg::within(point, polygon) ? -distance : distance;
  });
}

void Geos(benchmark::State& state) {
  const GEOSContextHandle_t context = GEOS_init_r();
  std::vector<ZorPoint> points = Outline(static_cast<int>(state.range(0)));
  points.push_back(points.front());
  GEOSCoordSequence* const sequence =
      GEOSCoordSeq_create_r(context, static_cast<unsigned>(points.size()), 2);
  for (unsigned i = 0; i < points.size(); ++i) {
    GEOSCoordSeq_setXY_r(context, sequence, i, points[i].x, points[i].y);
  }
  GEOSGeometry* const ring = GEOSGeom_createLinearRing_r(context, sequence);
  GEOSGeometry* const polygon =
      GEOSGeom_createPolygon_r(context, GEOSGeom_clone_r(context, ring), nullptr, 0);
  RunOnProbes(state, [&](ZorPoint& p) {
    GEOSGeometry* const point = GEOSGeom_createPointFromXY_r(context, p.x, p.y);
    double distance = 0;
    GEOSDistance_r(context, point, ring, &distance);
    const bool is_inside = GEOSContains_r(context, polygon, point) == 1;
    GEOSGeom_destroy_r(context, point);
    return is_inside ? -distance : distance;
  });
  GEOSGeom_destroy_r(context, polygon);
  GEOSGeom_destroy_r(context, ring);
  GEOS_finish_r(context);
}

BENCHMARK(Ours)->Name("PointToPolygonDistance/zor")->Arg(1000);
BENCHMARK(Boost)->Name("PointToPolygonDistance/boost")->Arg(1000);
BENCHMARK(Geos)->Name("PointToPolygonDistance/geos")->Arg(1000);

}  // namespace
