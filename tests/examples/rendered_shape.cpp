#include "rendered_shape.h"

#include <opencv2/imgproc.hpp>

namespace examples_test {

cv::Mat Rendered(const cv::Size& size, const std::function<bool(double x, double y)>& is_inside,
                 double inside, double outside) {
  cv::Mat fine(size * kFine, CV_32F);
  for (int row = 0; row < fine.rows; ++row) {
    for (int col = 0; col < fine.cols; ++col) {
      const bool is_in = is_inside((col + 0.5) / kFine - 0.5, (row + 0.5) / kFine - 0.5);
      fine.at<float>(row, col) = static_cast<float>(is_in ? inside : outside);
    }
  }
  cv::GaussianBlur(fine, fine, {}, kFine);
  cv::resize(fine, fine, size, 0, 0, cv::INTER_AREA);
  cv::Mat picture;
  fine.convertTo(picture, CV_8U);
  return picture;
}

}  // namespace examples_test
