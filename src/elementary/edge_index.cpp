#include "elementary/edge_index.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "elementary/edge_scan.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_kernels.h"
#include "frame/checks.h"

namespace zor::elementary {
namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

/// Boxes of edges and of a segment that cross within rounding overlap when they are widened by this
/// much of the largest coordinate: a crossing found lies within some 100 roundings of both.
constexpr double kBoxSlack = 512 * kEpsilon;

/// Decides which edges segment ab may cross, by the side of its line on which their ends lie.
class CrossingScan {
 public:
  /// `largest`: of the |coordinates| of all edges that will be scanned.
  CrossingScan(const ZorPoint& a, const ZorPoint& b, double largest)
      : a_(a), b_(b), d_(b - a), tilt_(1 + 4 * std::max(1e-9, kRoundingReach * largest)) {}

  /// Calls hit(i, crossing) for each edge (i - 1, i) of the polyline that the segment crosses.
  template <typename Hit>
  void Run(std::span<const ZorPoint> points, Hit hit) const {
    ScanEdges(
        points, [this](const ZorPoint& p) { return Cross(d_, p - a_); },
        // With s and e the sides of an edge's ends, the crossing of the lines divides the edge as
        // s to -e. Sides of one sign put it beyond an end by min|s|, |e| of |e - s|; as long as
        // that is more than rounding can make up, the edge cannot be hit. |s + e| > |e - s| says
        // that the signs agree, the factor that both are well away from 0.
        [this](double s, double e) {
          return Bits(std::fabs(s + e) - tilt_ * std::fabs(e - s) - kLeast);
        },
        [&](std::size_t i) {
          const std::optional<ZorPoint> crossing = CrossSegments(a_, b_, points[i - 1], points[i]);
          if (crossing) hit(i, *crossing);
          return false;
        });
  }

 private:
  // The crossing of the lines is computed to within 6 epsilon of the largest coordinate over
  // 1 - min/max of the sides, and an edge is at least kDegenerateLength long: beyond an end by
  // min/max > kRoundingReach * largest it stays there.
  static constexpr double kRoundingReach = 1e5 * kEpsilon;
  static constexpr double kLeast = 1e-290;  // sides that vanish, or nearly, are looked at

  ZorPoint a_;
  ZorPoint b_;
  ZorPoint d_;
  double tilt_;
};

Box EmptyBox() {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return {{kInfinity, kInfinity}, {-kInfinity, -kInfinity}};
}

Box Around(const ZorPoint& a, const ZorPoint& b, double margin) {
  return {{std::min(a.x, b.x) - margin, std::min(a.y, b.y) - margin},
          {std::max(a.x, b.x) + margin, std::max(a.y, b.y) + margin}};
}

void Include(Box& box, const ZorPoint& low, const ZorPoint& high) {
  box.low = {std::min(box.low.x, low.x), std::min(box.low.y, low.y)};
  box.high = {std::max(box.high.x, high.x), std::max(box.high.y, high.y)};
}

bool AreApart(const Box& a, const Box& b) {
  return a.high.x < b.low.x || b.high.x < a.low.x || a.high.y < b.low.y || b.high.y < a.low.y;
}

}  // namespace

void AppendSegmentCrossings(const ZorPoint& a, const ZorPoint& b, std::span<const ZorPoint> outline,
                            std::vector<ZorPoint>& crossings) {
  if (outline.empty() || frame::IsDegenerate(a, b)) return;
  if (const auto hit = CrossSegments(a, b, outline.back(), outline.front())) {
    crossings.push_back(*hit);
  }
  CrossingScan(a, b, LargestCoordinate(outline))
      .Run(outline, [&](std::size_t, const ZorPoint& hit) { crossings.push_back(hit); });
}

EdgeIndex::EdgeIndex(std::span<const ZorPoint> outline) : edge_count_(outline.size()) {
  if (outline.empty()) return;
  points_.reserve(outline.size() + 1);
  points_.push_back(outline.back());
  points_.insert(points_.end(), outline.begin(), outline.end());

  const std::size_t leaves = (edge_count_ + kFanOut - 1) / kFanOut;
  boxes_.reserve(leaves + leaves / (kFanOut - 1) + 8);
  levels_.push_back({0, leaves});
  Box whole = EmptyBox();
  for (std::size_t leaf = 0; leaf < leaves; ++leaf) {
    Box box = EmptyBox();
    for (const ZorPoint& p : LeafPoints(leaf)) Include(box, p, p);
    Include(whole, box.low, box.high);
    boxes_.push_back(box);
  }
  largest_ = std::max({std::fabs(whole.low.x), std::fabs(whole.low.y), std::fabs(whole.high.x),
                       std::fabs(whole.high.y)});
  while (levels_.back().count > kFanOut) AddLevel();
}

void EdgeIndex::AddLevel() {
  const Level below = levels_.back();
  const std::size_t count = (below.count + kFanOut - 1) / kFanOut;
  levels_.push_back({boxes_.size(), count});
  for (std::size_t i = 0; i < count; ++i) {
    Box box = EmptyBox();
    const std::size_t end = std::min((i + 1) * kFanOut, below.count);
    for (std::size_t j = i * kFanOut; j < end; ++j) {
      const Box part = boxes_[below.first + j];
      Include(box, part.low, part.high);
    }
    boxes_.push_back(box);
  }
}

std::span<const ZorPoint> EdgeIndex::LeafPoints(std::size_t leaf) const {
  const std::size_t first = leaf * kFanOut;
  const std::size_t count = std::min(kFanOut, edge_count_ - first) + 1;
  return std::span(points_).subspan(first, count);
}

template <typename Leaf>
void EdgeIndex::VisitLeaves(const Box& reach, std::size_t level, std::size_t first,
                            std::size_t last, Leaf& leaf) const {
  for (std::size_t i = first; i < last; ++i) {
    if (AreApart(boxes_[levels_[level].first + i], reach)) continue;
    if (level == 0) {
      leaf(i);
    } else {
      const std::size_t end = std::min((i + 1) * kFanOut, levels_[level - 1].count);
      VisitLeaves(reach, level - 1, i * kFanOut, end, leaf);
    }
  }
}

template <typename Leaf>
void EdgeIndex::VisitLeaves(const Box& reach, Leaf leaf) const {
  if (levels_.empty()) return;
  VisitLeaves(reach, levels_.size() - 1, 0, levels_.back().count, leaf);
}

void EdgeIndex::AppendCrossings(const ZorPoint& a, const ZorPoint& b,
                                std::vector<ZorPoint>& crossings) const {
  if (frame::IsDegenerate(a, b)) return;
  const ZorPoint ends[] = {a, b};
  const double margin = kBoxSlack * std::max(largest_, LargestCoordinate(ends));
  const CrossingScan scan(a, b, largest_);
  VisitLeaves(Around(a, b, margin), [&](std::size_t leaf) {
    scan.Run(LeafPoints(leaf), [&](std::size_t, const ZorPoint& hit) { crossings.push_back(hit); });
  });
}

/// The pass of one outline's edges over another, a leaf of the first at a time.
class OutlineCrosser {
 public:
  OutlineCrosser(const EdgeIndex& first, const EdgeIndex& second, ClosingEdge closing)
      : first_(first),
        second_(second),
        closing_(closing),
        margin_(kBoxSlack * std::max(first.largest_, second.largest_)) {}

  std::vector<OutlineCrossing> Run() {
    if (first_.levels_.empty() || second_.levels_.empty()) return {};
    Box all = EmptyBox();
    const EdgeIndex::Level top = second_.levels_.back();
    for (std::size_t i = 0; i < top.count; ++i) {
      const Box& part = second_.boxes_[top.first + i];
      Include(all, part.low, part.high);
    }
    first_.VisitLeaves(Around(all.low, all.high, margin_),
                       [this](std::size_t leaf) { CrossLeaf(leaf); });
    return std::move(crossings_);
  }

 private:
  void CrossLeaf(std::size_t leaf) {
    near_.clear();
    const Box& box = first_.boxes_[leaf];
    second_.VisitLeaves(Around(box.low, box.high, margin_),
                        [this](std::size_t other) { near_.push_back(other); });
    if (near_.empty()) return;
    const std::size_t begin = leaf * EdgeIndex::kFanOut;
    const std::size_t end = std::min(begin + EdgeIndex::kFanOut, first_.edge_count_);
    for (std::size_t edge = begin; edge < end; ++edge) CrossEdge(edge);
  }

  void CrossEdge(std::size_t edge) {
    const bool is_turned = edge == 0 && closing_ == ClosingEdge::kFirstToLast;
    const ZorPoint& a = is_turned ? first_.End(0) : first_.Start(edge);
    const ZorPoint& b = is_turned ? first_.Start(0) : first_.End(edge);
    const Box reach = Around(a, b, margin_);
    const CrossingScan scan(a, b, second_.largest_);
    for (const std::size_t leaf : near_) {
      if (AreApart(second_.boxes_[leaf], reach)) continue;
      scan.Run(second_.LeafPoints(leaf), [&](std::size_t i, const ZorPoint& hit) {
        crossings_.push_back({hit, edge, leaf * EdgeIndex::kFanOut + i - 1});
      });
    }
  }

  const EdgeIndex& first_;
  const EdgeIndex& second_;
  ClosingEdge closing_;
  double margin_;
  std::vector<std::size_t> near_;  // leaves of the second near the leaf at hand
  std::vector<OutlineCrossing> crossings_;
};

std::vector<OutlineCrossing> CrossOutlines(const EdgeIndex& first, const EdgeIndex& second,
                                           ClosingEdge closing) {
  return OutlineCrosser(first, second, closing).Run();
}

}  // namespace zor::elementary
