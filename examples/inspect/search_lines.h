#pragma once

#include <vector>

#include "edge_finder.h"

// Search lines across figures whose place is roughly known. Figures run clockwise on the screen,
// and the search lines point out of them.
namespace inspect {

struct SearchOptions {
  double spacing = 2;      // between neighbouring lines along the figure, pixels
  double margin = 8;       // kept free at both ends of a segment, where corners disturb the edge
  double half_length = 7;  // see EdgeSearch
  double min_contrast = 20;
  Polarity polarity = Polarity::kAny;
};

std::vector<EdgeSearch> AcrossSegment(const cv::Point2d& from, const cv::Point2d& to,
                                      const SearchOptions& options);

/// Semi-axis a along `angle_deg` (counter-clockwise on the screen), b across it; a circle has a =
/// b.
std::vector<EdgeSearch> AcrossEllipse(const cv::Point2d& centre, double a, double b,
                                      double angle_deg, const SearchOptions& options);

}  // namespace inspect
