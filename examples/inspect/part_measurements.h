#pragma once

#include <string>
#include <vector>

#include <opencv2/core.hpp>

#include "part_finder.h"
#include "row.h"

namespace inspect {

/// What the library measures of one part: the extent, area, centroid, axes and form of its outline
/// and largest holes, their straight sides with directions, lengths and defects, the angles between
/// neighbouring sides and the distances of parallel ones. Rows carry `name` as their group.
/// Outlines of which hardly anything is an edge, a soft shadow say, are left out; no rows when that
/// is the outer one.
std::vector<Row> MeasurePart(const cv::Mat& grey, const Part& part, const std::string& name);

}  // namespace inspect
