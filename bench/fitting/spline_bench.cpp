#include <cmath>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/math/interpolators/cardinal_cubic_b_spline.hpp>
#include <gsl/gsl_spline.h>

#include <ZorGeometryMeasure.h>

// A profile of n points densified by 9 points a gap: ours by splineType, the peers with a natural
// or a cardinal cubic through the same y values, each building its spline and writing the curve.

namespace {

constexpr int kInserted = 9;

ZorPointArray Profile(int n) {
  ZorPointArray points;
  points.Reserve(n);
  for (int i = 0; i < n; ++i) points.Append({i * 1.0, 40 * std::sin(i * 0.05) + i % 7});
  return points;
}

std::vector<double> Ys(const ZorPointArray& points) {
  std::vector<double> ys;
  for (const ZorPoint& p : points) ys.push_back(p.y);
  return ys;
}

template <typename ValueAt>
void WriteCurve(int n, ZorPointArray& curve, const ValueAt& value_at) {
  std::vector<ZorPoint> out;
  const int count = (n - 1) * (kInserted + 1) + 1;
  out.reserve(static_cast<std::size_t>(count));
  for (int k = 0; k < count; ++k) {
    const double t = k * 1.0 / (kInserted + 1);
    out.emplace_back(t, value_at(t));
  }
  curve.Assign(std::move(out));
}

void BM_Zor(benchmark::State& state, int type) {
  ZorPointArray points = Profile(static_cast<int>(state.range(0))), curve;
  ZorGeometryMeasure measure;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measure.GenSplineCurve(points, type, kInserted, &curve));
  }
}

void BM_Boost(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> ys = Ys(Profile(n));
  ZorPointArray curve;
  for (auto _ : state) {
    const boost::math::interpolators::cardinal_cubic_b_spline<double> spline(ys.begin(), ys.end(),
                                                                             0.0, 1.0);
    WriteCurve(n, curve, [&](double t) { return spline(t); });
  }
}

void BM_Gsl(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> ys = Ys(Profile(n));
  std::vector<double> xs;
  for (int i = 0; i < n; ++i) xs.push_back(i);
  ZorPointArray curve;
  for (auto _ : state) {
    const std::unique_ptr<gsl_spline, decltype(&gsl_spline_free)> spline(
        gsl_spline_alloc(gsl_interp_cspline, ys.size()), gsl_spline_free);
    const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> place(
        gsl_interp_accel_alloc(), gsl_interp_accel_free);
    gsl_spline_init(spline.get(), xs.data(), ys.data(), ys.size());
    WriteCurve(n, curve, [&](double t) { return gsl_spline_eval(spline.get(), t, place.get()); });
  }
}

}  // namespace

BENCHMARK_CAPTURE(BM_Zor, b_spline, 0)->Name("SplineBSpline/zor")->Arg(10000);
BENCHMARK_CAPTURE(BM_Zor, catmull_rom, 1)->Name("SplineCatmullRom/zor")->Arg(10000);
BENCHMARK_CAPTURE(BM_Zor, natural, 2)->Name("SplineNatural/zor")->Arg(10000);
BENCHMARK(BM_Boost)->Name("SplineBSpline/boost")->Arg(10000);
BENCHMARK(BM_Boost)->Name("SplineCatmullRom/boost")->Arg(10000);
BENCHMARK(BM_Boost)->Name("SplineNatural/boost")->Arg(10000);
BENCHMARK(BM_Gsl)->Name("SplineBSpline/gsl")->Arg(10000);
BENCHMARK(BM_Gsl)->Name("SplineCatmullRom/gsl")->Arg(10000);
BENCHMARK(BM_Gsl)->Name("SplineNatural/gsl")->Arg(10000);
