#pragma once

#include <vector>

#include "search_lines.h"

namespace inspect {

struct Outline {
  std::vector<cv::Point2d> points;  // closed, clockwise on the screen
  double found = 0;                 // share of the search lines that found an edge
};

/// The outline, to sub-pixel accuracy, of a figure whose outline is roughly known: edge points
/// along the normals of `rough`, a closed polygon in either sense, its corners or a chain of
/// pixels. Where `rough` turns sharply nothing is measured, for `options.margin` to both sides,
/// because edges fade into one another there; the corner is put where the measured sides meet.
/// Where no edge is found, or sides do not meet, `rough` stands. Nothing for a `rough` of a few
/// pixels.
Outline TraceOutline(const cv::Mat& grey, const std::vector<cv::Point2d>& rough,
                     const SearchOptions& options);

/// Points in equal steps around a closed polygon.
std::vector<cv::Point2d> InEqualSteps(const std::vector<cv::Point2d>& polygon, double step);

/// Positive for a polygon that runs clockwise on the screen.
double SignedArea(const std::vector<cv::Point2d>& polygon);

}  // namespace inspect
