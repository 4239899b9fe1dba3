#pragma once

#include <vector>

#include <opencv2/core.hpp>

namespace inspect {

/// A figure that stands out from the background, as chains of neighbouring pixels.
struct Part {
  std::vector<cv::Point2d> outline;
  std::vector<std::vector<cv::Point2d>> holes;  // largest first
  double area = 0;                              // inside the outline, square pixels
  bool cut = false;                             // it reaches the border of the picture
};

/// The parts in a grey picture, largest first. The background is the most frequent brightness along
/// the border; parts may be brighter or darker than it. Specks are left out, and nothing is found
/// in a picture whose contrast is no more than noise and shading.
std::vector<Part> FindParts(const cv::Mat& grey);

}  // namespace inspect
