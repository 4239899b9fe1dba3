#pragma once

#include <span>
#include <vector>

#include <opencv2/core/mat.hpp>
#include <opencv2/core/types.hpp>

#include "ZorPoint.h"

// Points for the routines of OpenCV, one function a precision. For .cpp files only: no header of
// ours includes this one.

namespace zor::frame {

/// Each coordinate cut to a whole number towards zero. What an int cannot hold becomes its nearest
/// limit, a NaN becomes 0.
[[nodiscard]] std::vector<cv::Point> ToTruncatedPoints(std::span<const ZorPoint> points);

/// Each coordinate rounded to single precision.
[[nodiscard]] std::vector<cv::Point2f> ToFloatPoints(std::span<const ZorPoint> points);

/// The points themselves as a column of double pairs, without a copy. Only for routines that read.
[[nodiscard]] cv::Mat ViewOfPoints(std::span<const ZorPoint> points);

/// Whether every coordinate is neither infinite nor not a number: some routines sort by them.
[[nodiscard]] bool AreFinite(std::span<const cv::Point2f> points);

[[nodiscard]] inline ZorPoint FromFloatPoint(const cv::Point2f& p) {
  return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

}  // namespace zor::frame
