#include "fitting/gaussian_kernels.h"

#include <cmath>
#include <limits>

#include <opencv2/core/utility.hpp>

#include "fitting/curve_passes.h"

namespace zor::fitting {
namespace {

constexpr std::size_t kMinThreadedPoints = 100;
constexpr double kVanishing = 1e-8;
constexpr double kLargestTolerance = 1e-5;

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

CurveParameters FitGaussian(std::span<const ZorPoint> points, int passes, double clip) {
  const auto refine = [&](std::span<const double> weights, const CurveParameters& from) {
    return RefineGaussian(points, weights, from, {});
  };
  return RefineInPasses(points, GaussianStart(points), passes, clip, refine, GaussianAt);
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
