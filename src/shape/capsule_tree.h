#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "ZorPoint.h"
#include "shape/best_pair.h"

namespace zor::shape {

/// A hierarchy of bounds over points that follow one another along a curve, more or less: answers
/// which pair is farthest by comparing whole runs of points first. Any order gives the right
/// answer; a good one makes it quick.
///
/// A run is bounded twice. The capsule, all that lies within `reach` of the segment from its first
/// to its last point, shrinks with the square of the run's length on a smooth curve, so that on a
/// circle, where every point ties nearly with its opposite, a run stays in question with few
/// others; it holds up to rounding. The box bounds distances as computed: differences, squares, sum
/// and root are monotone also when rounded, so that its verdict on ties needs no tolerance.
class CapsuleTree {
 public:
  explicit CapsuleTree(std::vector<ListedPoint> points);

  /// Offers every pair that could replace `best`, and others. The point set is between 1e-100 and
  /// 1e100 across.
  void OfferFarthest(BestPair& best) const;

 private:
  struct Run {
    ZorPoint start;
    ZorPoint end;
    double reach;
    ZorPoint low;  // corners of the box
    ZorPoint high;
    std::uint32_t least_index;
  };

  [[nodiscard]] std::span<const ListedPoint> Leaf(std::size_t i) const;
  [[nodiscard]] static Run Bound(std::span<const ListedPoint> points);
  [[nodiscard]] static Run Join(const Run& first, const Run& second);
  [[nodiscard]] static bool CanBeFarthest(const Run& a, const Run& b, const BestPair& best);
  void Compare(std::size_t level, std::size_t i, std::size_t j, BestPair& best) const;

  std::vector<ListedPoint> points_;
  std::vector<std::vector<Run>> levels_;  // leaves first, each level half as long as the one before
};

}  // namespace zor::shape
