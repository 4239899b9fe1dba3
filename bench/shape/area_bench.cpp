#include <cstddef>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <opencv2/imgproc.hpp>
#include <polyclipping/clipper.hpp>

#include "outlines.h"
#include <ZorGeometryMeasure.h>

// Area, centroid and moments of a polygon, each peer on points of its own kind.

namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint, true, false>;

std::vector<ZorPoint> Polygon(benchmark::State& state) {
  return zor::bench::Outline(static_cast<std::size_t>(state.range(0)), 400, 300, 0.05, 0.3);
}

std::vector<cv::Point2f> FloatPolygon(benchmark::State& state) {
  std::vector<cv::Point2f> polygon;
  for (const ZorPoint& p : Polygon(state)) {
    polygon.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return polygon;
}

BoostPolygon BoostPolygonOf(benchmark::State& state) {
  BoostPolygon polygon;
  for (const ZorPoint& p : Polygon(state)) bg::append(polygon.outer(), BoostPoint(p.x, p.y));
  return polygon;
}

void CountVertices(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void AreaZor(benchmark::State& state) {
  ZorPointArray polygon(Polygon(state));
  double area = 0.0;
  for (auto _ : state) {
    ZorGeometryMeasure().Area2(polygon, &area);
    benchmark::DoNotOptimize(area);
  }
  CountVertices(state);
}

void AreaOpenCv(benchmark::State& state) {
  const std::vector<cv::Point2f> polygon = FloatPolygon(state);
  for (auto _ : state) benchmark::DoNotOptimize(cv::contourArea(polygon));
  CountVertices(state);
}

void AreaOpenCvMoments(benchmark::State& state) {
  const std::vector<cv::Point2f> polygon = FloatPolygon(state);
  for (auto _ : state) benchmark::DoNotOptimize(cv::moments(polygon));
  CountVertices(state);
}

void AreaBoost(benchmark::State& state) {
  const BoostPolygon polygon = BoostPolygonOf(state);
  for (auto _ : state) benchmark::DoNotOptimize(bg::area(polygon));
  CountVertices(state);
}

void AreaClipper(benchmark::State& state) {
  ClipperLib::Path path;
  for (const ZorPoint& p : Polygon(state)) {
    path.emplace_back(static_cast<ClipperLib::cInt>(p.x * 1024),
                      static_cast<ClipperLib::cInt>(p.y * 1024));
  }
  for (auto _ : state) benchmark::DoNotOptimize(ClipperLib::Area(path));
  CountVertices(state);
}

void CentroidZor(benchmark::State& state) {
  const ZorPointArray polygon(Polygon(state));
  ZorPoint centre;
  for (auto _ : state) {
    ZorGeometryMeasure().PolygonCenter(polygon, &centre);
    benchmark::DoNotOptimize(centre);
  }
  CountVertices(state);
}

void CentroidBoost(benchmark::State& state) {
  const BoostPolygon polygon = BoostPolygonOf(state);
  BoostPoint centre;
  for (auto _ : state) {
    bg::centroid(polygon, centre);
    benchmark::DoNotOptimize(centre);
  }
  CountVertices(state);
}

/// The six moments up to the second order.
void MomentsZor(benchmark::State& state) {
  ZorPointArray polygon(Polygon(state));
  double moment = 0.0;
  for (auto _ : state) {
    for (const int order : {0, 1, 10, 2, 11, 20}) {
      ZorGeometryMeasure().CalcMoment(polygon, order, &moment);
      benchmark::DoNotOptimize(moment);
    }
  }
  CountVertices(state);
}

BENCHMARK(AreaZor)->Name("PolygonArea/zor")->Arg(10000);
BENCHMARK(AreaOpenCv)->Name("PolygonArea/cv_contourArea")->Arg(10000);
BENCHMARK(AreaOpenCvMoments)->Name("PolygonArea/cv_moments")->Arg(10000);
BENCHMARK(AreaBoost)->Name("PolygonArea/boost")->Arg(10000);
BENCHMARK(AreaClipper)->Name("PolygonArea/clipper")->Arg(10000);
BENCHMARK(CentroidZor)->Name("PolygonCentroid/zor")->Arg(10000);
BENCHMARK(AreaOpenCvMoments)->Name("PolygonCentroid/cv_moments")->Arg(10000);
BENCHMARK(CentroidBoost)->Name("PolygonCentroid/boost")->Arg(10000);
BENCHMARK(MomentsZor)->Name("PolygonMoments/zor")->Arg(10000);
BENCHMARK(AreaOpenCvMoments)->Name("PolygonMoments/cv_moments")->Arg(10000);

}  // namespace
