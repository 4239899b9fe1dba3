#pragma once

#include <vector>

#include <opencv2/core.hpp>

namespace plate {

/// The share of each pixel that closed polygons cover, exact for their straight sides.
///
/// Every side adds to the pixels of the rows that it passes the signed area between itself and the
/// right border of the picture, as differences along the row; the running sum over a row is then
/// the coverage. Outlines that run clockwise on the screen count positive, the others negative, so
/// a hole is added reversed.
class Coverage {
 public:
  /// Coordinate scale * (p + 0.5) of a picture point p falls on this raster: pixel (0, 0) covers
  /// [0, 1] x [0, 1] here and, in the picture, the square around its centre.
  Coverage(int width, int height, double scale);

  /// Parts outside the raster count where they project horizontally onto it; rows beyond it are
  /// cut.
  void Add(const std::vector<cv::Point2d>& outline, bool hole = false);
  /// The coverage in [0, 1], CV_32F. Call once, when all is added.
  cv::Mat Take();

 private:
  void AddSide(cv::Point2d a, cv::Point2d b, double sign);
  void AddInRow(int row, double x0, double x1, double height);

  cv::Mat differences_;  // CV_64F, one column more than the raster
  double scale_;
};

}  // namespace plate
