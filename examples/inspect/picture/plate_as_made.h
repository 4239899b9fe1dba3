#pragma once

#include <string>
#include <vector>

#include "../plate_drawing.h"

namespace plate {

using Outline = std::vector<cv::Point2d>;

/// The drawn plate with the deviations of the piece in the picture: every figure a few tenths of a
/// pixel off its drawn size and place, and the whole piece shifted and turned on the table.
Plate AsMade(const Plate& drawing);

// Outlines run clockwise on the screen, with chords that stay within 1e-4 pixel of the curves.

/// The outer outline with nick and bulge.
Outline OuterOutline(const Plate& plate);
Outline CircleOutline(const cv::Point2d& centre, double radius);
Outline EllipseOutline(const Slot& slot);

/// The dimensions of the piece as lines "key value", which the host compares its measurements with.
std::string TruthText(const Plate& plate);

}  // namespace plate
