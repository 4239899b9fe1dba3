#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include <ZorData.h>
#include <ZorStatus.h>

namespace inspect {

struct FittedLine {
  ZorPoint start;
  ZorPoint end;
  long status = GM_E_TOO_FEW_POINTS;
};

enum class LineMethod { kLeastSquares, kLeastAbsolute };

/// The robust line through edge points of any direction; it begins at the first point and ends at
/// the last. Points farther than about `clip_distance` from the line lose their weight.
FittedLine FitLine(const std::vector<cv::Point2d>& points, double clip_distance,
                   LineMethod method = LineMethod::kLeastSquares);

/// Direction of the line on the screen, counter-clockwise from +x, in [0, 180): without a sense.
double LineAngle(const FittedLine& line);

}  // namespace inspect
