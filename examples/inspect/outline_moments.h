#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include <ZorData.h>
#include <ZorStatus.h>

namespace inspect {

/// Of the area inside an outline: centroid, and central second moments over the area.
struct AreaMoments {
  double area = 0;
  cv::Point2d centroid;
  double xx = 0, yy = 0, xy = 0;
  long status = GM_OK;
};

/// `outline` is closed and runs clockwise on the screen.
AreaMoments MomentsOf(const std::vector<cv::Point2d>& outline);

/// Of an outline as a thin wire: its middle, the directions of its principal axes, and the standard
/// deviations of its points along them.
struct WireAxes {
  ZorPoint middle;
  ZorPoint main, cross;  // length 1
  double main_deviation = 0, cross_deviation = 0;
  long status = GM_OK;
};

WireAxes AxesOf(const std::vector<cv::Point2d>& outline);

}  // namespace inspect
