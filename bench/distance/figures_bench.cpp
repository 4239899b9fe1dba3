#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

// Distances to circles, ellipses and rectangles; times are for the whole list.

namespace {

constexpr double kA = 1000;
constexpr double kB = 600;
constexpr double kAngle = 30;
ZorPoint centre(2000, 2000);

std::vector<ZorPoint> Cloud(std::size_t count) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(0, 4000);
  std::vector<ZorPoint> points(count);
  for (ZorPoint& p : points) p = ZorPoint(coordinate(rng), coordinate(rng));
  return points;
}

/// A measured outline about the ellipse: in order, rough, crossing it often.
std::vector<ZorPoint> RoughOutline(std::size_t count) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(1, 0.001);
  std::vector<ZorPoint> points(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
    const double u = kA * noise(rng) * std::cos(t);
    const double v = kB * noise(rng) * std::sin(t);
    const double c = std::cos(kAngle * std::numbers::pi / 180);
    const double s = std::sin(kAngle * std::numbers::pi / 180);
    points[i] = ZorPoint(centre.x + c * u + s * v, centre.y - s * u + c * v);
  }
  return points;
}

std::size_t CountOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

struct Outputs {
  ZorPoint min_own, min_figure, max_own, max_figure;
  double min = 0;
  double max = 0;
};

/// Runs `measure` (an array or a contour, outputs) on the points.
template <typename List, typename Measure>
void RunOn(benchmark::State& state, const std::vector<ZorPoint>& points, Measure&& measure) {
  List list(points);
  ZorGeometryMeasure m;
  for (auto _ : state) {
    Outputs out;
    benchmark::DoNotOptimize(measure(m, list, out));
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void PointsToOval(benchmark::State& state) {
  RunOn<ZorPointArray>(
      state, Cloud(CountOf(state)), [](ZorGeometryMeasure& m, ZorPointArray& points, Outputs& o) {
        return m.PointArrayToOvalDistance(points, centre, kA, kB, kAngle, &o.min_own, &o.min_figure,
                                          &o.min, &o.max_own, &o.max_figure, &o.max);
      });
}

void PointsToOvalOneByOne(benchmark::State& state) {
  RunOn<ZorPointArray>(
      state, Cloud(CountOf(state)), [](ZorGeometryMeasure& m, ZorPointArray& points, Outputs& o) {
        for (ZorPoint& p : points) {
          double d = 0;
          static_cast<void>(m.PointToOvalDistance(p, centre, kA, kB, kAngle, &d, nullptr));
          o.min = std::min(o.min, d);
        }
        return GM_OK;
      });
}

/// The usual way: Newton's method for the parametric angle of the nearest point, to 1e-12.
double NewtonDistance(double u, double v) {
  double t = std::atan2(kA * v, kB * u);
  for (int i = 0; i < 20; ++i) {
    const double c = std::cos(t);
    const double s = std::sin(t);
    const double f = (kA * kA - kB * kB) * c * s - u * kA * s + v * kB * c;
    const double slope = (kA * kA - kB * kB) * (c * c - s * s) - u * kA * c - v * kB * s;
    const double step = f / slope;
    t -= step;
    if (std::fabs(step) < 1e-12) break;
  }
  return std::hypot(u - kA * std::cos(t), v - kB * std::sin(t));
}

void PointsToOvalByNewton(benchmark::State& state) {
  const double c = std::cos(kAngle * std::numbers::pi / 180);
  const double s = std::sin(kAngle * std::numbers::pi / 180);
  RunOn<ZorPointArray>(state, Cloud(CountOf(state)),
                       [&](ZorGeometryMeasure&, ZorPointArray& points, Outputs& o) {
                         for (const ZorPoint& p : points) {
                           const ZorPoint d = p - centre;
                           const double u = std::fabs(c * d.x - s * d.y);
                           const double v = std::fabs(s * d.x + c * d.y);
                           o.max = std::max(o.max, NewtonDistance(u, v));
                         }
                         return GM_OK;
                       });
}

void PointsToCircle(benchmark::State& state) {
  RunOn<ZorPointArray>(
      state, Cloud(CountOf(state)), [](ZorGeometryMeasure& m, ZorPointArray& points, Outputs& o) {
        return m.PointArrayToCircleDistance(points, centre, kA, &o.min_own, &o.min_figure, &o.min,
                                            &o.max_own, &o.max_figure, &o.max);
      });
}

void PointsToRectangle(benchmark::State& state) {
  RunOn<ZorPointArray>(
      state, Cloud(CountOf(state)), [](ZorGeometryMeasure& m, ZorPointArray& points, Outputs& o) {
        return m.PointArrayToRectAngularDistance(points, centre, kA, kB, kAngle, &o.min_own,
                                                 &o.min_figure, &o.min, &o.max_own, &o.max_figure,
                                                 &o.max);
      });
}

void PointsToRectangleByOpenCv(benchmark::State& state) {
  ZorPointArray corners;
  static_cast<void>(ZorGeometryMeasure().RectAngularToPolygon(centre, kA, kB, kAngle, &corners));
  std::vector<cv::Point2f> polygon;
  for (const ZorPoint& p : corners) polygon.emplace_back(cv::Point2d(p.x, p.y));
  RunOn<ZorPointArray>(
      state, Cloud(CountOf(state)), [&](ZorGeometryMeasure&, ZorPointArray& points, Outputs& o) {
        for (const ZorPoint& p : points) {
          const double d = cv::pointPolygonTest(polygon, cv::Point2d(p.x, p.y), true);
          o.min = std::min(o.min, d);
          o.max = std::max(o.max, d);
        }
        return GM_OK;
      });
}

void ContourToCircle(benchmark::State& state) {
  RunOn<ZorContour>(
      state, RoughOutline(CountOf(state)), [](ZorGeometryMeasure& m, ZorContour& c, Outputs& o) {
        return m.CircleToContourDistance(c, centre, 800, nullptr, &o.min_own, &o.min_figure, &o.min,
                                         &o.max_own, &o.max_figure, &o.max);
      });
}

void ContourToOval(benchmark::State& state) {
  RunOn<ZorContour>(
      state, RoughOutline(CountOf(state)), [](ZorGeometryMeasure& m, ZorContour& c, Outputs& o) {
        return m.OvalToContourDistance(c, centre, kA, kB, kAngle, nullptr, &o.min_own,
                                       &o.min_figure, &o.min, &o.max_own, &o.max_figure, &o.max);
      });
}

void ContourToRectangle(benchmark::State& state) {
  RunOn<ZorContour>(state, RoughOutline(CountOf(state)),
                    [](ZorGeometryMeasure&, ZorContour& c, Outputs& o) {
                      return ZORMV::ZorGeometryMeasureDlg().ContourToRectangularDistance(
                          c, centre, 2 * kA, 2 * kB, kAngle, &o.min_own, &o.min_figure, &o.min,
                          &o.max_own, &o.max_figure, &o.max);
                    });
}

void SegmentToOval(benchmark::State& state) {
  std::vector<ZorPoint> points = Cloud(4096);
  ZorGeometryMeasure m;
  std::size_t i = 0;
  for (auto _ : state) {
    Outputs o;
    benchmark::DoNotOptimize(m.LineSegmentToOvalDistance2(
        points[i & 4095], points[(i + 1) & 4095], centre, kA, kB, kAngle, &o.min, &o.min_own,
        &o.min_figure, &o.max, &o.max_own, &o.max_figure));
    benchmark::DoNotOptimize(o);
    i += 2;
  }
}

BENCHMARK(PointsToOval)->Name("PointArrayToOvalDistance/zor")->Arg(100000);
BENCHMARK(PointsToOvalOneByOne)->Name("PointArrayToOvalDistance/one_by_one")->Arg(100000);
BENCHMARK(PointsToOvalByNewton)->Name("PointArrayToOvalDistance/newton")->Arg(100000);
BENCHMARK(PointsToCircle)->Name("PointArrayToCircleDistance/zor")->Arg(100000);
BENCHMARK(PointsToRectangle)->Name("PointArrayToRectAngularDistance/zor")->Arg(100000);
BENCHMARK(PointsToRectangleByOpenCv)->Name("PointArrayToRectAngularDistance/opencv")->Arg(100000);
BENCHMARK(ContourToCircle)->Name("CircleToContourDistance/zor")->Arg(10000);
BENCHMARK(ContourToOval)->Name("OvalToContourDistance/zor")->Arg(10000);
BENCHMARK(ContourToRectangle)->Name("ContourToRectangularDistance/zor")->Arg(10000);
BENCHMARK(SegmentToOval)->Name("LineSegmentToOvalDistance2/zor");

}  // namespace
