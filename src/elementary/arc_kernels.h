#pragma once

#include <vector>

#include "ZorPoint.h"

namespace zor::elementary {

/// An arc of an ellipse with its axes turned by phi: centre, semi-axes (pixels), then degrees. The
/// angles run counter-clockwise on the screen.
struct Arc {
  ZorPoint centre;
  float a = 0.0F;
  float b = 0.0F;
  float phi = 0.0F;
  float start = 0.0F;
  float extent = 0.0F;
};

/// `count` samples, evenly spaced in the polar angle about the centre (not in the parametric angle
/// of the ellipse); a full turn does not repeat its first point, a part of one includes both ends.
[[nodiscard]] std::vector<ZorPoint> SamplePoints(const Arc& arc, int count);

}  // namespace zor::elementary
