#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include "line_fit.h"

namespace inspect {

/// Where the points of a straight edge stray from its line.
struct EdgeDefect {
  std::vector<cv::Point2d> points;
  ZorPoint deepest;  // the point farthest from the line, its foot on the line, and their distance
  ZorPoint foot;
  double depth = 0;
};

struct EdgeDefects {
  std::vector<EdgeDefect> found;
  long status = GM_E_TOO_FEW_POINTS;  // GM_OK when the edge could be examined
};

/// The defects of an edge: runs of `min_points` or more of its points that are farther than about
/// `distance` from its line. `points` run along the line.
EdgeDefects FindDefects(const std::vector<cv::Point2d>& points, const FittedLine& line,
                        double distance, int min_points);

}  // namespace inspect
