#pragma once

#include <opencv2/core/mat.hpp>

#include "ZorImage.h"

namespace zor::image {

/// The image as one channel of 8 bits: a view on its pixels where that can be, else a copy (three
/// channels, taken as blue, green, red, become grey; rows stored bottom up are put in order). An
/// empty image gives an empty matrix. The view is for reading and lives as long as the pixels.
[[nodiscard]] cv::Mat GreyView(const ZorImage& image);

}  // namespace zor::image
