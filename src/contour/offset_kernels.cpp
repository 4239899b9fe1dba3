#include "contour/offset_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "elementary/area_kernels.h"
#include "elementary/lanes.h"
#include "elementary/point_kernels.h"
#include "elementary/polygon_kernels.h"

namespace zor::contour {
namespace {

using elementary::Pair;
using elementary::Root;

/// Below this share of its two factors a determinant is made of rounding.
constexpr double kSingular = 1e-12;

/// How far from the first point its side is tried, where the contour as a whole does not tell;
/// pixels.
constexpr double kTrial = 0.5;

/// Windows side by side that are worked out together: they share all but kGroup - 1 points.
constexpr std::size_t kGroup = 4;

/// What a point, or several together, add to the sums over a window, with u and v measured from the
/// window's origin: the sums of u^k and of v u^k.
struct Sums {
  Pair u_v;      // u and v
  Pair uu_uv;    // u^2 and u v
  Pair uuu_uuv;  // u^3 and u^2 v
  double uuuu = 0.0;

  friend Sums operator+(const Sums& a, const Sums& b) {
    return {a.u_v + b.u_v, a.uu_uv + b.uu_uv, a.uuu_uuv + b.uuu_uuv, a.uuuu + b.uuuu};
  }
};

Sums TermsOf(const ZorPoint& p, const ZorPoint& origin, bool is_flat) {
  const double dx = p.x - origin.x;
  const double dy = p.y - origin.y;
  const double u = is_flat ? dx : dy;
  const Pair u_v(u, is_flat ? dy : dx);
  const Pair uu_uv = u_v * Pair(u);
  const Pair uuu_uuv = uu_uv * Pair(u);
  return {u_v, uu_uv, uuu_uuv, uuu_uuv.v[0] * u};
}

/// The sums over two windows, sorted into lanes.
struct WindowPair {
  Pair s1, s2, s3, s4, t0, t1, t2;

  WindowPair(const Sums& a, const Sums& b)
      : s1(a.u_v.v[0], b.u_v.v[0]),
        s2(a.uu_uv.v[0], b.uu_uv.v[0]),
        s3(a.uuu_uuv.v[0], b.uuu_uuv.v[0]),
        s4(a.uuuu, b.uuuu),
        t0(a.u_v.v[1], b.u_v.v[1]),
        t1(a.uu_uv.v[1], b.uu_uv.v[1]),
        t2(a.uuu_uuv.v[1], b.uuu_uuv.v[1]) {}
};

/// value, or 0 where a <= b; what is not a number stays.
Pair ZeroWhereAtMost(Pair a, Pair b, Pair value) {
  return Pair(a.v <= b.v ? Pair::Lanes{} : value.v);
}

/// Slopes at u of the least-squares parabolas v = c0 u^2 + c1 u + c2; 0 where there is none. The
/// constant is eliminated from the normal equations, which leaves
///   | A B | |c0|   |P|    A = S4 - S2 S2 / n,  B = S3 - S1 S2 / n,  C = S2 - S1 S1 / n,
///   | B C | |c1| = |Q|    P = T2 - S2 T0 / n,  Q = T1 - S1 T0 / n
/// with Sk the sum of u^k and Tk that of v u^k.
Pair Slopes(const WindowPair& w, Pair u) {
  constexpr double kShare = 1 / static_cast<double>(kWindow);
  const Pair mean = w.s1 * kShare;
  const Pair mean2 = w.s2 * kShare;
  const Pair a = w.s4 - w.s2 * mean2;
  const Pair b = w.s3 - w.s2 * mean;
  const Pair c = w.s2 - w.s1 * mean;
  const Pair p = w.t2 - w.t0 * mean2;
  const Pair q = w.t1 - w.t0 * mean;
  const Pair product = a * c;
  const Pair determinant = product - b * b;
  const Pair slope = ((a * q - b * p) + Pair(2.0) * u * (c * p - b * q)) / determinant;
  return ZeroWhereAtMost(determinant, product * kSingular, slope);
}

struct NormalPair {
  ZorPoint first;
  ZorPoint second;
};

NormalPair NormalsAcross(Pair slopes, bool is_flat) {
  const Pair length = Root(slopes * slopes + 1.0);
  const Pair along = -slopes / length;
  const Pair across = Pair(1.0) / length;
  const Pair x = is_flat ? along : across;
  const Pair y = is_flat ? across : along;
  return {{x.v[0], y.v[0]}, {x.v[1], y.v[1]}};
}

bool IsFlat(const ZorPoint* window) {
  const ZorPoint& first = window[0];
  const ZorPoint& last = window[kWindow - 1];
  return std::fabs(first.x - last.x) >= std::fabs(first.y - last.y);
}

/// The normal at point `at` of one window.
ZorPoint NormalIn(const ZorPoint* window, std::size_t at) {
  const bool is_flat = IsFlat(window);
  Sums sums;
  for (std::size_t k = 0; k < kWindow; ++k) {
    sums = sums + TermsOf(window[k], window[at], is_flat);
  }
  return NormalsAcross(Slopes({sums, sums}, 0.0), is_flat).first;
}

/// The normals at the middles of kGroup windows with a common axis, the first of which is given.
void WriteGroup(const ZorPoint* window, bool is_flat, ZorPoint* normals) {
  static_assert(kGroup == 4);
  const ZorPoint origin = window[kReach + 1];
  const auto terms = [&](std::size_t k) { return TermsOf(window[k], origin, is_flat); };
  Sums core = terms(kGroup - 1);
  for (std::size_t k = kGroup; k < kWindow; ++k) core = core + terms(k);
  const Sums head = core + terms(2);
  const Sums tail = core + terms(kWindow);
  const Sums head1 = head + terms(1);
  const Sums tail1 = tail + terms(kWindow + 1);
  const WindowPair outer(head1 + terms(0), tail1 + terms(kWindow + 2));
  const WindowPair inner(head1 + terms(kWindow), tail1 + terms(2));
  const auto u = [&](std::size_t k) {
    return is_flat ? window[kReach + k].x - origin.x : window[kReach + k].y - origin.y;
  };
  const NormalPair ends = NormalsAcross(Slopes(outer, {u(0), u(3)}), is_flat);
  const NormalPair middles = NormalsAcross(Slopes(inner, {u(1), u(2)}), is_flat);
  normals[0] = ends.first;
  normals[1] = middles.first;
  normals[2] = middles.second;
  normals[3] = ends.second;
}

/// The normals of the middle points of consecutive windows, the first of which is given.
void WriteCentred(const ZorPoint* window, std::span<ZorPoint> normals) {
  const std::size_t count = normals.size();
  for (std::size_t i = 0; i < count;) {
    const bool is_flat = IsFlat(window + i);
    const bool is_group = i + kGroup <= count && IsFlat(window + i + 1) == is_flat &&
                          IsFlat(window + i + 2) == is_flat && IsFlat(window + i + 3) == is_flat;
    if (is_group) {
      WriteGroup(window + i, is_flat, &normals[i]);
      i += kGroup;
    } else {
      normals[i] = NormalIn(window + i, kReach);
      i += 1;
    }
  }
}

ZorPoint MovedPoint(const ZorPoint& p, const ZorPoint& normal, double distance) {
  return {p.x + distance * normal.x, p.y + distance * normal.y};
}

/// Replaces every normal by its point moved along it.
void MoveInto(std::span<ZorPoint> normals, std::span<const ZorPoint> points, double distance) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    normals[i] = MovedPoint(points[i], normals[i], distance);
  }
}

void Align(ZorPoint& normal, const ZorPoint& previous) {
  if (elementary::Dot(previous, normal) < 0) normal = ZorPoint(-normal.x, -normal.y);
}

}  // namespace

std::vector<ZorPoint> ClosedNormals(std::span<const ZorPoint> points) {
  const std::size_t count = points.size();
  std::vector<ZorPoint> normals(count);
  const std::span<ZorPoint> all(normals);
  WriteCentred(points.data(), all.subspan(kReach, count - 2 * kReach));
  // The windows across the start of the list: the last points followed by the first.
  std::vector<ZorPoint> seam(points.end() - 2 * kReach, points.end());
  seam.insert(seam.end(), points.begin(), points.begin() + 2 * kReach);
  std::array<ZorPoint, 2 * kReach> seam_normals;
  WriteCentred(seam.data(), seam_normals);
  std::copy_n(seam_normals.begin(), kReach, all.last(kReach).begin());
  std::copy_n(seam_normals.begin() + kReach, kReach, normals.begin());
  return normals;
}

std::vector<ZorPoint> OpenNormals(std::span<const ZorPoint> points) {
  const std::size_t count = points.size();
  const ZorPoint* last_window = points.data() + (count - kWindow);
  std::vector<ZorPoint> normals(count);
  WriteCentred(points.data(), std::span(normals).subspan(kReach, count - 2 * kReach));
  for (std::size_t k = 0; k < kReach; ++k) {
    normals[k] = NormalIn(points.data(), k);
    normals[count - 1 - k] = NormalIn(last_window, kWindow - 1 - k);
  }
  return normals;
}

void AlignClosed(std::span<ZorPoint> normals) {
  Align(normals.front(), normals.back());
  for (std::size_t i = 1; i < normals.size(); ++i) Align(normals[i], normals[i - 1]);
}

std::vector<ZorPoint> OffsetOpen(std::span<const ZorPoint> points, double distance) {
  std::vector<ZorPoint> normals = OpenNormals(points);
  for (std::size_t i = 1; i < normals.size(); ++i) Align(normals[i], normals[i - 1]);
  // Deliberate: the first point keeps the sign that it was given, whichever way the contour runs;
  // hosts rely on where it lies.
  const ZorPoint first = MovedPoint(points[0], normals[0], distance);
  MoveInto(normals, points, points[0].x > points[1].x ? -distance : distance);
  normals[0] = first;
  return normals;
}

namespace {

/// Whether the aligned normals of a closed contour point to its inside, on the whole. One point
/// does not tell: beside a burr or in a slot what lies half a pixel off it may be the other side.
bool PointInwards(std::span<const ZorPoint> points, std::span<const ZorPoint> normals) {
  const std::size_t n = points.size();
  double turn = 0.0;  // positive: the normals lie where +y does, seen along +x
  for (std::size_t i = 0; i < n; ++i) {
    const ZorPoint& before = points[i > 0 ? i - 1 : n - 1];
    const ZorPoint& behind = points[i + 1 < n ? i + 1 : 0];
    turn += elementary::Cross(behind - before, normals[i]);
  }
  const double area = elementary::LocalSignedArea(points);
  if (turn != 0 && area != 0 && !std::isnan(turn) && !std::isnan(area)) {
    return (turn > 0) == (area > 0);
  }
  return elementary::PolygonRelation(MovedPoint(points[0], normals[0], kTrial), points) < 0;
}

}  // namespace

std::vector<ZorPoint> OffsetClosed(std::span<const ZorPoint> points, double distance) {
  std::vector<ZorPoint> normals = ClosedNormals(points);
  // Before the side is decided: aligning may turn the first normal round.
  AlignClosed(normals);
  MoveInto(normals, points, PointInwards(points, normals) ? -distance : distance);
  return normals;
}

std::vector<ZorPoint> MovedFrom(const ZorPoint& centre, std::span<const ZorPoint> points,
                                double distance) {
  std::vector<ZorPoint> moved;
  moved.reserve(points.size());
  for (const ZorPoint& p : points) {
    const ZorPoint ray = p - centre;
    const double length = elementary::Norm(ray);
    moved.emplace_back(centre.x + ray.x * (distance + length) / length,
                       centre.y + ray.y * (distance + length) / length);
  }
  return moved;
}

std::vector<ZorPoint> Scaled(std::span<const ZorPoint> points, const ZorPoint& centre,
                             double factor) {
  std::vector<ZorPoint> scaled;
  scaled.reserve(points.size());
  for (const ZorPoint& p : points) {
    scaled.emplace_back(centre.x + (p.x - centre.x) * factor, centre.y + (p.y - centre.y) * factor);
  }
  return scaled;
}

}  // namespace zor::contour
