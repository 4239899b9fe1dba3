#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "ZorPoint.h"
#include "distance/box.h"

namespace zor::distance {

/// A hierarchy of bounds over the points, or the segments, of a contour: runs of consecutive items,
/// runs of runs. A contour's own order is kept, since its neighbours are close to one another;
/// items that jump about are put into a spatial order first.
///
/// A run is bounded twice: by a box, and by the capsule of all that is within `reach` of its chord,
/// the segment from its first to its last point. On a smooth curve the capsule's thickness shrinks
/// with the square of the run's length, so that for contours at a constant distance from each
/// other, where every point nearly ties, few pairs of runs stay in question. Box bounds are exact,
/// those of capsules hold up to rounding.
class RunTree {
 public:
  enum class Items { kPoints, kSegments };

  struct Run {
    Box box;
    ZorPoint start;
    ZorPoint end;
    ZorPoint normal;  // of the chord from start to end, unit length; 0 where they coincide
    double reach = 0.0;
    std::uint32_t least_index = 0;
  };

  /// A run of some level, 0 for the leaves, or (level -1) the item at a place of the order.
  struct Ref {
    int level = -1;
    std::uint32_t k = 0;
  };

  /// At least one item; finite coordinates. The points stay the caller's.
  RunTree(std::span<const ZorPoint> points, Items items);

  [[nodiscard]] std::span<const ZorPoint> Points() const { return points_; }
  [[nodiscard]] std::uint32_t Size() const { return size_; }
  [[nodiscard]] Ref Root() const { return {static_cast<int>(levels_.size()) - 1, 0}; }
  [[nodiscard]] const Run& At(Ref run) const {
    return levels_[static_cast<std::size_t>(run.level)][run.k];
  }

  /// The index, in the list, of the item at a place of the order.
  [[nodiscard]] std::uint32_t Index(std::uint32_t k) const {
    return order_.empty() ? k : order_[k];
  }

  [[nodiscard]] const ZorPoint& Start(std::uint32_t index) const { return points_[index]; }
  [[nodiscard]] const ZorPoint& End(std::uint32_t index) const {
    return points_[index + end_offset_];
  }

  [[nodiscard]] Box BoxOf(Ref ref) const {
    if (ref.level >= 0) return At(ref).box;
    const std::uint32_t index = Index(ref.k);
    return Box::Of(Start(index), End(index));
  }
  [[nodiscard]] std::uint32_t LeastIndex(Ref ref) const {
    return ref.level >= 0 ? At(ref).least_index : Index(ref.k);
  }

  /// The parts of a run: two runs, or one, or the items of a leaf.
  struct Parts {
    int level;
    std::uint32_t begin;
    std::uint32_t end;
  };
  [[nodiscard]] Parts PartsOf(Ref run) const {
    if (run.level == 0) {
      return {-1, run.k * kLeafSize, std::min((run.k + 1) * kLeafSize, size_)};
    }
    const auto count =
        static_cast<std::uint32_t>(levels_[static_cast<std::size_t>(run.level) - 1].size());
    return {run.level - 1, 2 * run.k, std::min(2 * run.k + 2, count)};
  }

  /// The range of the directions (end - start) of a run's segments, of a single one's too.
  [[nodiscard]] Box StepsOf(Ref ref) const;
  /// Prepares StepsOf for runs.
  void AddSteps();

  /// The level with about `count` runs.
  [[nodiscard]] int LevelOf(std::size_t count) const;
  [[nodiscard]] std::uint32_t RunCount(int level) const {
    return static_cast<std::uint32_t>(levels_[static_cast<std::size_t>(level)].size());
  }

  static constexpr std::uint32_t kLeafSize = 8;

 private:
  void AddLeaves();
  [[nodiscard]] bool IsScattered() const;
  [[nodiscard]] Run BoundOf(std::uint32_t begin, std::uint32_t end) const;
  [[nodiscard]] static Run Join(const Run& first, const Run& second);

  std::span<const ZorPoint> points_;
  std::uint32_t size_;                    // number of items
  std::uint32_t end_offset_;              // from a segment's start to its end; 0 for points
  std::vector<std::uint32_t> order_;      // empty: the list's own
  std::vector<std::vector<Run>> levels_;  // leaves first, each half as long as the one before
  std::vector<std::vector<Box>> steps_;
};

}  // namespace zor::distance
