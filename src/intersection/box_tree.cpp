#include "intersection/box_tree.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zor::intersection {
namespace {

PieceBox Joined(const PieceBox& a, const PieceBox& b) {
  return {ZorPoint(std::min(a.low.x, b.low.x), std::min(a.low.y, b.low.y)),
          ZorPoint(std::max(a.high.x, b.high.x), std::max(a.high.y, b.high.y))};
}

}  // namespace

PieceBox BoxOf(std::span<const ZorPoint> points) {
  // Two boxes by turns: one would wait for its last minimum at every point.
  PieceBox box{points[0], points[0]};
  PieceBox other = box;
  std::size_t i = 1;
  for (; i + 1 < points.size(); i += 2) {
    box = Joined(box, {points[i], points[i]});
    other = Joined(other, {points[i + 1], points[i + 1]});
  }
  if (i < points.size()) box = Joined(box, {points[i], points[i]});
  return Joined(box, other);
}

BoxTree::BoxTree(std::span<const PieceBox> boxes) : order_(boxes.size()) {
  if (boxes.empty()) return;
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  const auto by_x = [&](std::size_t i, std::size_t j) {
    return boxes[i].low.x + boxes[i].high.x < boxes[j].low.x + boxes[j].high.x;
  };
  const auto by_y = [&](std::size_t i, std::size_t j) {
    return boxes[i].low.y + boxes[i].high.y < boxes[j].low.y + boxes[j].high.y;
  };
  const bool is_ordered = std::ranges::all_of(boxes, [](const PieceBox& box) {
    return std::isfinite(box.low.x + box.high.x) && std::isfinite(box.low.y + box.high.y);
  });
  if (is_ordered) {  // otherwise any order gives the same pairs, and none can be had
    const double nodes = static_cast<double>(boxes.size()) / static_cast<double>(kFanOut);
    const auto strip = static_cast<std::size_t>(std::ceil(std::sqrt(nodes))) * kFanOut;
    std::sort(order_.begin(), order_.end(), by_x);
    for (std::size_t first = 0; first < order_.size(); first += strip) {
      const std::size_t last = std::min(first + strip, order_.size());
      std::sort(order_.begin() + static_cast<std::ptrdiff_t>(first),
                order_.begin() + static_cast<std::ptrdiff_t>(last), by_y);
    }
  }
  levels_.emplace_back();
  for (const std::size_t i : order_) levels_.back().push_back(boxes[i]);
  while (levels_.back().size() > kFanOut) {
    const std::vector<PieceBox>& below = levels_.back();
    std::vector<PieceBox> level;
    for (std::size_t first = 0; first < below.size(); first += kFanOut) {
      PieceBox box = below[first];
      for (std::size_t i = first + 1; i < std::min(first + kFanOut, below.size()); ++i) {
        box = Joined(box, below[i]);
      }
      level.push_back(box);
    }
    levels_.push_back(std::move(level));
  }
}

}  // namespace zor::intersection
