#pragma once

#include <string>
#include <vector>

#include <opencv2/core.hpp>

#include "row.h"

namespace inspect {

/// Area, centroid, principal axes and form of an outline, the smallest figures around it, the
/// largest circle in it and the ellipse nearest to it. The outline is closed and runs clockwise on
/// the screen. The rows' names begin with `what`. An outline that is as wide in all directions has
/// no direction.
std::vector<Row> ShapeRows(const std::vector<cv::Point2d>& outline, const std::string& group,
                           const std::string& what);

}  // namespace inspect
