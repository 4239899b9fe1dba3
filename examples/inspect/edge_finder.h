#pragma once

#include <optional>
#include <vector>

#include <opencv2/core.hpp>

namespace inspect {

/// Sense of an edge along its search direction.
enum class Polarity { kAny, kRising, kFalling };  // either, dark to bright, bright to dark

/// A short line across an edge whose place is roughly known.
struct EdgeSearch {
  cv::Point2d centre;
  cv::Point2d direction;   // across the edge, length 1
  double half_length = 7;  // the edge is looked for this far to both sides of the centre
  double curvature = 0;    // of the edge, 1 / pixels; positive: bent round a centre behind the line
  double min_contrast = 20;  // grey values between both sides
  Polarity polarity = Polarity::kAny;
};

struct EdgePoint {
  cv::Point2d position;
  double blur;      // sigma of the transition, pixels
  double contrast;  // positive when rising along the search direction
};

/// The strongest edge of the wanted polarity on the search line, to a few hundredths of a pixel:
/// the place where the sharp edge was before lens and pixels blurred it. None where there is no
/// such edge, where the grey values do not look like a blurred step, or outside of the picture.
/// `grey` is CV_8U; an integer coordinate is the centre of a pixel.
std::optional<EdgePoint> FindEdge(const cv::Mat& grey, const EdgeSearch& search);

/// The positions found on each of the search lines, in order, without those that found none.
std::vector<cv::Point2d> FindEdges(const cv::Mat& grey, const std::vector<EdgeSearch>& searches);

}  // namespace inspect
