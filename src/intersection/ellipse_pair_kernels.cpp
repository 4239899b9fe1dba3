#include "intersection/ellipse_pair_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "elementary/point_kernels.h"
#include "elementary/shape_frame.h"
#include "frame/tolerances.h"
#include "intersection/bracketed_root.h"
#include "intersection/trig_polynomial.h"

namespace zor::intersection {

using elementary::Cross;
using elementary::ShapeFrame;
using frame::kCoincident;

namespace {

inline constexpr double kTouching = 1e-6;  // pixels, inclusive
inline constexpr double kFullTurn = 2 * std::numbers::pi;

bool IsNear(double value, double target) { return std::fabs(value - target) <= kCoincident; }

/// What the equation of the second ellipse, x^2 + y^2 - 1 in its own unit frame, is along the first
/// one: x and y are p0 + p1 cos t + p2 sin t and q0 + q1 cos t + q2 sin t.
struct AlongFirst {
  double p0, p1, p2, q0, q1, q2;

  AlongFirst(const Ellipse& first, const Ellipse& second) {
    const ShapeFrame first_frame(ZorPoint(), first.angle_deg);
    const ShapeFrame second_frame(ZorPoint(), second.angle_deg);
    const ZorPoint origin = second_frame.ToShape(first.centre - second.centre);
    const ZorPoint a = second_frame.ToShape(first_frame.ToImage(first.a, 0));
    const ZorPoint b = second_frame.ToShape(first_frame.ToImage(0, first.b));
    p0 = origin.x / second.a;
    p1 = a.x / second.a;
    p2 = b.x / second.a;
    q0 = origin.y / second.b;
    q1 = a.y / second.b;
    q2 = b.y / second.b;
  }

  [[nodiscard]] ZorPoint UnitPoint(double t) const {
    const double c = std::cos(t);
    const double s = std::sin(t);
    return {p0 + p1 * c + p2 * s, q0 + q1 * c + q2 * s};
  }
  /// Negative inside the second ellipse.
  [[nodiscard]] double Equation(double t) const {
    const ZorPoint p = UnitPoint(t);
    return p.x * p.x + p.y * p.y - 1;
  }
  [[nodiscard]] TrigPolynomial Expanded() const {
    return {p0 * p0 + q0 * q0 - 1 + (p1 * p1 + p2 * p2 + q1 * q1 + q2 * q2) / 2,
            2 * (p0 * p1 + q0 * q1), 2 * (p0 * p2 + q0 * q2),
            (p1 * p1 - p2 * p2 + q1 * q1 - q2 * q2) / 2, p1 * p2 + q1 * q2};
  }
  /// Distance in pixels from the first ellipse's point at t to the second ellipse, to first order:
  /// the equation's value over the length of its gradient.
  [[nodiscard]] double Gap(double t, const Ellipse& second) const {
    const ZorPoint p = UnitPoint(t);
    const ZorPoint gradient(2 * p.x / second.a, 2 * p.y / second.b);
    return std::fabs(p.x * p.x + p.y * p.y - 1) / elementary::Norm(gradient);
  }
};

bool Holds(const Ellipse& ellipse, const ZorPoint& p) {
  const ZorPoint d = ShapeFrame(ZorPoint(), ellipse.angle_deg).ToShape(p - ellipse.centre);
  const double u = d.x / ellipse.a;
  const double v = d.y / ellipse.b;
  return u * u + v * v < 1;
}

/// The parametric angle of a point of an ellipse.
double ParameterOf(const Ellipse& ellipse, const ZorPoint& p) {
  const ZorPoint d = ShapeFrame(ZorPoint(), ellipse.angle_deg).ToShape(p - ellipse.centre);
  return std::atan2(d.y / ellipse.b, d.x / ellipse.a);
}

double Sweep(double from, double to) { return to >= from ? to - from : to - from + kFullTurn; }

/// Of an extremum of the equation: inside (-1), touching (0) or outside (1) the second ellipse.
int SideOf(const AlongFirst& along, double t, const Ellipse& second) {
  if (along.Gap(t, second) <= kTouching) return 0;
  return along.Equation(t) < 0 ? -1 : 1;
}

}  // namespace

Ellipse NormalisedEllipse(const ZorPoint& centre, double a, double b, double angle_deg) {
  return {centre, a, b, angle_deg > 180 ? angle_deg - 180 : angle_deg};
}

bool AreSameEllipse(const Ellipse& first, const Ellipse& second) {
  if (!(elementary::Distance(first.centre, second.centre) <= kCoincident)) return false;
  const double turn = std::fabs(first.angle_deg - second.angle_deg);
  if (IsNear(first.a, second.a) && IsNear(first.b, second.b) &&
      (IsNear(turn, 0) || IsNear(turn, 180) || IsNear(turn, 360))) {
    return true;
  }
  return IsNear(first.a, second.b) && IsNear(first.b, second.a) &&
         (IsNear(turn, 90) || IsNear(turn, 270));
}

EllipsePair::EllipsePair(const Ellipse& first, const Ellipse& second)
    : first_(first), second_(second) {
  const AlongFirst along(first, second);
  const TrigPolynomial equation = along.Expanded();
  if (!equation.IsFinite()) return;
  const std::vector<double> extrema = FindSignChanges(equation.Derivative());
  std::vector<int> sides;
  for (const double t : extrema) sides.push_back(SideOf(along, t, second));
  if (std::ranges::all_of(sides, [](int side) { return side == 0; })) return;  // none, or the same
  const ShapeFrame frame(first.centre, first.angle_deg);
  const auto meet = [&](double t, bool is_entry, bool is_tangent) {
    const double turned = t >= kFullTurn ? t - kFullTurn : t;
    meetings_.push_back({turned, is_entry, is_tangent,
                         frame.ToImage(first.a * std::cos(t), first.b * std::sin(t))});
  };
  // From one extremum off the second ellipse to the next: those between them that touch it are one
  // contact, a crossing where the sides differ.
  const std::size_t count = extrema.size();
  const auto angle_of = [&](std::size_t i) {
    return i < count ? extrema[i] : extrema[i - count] + kFullTurn;
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (sides[i] == 0) continue;
    std::size_t next = i + 1;
    while (sides[next % count] == 0) ++next;
    if (sides[i] != sides[next % count]) {
      const auto value = [&along](double t) { return along.Equation(t); };
      meet(FindBracketedRoot(value, angle_of(i), angle_of(next)), sides[i] > 0, false);
    } else if (next > i + 1) {
      meet(angle_of((i + next) / 2), false, true);
    }
  }
  std::ranges::sort(meetings_, {}, &Meeting::t);
}

std::vector<ZorPoint> EllipsePair::Points() const {
  std::vector<ZorPoint> points;
  for (const Meeting& meeting : meetings_) points.push_back(meeting.point);
  return points;
}

double EllipsePair::OverlapArea() const {
  const bool has_crossing =
      std::ranges::any_of(meetings_, [](const Meeting& meeting) { return !meeting.is_tangent; });
  if (has_crossing) return ArcArea();
  if (!Holds(first_, second_.centre) && !Holds(second_, first_.centre)) return 0.0;
  return frame::kPi * std::min(first_.a * first_.b, second_.a * second_.b);
}

double EllipsePair::ArcArea() const {
  struct Crossing {
    double t, s;  // parametric angles on the first and the second ellipse
    bool is_entry;
    ZorPoint point;
  };
  std::vector<Crossing> crossings;
  for (const Meeting& m : meetings_) {
    if (!m.is_tangent) {
      crossings.push_back({m.t, ParameterOf(second_, m.point), m.is_entry, m.point});
    }
  }
  // 1/2 of the integral of x dy - y dx about the first centre, arc by arc.
  double twice_area = 0.0;
  const std::size_t count = crossings.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (!crossings[i].is_entry) continue;
    twice_area += first_.a * first_.b * Sweep(crossings[i].t, crossings[(i + 1) % count].t);
  }
  // Where the first ellipse leaves the second, the second enters the first.
  std::ranges::sort(crossings, {}, &Crossing::s);
  const ZorPoint offset = second_.centre - first_.centre;
  for (std::size_t i = 0; i < count; ++i) {
    if (crossings[i].is_entry) continue;
    const Crossing& next = crossings[(i + 1) % count];
    twice_area += second_.a * second_.b * Sweep(crossings[i].s, next.s) +
                  Cross(offset, next.point - crossings[i].point);
  }
  return twice_area / 2;
}

}  // namespace zor::intersection
