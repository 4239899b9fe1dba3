#include <cmath>
#include <numbers>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <opencv2/imgproc.hpp>
#include <polyclipping/clipper.hpp>

#include "intersection/polygon_overlap.h"

namespace {

using Polygon = std::vector<ZorPoint>;
namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint, false>;

Polygon Round(int count, double radius, ZorPoint centre) {
  Polygon polygon;
  for (int i = 0; i < count; ++i) {
    const double t = 2 * std::numbers::pi * i / count;
    polygon.emplace_back(centre.x + radius * std::cos(t), centre.y + radius * std::sin(t));
  }
  return polygon;
}

Polygon Star(int count, ZorPoint centre) {
  Polygon polygon = Round(count, 1000, centre);
  for (std::size_t i = 0; i < polygon.size(); i += 2) {
    polygon[i] = ZorPoint(centre.x + (polygon[i].x - centre.x) * 0.5,
                          centre.y + (polygon[i].y - centre.y) * 0.5);
  }
  return polygon;
}

Polygon Comb(int teeth, ZorPoint corner) {
  Polygon polygon{corner, corner + ZorPoint(4.0 * teeth - 2, 0)};
  for (int i = teeth - 1; i >= 0; --i) {
    polygon.push_back(corner + ZorPoint(4 * i + 2, 400));
    polygon.push_back(corner + ZorPoint(4 * i, 400));
    if (i > 0) {
      polygon.push_back(corner + ZorPoint(4 * i, 100));
      polygon.push_back(corner + ZorPoint(4 * i - 2, 100));
    }
  }
  return polygon;
}

Polygon Rectangle(ZorPoint centre, double width, double height, double angle_rad) {
  Polygon polygon;
  for (const ZorPoint& p : {ZorPoint(1, 1), ZorPoint(-1, 1), ZorPoint(-1, -1), ZorPoint(1, -1)}) {
    const double u = p.x * width / 2, v = p.y * height / 2;
    polygon.emplace_back(centre.x + u * std::cos(angle_rad) - v * std::sin(angle_rad),
                         centre.y + u * std::sin(angle_rad) + v * std::cos(angle_rad));
  }
  return polygon;
}

struct Pair {
  Polygon p, q;
};

Pair MakePair(int kind) {
  switch (kind) {
    case 0:  // convex
      return {Round(1000, 1000, {1000, 1000}), Round(1000, 900, {1700, 1300})};
    case 1:  // circle and turned rectangle
      return {Round(10000, 1000, {1000, 1000}), Rectangle({1500, 1200}, 1500, 900, 0.5)};
    case 2:  // circle and axis-parallel rectangle
      return {Round(10000, 1000, {1000, 1000}), Rectangle({1500, 1200}, 1500, 900, 0.0)};
    case 3:  // stars
      return {Star(1000, {1000, 1000}), Star(1000, {1400, 1200})};
    default:  // combs
      return {Comb(250, {0, 0}), Comb(250, {1, 50})};
  }
}

BoostPolygon ToBoost(const Polygon& polygon) {
  BoostPolygon out;
  for (const ZorPoint& p : polygon) bg::append(out, BoostPoint(p.x, p.y));
  bg::correct(out);
  return out;
}

ClipperLib::Path ToClipper(const Polygon& polygon) {
  ClipperLib::Path path;
  for (const ZorPoint& p : polygon) {
    path.emplace_back(std::llround(p.x * 1e6), std::llround(p.y * 1e6));
  }
  return path;
}

std::vector<cv::Point2f> ToCv(const Polygon& polygon) {
  std::vector<cv::Point2f> points;
  for (const ZorPoint& p : polygon) {
    points.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return points;
}

void Ours(benchmark::State& state) {
  const Pair pair = MakePair(static_cast<int>(state.range(0)));
  double area = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(area = zor::intersection::PolygonOverlapArea(pair.p, pair.q));
  }
  state.counters["area"] = area;
}

void WithBoost(benchmark::State& state) {
  const Pair pair = MakePair(static_cast<int>(state.range(0)));
  const BoostPolygon p = ToBoost(pair.p), q = ToBoost(pair.q);
  double area = 0;
  for (auto _ : state) {
    std::vector<BoostPolygon> out;
    bg::intersection(p, q, out);
    area = 0;
    for (const BoostPolygon& piece : out) area += bg::area(piece);
    benchmark::DoNotOptimize(area);
  }
  state.counters["area"] = area;
}

void WithClipper(benchmark::State& state) {
  const Pair pair = MakePair(static_cast<int>(state.range(0)));
  const ClipperLib::Path p = ToClipper(pair.p), q = ToClipper(pair.q);
  double area = 0;
  for (auto _ : state) {
    ClipperLib::Clipper clipper;
    clipper.AddPath(p, ClipperLib::ptSubject, true);
    clipper.AddPath(q, ClipperLib::ptClip, true);
    ClipperLib::Paths out;
    clipper.Execute(ClipperLib::ctIntersection, out, ClipperLib::pftNonZero,
                    ClipperLib::pftNonZero);
    area = 0;
    for (const ClipperLib::Path& path : out) area += ClipperLib::Area(path) * 1e-12;
    benchmark::DoNotOptimize(area);
  }
  state.counters["area"] = area;
}

void WithOpenCv(benchmark::State& state) {
  const Pair pair = MakePair(static_cast<int>(state.range(0)));
  const std::vector<cv::Point2f> p = ToCv(pair.p), q = ToCv(pair.q);
  float area = 0;
  for (auto _ : state) {
    std::vector<cv::Point2f> out;
    benchmark::DoNotOptimize(area = cv::intersectConvexConvex(p, q, out, true));
  }
  state.counters["area"] = static_cast<double>(area);
}

BENCHMARK(Ours)->Name("PolygonsIntersection2/zor")->DenseRange(0, 4);
BENCHMARK(WithBoost)->Name("PolygonsIntersection2/boost")->DenseRange(0, 4);
BENCHMARK(WithClipper)->Name("PolygonsIntersection2/clipper")->DenseRange(0, 4);
BENCHMARK(WithOpenCv)->Name("PolygonsIntersection2/opencv_float")->DenseRange(0, 2);

}  // namespace
