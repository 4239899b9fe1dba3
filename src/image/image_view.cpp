#include "image/image_view.h"

#include <cstring>

#include <opencv2/imgproc.hpp>

namespace zor::image {
namespace {

cv::Mat CopyInOrder(const ZorImage& image, int type) {
  cv::Mat rows(image.Height(), image.Width(), type);
  const std::size_t row_bytes =
      static_cast<std::size_t>(image.Width()) * static_cast<std::size_t>(image.Channels());
  for (int y = 0; y < image.Height(); ++y) std::memcpy(rows.ptr(y), image.Row(y), row_bytes);
  return rows;
}

}  // namespace

cv::Mat GreyView(const ZorImage& image) {
  if (image.Empty()) return {};
  const int type = CV_8UC(image.Channels());
  const cv::Mat pixels = image.Stride() > 0 ? cv::Mat(image.Height(), image.Width(), type,
                                                      const_cast<unsigned char*>(image.Row(0)),
                                                      static_cast<std::size_t>(image.Stride()))
                                            : CopyInOrder(image, type);
  if (image.Channels() == 1) return pixels;
  cv::Mat grey;
  cv::cvtColor(pixels, grey, cv::COLOR_BGR2GRAY);
  return grey;
}

}  // namespace zor::image
