#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <numbers>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/multi_point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <geos_c.h>
#include <nanoflann.hpp>

#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

// Two nested outlines of n points each. Ours reports the nearest and the farthest pair of the mode;
// GEOS finds the nearest distance of the polylines alone, the nearest neighbours give minimum and
// maximum of the nearest distances of points, the hulls the farthest pair alone.

namespace {

namespace bg = boost::geometry;

std::vector<ZorPoint> Ring(int n, double radius, double turn) {
  std::vector<ZorPoint> points;
  for (int i = 0; i < n; ++i) {
    const double t = turn + 2 * std::numbers::pi * i / n;
    const double r = radius * (1 + 0.08 * std::sin(5 * t) + 0.02 * std::cos(31 * t));
    points.emplace_back(1000 + r * std::cos(t), 800 + r * std::sin(t));
  }
  return points;
}

std::vector<ZorPoint> Outer(int n) { return Ring(n, 600, 0.0); }
std::vector<ZorPoint> Inner(int n) { return Ring(n, 350, 0.3); }

template <class Class>
void RunOurs(benchmark::State& state, ZorContour a, ZorContour b, int mode) {
  for (auto _ : state) {
    ZorPoint p, q, r, s;
    double low = 0, high = 0;
    benchmark::DoNotOptimize(
        Class().ContourToContourDistance(a, b, mode, &p, &q, &low, &r, &s, &high));
    benchmark::DoNotOptimize(low + high);
  }
}

void Ours(benchmark::State& state) {
  const int n = static_cast<int>(state.range(1));
  RunOurs<ZORMV::ZorGeometryMeasureDlg>(state, ZorContour(Outer(n)), ZorContour(Inner(n)),
                                        static_cast<int>(state.range(0)));
}

/// Where every point nearly ties with the one that faces it.
void OursConcentric(benchmark::State& state) {
  const int n = static_cast<int>(state.range(1));
  std::vector<ZorPoint> rings[2];
  for (int i = 0; i < 2 * n; ++i) {
    const double t = 2 * std::numbers::pi * i / n;
    const double r = i < n ? 600 : 350;
    rings[i / n].emplace_back(r * std::cos(t), r * std::sin(t));
  }
  RunOurs<ZORMV::ZorGeometryMeasureDlg>(state, ZorContour(rings[0]), ZorContour(rings[1]),
                                        static_cast<int>(state.range(0)));
}

class Geos {
 public:
  Geos() : context_(GEOS_init_r()) {}
  ~Geos() { GEOS_finish_r(context_); }
  Geos(const Geos&) = delete;
  Geos& operator=(const Geos&) = delete;

  using Geometry = std::unique_ptr<GEOSGeometry, void (*)(GEOSGeometry*)>;
  [[nodiscard]] GEOSGeometry* Line(const std::vector<ZorPoint>& points) const {
    GEOSCoordSequence* sequence =
        GEOSCoordSeq_create_r(context_, static_cast<unsigned>(points.size()), 2);
    for (unsigned i = 0; i < points.size(); ++i) {
      GEOSCoordSeq_setXY_r(context_, sequence, i, points[i].x, points[i].y);
    }
    return GEOSGeom_createLineString_r(context_, sequence);
  }
  void Destroy(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context_, geometry); }
  [[nodiscard]] GEOSContextHandle_t Context() const { return context_; }

 private:
  GEOSContextHandle_t context_;
};

void GeosIndexed(benchmark::State& state) {
  const int n = static_cast<int>(state.range(1));
  const Geos geos;
  GEOSGeometry* const a = geos.Line(Outer(n));
  GEOSGeometry* const b = geos.Line(Inner(n));
  for (auto _ : state) {
    double distance = 0;
    GEOSDistanceIndexed_r(geos.Context(), a, b, &distance);
    benchmark::DoNotOptimize(distance);
  }
  geos.Destroy(a);
  geos.Destroy(b);
}

struct Cloud {
  const std::vector<ZorPoint>& points;
  [[nodiscard]] std::size_t kdtree_get_point_count() const { return points.size(); }
  [[nodiscard]] double kdtree_get_pt(std::size_t i, std::size_t dimension) const {
    return dimension == 0 ? points[i].x : points[i].y;
  }
  template <class Box>
  bool kdtree_get_bbox(Box& /*box*/) const {
    return false;
  }
};

void NearestNeighbours(benchmark::State& state) {
  const int n = static_cast<int>(state.range(1));
  const std::vector<ZorPoint> a = Outer(n);
  const std::vector<ZorPoint> b = Inner(n);
  using Tree = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>,
                                                   Cloud, 2, std::size_t>;
  for (auto _ : state) {
    const Cloud cloud{b};
    const Tree tree(2, cloud, nanoflann::KDTreeSingleIndexAdaptorParams(10));
    double low = 1e300, high = 0;
    for (const ZorPoint& p : a) {
      const double query[2] = {p.x, p.y};
      std::size_t index = 0;
      double squared = 0;
      tree.knnSearch(query, 1, &index, &squared);
      low = std::min(low, squared);
      high = std::max(high, squared);
    }
    benchmark::DoNotOptimize(low + high);
  }
}

void Hulls(benchmark::State& state) {
  using Point = bg::model::d2::point_xy<double>;
  const int n = static_cast<int>(state.range(1));
  bg::model::multi_point<Point> sets[2];
  for (const ZorPoint& p : Outer(n)) sets[0].emplace_back(p.x, p.y);
  for (const ZorPoint& p : Inner(n)) sets[1].emplace_back(p.x, p.y);
  for (auto _ : state) {
    bg::model::ring<Point> hulls[2];
    bg::convex_hull(sets[0], hulls[0]);
    bg::convex_hull(sets[1], hulls[1]);
    double farthest = 0;
    for (const Point& p : hulls[0]) {
      for (const Point& q : hulls[1]) {
        farthest = std::max(farthest, bg::comparable_distance(p, q));
      }
    }
    benchmark::DoNotOptimize(farthest);
  }
}

void Modes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"mode", "n"})->Unit(benchmark::kMicrosecond);
  for (const int mode : {0, 1, 2, 4}) {
    for (const int n : {1000, 20000}) bench->Args({mode, n});
  }
}

BENCHMARK(Ours)->Name("ContourToContourDistance/zor")->Apply(Modes)->UseRealTime();
BENCHMARK(GeosIndexed)->Name("ContourToContourDistance/geos_nearest")->Apply(Modes)->UseRealTime();
BENCHMARK(NearestNeighbours)
    ->Name("ContourToContourDistance/nanoflann")
    ->Apply(Modes)
    ->UseRealTime();
BENCHMARK(Hulls)->Name("ContourToContourDistance/boost_hulls")->Apply(Modes)->UseRealTime();
BENCHMARK(OursConcentric)
    ->Name("ContourToContourDistance/zor_concentric")
    ->Apply(Modes)
    ->UseRealTime();

}  // namespace
