#pragma once

#include <vector>

#include <opencv2/core.hpp>

#include "line_fit.h"

namespace inspect {

/// A straight side of an outline, measured; it runs clockwise on the screen.
struct StraightSide {
  FittedLine line;
  std::vector<cv::Point2d> points;
  cv::Point2d from, to;  // where it begins and ends in the rough outline
  bool joined = false;   // the next side of the list follows at a corner, be it a rounded one
};

/// How far a side of this length is left alone at both ends, where corners disturb it; pixels.
double CornerMargin(double length);

/// The straight sides of a closed chain of pixels, in order around it; the last may be joined to
/// the first. Short ones and pieces of curves are left out, and a side that some damage interrupts
/// is one side.
std::vector<StraightSide> FindStraightSides(const cv::Mat& grey,
                                            const std::vector<cv::Point2d>& chain);

}  // namespace inspect
