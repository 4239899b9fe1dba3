#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "ZorGeometryMeasure.h"
#include "frame/trace.h"
#include "image/image_view.h"

using zor::frame::Trace;

namespace {

using Contour = std::vector<cv::Point>;

std::int64_t CountWhite(const cv::Mat& grey) {
  constexpr int kRows = 255;  // as many as a byte a column can count
  std::int64_t count = 0;
  std::vector<unsigned char> in_column(static_cast<std::size_t>(grey.cols));
  for (int first = 0; first < grey.rows; first += kRows) {
    std::fill(in_column.begin(), in_column.end(), static_cast<unsigned char>(0));
    for (int y = first; y < std::min(first + kRows, grey.rows); ++y) {
      const unsigned char* row = grey.ptr(y);
      for (std::size_t x = 0; x < in_column.size(); ++x) {
        in_column[x] = static_cast<unsigned char>(in_column[x] + (row[x] == 255 ? 1 : 0));
      }
    }
    count += std::accumulate(in_column.begin(), in_column.end(), std::int64_t{0});
  }
  return count;
}

/// Centre of the area that the contour encloses; of its bounding box when that area is zero.
ZorPoint WholeCentre(const Contour& contour) {
  const cv::Moments moments = cv::moments(contour, false);
  if (moments.m00 != 0) {
    return {std::round(moments.m10 / moments.m00), std::round(moments.m01 / moments.m00)};
  }
  const cv::Rect box = cv::boundingRect(contour);
  return {std::round(box.x + (box.width - 1) / 2.0), std::round(box.y + (box.height - 1) / 2.0)};
}

}  // namespace

long ZorGeometryMeasure::AreaMeasure(ZorImage& image, ZorROI& /*roi*/, int mode, float minArea,
                                     float maxArea, ZorROIArray* /*rois*/, ZorVarArray& areas,
                                     ZorVarArray& centreX, ZorVarArray& centreY) {
  Trace trace("AreaMeasure");
  areas.Clear();
  centreX.Clear();
  centreY.Clear();
  const cv::Mat grey = zor::image::GreyView(image);
  if (grey.rows < 1 || grey.cols < 1) return GM_E_EMPTY_IMAGE;
  if (mode == 1) {
    areas.Append(static_cast<double>(CountWhite(grey)));
    return trace.Done();
  }
  if (mode != 0) return trace.Done();
  std::vector<Contour> contours;
  std::vector<cv::Vec4i> hierarchy;
  cv::findContours(grey, contours, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_SIMPLE);
  if (contours.empty()) return trace.Done();
  for (int i = 0; i >= 0; i = hierarchy[static_cast<std::size_t>(i)][0]) {
    const Contour& outer = contours[static_cast<std::size_t>(i)];
    const double area = std::fabs(cv::contourArea(outer, false));
    if (!(static_cast<double>(minArea) <= area && area <= static_cast<double>(maxArea))) continue;
    const ZorPoint centre = WholeCentre(outer);
    areas.Append(area);
    centreX.Append(centre.x);
    centreY.Append(centre.y);
  }
  return trace.Done();
}
