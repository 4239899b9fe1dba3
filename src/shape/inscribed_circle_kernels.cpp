#include "shape/inscribed_circle_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <queue>
#include <utility>
#include <vector>

#include "elementary/point_kernels.h"
#include "shape/roof.h"

using zor::elementary::Cross;
using zor::elementary::Distance;
using zor::elementary::Dot;

namespace zor::shape {

namespace {

// The search runs on the polygon moved to the origin and scaled by a power of two to a size from 1
// up to 2. Closer than this are coinciding points, and vertices on the line of their neighbours;
// outlines by pixels have many such, which would split one edge into many.
constexpr double kStraight = 1e-13;

// With more edges than these a square is worth its roof only when it is small beside its distance.
constexpr std::size_t kFewEdges = 32;

// About as many as an outline takes that is nothing but arms of a thousandth of its size, in half a
// second; beyond it the best circle so far is taken, so that no sliver holds up the host.
constexpr std::size_t kMostSquares = 1'000'000;

// How far, relative to the size, the best centre found may be from the maximum that it is near.
constexpr double kNearMaximum = 1e-4;
constexpr int kMostPolishingSteps = 30;

/// An edge, directed towards larger y, or x if level.
struct Edge {
  ZorPoint start;
  ZorPoint end;
  ZorPoint along;
  double inverse_length2;
  double length;

  Edge(const ZorPoint& a, const ZorPoint& b)
      : start(IsAhead(a, b) ? a : b),
        end(IsAhead(a, b) ? b : a),
        along(end - start),
        inverse_length2(1 / Dot(along, along)),
        length(elementary::Norm(along)) {}

  static bool IsAhead(const ZorPoint& a, const ZorPoint& b) {
    return a.y < b.y || (a.y == b.y && a.x < b.x);
  }

  /// Where along it, in [0, 1], the nearest point to p is.
  [[nodiscard]] double NearestAt(const ZorPoint& p) const {
    return std::min(std::max(Dot(p - start, along) * inverse_length2, 0.0), 1.0);
  }
  [[nodiscard]] ZorPoint At(double t) const {
    return {start.x + t * along.x, start.y + t * along.y};
  }
  [[nodiscard]] double SquaredDistance(const ZorPoint& p) const {
    const ZorPoint off = p - At(NearestAt(p));
    return Dot(off, off);
  }

  // A point of the plane counts as moved by a very little in x and far less in y, so that it is on
  // no edge and at the height of no vertex.
  [[nodiscard]] bool IsLeft(const ZorPoint& p) const {
    const double side = Cross(p - start, along);
    return side < 0 || (side == 0 && along.y == 0);
  }
  [[nodiscard]] bool SpansHeight(double y) const { return (start.y <= y) != (end.y <= y); }
  [[nodiscard]] bool SpansColumn(double x) const { return (start.x <= x) != (end.x <= x); }
};

/// A square of the plane in which the circle's centre may lie.
struct Square {
  ZorPoint centre;
  double half_width;
  double bound;            // no circle about a point of it is larger
  bool is_inside;          // the centre
  double distance;         // of the centre from the nearest edge
  std::size_t first_edge;  // of those that can be nearest to a point of it
  std::size_t edge_count;

  [[nodiscard]] double Reach() const { return half_width * std::numbers::sqrt2; }
  bool operator<(const Square& other) const { return bound < other.bound; }
};

class InscribedCircleSearch {
 public:
  /// The polygon is about the origin and `size` wide or high, its vertices are distinct.
  InscribedCircleSearch(std::span<const ZorPoint> polygon, double size)
      : tolerance_(kInscribedTolerance * size), best_{{0, 0}, 0.0} {
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      edges_.emplace_back(i == 0 ? polygon.back() : polygon[i - 1], polygon[i]);
      kept_.push_back(static_cast<std::uint32_t>(i));
    }
    Consider({{0, 0}, size / 2, size, IsInside({0, 0}), 0.0, 0, edges_.size()});
  }

  [[nodiscard]] std::optional<Circle> Run() {
    for (std::size_t count = 0; !open_.empty() && count < kMostSquares; ++count) {
      const Square square = open_.top();
      open_.pop();
      if (square.bound <= best_.radius + tolerance_) break;
      Split(square);
    }
    if (!(best_.radius > tolerance_)) return std::nullopt;
    Polish();
    // The squares know the side of their centres from one another: check it from scratch.
    if (!IsInside(best_.centre)) return std::nullopt;
    return best_;
  }

 private:
  [[nodiscard]] bool IsInside(const ZorPoint& p) const {
    bool is_inside = false;
    for (const Edge& edge : edges_) {
      if (edge.SpansHeight(p.y) && edge.IsLeft(p)) is_inside = !is_inside;
    }
    return is_inside;
  }

  /// Whether one of the square's points is inside, as its centre is or is not and the edges between
  /// say: the way goes first along x, then along y.
  [[nodiscard]] bool IsInside(const Square& square, const ZorPoint& p) const {
    bool is_inside = square.is_inside;
    const ZorPoint corner(p.x, square.centre.y);
    for (std::size_t k = 0; k < square.edge_count; ++k) {
      const Edge& edge = edges_[kept_[square.first_edge + k]];
      const bool is_left = edge.IsLeft(corner);
      if (edge.SpansHeight(corner.y) && edge.IsLeft(square.centre) != is_left) {
        is_inside = !is_inside;
      }
      if (edge.SpansColumn(corner.x) && edge.IsLeft(p) != is_left) is_inside = !is_inside;
    }
    return is_inside;
  }

  void Split(const Square& square) {
    const double quarter = square.half_width / 2;
    for (const ZorPoint& step : {ZorPoint(-quarter, -quarter), ZorPoint(quarter, -quarter),
                                 ZorPoint(-quarter, quarter), ZorPoint(quarter, quarter)}) {
      Square part = square;  // with the edges of the whole
      part.centre = square.centre + step;
      part.half_width = quarter;
      const bool is_clear = square.distance > elementary::Norm(step);
      part.is_inside = is_clear ? square.is_inside : IsInside(square, part.centre);
      Consider(part);
    }
  }

  /// Takes the circle about the square's centre if it is the best, and the square for later if it
  /// can hold a better one.
  void Consider(Square square) {
    squared_.resize(square.edge_count);
    for (std::size_t k = 0; k < square.edge_count; ++k) {
      squared_[k] = edges_[kept_[square.first_edge + k]].SquaredDistance(square.centre);
    }
    const double distance = std::sqrt(*std::min_element(squared_.begin(), squared_.end()));
    square.distance = distance;
    if (square.is_inside) Offer({square.centre, distance});
    square.bound =
        std::min(square.bound, (square.is_inside ? distance : -distance) + square.Reach());
    if (!CanBeat(square)) return;
    KeepNearEdges(square, distance);
    const bool is_worth = square.edge_count <= kFewEdges || distance > 16 * square.Reach();
    if (square.is_inside && distance > square.Reach() && is_worth) {
      BoundByRoof(square);
      if (!CanBeat(square)) {
        kept_.resize(square.first_edge);
        return;
      }
    }
    open_.push(square);
  }

  [[nodiscard]] bool CanBeat(const Square& square) const {
    return square.bound > best_.radius + tolerance_;
  }

  void Offer(const Circle& circle) {
    if (!(circle.radius > best_.radius)) return;
    best_.centre = circle.centre;
    best_.radius = circle.radius;
  }

  /// From a point of the square the nearest edge is at most `distance` + reach away, from its
  /// centre at most another reach.
  void KeepNearEdges(Square& square, double distance) {
    const double farthest = distance + 2 * square.Reach();
    const std::size_t first = kept_.size();
    for (std::size_t k = 0; k < square.edge_count; ++k) {
      if (squared_[k] <= farthest * farthest) kept_.push_back(kept_[square.first_edge + k]);
    }
    square.first_edge = first;
    square.edge_count = kept_.size() - first;
  }

  /// The plane that the distance from an edge is over the square about p, or that it lies below.
  /// Beside the edge's inner part it is linear. Else it is at most the distance from the nearest
  /// point q to p, |d + u| for a step u of at most the reach: d + n.u along the normal n, and for
  /// the way across it (reach^2) / (2 (d - reach)) more.
  [[nodiscard]] static Plane PlaneOver(const Edge& edge, const ZorPoint& p, double reach) {
    const double t = edge.NearestAt(p);
    const ZorPoint off = p - edge.At(t);
    const double distance = elementary::Norm(off);
    const bool is_beside = std::min(t, 1 - t) * edge.length >= reach;
    const double excess = is_beside ? 0.0 : reach * reach / (2 * (distance - reach));
    const double inverse = 1 / distance;
    return {{off.x * inverse, off.y * inverse}, distance + excess};
  }

  void BoundByRoof(Square& square) {
    planes_.clear();
    for (std::size_t k = 0; k < square.edge_count; ++k) {
      const Edge& edge = edges_[kept_[square.first_edge + k]];
      planes_.push_back(PlaneOver(edge, square.centre, square.Reach()));
    }
    const Peak peak = HighestUnder(planes_, square.half_width);
    square.bound = std::min(square.bound, peak.height);
    const ZorPoint place = square.centre + peak.place;
    double least2 = edges_[kept_[square.first_edge]].SquaredDistance(place);
    for (std::size_t k = 1; k < square.edge_count; ++k) {
      least2 = std::min(least2, edges_[kept_[square.first_edge + k]].SquaredDistance(place));
    }
    Offer({place, std::sqrt(least2)});
  }

  /// Climbs from the best centre to the maximum beside it: again and again to the peak under the
  /// planes that touch the distances there, within reach of which they fall less than they curve.
  void Polish() {
    const double reach = kNearMaximum / kInscribedTolerance * tolerance_;
    const double farthest = best_.radius + 4 * reach;
    std::vector<Edge> near;
    std::copy_if(edges_.begin(), edges_.end(), std::back_inserter(near), [&](const Edge& edge) {
      return edge.SquaredDistance(best_.centre) <= farthest * farthest;
    });
    double step = reach / 2;
    double left = reach;
    for (int k = 0; k < kMostPolishingSteps && kStraight < step && step < left; ++k) {
      planes_.clear();
      for (const Edge& edge : near) planes_.push_back(PlaneOver(edge, best_.centre, 0.0));
      const ZorPoint place = best_.centre + HighestUnder(planes_, step).place;
      double least2 = near[0].SquaredDistance(place);
      for (const Edge& edge : near) least2 = std::min(least2, edge.SquaredDistance(place));
      const double moved = Distance(place, best_.centre);
      if (std::sqrt(least2) > best_.radius) {
        left -= moved;
        Offer({place, std::sqrt(least2)});
      } else {
        step = std::min(step, moved) / 4;
      }
    }
  }

  double tolerance_;
  Circle best_;
  std::vector<Edge> edges_;
  std::vector<std::uint32_t> kept_;  // the squares' edges, one list after another
  std::priority_queue<Square> open_;
  std::vector<double> squared_;  // scratch
  std::vector<Plane> planes_;    // scratch
};

/// A vertex that leaves the outline as it is when it is left out between these two.
bool IsIdle(const ZorPoint& before, const ZorPoint& p, const ZorPoint& after) {
  const ZorPoint in = p - before;
  const ZorPoint out = after - p;
  if (elementary::Norm(in) <= kStraight) return true;
  return Dot(in, out) > 0 && std::fabs(Cross(in, out)) <= kStraight * elementary::Norm(in + out);
}

std::vector<ZorPoint> WithoutIdleVertices(const std::vector<ZorPoint>& polygon) {
  std::vector<ZorPoint> kept = {polygon[0]};
  for (std::size_t i = 1; i < polygon.size(); ++i) {
    const ZorPoint& after = polygon[i + 1 < polygon.size() ? i + 1 : 0];
    if (!IsIdle(kept.back(), polygon[i], after)) kept.push_back(polygon[i]);
  }
  if (elementary::Norm(kept.back() - kept.front()) <= kStraight) kept.pop_back();
  return kept;
}

/// 1 or -1 when the polygon turns one way only, once around: the sign of the cross products of
/// successive edges; else 0.
int ConvexTurn(const std::vector<ZorPoint>& polygon) {
  const std::size_t n = polygon.size();
  int turn = 0;
  int reversals = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const ZorPoint& p = polygon[(i + 1) % n];
    const ZorPoint in = p - polygon[i];
    const ZorPoint out = polygon[(i + 2) % n] - p;
    const double cross = Cross(in, out);
    const int sign = cross > 0 ? 1 : -1;
    if (cross == 0 || (turn != 0 && sign != turn)) return 0;
    turn = sign;
    reversals += Edge::IsAhead(polygon[i], p) != Edge::IsAhead(p, p + out) ? 1 : 0;
  }
  return reversals == 2 ? turn : 0;
}

/// Inside a convex polygon the distance is the least of those from the lines of its edges: planes,
/// whose peak is exact, also for slivers that hold a million squares. The radius is that about the
/// place found, `is_largest` false in the rare case that it falls short of the peak.
struct ConvexResult {
  Circle circle;
  bool is_largest;
};

ConvexResult CircleInConvex(const std::vector<ZorPoint>& polygon, int turn, double size) {
  std::vector<Plane> planes;
  planes.reserve(polygon.size());
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const ZorPoint& a = polygon[i];
    const ZorPoint along = polygon[(i + 1) % polygon.size()] - a;
    const double scale = turn / elementary::Norm(along);
    const ZorPoint normal(-along.y * scale, along.x * scale);
    planes.push_back({normal, -Dot(normal, a)});
  }
  const Peak peak = HighestUnder(planes, size / 2);
  double radius = peak.height;
  for (const Plane& plane : planes) {
    radius = std::min(radius, plane.offset + Dot(plane.normal, peak.place));
  }
  return {{peak.place, radius}, peak.height <= radius + kInscribedTolerance * size};
}

std::optional<Circle> SearchScaled(const std::vector<ZorPoint>& polygon, double size) {
  if (const int turn = ConvexTurn(polygon); turn != 0) {
    const auto [circle, is_largest] = CircleInConvex(polygon, turn, size);
    const bool is_some = circle.radius > kInscribedTolerance * size;
    if (is_largest) return is_some ? std::optional(circle) : std::nullopt;
  }
  return InscribedCircleSearch(polygon, size).Run();
}

}  // namespace

std::optional<Circle> LargestInscribedCircle(std::span<const ZorPoint> polygon) {
  ZorPoint low = polygon[0];
  ZorPoint high = polygon[0];
  for (const ZorPoint& p : polygon) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return std::nullopt;
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  const double size = std::max(high.x - low.x, high.y - low.y);
  if (!(size > 0) || !std::isfinite(size)) return std::nullopt;
  const ZorPoint centre(low.x / 2 + high.x / 2, low.y / 2 + high.y / 2);
  const double scale = std::ldexp(1.0, -std::ilogb(size));
  if (!(scale > 0) || !std::isfinite(scale)) return std::nullopt;
  std::vector<ZorPoint> scaled;
  scaled.reserve(polygon.size());
  for (const ZorPoint& p : polygon) {
    scaled.emplace_back((p.x - centre.x) * scale, (p.y - centre.y) * scale);
  }
  scaled = WithoutIdleVertices(scaled);
  if (scaled.size() < 3) return std::nullopt;
  const auto found = SearchScaled(scaled, size * scale);
  if (!found) return std::nullopt;
  return Circle{{centre.x + found->centre.x / scale, centre.y + found->centre.y / scale},
                found->radius / scale};
}

Circle TriangleIncircle(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
  const double opposite_a = Distance(b, c);
  const double opposite_b = Distance(c, a);
  const double opposite_c = Distance(a, b);
  const double perimeter = opposite_a + opposite_b + opposite_c;
  return {{(opposite_a * a.x + opposite_b * b.x + opposite_c * c.x) / perimeter,
           (opposite_a * a.y + opposite_b * b.y + opposite_c * c.y) / perimeter},
          std::fabs(elementary::TriangleCross(a, b, c)) / perimeter};
}

}  // namespace zor::shape
