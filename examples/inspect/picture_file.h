#pragma once

#include <string>

#include <opencv2/core.hpp>

namespace inspect {

inline constexpr double kMaxPixels = 100e6;

struct Picture {
  cv::Mat grey;           // CV_8U, empty when there is none
  std::string complaint;  // then the sentence that says why
};

/// Reads a picture of any format that OpenCV knows, as grey values. A picture of more than
/// kMaxPixels is refused, for PNG, JPEG and BMP files before it is decoded.
Picture ReadPicture(const std::string& path);

}  // namespace inspect
