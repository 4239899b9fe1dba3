#include "coverage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plate {

Coverage::Coverage(int width, int height, double scale)
    : differences_(height, width + 1, CV_64F, cv::Scalar(0)), scale_(scale) {}

void Coverage::Add(const std::vector<cv::Point2d>& outline, bool hole) {
  const cv::Point2d half(0.5, 0.5);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const cv::Point2d& next = outline[(i + 1) % outline.size()];
    AddSide(scale_ * (outline[i] + half), scale_ * (next + half), hole ? -1 : 1);
  }
}

void Coverage::AddSide(cv::Point2d a, cv::Point2d b, double sign) {
  if (a.y == b.y) return;
  // On a clockwise outline the inside lies to the right of the sides that run upwards.
  double upwards = sign;
  if (a.y < b.y) {
    upwards = -sign;
  } else {
    std::swap(a, b);
  }
  const double dx_dy = (b.x - a.x) / (b.y - a.y);
  const int first = std::max(0, static_cast<int>(std::floor(a.y)));
  const int last = std::min(differences_.rows - 1, static_cast<int>(std::ceil(b.y)) - 1);
  for (int row = first; row <= last; ++row) {
    const double y0 = std::max(a.y, static_cast<double>(row));
    const double y1 = std::min(b.y, static_cast<double>(row + 1));
    AddInRow(row, a.x + (y0 - a.y) * dx_dy, a.x + (y1 - a.y) * dx_dy, upwards * (y1 - y0));
  }
}

void Coverage::AddInRow(int row, double x0, double x1, double height) {
  double* line = differences_.ptr<double>(row);
  const double right = differences_.cols - 1;
  x0 = std::clamp(x0, 0.0, right);
  x1 = std::clamp(x1, 0.0, right);
  if (x1 < x0) std::swap(x0, x1);
  // A vertical piece, or the pieces into which the pixel borders cut a slanted one.
  const int first = std::min(static_cast<int>(x0), differences_.cols - 2);
  const int last = std::min(static_cast<int>(x1), differences_.cols - 2);
  for (int col = first; col <= last; ++col) {
    const double left = std::max(x0, static_cast<double>(col));
    const double until = col == last ? x1 : static_cast<double>(col + 1);
    const double share = x1 > x0 ? (until - left) / (x1 - x0) : 1.0;
    const double beyond = 0.5 * (left + until) - col;  // of the piece's mean x into the pixel
    line[col] += height * share * (1 - beyond);
    line[col + 1] += height * share * beyond;
  }
}

cv::Mat Coverage::Take() {
  cv::Mat coverage(differences_.rows, differences_.cols - 1, CV_32F);
  for (int row = 0; row < coverage.rows; ++row) {
    const double* in = differences_.ptr<double>(row);
    float* out = coverage.ptr<float>(row);
    double sum = 0;
    for (int col = 0; col < coverage.cols; ++col) {
      sum += in[col];
      out[col] = static_cast<float>(std::clamp(sum, 0.0, 1.0));
    }
  }
  return coverage;
}

}  // namespace plate
