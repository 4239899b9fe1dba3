#include "intersection/ear_cut.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

#include "elementary/area_kernels.h"
#include "elementary/point_kernels.h"
#include "intersection/convex_overlap.h"

namespace zor::intersection {
namespace {

using elementary::TriangleCross;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct GridEntry {
  ZorPoint point;
  std::size_t vertex = 0;
};

/// Vertices in cells, about as many as there are vertices and about square; those that are no
/// longer of interest stay and are skipped by the user. The cells of a row follow one another in
/// memory, so that a wide box is a walk over a list.
class VertexGrid {
 public:
  /// Precondition: at least one member.
  VertexGrid(std::span<const ZorPoint> vertices, const std::vector<std::size_t>& members)
      : low_(vertices[members[0]]), high_(low_), entries_(members.size()) {
    for (const std::size_t i : members) {
      const ZorPoint& p = vertices[i];
      low_ = ZorPoint(std::min(low_.x, p.x), std::min(low_.y, p.y));
      high_ = ZorPoint(std::max(high_.x, p.x), std::max(high_.y, p.y));
    }
    const double count = static_cast<double>(members.size());
    const double columns = std::sqrt(count * ((high_.x - low_.x) / (high_.y - low_.y)));
    columns_ = columns < count ? static_cast<std::size_t>(std::max(columns, 1.0)) : members.size();
    rows_ = members.size() / columns_ + 1;
    ends_.assign(columns_ * rows_ + 1, 0);
    for (const std::size_t i : members) ++ends_[CellOf(vertices[i]) + 1];
    std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
    std::vector<std::size_t> next(ends_.begin(), ends_.end() - 1);
    for (const std::size_t i : members) entries_[next[CellOf(vertices[i])]++] = {vertices[i], i};
  }

  /// Calls `visit` with the members in the cells of a box until it returns true; whether it did.
  template <typename Visit>
  bool AnyIn(const ZorPoint& low, const ZorPoint& high, Visit&& visit) const {
    if (high.x < low_.x || low.x > high_.x || high.y < low_.y || low.y > high_.y) return false;
    const std::size_t first = Column(low.x);
    const std::size_t last = Column(high.x);
    const std::size_t last_row = Row(high.y);
    for (std::size_t row = Row(low.y); row <= last_row; ++row) {
      const std::size_t end = ends_[row * columns_ + last + 1];
      for (std::size_t k = ends_[row * columns_ + first]; k < end; ++k) {
        if (visit(entries_[k])) return true;
      }
    }
    return false;
  }

 private:
  [[nodiscard]] static std::size_t Cell(double value, double low, double high, std::size_t count) {
    const double share = (value - low) / (high - low);
    if (!(share > 0)) return 0;  // also without extent, and for what is no number
    const double last = static_cast<double>(count - 1);
    return static_cast<std::size_t>(std::min(share * static_cast<double>(count), last));
  }
  [[nodiscard]] std::size_t Column(double x) const { return Cell(x, low_.x, high_.x, columns_); }
  [[nodiscard]] std::size_t Row(double y) const { return Cell(y, low_.y, high_.y, rows_); }
  [[nodiscard]] std::size_t CellOf(const ZorPoint& p) const {
    return Row(p.y) * columns_ + Column(p.x);
  }

  ZorPoint low_;  // of the members
  ZorPoint high_;
  std::size_t columns_ = 1;
  std::size_t rows_ = 1;
  std::vector<std::size_t> ends_;  // cell k has the entries from ends_[k] to ends_[k + 1]
  std::vector<GridEntry> entries_;
};

/// The pieces cut off, as rings of corners; rings join in constant time.
class PieceRings {
 public:
  PieceRings(std::span<const ZorPoint> vertices, double sign) : vertices_(vertices), sign_(sign) {}

  /// Adds the ear a, i, b (indices of vertices). `beyond_ai` and `beyond_ib` are the corners at
  /// which the pieces across its sides run from i to a and from b to i, or kNone. Gives the corner
  /// at which the ear's piece runs from b to a.
  std::size_t Add(std::size_t a, std::size_t i, std::size_t b, std::size_t beyond_ai,
                  std::size_t beyond_ib) {
    const std::size_t at_a = NewCorner(a);
    std::size_t at_i = NewCorner(i);
    std::size_t at_b = NewCorner(b);
    Link(at_a, at_i);
    Link(at_i, at_b);
    Link(at_b, at_a);
    if (beyond_ai != kNone && CanJoin(at_a, beyond_ai)) {
      Join(at_a, beyond_ai);
      at_i = beyond_ai;
    }
    if (beyond_ib != kNone && CanJoin(at_i, beyond_ib)) {
      Join(at_i, beyond_ib);
      at_b = beyond_ib;
    }
    return at_b;
  }

  [[nodiscard]] std::vector<std::vector<ZorPoint>> Rings() const {
    std::vector<std::vector<ZorPoint>> rings;
    std::vector<bool> is_seen(corners_.size());
    for (std::size_t first = 0; first < corners_.size(); ++first) {
      if (corners_[first].next == kNone || is_seen[first]) continue;
      rings.emplace_back();
      for (std::size_t c = first; !is_seen[c]; c = corners_[c].next) {
        is_seen[c] = true;
        rings.back().push_back(At(c));
      }
    }
    return rings;
  }

 private:
  struct Corner {
    std::size_t vertex;
    std::size_t next;  // kNone for a corner that a join has dropped
    std::size_t previous;
  };

  std::size_t NewCorner(std::size_t vertex) {
    corners_.push_back({vertex, kNone, kNone});
    return corners_.size() - 1;
  }
  void Link(std::size_t c, std::size_t next) {
    corners_[c].next = next;
    corners_[next].previous = c;
  }
  [[nodiscard]] const ZorPoint& At(std::size_t c) const { return vertices_[corners_[c].vertex]; }
  [[nodiscard]] std::size_t Next(std::size_t c) const { return corners_[c].next; }
  [[nodiscard]] std::size_t Previous(std::size_t c) const { return corners_[c].previous; }
  [[nodiscard]] bool TurnsRight(const ZorPoint& p, const ZorPoint& q, const ZorPoint& r) const {
    const double turn = sign_ * TriangleCross(p, q, r);
    return turn > 0 || (turn == 0 && elementary::Dot(q - p, r - q) >= 0);  // or straight on
  }

  // Corner c runs along the common side, corner d of the other ring back along it:
  //
  //   Previous(c) -> c ---> Next(c) -> ...          Previous(c) -> c    Next(d) -> ...
  //                                         becomes                  \  /   (c goes on there)
  //   ... <- Next(d) <--- d <- Previous(d)          ... <- Next(c) <- d <- Previous(d)
  [[nodiscard]] bool CanJoin(std::size_t c, std::size_t d) const {
    return TurnsRight(At(Previous(c)), At(c), At(Next(Next(d)))) &&
           TurnsRight(At(Previous(d)), At(d), At(Next(Next(c))));
  }
  void Join(std::size_t c, std::size_t d) {
    const std::size_t dropped_after_c = Next(c);
    const std::size_t dropped_after_d = Next(d);
    const std::size_t after_c = Next(dropped_after_d);
    const std::size_t after_d = Next(dropped_after_c);
    Link(c, after_c);
    Link(d, after_d);
    corners_[dropped_after_c].next = kNone;
    corners_[dropped_after_d].next = kNone;
  }

  std::span<const ZorPoint> vertices_;
  double sign_;
  std::vector<Corner> corners_;
};

class EarCutter {
  static constexpr std::size_t kMostVisits = 256;  // for every vertex

 public:
  explicit EarCutter(std::span<const ZorPoint> polygon)
      : vertices_(polygon),
        sign_(elementary::LocalSignedArea(polygon) < 0 ? -1.0 : 1.0),
        before_(polygon.size()),
        after_(polygon.size()),
        is_reflex_(polygon.size()),
        beyond_(polygon.size(), kNone),
        left_(polygon.size()),
        rings_(polygon, sign_) {
    const std::size_t count = polygon.size();
    for (std::size_t i = 0; i < count; ++i) {
      before_[i] = i == 0 ? count - 1 : i - 1;
      after_[i] = i + 1 == count ? 0 : i + 1;
    }
    std::vector<std::size_t> reflex;
    for (std::size_t i = 0; i < count; ++i) {
      is_reflex_[i] = Turn(i) < 0;
      if (is_reflex_[i]) reflex.push_back(i);
    }
    reflex_left_ = reflex.size();
    if (reflex_left_ > 0) grid_.emplace_back(polygon, reflex);
  }

  CutPolygon Run() {
    std::vector<std::size_t> waiting;
    for (std::size_t i = 0; i < vertices_.size(); ++i) waiting.push_back(i);
    // Beside reflex vertices only, then any.
    for (int effort = 0; effort < 2 && !IsDone();) {
      const bool has_cut = Sweep(waiting, effort);
      effort = has_cut ? 0 : effort + 1;
      waiting = Remaining();
    }
    CutPolygon cut;
    cut.pieces = rings_.Rings();
    cut.weights.assign(cut.pieces.size(), 1.0);
    std::vector<ZorPoint> rest;
    rest.reserve(left_);
    for (const std::size_t i : Remaining()) rest.push_back(vertices_[i]);
    if (IsCore(rest)) {
      cut.core = std::move(rest);
    } else {
      AddFan(rest, cut);
    }
    return cut;
  }

 private:
  [[nodiscard]] double Turn(std::size_t i) const {
    return sign_ * TriangleCross(vertices_[before_[i]], vertices_[i], vertices_[after_[i]]);
  }
  [[nodiscard]] bool IsDone() const {
    return reflex_left_ == 0 || left_ <= 3 || visits_ > kMostVisits * vertices_.size();
  }

  /// Convex within rounding, and not turned over.
  [[nodiscard]] bool IsCore(std::span<const ZorPoint> rest) const {
    if (rest.size() < 3) return true;
    return reflex_left_ == 0 && TraitsOf(rest).reversals <= 2 &&
           sign_ * elementary::LocalSignedArea(rest) >= 0;
  }

  void AddFan(std::span<const ZorPoint> rest, CutPolygon& cut) const {
    for (std::size_t i = 2; i < rest.size(); ++i) {
      const double turn = sign_ * TriangleCross(rest[0], rest[i - 1], rest[i]);
      if (turn == 0) continue;
      cut.pieces.push_back({rest[0], rest[i - 1], rest[i]});
      cut.weights.push_back(turn > 0 ? 1.0 : -1.0);
    }
  }

  /// Cuts what can be cut among the waiting vertices and those that a cut frees; whether any was.
  bool Sweep(std::vector<std::size_t>& waiting, int effort) {
    bool has_cut = false;
    // First come first cut: going on beside the last cut would build fans, whose long ears have
    // many vertices near them.
    for (std::size_t head = 0; head < waiting.size() && !IsDone(); ++head) {
      const std::size_t i = waiting[head];
      if (before_[i] == kNone || is_reflex_[i]) continue;
      const std::size_t a = before_[i];
      const std::size_t b = after_[i];
      if (effort == 0 && !is_reflex_[a] && !is_reflex_[b]) continue;
      if (!IsEmpty(i)) continue;
      Cut(i);
      waiting.push_back(a);
      waiting.push_back(after_[a]);
      has_cut = true;
    }
    return has_cut;
  }

  void Remove(std::size_t i) {
    after_[before_[i]] = after_[i];
    before_[after_[i]] = before_[i];
    before_[i] = kNone;
    --left_;
  }

  void Cut(std::size_t i) {
    const std::size_t a = before_[i];
    const std::size_t b = after_[i];
    beyond_[a] = Turn(i) > 0 ? rings_.Add(a, i, b, beyond_[a], beyond_[i]) : kNone;
    Remove(i);
    // Where the outline runs back onto itself: equal neighbours would hide which way they turn.
    const bool is_repeated = vertices_[a] == vertices_[b] && left_ > 3;
    if (is_repeated) {
      beyond_[a] = beyond_[b];
      if (is_reflex_[b]) --reflex_left_;
      Remove(b);
    }
    for (const std::size_t neighbour : {a, after_[a]}) {
      const bool was_reflex = is_reflex_[neighbour];
      is_reflex_[neighbour] = Turn(neighbour) < 0;
      if (was_reflex && !is_reflex_[neighbour]) --reflex_left_;
      // Only rounding makes a vertex reflex by a cut beside it; it is in no cell, and needs none.
      if (!was_reflex && is_reflex_[neighbour]) ++reflex_left_;
    }
  }

  /// No reflex vertex lies in the triangle at i or on its outline, its corners aside.
  [[nodiscard]] bool IsEmpty(std::size_t i) {
    const ZorPoint& a = vertices_[before_[i]];
    const ZorPoint& p = vertices_[i];
    const ZorPoint& b = vertices_[after_[i]];
    const ZorPoint low(std::min({a.x, p.x, b.x}), std::min({a.y, p.y, b.y}));
    const ZorPoint high(std::max({a.x, p.x, b.x}), std::max({a.y, p.y, b.y}));
    return !grid_[0].AnyIn(low, high, [&](const GridEntry& entry) {
      ++visits_;
      const ZorPoint& v = entry.point;
      if (v.x < low.x || v.x > high.x || v.y < low.y || v.y > high.y) return false;
      if (!is_reflex_[entry.vertex] || before_[entry.vertex] == kNone) return false;
      if (v == a || v == p || v == b) return false;
      return sign_ * TriangleCross(a, p, v) >= 0 && sign_ * TriangleCross(p, b, v) >= 0 &&
             sign_ * TriangleCross(b, a, v) >= 0;
    });
  }

  [[nodiscard]] std::vector<std::size_t> Remaining() const {
    std::vector<std::size_t> indices;
    indices.reserve(left_);
    for (std::size_t i = 0; i < vertices_.size(); ++i) {
      if (before_[i] != kNone) indices.push_back(i);
    }
    return indices;
  }

  std::span<const ZorPoint> vertices_;
  double sign_;
  std::vector<std::size_t> before_;  // kNone for a vertex that is cut off
  std::vector<std::size_t> after_;
  std::vector<bool> is_reflex_;
  std::vector<std::size_t> beyond_;  // the corner of the piece across the edge from a vertex on
  std::size_t left_;
  std::size_t reflex_left_ = 0;
  std::vector<VertexGrid> grid_;  // of the reflex vertices, if there are any
  std::size_t visits_ = 0;        // of its entries
  PieceRings rings_;
};

}  // namespace

CutPolygon CutEars(std::span<const ZorPoint> polygon) { return EarCutter(polygon).Run(); }

}  // namespace zor::intersection
