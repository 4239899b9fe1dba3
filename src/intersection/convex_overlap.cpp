#include "intersection/convex_overlap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "elementary/point_kernels.h"

namespace zor::intersection {
namespace {

using elementary::Cross;

void SetSlopes(std::span<ChainNode> nodes) {
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    const double slope = (nodes[i + 1].x - nodes[i].x) / (nodes[i + 1].y - nodes[i].y);
    nodes[i].slope = std::isfinite(slope) ? slope : 0.0;  // of no height that matters
  }
}

/// Follows one chain upwards in y.
class Cursor {
 public:
  Cursor(Chain chain, double y) : node_(chain.data()), last_(&chain.back()) { MoveTo(y); }

  /// Ahead to the edge at that height; the values below it are then those of its line.
  void MoveTo(double y) {
    const ChainNode* const above =
        std::upper_bound(node_ + 1, last_, y, [](double v, const ChainNode& n) { return v < n.y; });
    node_ = above - 1;
  }
  /// Whether many vertices lie between here and that height.
  [[nodiscard]] bool IsFarBelow(double y) const {
    constexpr std::ptrdiff_t kMany = 16;
    return last_ - node_ > kMany && node_[kMany].y < y;
  }
  [[nodiscard]] double NextY() const { return node_[1].y; }
  [[nodiscard]] double At(double y) const { return node_->x + (y - node_->y) * node_->slope; }
  /// At the upper end of the edge, its vertex itself.
  [[nodiscard]] double AtUpTo(double y) const { return y == node_[1].y ? node_[1].x : At(y); }
  void Pass(double y) { node_ += node_[1].y <= y ? 1 : 0; }

 private:
  const ChainNode* node_;
  const ChainNode* last_;
};

/// The sides of two polygons that face the same way, followed upwards together.
class Siblings {
 public:
  /// `outward` is -1 for left sides, 1 for right ones.
  Siblings(Chain first, Chain second, double y, double outward)
      : first_(first, y), second_(second, y), outward_(outward) {}

  [[nodiscard]] const Cursor& First() const { return first_; }
  [[nodiscard]] const Cursor& Second() const { return second_; }
  [[nodiscard]] double NextY() const { return std::min(first_.NextY(), second_.NextY()); }
  void Pass(double y) {
    first_.Pass(y);
    second_.Pass(y);
  }

  /// Passes over vertices of the outer side beside a long edge of the inner one. Sides bend
  /// inwards only: outside of that edge at both its ends, one is outside all the way, and so are
  /// the lines that its edges lie on. Whether there were any.
  bool SkipHidden(double y, double high) {
    if (y < looked_up_to_) return false;
    const bool is_first_outer = outward_ * (first_.At(y) - second_.At(y)) > 0;
    Cursor& outer = is_first_outer ? first_ : second_;
    const Cursor& inner = is_first_outer ? second_ : first_;
    double target = std::min(inner.NextY(), high);
    looked_up_to_ = target;
    for (; outer.IsFarBelow(target); target = y + (target - y) / 2) {
      Cursor there = outer;
      there.MoveTo(target);
      if (outward_ * (there.AtUpTo(target) - inner.AtUpTo(target)) < 0) continue;
      outer = there;
      looked_up_to_ = target;
      return true;
    }
    return false;
  }

 private:
  Cursor first_;
  Cursor second_;
  double outward_;
  double looked_up_to_ = -std::numeric_limits<double>::infinity();
};

/// Integral over a unit step of a linear function's positive part.
double PositivePart(double at_start, double at_end) {
  if (at_start >= 0 && at_end >= 0) return (at_start + at_end) / 2;
  if (at_start <= 0 && at_end <= 0) return 0.0;
  const double positive = std::max(at_start, at_end);
  return positive * positive / (2 * (positive - std::min(at_start, at_end)));
}

/// Where a linear function that goes from `at_start` to `at_end` over a unit step is 0; 1 when it
/// keeps its sign.
double ZeroOf(double at_start, double at_end) {
  return (at_start < 0) == (at_end < 0) ? 1.0 : at_start / (at_start - at_end);
}

struct ChordEnds {
  double l1, l2, r1, r2;

  [[nodiscard]] double Width() const { return std::min(r1, r2) - std::max(l1, l2); }
  [[nodiscard]] ChordEnds Towards(const ChordEnds& end, double t) const {
    return {l1 + t * (end.l1 - l1), l2 + t * (end.l2 - l2), r1 + t * (end.r1 - r1),
            r2 + t * (end.r2 - r2)};
  }
};

/// Integral of the common chord over a unit step in which all four sides are straight: cut where
/// left or right sides cross, between which the chord's length is linear.
double CommonChords(const ChordEnds& start, const ChordEnds& end) {
  const double left_zero = ZeroOf(start.l1 - start.l2, end.l1 - end.l2);
  const double right_zero = ZeroOf(start.r1 - start.r2, end.r1 - end.r2);
  if (left_zero == 1.0 && right_zero == 1.0) return PositivePart(start.Width(), end.Width());
  const double first = std::min(left_zero, right_zero);
  const double second = std::max(left_zero, right_zero);
  const double at_first = start.Towards(end, first).Width();
  const double at_second = start.Towards(end, second).Width();
  return first * PositivePart(start.Width(), at_first) +
         (second - first) * PositivePart(at_first, at_second) +
         (1 - second) * PositivePart(at_second, end.Width());
}

/// The common area between two heights.
template <bool kSkipsHidden>
double Sweep(const ConvexSides& p, const ConvexSides& q, double y, double high) {
  Siblings left(p.left, q.left, y, -1.0);
  Siblings right(p.right, q.right, y, 1.0);
  const auto ends_at = [&] {
    return ChordEnds{left.First().At(y), left.Second().At(y), right.First().At(y),
                     right.Second().At(y)};
  };
  ChordEnds start = ends_at();
  double area = 0.0;
  while (true) {
    if constexpr (kSkipsHidden) {
      const bool has_skipped = left.SkipHidden(y, high);
      if (right.SkipHidden(y, high) || has_skipped) start = ends_at();
    }
    const double next = std::min({high, left.NextY(), right.NextY()});
    const ChordEnds end{left.First().AtUpTo(next), left.Second().AtUpTo(next),
                        right.First().AtUpTo(next), right.Second().AtUpTo(next)};
    area += (next - y) * CommonChords(start, end);
    if (next >= high) return area;
    left.Pass(next);
    right.Pass(next);
    y = next;
    start = end;
  }
}

}  // namespace

/// Appends the vertices from `first` on, `step` by `step`, up to `last`, as far as their y rises.
void ConvexPieces::Walk(std::span<const ZorPoint> vertices, std::size_t first, std::size_t last,
                        std::size_t step) {
  const std::size_t begin = nodes_.size();
  const std::size_t count = vertices.size();
  const double top = vertices[last].y;
  nodes_.push_back({vertices[first].y, vertices[first].x, 0.0});
  for (std::size_t i = first; i != last;) {
    i += step;
    if (i >= count) i -= count;
    const ZorPoint& p = vertices[i];
    if (p.y > nodes_.back().y && (p.y < top || i == last)) nodes_.push_back({p.y, p.x, 0.0});
  }
  SetSlopes({nodes_.data() + begin, nodes_.size() - begin});
}

void ConvexPieces::Add(std::span<const ZorPoint> vertices) {
  std::size_t low = 0;
  std::size_t high = 0;
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    if (vertices[i].y < vertices[low].y) low = i;
    if (vertices[i].y > vertices[high].y) high = i;
  }
  Add(vertices, low, high);
}

void ConvexPieces::Add(std::span<const ZorPoint> vertices, std::size_t low, std::size_t high) {
  const std::size_t begin = nodes_.size();
  spans_.push_back({begin, begin, begin});
  if (vertices.size() < 3) return;
  const std::size_t count = vertices.size();
  // Nor with coordinates that are no numbers.
  if (!(vertices[low].y < vertices[high].y)) return;
  // Along a level edge each side takes its own end: the last one before y changes.
  const auto along_level = [&](std::size_t i, std::size_t step) {
    for (std::size_t n = 0; n < count; ++n) {
      const std::size_t next = (i + step) % count;
      if (vertices[next].y != vertices[i].y) break;
      i = next;
    }
    return i;
  };
  const std::size_t forward = 1;
  const std::size_t backward = count - 1;
  if (nodes_.capacity() < begin + count + 4) nodes_.reserve(2 * begin + count + 4);
  Walk(vertices, along_level(low, forward), along_level(high, backward), forward);
  const std::size_t middle = nodes_.size();
  Walk(vertices, along_level(low, backward), along_level(high, forward), backward);
  const Chain ahead(nodes_.data() + begin, middle - begin);
  const Chain behind(nodes_.data() + middle, nodes_.size() - middle);
  if (ahead.size() < 2 || behind.size() < 2) {
    nodes_.resize(begin);
    return;
  }
  spans_.back() = {begin, middle, nodes_.size()};
  // Straight sides first, which any bent one differs from at its own vertices.
  const Chain& bent = ahead.size() > 2 ? ahead : behind;
  const Chain& other = ahead.size() > 2 ? behind : ahead;
  const ChainNode& vertex = bent[bent.size() / 2];
  const double y = bent.size() > 2 ? vertex.y : (bent.front().y + bent.back().y) / 2;
  const bool is_bent_left = Cursor(bent, y).At(y) < Cursor(other, y).At(y);
  const bool is_ahead_left = (ahead.size() > 2) == is_bent_left;
  if (!is_ahead_left) {
    std::rotate(nodes_.begin() + static_cast<std::ptrdiff_t>(begin),
                nodes_.begin() + static_cast<std::ptrdiff_t>(middle), nodes_.end());
    spans_.back().right = begin + behind.size();
  }
}

double OverlapArea(const ConvexSides& p, const ConvexSides& q) {
  if (p.IsFlat() || q.IsFlat()) return 0.0;
  const double high = std::min(p.High(), q.High());
  const double low = std::max(p.Low(), q.Low());
  if (!(low < high)) return 0.0;
  constexpr std::size_t kLonger = 16;  // than the other polygon's, sides are worth the looks ahead
  const std::size_t p_count = p.left.size() + p.right.size();
  const std::size_t q_count = q.left.size() + q.right.size();
  const bool is_uneven = std::max(p_count, q_count) > kLonger * std::min(p_count, q_count);
  return is_uneven ? Sweep<true>(p, q, low, high) : Sweep<false>(p, q, low, high);
}

OutlineTraits TraitsOf(std::span<const ZorPoint> polygon) {
  OutlineTraits traits;
  const std::size_t count = polygon.size();
  if (count < 3) return traits;
  bool turns_left = false;
  bool turns_right = false;
  ZorPoint before = polygon[0] - polygon[count - 1];
  int heading = 0;
  int first_heading = 0;
  std::size_t first = 0;
  const auto reverse = [&](std::size_t i, int now) {
    ++traits.reversals;
    (now > 0 ? traits.low : traits.high) = i;
  };
  for (std::size_t i = 0; i < count; ++i) {
    const ZorPoint& here = polygon[i];
    const ZorPoint& next = i + 1 < count ? polygon[i + 1] : polygon[0];
    const ZorPoint edge = next - here;
    const double turn = Cross(before, edge);
    turns_left |= turn > 0;
    turns_right |= turn < 0;
    // Straight back, which level edges do without another reversal.
    if (turn == 0 && elementary::Dot(before, edge) < 0) traits.reversals += 2;
    traits.has_repeats |= edge.x == 0 && edge.y == 0;
    const int now = (edge.y > 0 ? 1 : 0) - (edge.y < 0 ? 1 : 0);
    if (now != 0 && now != heading) {
      if (heading == 0) {
        first_heading = now;
        first = i;
      } else {
        reverse(i, now);
      }
      heading = now;
    }
    before = edge;
  }
  if (heading != first_heading) reverse(first, first_heading);
  traits.is_convex = !(turns_left && turns_right) && traits.reversals <= 2;
  return traits;
}

}  // namespace zor::intersection
