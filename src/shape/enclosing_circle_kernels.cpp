#include "shape/enclosing_circle_kernels.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include <opencv2/core/types.hpp>
#include <opencv2/imgproc.hpp>

#include "frame/opencv_points.h"

namespace zor::shape {

namespace {

// Up to here the points go to the routine as they are.
constexpr std::size_t kFew = 16;

struct FloatCircle {
  cv::Point2f centre;
  float radius = 0.0F;

  /// As the routine itself measures.
  [[nodiscard]] bool Holds(const cv::Point2f& p) const {
    return static_cast<float>(cv::norm(p - centre)) < radius;
  }
};

FloatCircle CircleAbout(const std::vector<cv::Point2f>& points) {
  FloatCircle circle;
  cv::minEnclosingCircle(points, circle.centre, circle.radius);
  return circle;
}

/// The points that reach farthest along the axes, none twice.
std::vector<std::size_t> ExtremePoints(const std::vector<cv::Point2f>& points) {
  std::size_t left = 0;
  std::size_t right = 0;
  std::size_t top = 0;
  std::size_t bottom = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i].x < points[left].x) left = i;
    if (points[i].x > points[right].x) right = i;
    if (points[i].y < points[top].y) top = i;
    if (points[i].y > points[bottom].y) bottom = i;
  }
  std::vector<std::size_t> extremes = {left, right, top, bottom};
  std::sort(extremes.begin(), extremes.end());
  extremes.erase(std::unique(extremes.begin(), extremes.end()), extremes.end());
  return extremes;
}

std::size_t FarthestFrom(const cv::Point2f& centre, const std::vector<cv::Point2f>& points) {
  std::size_t farthest = 0;
  double farthest2 = -1.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double dx = static_cast<double>(points[i].x) - static_cast<double>(centre.x);
    const double dy = static_cast<double>(points[i].y) - static_cast<double>(centre.y);
    const double d2 = dx * dx + dy * dy;
    if (d2 > farthest2) {
      farthest2 = d2;
      farthest = i;
    }
  }
  return farthest;
}

/// The routine adds points in their order and starts over at each one outside: on an ordered
/// outline at nearly every one, at three levels. So it gets the extreme points only, and then,
/// while one lies outside, also that which is farthest: a handful in all. The smallest circle about
/// some of the points that holds all of them is the smallest about all.
FloatCircle GrowCircle(const std::vector<cv::Point2f>& points) {
  std::vector<std::size_t> chosen = ExtremePoints(points);
  std::vector<cv::Point2f> fed;
  for (const std::size_t i : chosen) fed.push_back(points[i]);
  for (;;) {
    const FloatCircle circle = CircleAbout(fed);
    const std::size_t farthest = FarthestFrom(circle.centre, points);
    if (circle.Holds(points[farthest])) return circle;
    // Outside although it was taken into account: by rounding, on large coordinates.
    if (std::find(chosen.begin(), chosen.end(), farthest) != chosen.end()) return circle;
    chosen.push_back(farthest);
    fed.push_back(points[farthest]);
  }
}

/// The routine takes repeated points and points in line for a circle at times that misses others by
/// pixels. Grown from the extreme points, it does not meet them.
FloatCircle CircleAboutFew(const std::vector<cv::Point2f>& points) {
  const FloatCircle circle = CircleAbout(points);
  const float distance =
      static_cast<float>(cv::norm(points[FarthestFrom(circle.centre, points)] - circle.centre));
  constexpr float kRounding = 1e-4F;  // of the radius, and in pixels
  return distance > circle.radius * (1 + kRounding) + kRounding ? GrowCircle(points) : circle;
}

}  // namespace

Circle SmallestEnclosingCircle(std::span<const ZorPoint> points) {
  const std::vector<cv::Point2f> given = frame::ToFloatPoints(points);
  if (!frame::AreFinite(given)) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    return {{kNaN, kNaN}, kNaN};
  }
  const FloatCircle circle = given.size() <= kFew ? CircleAboutFew(given) : GrowCircle(given);
  return {frame::FromFloatPoint(circle.centre), static_cast<double>(circle.radius)};
}

}  // namespace zor::shape
