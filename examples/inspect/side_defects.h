#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include "edge_defects.h"
#include "straight_sides.h"

namespace inspect {

/// Where an outline, closed and clockwise on the screen, strays by a pixel or more from one of its
/// straight sides, corners aside. In a notch an outline may be no better than whole pixels, so the
/// defects are measured in edge points across the side, as far as there are any.
EdgeDefects FindSideDefects(const cv::Mat& grey, const StraightSide& side,
                            const std::vector<cv::Point2d>& outline);

}  // namespace inspect
