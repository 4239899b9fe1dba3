#include "shape/capsule_tree.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "elementary/point_kernels.h"

namespace zor::shape {

namespace {

constexpr std::size_t kLeafSize = 8;

// Relative. Far above the rounding of a capsule's bound (some 1e-15), far below what a bound has to
// tell apart.
constexpr double kRoundingSlack = 1e-12;

ZorPoint PositionOf(const ListedPoint& p) { return {p.x, p.y}; }

/// Distance of p from the segment ab; a itself when both coincide.
double DistanceToSegment(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  const ZorPoint along = b - a;
  const ZorPoint off = p - a;
  const double length2 = elementary::Dot(along, along);
  const double t = length2 > 0 ? elementary::Dot(off, along) / length2 : 0.0;
  if (t <= 0) return elementary::Norm(off);
  if (t >= 1) return elementary::Distance(p, b);
  return std::fabs(elementary::Cross(along, off)) / std::sqrt(length2);
}

}  // namespace

CapsuleTree::CapsuleTree(std::vector<ListedPoint> points) : points_(std::move(points)) {
  std::vector<Run> level((points_.size() + kLeafSize - 1) / kLeafSize);
  for (std::size_t i = 0; i < level.size(); ++i) level[i] = Bound(Leaf(i));
  while (level.size() > 1) {
    std::vector<Run> next((level.size() + 1) / 2);
    for (std::size_t i = 0; i < next.size(); ++i) {
      next[i] = 2 * i + 1 < level.size() ? Join(level[2 * i], level[2 * i + 1]) : level[2 * i];
    }
    levels_.push_back(std::exchange(level, std::move(next)));
  }
  levels_.push_back(std::move(level));
}

void CapsuleTree::OfferFarthest(BestPair& best) const {
  if (!points_.empty()) Compare(levels_.size() - 1, 0, 0, best);
}

std::span<const ListedPoint> CapsuleTree::Leaf(std::size_t i) const {
  const std::span<const ListedPoint> all(points_);
  return all.subspan(i * kLeafSize, std::min(kLeafSize, all.size() - i * kLeafSize));
}

CapsuleTree::Run CapsuleTree::Bound(std::span<const ListedPoint> points) {
  const ZorPoint start = PositionOf(points.front());
  const ZorPoint end = PositionOf(points.back());
  Run run = {start, end, 0.0, start, start, points.front().index};
  for (const ListedPoint& p : points) {
    run.reach = std::max(run.reach, DistanceToSegment(PositionOf(p), start, end));
    run.low = {std::min(run.low.x, p.x), std::min(run.low.y, p.y)};
    run.high = {std::max(run.high.x, p.x), std::max(run.high.y, p.y)};
    run.least_index = std::min(run.least_index, p.index);
  }
  return run;
}

CapsuleTree::Run CapsuleTree::Join(const Run& first, const Run& second) {
  const ZorPoint& start = first.start;
  const ZorPoint& end = second.end;
  // The distance from a convex set is largest at an end of a segment.
  const double reach = std::max(first.reach + DistanceToSegment(first.end, start, end),
                                second.reach + DistanceToSegment(second.start, start, end));
  return {start,
          end,
          reach,
          {std::min(first.low.x, second.low.x), std::min(first.low.y, second.low.y)},
          {std::max(first.high.x, second.high.x), std::max(first.high.y, second.high.y)},
          std::min(first.least_index, second.least_index)};
}

bool CapsuleTree::CanBeFarthest(const Run& a, const Run& b, const BestPair& best) {
  const auto square = [](const ZorPoint& u) { return elementary::Dot(u, u); };
  const double ends2 = std::max({square(a.start - b.start), square(a.start - b.end),
                                 square(a.end - b.start), square(a.end - b.end)});
  const double capsules = std::sqrt(ends2) + a.reach + b.reach;
  if (capsules * (1 + kRoundingSlack) < best.Distance()) return false;
  const double dx = std::max(a.high.x - b.low.x, b.high.x - a.low.x);
  const double dy = std::max(a.high.y - b.low.y, b.high.y - a.low.y);
  return best.CanYieldTo(dx * dx + dy * dy, a.least_index, b.least_index);
}

void CapsuleTree::Compare(std::size_t level, std::size_t i, std::size_t j, BestPair& best) const {
  if (!CanBeFarthest(levels_[level][i], levels_[level][j], best)) return;
  if (level == 0) {
    if (i == j) return OfferAllPairs(Leaf(i), best);
    for (const ListedPoint& p : Leaf(i)) {
      for (const ListedPoint& q : Leaf(j)) best.Offer(p, q);
    }
    return;
  }
  const std::size_t count = levels_[level - 1].size();
  for (std::size_t child = 2 * i; child < std::min(2 * i + 2, count); ++child) {
    for (std::size_t other = i == j ? child : 2 * j; other < std::min(2 * j + 2, count); ++other) {
      Compare(level - 1, child, other, best);
    }
  }
}

}  // namespace zor::shape
