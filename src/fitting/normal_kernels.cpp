#include "fitting/normal_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "elementary/point_kernels.h"

namespace zor::fitting {
namespace {

/// A share of the product of the diagonal: below it the three equations are singular.
constexpr double kSingular = 1e-12;

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
  for (std::size_t i = 0; i < points.size(); ++i) {
    const std::size_t begin = i > reach ? i - reach : 0;
    const std::size_t end = std::min(i + reach + 1, points.size());
    (*normals)[i] = ParabolaNormal(points.subspan(begin, end - begin), points[i], (*normals)[i]);
  }
  return normals;
}

}  // namespace zor::fitting
