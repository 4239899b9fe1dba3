#pragma once

#include <array>
#include <cstddef>

#include "ZorPoint.h"
#include "ZorPointView.h"
#include "elementary/shape_frame.h"

// Where a line meets a circle, an oval, a rectangle. Lines are given by two points on them.

namespace zor::intersection {

/// A few points in order, without an allocation.
template <std::size_t kMost>
class FewPoints {
 public:
  void Append(const ZorPoint& p) { points_[count_++] = p; }
  void RemoveLast() { --count_; }
  [[nodiscard]] ZorPointView View() const { return ZorPointView(points_.data(), count_); }

 private:
  std::array<ZorPoint, kMost> points_;
  std::size_t count_ = 0;
};

/// Line p1p2, not degenerate, with the circle. Vertical (p1.x == p2.x exactly): larger y first;
/// otherwise larger x first. Within kTangentReach of touching: the one point where it touches.
[[nodiscard]] FewPoints<2> CircleCrossings(const ZorPoint& p1, const ZorPoint& p2,
                                           const ZorPoint& centre, double radius);

/// The vertical line at x with the circle, larger y first: the form for segments, whose bounds
/// differ and which takes any radius.
[[nodiscard]] FewPoints<2> VerticalCircleCrossings(double x, const ZorPoint& centre, double radius);

/// An oval with a >= b in the frame of its axes.
struct Oval {
  elementary::ShapeFrame frame;
  double a;
  double b;
};

/// The oval of the loose parameters: for a < b the axes are swapped and the angle raised by 90.
[[nodiscard]] Oval MakeOval(const ZorPoint& centre, double a, double b, double angle_deg);

/// Line p1p2, not degenerate, with the oval; `foot` is any point of the line, best the one nearest
/// to the centre. In the oval's frame: larger x first, or for a line along its v axis larger y.
[[nodiscard]] FewPoints<2> OvalCrossings(const ZorPoint& p1, const ZorPoint& p2,
                                         const ZorPoint& foot, const Oval& oval);

/// The points T1, T2 where the tangents from a point outside the circle touch it.
///
///           T1 .
///          .      .          (as on the screen, y downwards)
///        c --------- p
///          .      .
///           T2 .
[[nodiscard]] std::array<ZorPoint, 2> TangentPoints(const ZorPoint& p, const ZorPoint& centre,
                                                    double radius);

}  // namespace zor::intersection
