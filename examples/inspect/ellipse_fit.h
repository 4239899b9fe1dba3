#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include <ZorData.h>
#include <ZorStatus.h>

namespace inspect {

/// Semi-axis a, the longer one, along `angle_deg` in [0, 180), counter-clockwise on the screen.
struct FittedEllipse {
  ZorPoint centre;
  double a = 0, b = 0, angle_deg = 0;
  long status = GM_E_TOO_FEW_POINTS;
};

/// The least-squares ellipse through points around `middle`, which need not be its exact centre.
/// From the second pass on points farther than `clip_distance` lose their weight.
FittedEllipse FitEllipse(const std::vector<cv::Point2d>& points, const cv::Point2d& middle,
                         int passes, double clip_distance);

}  // namespace inspect
