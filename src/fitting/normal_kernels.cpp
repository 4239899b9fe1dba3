#include "fitting/normal_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "elementary/point_kernels.h"

namespace zor::fitting {
namespace {

/// A share of the product of the diagonal: below it the three equations are singular.
constexpr double kSingular = 1e-12;
/// Windows above this size are looked at in halves too, in case they turn past a whole circle.
constexpr std::size_t kLargestWhole = 32;
/// From one reversed step in so many points on, the points are noise finer than it is large.
constexpr std::size_t kNoiseShare = 8;

ZorPoint RightNormal(const ZorPoint& direction) {
  const double length = std::hypot(direction.x, direction.y);
  return {-direction.y / length, direction.x / length};
}

// The point's index shifts to the first point of the run of equal points that it belongs to.
std::vector<std::size_t> RunStarts(std::span<const ZorPoint> points) {
  std::vector<std::size_t> starts(points.size());
  for (std::size_t i = 1; i < points.size(); ++i) {
    starts[i] = points[i] == points[i - 1] ? starts[i - 1] : i;
  }
  return starts;
}

ZorPoint ChordAt(std::span<const ZorPoint> points, std::size_t i, std::size_t run_start,
                 std::size_t next_run) {
  const ZorPoint& before = points[run_start > 0 ? run_start - 1 : run_start];
  const ZorPoint& after = points[next_run < points.size() ? next_run : i];
  const ZorPoint chord = after - before;
  return chord == ZorPoint() ? points[i] - before : chord;
}

/// Slope at u = 0 of the least-squares parabola through points (u, v); nothing without three
/// different u. The sums are of u scaled to [-1, 1].
class ParabolaSlope {
 public:
  void Add(double u, double v) {
    const double u2 = u * u;
    n_ += 1;
    u_ += u;
    u2_ += u2;
    u3_ += u2 * u;
    u4_ += u2 * u2;
    v_ += v;
    uv_ += u * v;
    u2v_ += u2 * v;
  }

  /// By Cramer's rule for b in [n u u2; u u2 u3; u2 u3 u4] (a, b, c) = (v, uv, u2v).
  [[nodiscard]] std::optional<double> AtZero() const {
    const double determinant = Determinant(n_, u_, u2_, u2_, u3_, u4_);
    if (!(std::fabs(determinant) > kSingular * n_ * u2_ * u4_)) return std::nullopt;
    const double numerator =
        n_ * (uv_ * u4_ - u3_ * u2v_) - v_ * (u_ * u4_ - u3_ * u2_) + u2_ * (u_ * u2v_ - uv_ * u2_);
    return numerator / determinant;
  }

 private:
  // Of the symmetric matrix [a b c; b d e; c e f].
  static double Determinant(double a, double b, double c, double d, double e, double f) {
    return a * (d * f - e * e) - b * (b * f - e * c) + c * (b * e - d * c);
  }

  double n_ = 0.0, u_ = 0.0, u2_ = 0.0, u3_ = 0.0, u4_ = 0.0;
  double v_ = 0.0, uv_ = 0.0, u2v_ = 0.0;
};

ZorPoint ParabolaNormal(std::span<const ZorPoint> window, const ZorPoint& p,
                        const ZorPoint& chord_normal) {
  const ZorPoint chord = window.back() - window.front();
  const ZorPoint across = chord == ZorPoint() ? chord_normal : RightNormal(chord);
  const ZorPoint along(across.y, -across.x);
  double reach = 0.0;
  for (const ZorPoint& q : window) {
    reach = std::max(reach, std::fabs(elementary::Dot(q - p, along)));
  }
  ParabolaSlope parabola;
  for (const ZorPoint& q : window) {
    parabola.Add(elementary::Dot(q - p, along) / reach, elementary::Dot(q - p, across) / reach);
  }
  const std::optional<double> slope = parabola.AtZero();
  if (!slope) return chord_normal;
  return RightNormal({along.x + *slope * across.x, along.y + *slope * across.y});
}

// An arc turns past half a circle where the chords of its halves enclose an obtuse angle, which
// scatter along the window hardly changes.
bool TurnsPastHalf(std::span<const ZorPoint> window) {
  const std::size_t middle = (window.size() - 1) / 2;
  const ZorPoint& p = window[middle];
  if (elementary::Dot(p - window.front(), window.back() - p) < 0) return true;
  return window.size() > kLargestWhole &&
         (TurnsPastHalf(window.first(middle + 1)) || TurnsPastHalf(window.subspan(middle)));
}

// For every point the steps up to it that go back on the one before.
std::vector<std::size_t> ReversalsUpTo(std::span<const ZorPoint> points) {
  std::vector<std::size_t> counts(points.size());
  for (std::size_t i = 2; i < points.size(); ++i) {
    const ZorPoint before = points[i - 1] - points[i - 2];
    const bool is_back = elementary::Dot(points[i] - points[i - 1], before) < 0;
    counts[i] = counts[i - 1] + (is_back ? 1 : 0);
  }
  return counts;
}

struct Window {
  Window(std::size_t count, std::size_t i, std::size_t reach)
      : begin(i > reach ? i - reach : 0), end(std::min(i + reach + 1, count)) {}
  [[nodiscard]] std::span<const ZorPoint> Of(std::span<const ZorPoint> points) const {
    return points.subspan(begin, end - begin);
  }
  std::size_t begin;
  std::size_t end;
};

ZorPoint NormalWithin(std::span<const ZorPoint> points, std::size_t i, std::size_t reach,
                      std::span<const std::size_t> reversals, const ZorPoint& chord_normal) {
  Window window(points.size(), i, reach);
  const std::size_t reversed =
      reversals[window.end - 1] - reversals[std::min(window.begin + 1, window.end - 1)];
  // Where noise turns the steps about, the chord between the direct neighbours tells no side.
  if (kNoiseShare * reversed >= window.end - window.begin) {
    return ParabolaNormal(window.Of(points), points[i], chord_normal);
  }
  while (reach > 1 && TurnsPastHalf(window.Of(points))) {
    reach /= 2;
    window = Window(points.size(), i, reach);
  }
  const ZorPoint normal = ParabolaNormal(window.Of(points), points[i], chord_normal);
  return elementary::Dot(normal, chord_normal) < 0 ? chord_normal : normal;
}

}  // namespace

std::optional<std::vector<ZorPoint>> ChordNormals(std::span<const ZorPoint> points) {
  const std::vector<std::size_t> starts = RunStarts(points);
  if (points.empty() || starts.back() == 0) return std::nullopt;
  std::vector<ZorPoint> normals(points.size());
  std::size_t next_run = points.size();
  for (std::size_t i = points.size(); i-- > 0;) {
    normals[i] = RightNormal(ChordAt(points, i, starts[i], next_run));
    if (starts[i] == i) next_run = i;
  }
  return normals;
}

std::optional<std::vector<ZorPoint>> ParabolaNormals(std::span<const ZorPoint> points,
                                                     int neighbours) {
  std::optional<std::vector<ZorPoint>> normals = ChordNormals(points);
  if (!normals) return std::nullopt;
  const std::size_t reach = static_cast<std::size_t>(neighbours);
  const std::vector<std::size_t> reversals = ReversalsUpTo(points);
  for (std::size_t i = 0; i < points.size(); ++i) {
    (*normals)[i] = NormalWithin(points, i, reach, reversals, (*normals)[i]);
  }
  return normals;
}

}  // namespace zor::fitting
