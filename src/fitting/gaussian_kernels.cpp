#include "fitting/gaussian_kernels.h"

#include <cmath>
#include <limits>
#include <optional>

#include <opencv2/core/utility.hpp>

#include "fitting/curve_passes.h"

namespace zor::fitting {
namespace {

constexpr std::size_t kMinThreadedPoints = 100;
constexpr double kVanishing = 1e-8;
constexpr double kLargestTolerance = 1e-5;
constexpr int kMostWidths = 64;     // each twice the one before
constexpr double kRounding = 1e-9;  // share of a sum of squares

// From the highest point along x to the nearest below half its height above the lowest; 0 where
// there is none.
double HalfHeightDistance(std::span<const ZorPoint> points, const CurveParameters& start) {
  const double half = start[3] + (start[0] - start[3]) / 2;
  double nearest = 0.0;
  for (const ZorPoint& p : points) {
    const double distance = std::fabs(p.x - start[1]);
    if (p.y < half && distance > 0 && !(nearest > 0 && nearest <= distance)) nearest = distance;
  }
  return nearest;
}

struct LinearPeak {
  CurveParameters gaussian{};
  double explained = 0.0;  // the part of the sum of squares about the mean that the curve takes up
};

// Height and baseline by least squares, y measured from `level`. Nothing but upright peaks.
std::optional<LinearPeak> FitAtShape(std::span<const ZorPoint> points, double position,
                                     double spread, double level) {
  double g = 0.0, gg = 0.0, y = 0.0, gy = 0.0;
  for (const ZorPoint& p : points) {
    const double value = GaussianAt({1.0, position, spread, 0.0}, p.x);
    g += value;
    gg += value * value;
    y += p.y - level;
    gy += value * (p.y - level);
  }
  const double n = static_cast<double>(points.size());
  const double variance = gg - g * g / n;
  const double covariance = gy - g * y / n;
  if (!(variance > kRounding * gg) || !(covariance > 0)) return std::nullopt;
  const double height = covariance / variance;
  return LinearPeak{{height, position, spread, (y - height * g) / n + level}, height * covariance};
}

}  // namespace

double GaussianAt(const CurveParameters& gaussian, double x) {
  const double offset = x - gaussian[1];
  return gaussian[0] * std::exp(-(offset * offset) / (2.0 * gaussian[2])) + gaussian[3];
}

GaussianPeak PeakOfLogarithm(double q2, double q1, double q0) {
  return {std::exp(q0 - q1 * (q1 * 0.25) / q2), q1 * -0.5 / q2, -0.5 / q2};
}

bool Vanishes(const GaussianPeak& peak) {
  return std::fabs(peak.amplitude) < kVanishing && std::fabs(peak.mean) < kVanishing &&
         std::fabs(peak.variance) < kVanishing;
}

CurveParameters GaussianStart(std::span<const ZorPoint> points) {
  ZorPoint highest = points.front();
  double lowest = highest.y;
  double left = highest.x;
  double right = highest.x;
  for (const ZorPoint& p : points) {
    if (p.y > highest.y) highest = p;
    if (p.y < lowest) lowest = p.y;
    if (p.x < left) left = p.x;
    if (p.x > right) right = p.x;
  }
  return {highest.y, highest.x, right - left, lowest};
}

CurveParameters GaussianStartByWidth(std::span<const ZorPoint> points) {
  const CurveParameters start = GaussianStart(points);
  const double extent = start[2];
  double width = HalfHeightDistance(points, start) / 2;
  std::optional<LinearPeak> best;
  for (int i = 0; i < kMostWidths && width > 0 && width <= extent; ++i, width *= 2) {
    const auto fitted = FitAtShape(points, start[1], width * width, start[3]);
    if (fitted && (!best || fitted->explained > best->explained)) best = fitted;
  }
  return best ? best->gaussian : start;
}

CurveParameters FitGaussian(std::span<const ZorPoint> points, int passes, double clip) {
  const auto refine = [&](std::span<const double> weights, const CurveParameters& from) {
    return RefineGaussian(points, weights, from, {});
  };
  return RefineInPasses(points, GaussianStartByWidth(points), passes, clip, refine, GaussianAt);
}

int SolverThreads(std::size_t points, int setting) {
  if (points < kMinThreadedPoints) return 1;
  return setting >= 1 ? setting : cv::getNumberOfCPUs();
}

bool IsBeyondRange(double parameter) {
  return std::isinf(parameter) ||
         std::fabs(parameter - std::numeric_limits<double>::max()) < kLargestTolerance;
}

}  // namespace zor::fitting
