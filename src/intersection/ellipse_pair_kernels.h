#pragma once

#include <vector>

#include "ZorPoint.h"

namespace zor::intersection {

/// An ellipse: centre, semi-axes, angle of the first axis in degrees (0 to 180 in ellipse pairs).
struct Ellipse {
  ZorPoint centre;
  double a = 0.0;
  double b = 0.0;
  double angle_deg = 0.0;
};

/// As an ellipse pair sees it: an angle above 180 is reduced by 180.
[[nodiscard]] Ellipse NormalisedEllipse(const ZorPoint& centre, double a, double b,
                                        double angle_deg);

/// The same figure: centres within 1e-5 and either axes within 1e-5 with angles within 1e-5 of a
/// multiple of 180 apart, or axes swapped with angles within 1e-5 of 90 or 270 apart, inclusive.
/// Two circles given with other angle differences are not recognised.
[[nodiscard]] bool AreSameEllipse(const Ellipse& first, const Ellipse& second);

/// The common points of two ellipses, in ascending parametric angle on the first one (clockwise on
/// the screen from the end of its first axis). Where they pass within 1e-6 pixels of each other
/// without leaving that band on either side they touch, and where they leave it on the other side
/// they cross: one point, however long they stay in it. Outlines within 1e-6 of each
/// other everywhere have no points.
///
/// Method: in the frame in which the first ellipse is the unit circle, the equation of the second
/// along that circle is a trigonometric polynomial of degree two. Its roots are isolated by
/// bisection with Taylor bounds (no root, monotone, or one extremum per interval) and refined by
/// safeguarded Newton steps, so that double roots of the equivalent quartic in a coordinate, as for
/// a centre on the other's axis, do not arise and tangency is decided at the extremum.
class EllipsePair {
 public:
  EllipsePair(const Ellipse& first, const Ellipse& second);

  [[nodiscard]] std::vector<ZorPoint> Points() const;

  /// Area common to both. Without a crossing: of the inner one (pi with ten digits), or 0. Else by
  /// Green's theorem over the arcs of each that run inside the other: the chords' polygon plus the
  /// elliptical segments outside it.
  [[nodiscard]] double OverlapArea() const;

 private:
  struct Meeting {
    double t = 0.0;         // parametric angle on the first ellipse
    bool is_entry = false;  // the first ellipse enters the second here, with t ascending
    bool is_tangent = false;
    ZorPoint point;
  };

  [[nodiscard]] double ArcArea() const;

  Ellipse first_;
  Ellipse second_;
  std::vector<Meeting> meetings_;
};

}  // namespace zor::intersection
