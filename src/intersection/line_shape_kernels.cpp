#include "intersection/line_shape_kernels.h"

#include <cmath>

#include "elementary/point_kernels.h"

namespace zor::intersection {
namespace {

inline constexpr double kTangentReach = 1e-6;      // of distance and radius, pixels, inclusive
inline constexpr double kHalfChord = 1e-6;         // a shorter half chord touches, inclusive
inline constexpr double kUprightNormal = 1e-5;     // of the normal's v component, inclusive
inline constexpr double kOvalTangentReach = 1e-5;  // of the normalised discriminant, inclusive

FewPoints<2> VerticalCrossings(double x, const ZorPoint& centre, double radius) {
  FewPoints<2> points;
  const double d = std::fabs(centre.x - x);
  const double e = std::fabs(d - radius);
  if (e <= kTangentReach) {
    points.Append({x, centre.y});
  } else if (radius > d) {
    const double h = std::sqrt(radius * radius - d * d);
    points.Append({x, centre.y + h});
    points.Append({x, centre.y - h});
  }
  return points;
}

/// The line along the oval's v axis, at distance u from it.
FewPoints<2> UprightCrossings(double u, const Oval& oval) {
  FewPoints<2> points;
  const double t = 1 - u * u / (oval.a * oval.a);
  if (std::fabs(t) <= kOvalTangentReach) {
    // Deliberate: t is not clamped, so that a line that just misses the oval touches it at a
    // coordinate that is not a number; the segment form drops that point by its test of the ends.
    points.Append(oval.frame.ToImage(u, oval.b * std::sqrt(t)));
  } else if (!(t < -kOvalTangentReach)) {  // so that what is no number comes out as such
    points.Append(oval.frame.ToImage(u, oval.b * std::sqrt(t)));
    points.Append(oval.frame.ToImage(u, -oval.b * std::sqrt(t)));
  }
  return points;
}

}  // namespace

FewPoints<2> CircleCrossings(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& centre,
                             double radius) {
  if (p1.x == p2.x) return VerticalCrossings(p1.x, centre, radius);
  FewPoints<2> points;
  const double k = (p1.y - p2.y) / (p1.x - p2.x);
  const double m = p1.y - k * p1.x;
  const double a = k * k + 1;
  const double c = m - centre.y;
  const double b = 2 * k * c - 2 * centre.x;
  const double discriminant = b * b - 4 * a * (centre.x * centre.x + c * c - radius * radius);
  const double distance = std::fabs((k * centre.x - centre.y + m) / std::sqrt(a));
  const double e = std::fabs(distance - radius);
  const auto append = [&](double x) { points.Append({x, k * x + m}); };
  if (e <= kTangentReach) {  // whatever the discriminant says
    append(-b / (2 * a));
  } else if (discriminant > 0) {  // Deliberate: nothing for a discriminant of exactly 0.
    append((-b + std::sqrt(discriminant)) / (2 * a));
    append((-b - std::sqrt(discriminant)) / (2 * a));
  }
  return points;
}

FewPoints<2> VerticalCircleCrossings(double x, const ZorPoint& centre, double radius) {
  FewPoints<2> points;
  if (x < centre.x - radius || x > centre.x + radius) return points;
  const double dx = centre.x - x;
  const double h = std::sqrt(radius * radius - dx * dx);
  if (h > kHalfChord) {
    points.Append({x, centre.y + h});
    points.Append({x, centre.y - h});
  } else {
    points.Append({x, centre.y});
  }
  return points;
}

Oval MakeOval(const ZorPoint& centre, double a, double b, double angle_deg) {
  if (a < b) return {elementary::ShapeFrame(centre, angle_deg + 90), b, a};
  return {elementary::ShapeFrame(centre, angle_deg), a, b};
}

FewPoints<2> OvalCrossings(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& foot,
                           const Oval& oval) {
  const ZorPoint centre = oval.frame.Centre();
  const double length = elementary::Distance(p1, p2);
  const ZorPoint n = oval.frame.ToShape({-(p1.y - p2.y) / length, (p1.x - p2.x) / length});
  const ZorPoint f = centre + oval.frame.ToShape(foot - centre);
  if (std::fabs(n.y) <= kUprightNormal) return UprightCrossings(f.x - centre.x, oval);

  FewPoints<2> points;
  const double a2 = oval.a * oval.a;
  const double b2 = oval.b * oval.b;
  const double k = -n.x / n.y;
  const double m = (f.y * n.y + f.x * n.x) / n.y;
  const double c = m - centre.y;
  const double qa = (k * oval.a) * (k * oval.a) + b2;
  const double qb = 2 * k * c * a2 - 2 * centre.x * b2;
  const double qc = a2 * (c * c) + centre.x * centre.x * b2 - b2 * a2;
  const double discriminant = qb * qb - 4 * qa * qc;
  const double q = discriminant / qa;
  const auto append = [&](double x) {
    points.Append(oval.frame.ToImage(x - centre.x, k * x + m - centre.y));
  };
  if (std::fabs(q) <= kOvalTangentReach) {
    append(-qb / (2 * qa));
  } else if (!(q < -kOvalTangentReach)) {
    append((std::sqrt(discriminant) - qb) / (2 * qa));
    append((-qb - std::sqrt(discriminant)) / (2 * qa));
  }
  return points;
}

std::array<ZorPoint, 2> TangentPoints(const ZorPoint& p, const ZorPoint& centre, double radius) {
  const double distance = elementary::Distance(centre, p);
  const double ux = (p.x - centre.x) / distance;
  const double uy = (p.y - centre.y) / distance;
  const double s = radius / distance;
  const double k = std::sqrt(1 - s * s);
  return {ZorPoint(centre.x + radius * (ux * s + uy * k), centre.y + radius * (uy * s - ux * k)),
          ZorPoint(centre.x + radius * (ux * s - uy * k), centre.y + radius * (ux * k + uy * s))};
}

}  // namespace zor::intersection
