#include "distance/run_bounds.h"

#include <algorithm>
#include <cmath>

#include "elementary/point_kernels.h"

namespace zor::distance {
namespace {

using Run = RunTree::Run;

// The root of the bound on a product of two areas, widened for rounding, and the rounding of an
// area relative to the square of the distances that it is computed from.
inline constexpr double kTouchArea = 1.0001e-3;
inline constexpr double kAreaRounding = 4e-15;

struct Interval {
  double low;
  double high;
};

Interval Product(const Interval& x, const Interval& y) {
  const double a = x.low * y.low;
  const double b = x.low * y.high;
  const double c = x.high * y.low;
  const double d = x.high * y.high;
  return {std::min(std::min(a, b), std::min(c, d)), std::max(std::max(a, b), std::max(c, d))};
}

/// Whether no cross product of a vector in `apart` and one in `steps` is within `area` of 0.
bool IsOneSided(const Box& apart, const Box& steps, double area) {
  const Interval p = Product({apart.left, apart.right}, {steps.top, steps.bottom});
  const Interval q = Product({apart.top, apart.bottom}, {steps.left, steps.right});
  return p.low - q.high > area || p.high - q.low < -area;
}

double Square(double value) { return value * value; }

/// Squared distance of p from a run's chord, a segment.
double SquaredOffChord(const Run& run, const ZorPoint& p) {
  const ZorPoint v = p - run.start;
  const ZorPoint w = p - run.end;
  const ZorPoint along(run.normal.y, -run.normal.x);  // 0 for a chord without direction
  if (elementary::Dot(v, along) <= 0.0) return elementary::Dot(v, v);
  if (elementary::Dot(w, along) >= 0.0) return elementary::Dot(w, w);
  return Square(elementary::Dot(run.normal, v));
}

/// Where the chord of one run lies with respect to the line of another one's.
struct Sides {
  bool is_crossed;
  double nearest;  // distance from the line of the nearer end, if it is not crossed, else negative

  Sides(const Run& line, const Run& chord) {
    const double s = elementary::Dot(line.normal, chord.start - line.start);
    const double e = elementary::Dot(line.normal, chord.end - line.start);
    nearest = s < 0.0 ? -std::max(s, e) : std::min(s, e);
    is_crossed = !(nearest > 0.0);
  }
};

}  // namespace

bool IsCapsuleApart(const Run& run, const ZorPoint& p, double reach, double scale) {
  return SquaredOffChord(run, p) > Square(run.reach + reach + kCapsuleSlack * scale);
}

bool IsCapsuleApart(const Run& run, const ZorPoint& start, const ZorPoint& end, double reach,
                    double scale) {
  if (start == end) return IsCapsuleApart(run, start, reach, scale);
  const ZorPoint along = end - start;
  const double length = elementary::Norm(along);
  Run segment;
  segment.start = start;
  segment.end = end;
  segment.normal = ZorPoint(-along.y / length, along.x / length);
  return AreCapsulesApart(run, segment, reach, scale);
}

bool AreCapsulesApart(const Run& a, const Run& b, double reach, double scale) {
  const double apart = a.reach + b.reach + reach + kCapsuleSlack * scale;
  const Sides of_b(a, b);
  if (of_b.nearest > apart) return true;
  const Sides of_a(b, a);
  if (of_a.nearest > apart) return true;
  // Chords that do not cross are nearest to each other at an end of one of them.
  if (of_b.is_crossed && of_a.is_crossed) return false;
  const double square = Square(apart);
  return SquaredOffChord(a, b.start) > square && SquaredOffChord(a, b.end) > square &&
         SquaredOffChord(b, a.start) > square && SquaredOffChord(b, a.end) > square;
}

double CapsuleSpan(const Run& a, const Run& b) {
  const auto square = [](const ZorPoint& v) { return elementary::Dot(v, v); };
  const double ends2 = std::max(std::max(square(a.start - b.start), square(a.start - b.end)),
                                std::max(square(a.end - b.start), square(a.end - b.end)));
  return (std::sqrt(ends2) + a.reach + b.reach) * (1.0 + kCapsuleSlack);
}

bool CanTouch(const Box& a, const Box& steps_a, const Box& b, const Box& steps_b) {
  const Box apart{b.left - a.right, b.top - a.bottom, b.right - a.left, b.bottom - a.top};
  const double size = Largest(apart);
  const double area = kTouchArea + kAreaRounding * size * size;
  return !IsOneSided(apart, steps_a, area) && !IsOneSided(apart, steps_b, area);
}

}  // namespace zor::distance
