#include "frame/opencv_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zor::frame {

namespace {

int Truncate(double value) {
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  if (value != value) return 0;
  return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

}  // namespace

std::vector<cv::Point> ToTruncatedPoints(std::span<const ZorPoint> points) {
  std::vector<cv::Point> out;
  out.reserve(points.size());
  for (const ZorPoint& p : points) out.emplace_back(Truncate(p.x), Truncate(p.y));
  return out;
}

std::vector<cv::Point2f> ToFloatPoints(std::span<const ZorPoint> points) {
  std::vector<cv::Point2f> out;
  out.reserve(points.size());
  for (const ZorPoint& p : points) {
    out.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  return out;
}

cv::Mat ViewOfPoints(std::span<const ZorPoint> points) {
  static_assert(sizeof(ZorPoint) == sizeof(cv::Point2d));
  auto* data = const_cast<ZorPoint*>(points.data());  // NOLINT: a matrix has no read-only form
  return {static_cast<int>(points.size()), 1, CV_64FC2, data};
}

bool AreFinite(std::span<const cv::Point2f> points) {
  return std::all_of(points.begin(), points.end(),
                     [](const cv::Point2f& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

}  // namespace zor::frame
