#include "fitting/sine_kernels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <vector>

#include <opencv2/core.hpp>

#include "fitting/curve_passes.h"

namespace zor::fitting {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr std::size_t kMostGridValues = 1 << 22;  // 128 MiB of spectrum
constexpr std::size_t kPadding = 4;         // at least: spectrum lines a period over the extent
constexpr std::size_t kEdgeCandidates = 8;  // lines from either end of the spectrum
constexpr std::size_t kPeakCandidates = 3;
constexpr double kRounding = 1e-9;     // share of a sum of squares
constexpr double kEvenSpacing = 1e-6;  // share of the spacing

struct Spectrum {
  std::vector<double> powers;  // of the lines 0, 1, ...
  double line_spacing = 0.0;   // angular frequency of line 1
};

bool IsFinite(const ZorPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool IsLeft(const ZorPoint& a, const ZorPoint& b) { return a.x < b.x; }

// Of different x.
std::size_t DistinctCount(std::span<const ZorPoint> sorted) {
  std::size_t count = 1;
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    if (IsLeft(sorted[i - 1], sorted[i])) ++count;
  }
  return count;
}

// Where all x lie on an even grid without gaps, sines whose frequencies differ by a turn a step
// have the same values there: the one of the lowest frequency in magnitude.
CurveParameters LowestAlias(std::span<const ZorPoint> sorted, const CurveParameters& sine) {
  const double first = sorted.front().x;
  const double gaps = static_cast<double>(DistinctCount(sorted) - 1);
  const double step = (sorted.back().x - first) / gaps;
  const auto is_on_grid = [&](const ZorPoint& p) {
    const double steps = (p.x - first) / step;
    return std::fabs(steps - std::round(steps)) < kEvenSpacing;
  };
  if (!std::all_of(sorted.begin(), sorted.end(), is_on_grid)) return sine;
  const double frequency = std::remainder(sine[1], kTurn / step);
  return {sine[0], frequency, sine[2] + (sine[1] - frequency) * first, sine[3]};
}

// y at evenly spaced x from the first to the last, on straight lines between the points.
std::vector<double> EvenValues(std::span<const ZorPoint> sorted, std::size_t count) {
  const double extent = sorted.back().x - sorted.front().x;
  std::vector<double> values(count);
  std::size_t right = 1;
  for (std::size_t k = 0; k < count; ++k) {
    const double share = static_cast<double>(k) / static_cast<double>(count - 1);
    const double x = sorted.front().x + share * extent;
    while (right + 1 < sorted.size() && sorted[right].x < x) ++right;
    const ZorPoint& a = sorted[right - 1];
    const ZorPoint& b = sorted[right];
    values[k] = b.x > a.x ? a.y + (x - a.x) / (b.x - a.x) * (b.y - a.y) : b.y;
  }
  return values;
}

Spectrum SpectrumOf(std::span<const ZorPoint> sorted) {
  const std::size_t count = std::min(DistinctCount(sorted), kMostGridValues);
  std::vector<double> signal = EvenValues(sorted, count);
  double mean = 0.0;
  for (const double value : signal) mean += value / static_cast<double>(count);
  for (double& value : signal) value -= mean;
  signal.resize(std::bit_ceil(kPadding * count), 0.0);
  const std::size_t size = signal.size();
  cv::Mat packed(1, static_cast<int>(size), CV_64F, signal.data());
  cv::dft(packed, packed);  // re 0, re 1, im 1, re 2, im 2, ..., re size / 2
  Spectrum spectrum;
  spectrum.powers.reserve(size / 2 + 1);
  spectrum.powers.push_back(signal[0] * signal[0]);
  for (std::size_t k = 1; k < size / 2; ++k) {
    spectrum.powers.push_back(signal[2 * k - 1] * signal[2 * k - 1] +
                              signal[2 * k] * signal[2 * k]);
  }
  spectrum.powers.push_back(signal[size - 1] * signal[size - 1]);
  const double step = (sorted.back().x - sorted.front().x) / static_cast<double>(count - 1);
  spectrum.line_spacing = kTurn / (step * static_cast<double>(size));
  return spectrum;
}

// Ascending line numbers, without repetition.
std::vector<std::size_t> CandidateLines(const std::vector<double>& powers) {
  std::vector<std::size_t> peaks;
  for (std::size_t k = 1; k + 1 < powers.size(); ++k) {
    if (powers[k] > powers[k - 1] && powers[k] >= powers[k + 1]) peaks.push_back(k);
  }
  const std::size_t kept = std::min(peaks.size(), kPeakCandidates);
  std::partial_sort(peaks.begin(), peaks.begin() + static_cast<std::ptrdiff_t>(kept), peaks.end(),
                    [&](std::size_t a, std::size_t b) {
                      return powers[a] > powers[b] || (powers[a] == powers[b] && a < b);
                    });
  peaks.resize(kept);
  const std::size_t last = powers.size() - 1;
  for (std::size_t k = 1; k <= kEdgeCandidates && k < last; ++k) {
    peaks.push_back(k);
    peaks.push_back(last - k);
  }
  std::sort(peaks.begin(), peaks.end());
  peaks.erase(std::unique(peaks.begin(), peaks.end()), peaks.end());
  return peaks;
}

struct LinearSine {
  CurveParameters sine{};
  double explained = 0.0;  // the part of the sum of squares about the mean that the curve takes up
};

// y = s sin(frequency x) + c cos(frequency x) + constant by least squares, about the mean of y.
// Nothing where the points do not determine it, which shows in more explained than there is.
std::optional<LinearSine> FitAtFrequency(std::span<const ZorPoint> points, double mean,
                                         double frequency) {
  cv::Matx33d equations = cv::Matx33d::zeros();
  cv::Vec3d side;
  double total = 0.0;
  for (const ZorPoint& p : points) {
    const cv::Vec3d row(std::sin(frequency * p.x), std::cos(frequency * p.x), 1.0);
    for (int j = 0; j < 3; ++j) {
      for (int k = 0; k < 3; ++k) equations(j, k) += row[j] * row[k];
      side[j] += row[j] * (p.y - mean);
    }
    total += (p.y - mean) * (p.y - mean);
  }
  cv::Vec3d solution;
  if (!cv::solve(equations, side, solution, cv::DECOMP_LU)) return std::nullopt;
  const double explained = solution.dot(side);
  const bool is_determined = explained <= total * (1 + kRounding);
  if (!is_determined) return std::nullopt;
  return LinearSine{{std::hypot(solution[0], solution[1]), frequency,
                     std::atan2(solution[1], solution[0]), solution[2] + mean},
                    explained};
}

}  // namespace

double SineAt(const CurveParameters& sine, double x) {
  return sine[0] * std::sin(sine[1] * x + sine[2]) + sine[3];
}

CurveParameters NormalisedSine(const CurveParameters& sine) {
  auto [amplitude, frequency, phase, offset] = sine;
  if (frequency < 0) {  // sin(-t) = sin(t + pi) with the phase mirrored
    frequency = -frequency;
    phase = std::numbers::pi - phase;
  }
  if (amplitude < 0) {
    amplitude = -amplitude;
    phase += std::numbers::pi;
  }
  phase = std::remainder(phase, kTurn);
  if (phase <= -std::numbers::pi) phase = std::numbers::pi;
  return {amplitude, frequency, phase, offset};
}

CurveParameters ShiftedSine(const CurveParameters& sine, double origin) {
  return {sine[0], sine[1], sine[2] + sine[1] * origin, sine[3]};
}

std::optional<CurveParameters> SineStart(std::span<const ZorPoint> sorted) {
  const double extent = sorted.back().x - sorted.front().x;
  const bool is_level = std::all_of(sorted.begin(), sorted.end(),
                                    [&](const ZorPoint& p) { return p.y == sorted.front().y; });
  if (!(extent > 0) || !std::isfinite(extent) || is_level) return std::nullopt;
  double mean = 0.0;
  for (const ZorPoint& p : sorted) mean += p.y / static_cast<double>(sorted.size());
  const Spectrum spectrum = SpectrumOf(sorted);
  std::optional<LinearSine> best;
  for (const std::size_t line : CandidateLines(spectrum.powers)) {
    const double frequency = static_cast<double>(line) * spectrum.line_spacing;
    const auto fitted = FitAtFrequency(sorted, mean, frequency);
    if (fitted && (!best || fitted->explained > best->explained)) best = fitted;
  }
  if (!best) return std::nullopt;
  return best->sine;
}

std::optional<CurveParameters> FitSine(std::span<const ZorPoint> points, int passes, double clip,
                                       int max_iterations) {
  const double left = std::ranges::min_element(points, {}, &ZorPoint::x)->x;
  const double right = std::ranges::max_element(points, {}, &ZorPoint::x)->x;
  const double middle = left + (right - left) / 2;
  std::vector<ZorPoint> centred(points.begin(), points.end());
  for (ZorPoint& p : centred) p.x -= middle;
  if (!std::all_of(centred.begin(), centred.end(), IsFinite)) return std::nullopt;
  if (!std::is_sorted(centred.begin(), centred.end(), IsLeft)) {
    std::stable_sort(centred.begin(), centred.end(), IsLeft);
  }
  const std::optional<CurveParameters> start = SineStart(centred);
  if (!start) return std::nullopt;
  const auto refine = [&](std::span<const double> weights, const CurveParameters& from) {
    return RefineSine(centred, weights, from, {.max_iterations = max_iterations});
  };
  const CurveParameters refined = RefineInPasses(centred, *start, passes, clip, refine, SineAt);
  const CurveParameters lowest = LowestAlias(centred, refined);
  const CurveParameters sine = NormalisedSine(ShiftedSine(lowest, -middle));
  if (!std::all_of(sine.begin(), sine.end(), [](double p) { return std::isfinite(p); })) {
    return std::nullopt;
  }
  return sine;
}

}  // namespace zor::fitting
