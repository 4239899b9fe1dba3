#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::intersection {

/// Bounds of a piece; a coordinate that is no number makes it meet nothing.
struct PieceBox {
  ZorPoint low;
  ZorPoint high;

  [[nodiscard]] bool Meets(const PieceBox& other) const {
    return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y &&
           other.low.y <= high.y;
  }
};

[[nodiscard]] PieceBox BoxOf(std::span<const ZorPoint> points);

/// Boxes in a packed tree of fixed fan-out (I. Kamel and C. Faloutsos, On packing R-trees, 1993):
/// sorted in strips, eight to a node. Built in n log n.
class BoxTree {
 public:
  explicit BoxTree(std::span<const PieceBox> boxes);

  /// Calls `visit` with the index of every box that meets the given one.
  template <typename Visit>
  void VisitMeeting(const PieceBox& box, Visit&& visit) const {
    if (!levels_.empty()) Descend(box, levels_.size() - 1, 0, levels_.back().size(), visit);
  }

 private:
  static constexpr std::size_t kFanOut = 8;

  template <typename Visit>
  void Descend(const PieceBox& box, std::size_t level, std::size_t first, std::size_t last,
               Visit& visit) const {
    for (std::size_t i = first; i < last; ++i) {
      if (!levels_[level][i].Meets(box)) continue;
      if (level == 0) {
        visit(order_[i]);
        continue;
      }
      const std::size_t child = i * kFanOut;
      const std::size_t end = child + kFanOut;
      const std::size_t count = levels_[level - 1].size();
      Descend(box, level - 1, child, end < count ? end : count, visit);
    }
  }

  std::vector<std::size_t> order_;             // of the boxes at level 0
  std::vector<std::vector<PieceBox>> levels_;  // leaves first
};

}  // namespace zor::intersection
