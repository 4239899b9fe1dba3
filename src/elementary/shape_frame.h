#pragma once

#include <array>
#include <cmath>

#include "ZorPoint.h"
#include "frame/tolerances.h"

namespace zor::elementary {

/// The frame of an oval or a rectangle: centre, and axes u and v turned counter-clockwise on the
/// screen, with the ten-digit pi.
///
///          v . (image +y at 0 degrees)
///            |
///     centre +---- u at 0 degrees; at 90 degrees u points up the screen
class ShapeFrame {
 public:
  ShapeFrame(const ZorPoint& centre, double angle_deg) : centre_(centre) {
    const double theta = angle_deg / 180 * frame::kPi;
    cos_ = std::cos(theta);
    sin_ = std::sin(theta);
  }

  /// The image point of (u, v) relative to the centre.
  [[nodiscard]] ZorPoint ToImage(double u, double v) const {
    return {centre_.x + u * cos_ + v * sin_, centre_.y - u * sin_ + v * cos_};
  }

  /// An image vector in the frame's axes; (point - centre) gives (u, v).
  [[nodiscard]] ZorPoint ToShape(const ZorPoint& d) const {
    return {d.x * cos_ - d.y * sin_, d.x * sin_ + d.y * cos_};
  }

  [[nodiscard]] const ZorPoint& Centre() const { return centre_; }

 private:
  ZorPoint centre_;
  double cos_ = 1.0;
  double sin_ = 0.0;
};

/// An angle of 180 or more less 180, once: a rectangle's corners repeat after half a turn.
[[nodiscard]] inline double ReduceByHalfTurn(double angle_deg) {
  return angle_deg >= 180 ? angle_deg - 180 : angle_deg;
}

/// Corners (w/2, h/2), (-w/2, h/2), (-w/2, -h/2), (w/2, -h/2) of the rectangle in the frame.
[[nodiscard]] inline std::array<ZorPoint, 4> RectangleCorners(const ShapeFrame& frame, double width,
                                                              double height) {
  const double u = width / 2;
  const double v = height / 2;
  return {frame.ToImage(u, v), frame.ToImage(-u, v), frame.ToImage(-u, -v), frame.ToImage(u, -v)};
}

}  // namespace zor::elementary
