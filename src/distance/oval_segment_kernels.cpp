#include "distance/oval_segment_kernels.h"

#include <cmath>

#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"

namespace zor::distance {

using elementary::Dot;

namespace {

inline constexpr double kUprightLine = 1e-5;   // extent along u, pixels, inclusive
inline constexpr double kLineTouches = 1e-5;   // an upright line, pixels, inclusive
inline constexpr double kDiscriminant = 1e-5;  // of a line that touches, inclusive

/// The line x = x0.
PointPair NearestOfUprightLine(double x0, double a, double b) {
  const double beyond = std::fabs(x0) - a;
  if (beyond > kLineTouches) return {beyond, {x0, 0}, {std::copysign(a, x0), 0}};
  if (std::fabs(beyond) <= kLineTouches) return {0, {x0, 0}, {x0, 0}};
  const ZorPoint crossing(x0, b * std::sqrt(1 - x0 * x0 / (a * a)));
  return {0, crossing, crossing};
}

/// Foot on line p1p2, which has a direction.
ZorPoint FootOn(const ZorPoint& p, const ZorPoint& p1, const ZorPoint& p2) {
  const ZorPoint q = elementary::PerpendicularThrough(p, p1, p2);
  return elementary::IntersectLines(p1, p2, q, p).value_or(p1);
}

/// Of the two, the one nearer to the line; the first on a tie.
ZorPoint NearerTo(const std::array<ZorPoint, 2>& points, const ZorPoint& p1, const ZorPoint& p2) {
  const double to_first = elementary::PointToLine(points[0], p1, p2);
  return elementary::PointToLine(points[1], p1, p2) < to_first ? points[1] : points[0];
}

/// |s + t (e - s)|^2 = 1 in t, for points of the frame in which the ellipse is the unit circle:
/// A t^2 + 2 B t + C = 0.
struct WayEquation {
  double a;
  double b;
  double c;

  WayEquation(const ZorPoint& s, const ZorPoint& e, double semi_a, double semi_b) {
    const ZorPoint start(s.x / semi_a, s.y / semi_b);
    const ZorPoint way((e.x - s.x) / semi_a, (e.y - s.y) / semi_b);
    a = Dot(way, way);
    b = Dot(start, way);
    c = Dot(start, start) - 1;
  }
  [[nodiscard]] double Discriminant() const { return b * b - a * c; }
};

bool IsOnTheWay(double share) { return share >= 0 && share <= 1; }

std::optional<double> FirstRoot(const WayEquation& way) {
  const double discriminant = way.Discriminant();
  if (!(discriminant >= 0)) return std::nullopt;
  // Neither root is a difference of nearly equal numbers.
  const double q = -(way.b + std::copysign(std::sqrt(discriminant), way.b));
  const double first = q > 0 ? way.c / q : q / way.a;
  const double second = q > 0 ? q / way.a : way.c / q;
  if (IsOnTheWay(first)) return first;
  if (IsOnTheWay(second)) return second;
  return std::nullopt;
}

/// The point of an oval whose tangent is parallel to a segment past it, s to e, and its foot there.
struct Tangency {
  ZorPoint point;
  double share;

  Tangency(const ZorPoint& s, const ZorPoint& e, double a, double b)
      : point(NearerTo(OvalTangentPoints(e - s, a, b), s, e)),
        share(Dot(point - s, e - s) / Dot(e - s, e - s)) {}
};

ZorPoint Between(const ZorPoint& start, const ZorPoint& end, double share) {
  return {start.x + share * (end.x - start.x), start.y + share * (end.y - start.y)};
}

}  // namespace

std::array<ZorPoint, 2> OvalTangentPoints(const ZorPoint& direction, double a, double b) {
  const bool is_steep = std::fabs(direction.y) > std::fabs(direction.x);
  const double k = is_steep ? direction.x / direction.y : direction.y / direction.x;
  const double first = is_steep ? b : a;
  const double second = is_steep ? a : b;
  const double s = std::sqrt(first * first * (k * k) + second * second);
  const double p = first * first * k / s;
  const double q = s - p * k;
  if (is_steep) return {ZorPoint(q, -p), ZorPoint(-q, p)};
  return {ZorPoint(-p, q), ZorPoint(p, -q)};
}

PointPair NearestOfLine(const ZorPoint& p1, const ZorPoint& p2, double a, double b) {
  const ZorPoint direction = p2 - p1;
  if (std::fabs(direction.x) <= kUprightLine) return NearestOfUprightLine(p1.x, a, b);
  const double k = direction.y / direction.x;
  const double m = p1.y - k * p1.x;
  // Deliberate: neither the equation nor the bound on its discriminant is scaled to the size of the
  // oval. Large ovals have tangents to the last bits only, and an oval a tenth of a pixel wide is
  // touched by lines a tenth away; hosts know results made that way.
  const double qa = k * k * (a * a) + b * b;
  const double qb = 2 * k * m * (a * a);
  const double qc = a * a * (m * m - b * b);
  const double discriminant = qb * qb - 4 * qa * qc;
  if (discriminant < -kDiscriminant) {
    const ZorPoint tangent = NearerTo(OvalTangentPoints(direction, a, b), p1, p2);
    return {elementary::PointToLine(tangent, p1, p2), FootOn(tangent, p1, p2), tangent};
  }
  const double x = std::fabs(discriminant) <= kDiscriminant
                       ? -qb / (2 * qa)
                       : (std::sqrt(discriminant) - qb) / (2 * qa);
  const ZorPoint common(x, k * x + m);
  return {0, common, common};
}

std::optional<double> FirstCrossing(const ZorPoint& s, const ZorPoint& e, double a, double b) {
  return FirstRoot(WayEquation(s, e, a, b));
}

OvalSegments::OvalSegments(const ZorPoint& centre, double a, double b, double angle_deg)
    : oval_(intersection::MakeOval(centre, a, b, angle_deg)), points_(centre, a, b, angle_deg) {}

intersection::FewPoints<3> OvalSegments::InnerPoints(const ZorPoint& start,
                                                     const ZorPoint& end) const {
  const double a = oval_.a;
  const double b = oval_.b;
  const ZorPoint s = ToLocal(start);
  const ZorPoint e = ToLocal(end);
  const ZorPoint way = e - s;
  intersection::FewPoints<3> points;
  for (const ZorPoint& tangent : OvalTangentPoints(way, a, b)) {
    const double share = Dot(tangent - s, way) / Dot(way, way);
    if (!(share > 0 && share < 1)) continue;
    const ZorPoint foot = Between(s, e, share);
    const double along = foot.x / a;
    const double across = foot.y / b;
    if (along * along + across * across < 1) points.Append(Between(start, end, share));
  }
  if (s.y * e.y < 0) {
    const double share = s.y / (s.y - e.y);
    const bool is_inner = std::fabs(Between(s, e, share).x) <= (a * a - b * b) / a;
    if (is_inner) points.Append(Between(start, end, share));
  }
  return points;
}

OvalSpots OvalSegments::Measure(const OvalSpot& start, const OvalSpot& end) const {
  const double from_start = std::fabs(start.distance);
  const double from_end = std::fabs(end.distance);
  OvalSpots spots{from_end < from_start ? end : start, from_end > from_start ? end : start};
  const ZorPoint s = ToLocal(start.own);
  const ZorPoint e = ToLocal(end.own);
  const WayEquation way(s, e, oval_.a, oval_.b);
  if (way.Discriminant() < 0) {
    const Tangency tangency(s, e, oval_.a, oval_.b);
    const double distance = elementary::PointToLine(tangency.point, s, e);
    if (IsOnTheWay(tangency.share) && distance < spots.nearest.distance) {
      spots.nearest = {distance, Between(start.own, end.own, tangency.share),
                       oval_.frame.ToImage(tangency.point.x, tangency.point.y)};
    }
    return spots;
  }
  const std::optional<double> crossing = FirstRoot(way);
  if (crossing) {
    const ZorPoint common = Between(start.own, end.own, *crossing);
    spots.nearest = {0.0, common, common};
  } else if (start.distance > 0) {
    return spots;
  }
  const intersection::FewPoints<3> inner = InnerPoints(start.own, end.own);
  for (const ZorPoint& p : inner.View()) {
    const OvalFoot foot = points_.FootOf(p);
    if (std::fabs(foot.distance) > std::fabs(spots.farthest.distance)) {
      spots.farthest = {foot.distance, p, foot.nearest};
    }
  }
  return spots;
}

PointPair OvalSegments::PairOf(const OvalSpot& spot) const {
  return {spot.distance, spot.own, spot.figure ? *spot.figure : points_.FootOf(spot.own).nearest};
}

}  // namespace zor::distance
