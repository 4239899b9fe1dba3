#pragma once

#include <array>
#include <optional>

#include "ZorPoint.h"
#include "distance/oval_kernels.h"
#include "distance/point_pair.h"
#include "intersection/line_shape_kernels.h"

// Distances of lines and segments to an oval. Lines are given by two points on them, segments by
// their ends. "Local" points are in the frame of an oval with a >= b: the ellipse
// (x/a)^2 + (y/b)^2 = 1.

namespace zor::distance {

/// The two points, opposite each other, where the tangent of (x/a)^2 + (y/b)^2 = 1 has the given
/// direction, whichever axis is longer; not a number for a direction of (0, 0).
[[nodiscard]] std::array<ZorPoint, 2> OvalTangentPoints(const ZorPoint& direction, double a,
                                                        double b);

/// The nearest points of a local line and the ellipse; where they meet, a distance of 0 and the
/// same point twice.
[[nodiscard]] PointPair NearestOfLine(const ZorPoint& p1, const ZorPoint& p2, double a, double b);

/// Where a local segment first meets the outline of the ellipse, in shares of the way from s to e;
/// nothing where it does not.
[[nodiscard]] std::optional<double> FirstCrossing(const ZorPoint& s, const ZorPoint& e, double a,
                                                  double b);

/// A point of a segment with its signed distance from an oval, and the oval's point nearest to it
/// where that is known without measuring.
struct OvalSpot {
  double distance = 0.0;
  ZorPoint own;
  std::optional<ZorPoint> figure;
};

/// The spots of a segment nearest to and farthest from the outline, whatever the sign.
struct OvalSpots {
  OvalSpot nearest;
  OvalSpot farthest;

  /// The spot of the least signed distance, but where the segment meets the outline: 0 there.
  [[nodiscard]] const OvalSpot& Least() const { return nearest.distance < 0 ? farthest : nearest; }
};

/// An oval prepared for the distances of many segments.
///
/// The signed distance is convex along a segment. So it is greatest at an end, and that is also
/// where a segment within the oval is nearest to the outline. It can be least in between only in a
/// foot, on the segment, of a point T whose tangent is parallel to it, or, inside, where it crosses
/// the middle of the long axis: there the nearest point changes sides.
///
///     s ----.------- e        a segment past the oval: the foot of the nearer T
///           |
///       .---T---.
///      /     s   \            into the oval: the foot of a T or the crossing of the long axis
///     ( -=====\=- )           (its part =, between the centres of curvature of its ends)
///      \       e /
///       `---T---'
class OvalSegments {
 public:
  OvalSegments(const ZorPoint& centre, double a, double b, double angle_deg);

  /// Both ends have been measured. The earliest of crossing, start, end, inner points on ties.
  [[nodiscard]] OvalSpots Measure(const OvalSpot& start, const OvalSpot& end) const;

  /// The spot with the oval's point nearest to it.
  [[nodiscard]] PointPair PairOf(const OvalSpot& spot) const;

  [[nodiscard]] ZorPoint ToLocal(const ZorPoint& p) const {
    return oval_.frame.ToShape(p - oval_.frame.Centre());
  }
  /// The points between start and end, all within the oval, that Measure measures beside them.
  [[nodiscard]] intersection::FewPoints<3> InnerPoints(const ZorPoint& start,
                                                       const ZorPoint& end) const;

  [[nodiscard]] const OvalMeasure& Points() const { return points_; }
  [[nodiscard]] double A() const { return oval_.a; }
  [[nodiscard]] double B() const { return oval_.b; }

 private:
  intersection::Oval oval_;
  OvalMeasure points_;
};

}  // namespace zor::distance
