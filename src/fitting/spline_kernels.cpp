#include "fitting/spline_kernels.h"

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

double Blend(const Basis& basis, const double* samples, double u) {
  const double u2 = u * u;
  const double u3 = u2 * u;
  double sum = 0.0;
  for (std::size_t j = 0; j < 4; ++j) {
    sum += (u3 * basis[0][j] + u2 * basis[1][j] + u * basis[2][j] + basis[3][j]) * samples[j];
  }
  return sum;
}

// sample_at(segment, u) gives the resampled y. The last value of the resampled signal, the only one
// that does not lie inside a segment, is never read: the lagging index stops N - 1 values short.
template <typename SampleAt>
std::vector<ZorPoint> Assemble(std::span<const ZorPoint> points, int insert_count,
                               const SampleAt& sample_at) {
  const double last_input = static_cast<double>(points.size() - 1);
  const double last_output = static_cast<double>(SplinePointCount(points.size(), insert_count) - 1);
  const double parts = insert_count + 1.0;
  std::vector<ZorPoint> curve(static_cast<std::size_t>(last_output) + 1);
  ZorPoint* out = curve.data();
  double k = 1.0;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const double x = points[i].x;
    const double width = points[i + 1].x - x;
    *out++ = points[i];
    for (int j = 1; j <= insert_count; ++j) {
      const double t = k * last_input / last_output;
      const std::size_t segment = static_cast<std::size_t>(t);
      *out++ = {x + j * width / parts, sample_at(segment, t - static_cast<double>(segment))};
      k += 1.0;
    }
  }
  *out = points.back();
  return curve;
}

std::vector<ZorPoint> AssembleBlended(std::span<const ZorPoint> points, int insert_count,
                                      const Basis& basis) {
  const std::vector<double> signal = PaddedSignal(points);
  return Assemble(points, insert_count, [&](std::size_t segment, double u) {
    return Blend(basis, signal.data() + segment, u);
  });
}

std::vector<ZorPoint> AssembleNatural(std::span<const ZorPoint> points, int insert_count) {
  const std::vector<double> m = NaturalSecondDerivatives(points);
  return Assemble(points, insert_count, [&](std::size_t i, double u) {
    const double s = points[i].y;
    const double slope = points[i + 1].y - s - (2 * m[i] + m[i + 1]) / 6;
    return s + u * (slope + u * (m[i] / 2 + u * ((m[i + 1] - m[i]) / 6)));
  });
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
  switch (type) {
    case SplineType::kBSpline:
      return AssembleBlended(points, insert_count, kBSplineBasis);
    case SplineType::kCatmullRom:
      return AssembleBlended(points, insert_count, kCatmullRomBasis);
    case SplineType::kNatural:
      break;
  }
  return AssembleNatural(points, insert_count);
}

}  // namespace zor::fitting
