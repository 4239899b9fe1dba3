#include "fitting/spline_kernels.h"

#include <algorithm>
#include <array>

namespace zor::fitting {
namespace {

// Rows: coefficients of u^3, u^2, u, 1. Columns: weights of the samples at -1, 0, +1, +2.
using Basis = std::array<std::array<double, 4>, 4>;

constexpr Basis kBSplineBasis = {{{-1.0 / 6, 1.0 / 2, -1.0 / 2, 1.0 / 6},
                                  {1.0 / 2, -1.0, 1.0 / 2, 0.0},
                                  {-1.0 / 2, 0.0, 1.0 / 2, 0.0},
                                  {1.0 / 6, 2.0 / 3, 1.0 / 6, 0.0}}};

constexpr Basis kCatmullRomBasis = {{{-1.0 / 2, 3.0 / 2, -3.0 / 2, 1.0 / 2},
                                     {1.0, -5.0 / 2, 2.0, -1.0 / 2},
                                     {-1.0 / 2, 0.0, 1.0 / 2, 0.0},
                                     {0.0, 1.0, 0.0, 0.0}}};

// The signal with its first and last value repeated once, which is all that a segment's four
// samples reach beyond the ends.
std::vector<double> PaddedSignal(std::span<const ZorPoint> points) {
  std::vector<double> padded;
  padded.reserve(points.size() + 2);
  padded.push_back(points.front().y);
  for (const ZorPoint& p : points) padded.push_back(p.y);
  padded.push_back(points.back().y);
  return padded;
}

/// One segment of a signal that is blended from four samples.
struct BlendedSegment {
  const Basis& basis;
  std::array<double, 4> samples;

  [[nodiscard]] double At(double u) const {
    const double u2 = u * u;
    const double u3 = u2 * u;
    double sum = 0.0;
    for (std::size_t j = 0; j < 4; ++j) {
      sum += (u3 * basis[0][j] + u2 * basis[1][j] + u * basis[2][j] + basis[3][j]) * samples[j];
    }
    return sum;
  }
};

/// One segment of the natural spline: its first value and the coefficients of u, u^2, u^3.
struct NaturalSegment {
  double value, slope, half_curvature, change;

  [[nodiscard]] double At(double u) const {
    return value + u * (slope + u * (half_curvature + u * change));
  }
};

// The resampled values 0 .. (N - 1) insert_count, segment by segment. Value k lies at
// t = k (N - 1) / (M - 1), whose whole part is that of k / (insert_count + 1): the products are
// exact, and the quotient cannot round up to the next whole number. The values beyond, and with
// them the last one, where u would be 1, are never read.
template <typename SegmentAt>
std::vector<double> Resampled(std::span<const ZorPoint> points, int insert_count,
                              const SegmentAt& segment_at) {
  const double last_input = static_cast<double>(points.size() - 1);
  const double last_output = static_cast<double>(SplinePointCount(points.size(), insert_count) - 1);
  const std::size_t step = static_cast<std::size_t>(insert_count) + 1;
  std::vector<double> values((points.size() - 1) * (step - 1) + 1);
  for (std::size_t begin = 0; begin < values.size(); begin += step) {
    const std::size_t index = begin / step;
    const auto segment = segment_at(index);
    const double whole = static_cast<double>(index);
    const std::size_t end = std::min(begin + step, values.size());
    for (std::size_t k = begin; k < end; ++k) {
      const double t = static_cast<double>(static_cast<int>(k)) * last_input / last_output;
      values[k] = segment.At(t - whole);
    }
  }
  return values;
}

std::vector<ZorPoint> Assemble(std::span<const ZorPoint> points, int insert_count,
                               const std::vector<double>& values) {
  const double parts = insert_count + 1.0;
  std::vector<ZorPoint> curve(
      static_cast<std::size_t>(SplinePointCount(points.size(), insert_count)));
  ZorPoint* out = curve.data();
  const double* y = values.data() + 1;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const double x = points[i].x;
    const double width = points[i + 1].x - x;
    *out++ = points[i];
    for (int j = 1; j <= insert_count; ++j) *out++ = {x + j * width / parts, *y++};
  }
  *out = points.back();
  return curve;
}

std::vector<double> ResampledBlended(std::span<const ZorPoint> points, int insert_count,
                                     const Basis& basis) {
  const std::vector<double> signal = PaddedSignal(points);
  return Resampled(points, insert_count, [&](std::size_t i) {
    return BlendedSegment{basis, {signal[i], signal[i + 1], signal[i + 2], signal[i + 3]}};
  });
}

std::vector<double> ResampledNatural(std::span<const ZorPoint> points, int insert_count) {
  const std::vector<double> m = NaturalSecondDerivatives(points);
  return Resampled(points, insert_count, [&](std::size_t i) {
    const double s = points[i].y;
    return NaturalSegment{s, points[i + 1].y - s - (2 * m[i] + m[i + 1]) / 6, m[i] / 2,
                          (m[i + 1] - m[i]) / 6};
  });
}

std::vector<double> ResampledBy(SplineType type, std::span<const ZorPoint> points,
                                int insert_count) {
  switch (type) {
    case SplineType::kBSpline:
      return ResampledBlended(points, insert_count, kBSplineBasis);
    case SplineType::kCatmullRom:
      return ResampledBlended(points, insert_count, kCatmullRomBasis);
    case SplineType::kNatural:
      break;
  }
  return ResampledNatural(points, insert_count);
}

}  // namespace

// Rows m_(i-1) + 4 m_i + m_(i+1) = 6 (s_(i+1) - 2 s_i + s_(i-1)) with m = 0 at both ends.
std::vector<double> NaturalSecondDerivatives(std::span<const ZorPoint> points) {
  const std::size_t n = points.size();
  std::vector<double> m(n, 0.0);
  std::vector<double> pivots(n, 4.0);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const double side = 6 * (points[i + 1].y - 2 * points[i].y + points[i - 1].y);
    const double factor = i == 1 ? 0.0 : 1 / pivots[i - 1];
    pivots[i] = 4 - factor;
    m[i] = side - factor * m[i - 1];
  }
  for (std::size_t i = n - 2; i >= 1; --i) m[i] = (m[i] - m[i + 1]) / pivots[i];
  return m;
}

std::vector<ZorPoint> InsertSplinePoints(std::span<const ZorPoint> points, SplineType type,
                                         int insert_count) {
  return Assemble(points, insert_count, ResampledBy(type, points, insert_count));
}

}  // namespace zor::fitting
