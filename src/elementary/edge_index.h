#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

// Crossings of segments with the edges of a closed outline, in the order of plain edge-by-edge
// testing: the closing edge (last vertex to first) first, then the edges (0, 1), (1, 2), ... Each
// edge is judged by CrossSegments(segment, edge), and every hit is reported: a segment through a
// vertex meets it once on each of its two edges. Edges that cannot be hit are passed over.

namespace zor::elementary {

/// Appends the crossings of segment ab with the outline's edges. Linear in the number of vertices,
/// about 1 ns each; for several segments against one outline build an EdgeIndex.
void AppendSegmentCrossings(const ZorPoint& a, const ZorPoint& b, std::span<const ZorPoint> outline,
                            std::vector<ZorPoint>& crossings);

struct Box {
  ZorPoint low;
  ZorPoint high;
};

/// The edges of a closed outline in a tree of boxes over runs of 8, 64, ... consecutive edges. Owns
/// a copy of the outline. Edge k ends at vertex k: edge 0 is the closing edge. Built in linear
/// time; a query opens the boxes that the segment's box meets: few, unless consecutive vertices lie
/// all over the place, when it comes down to the linear scan.
class EdgeIndex {
 public:
  explicit EdgeIndex(std::span<const ZorPoint> outline);

  [[nodiscard]] std::size_t EdgeCount() const { return edge_count_; }
  [[nodiscard]] const ZorPoint& Start(std::size_t edge) const { return points_[edge]; }
  [[nodiscard]] const ZorPoint& End(std::size_t edge) const { return points_[edge + 1]; }

  /// Appends the crossings of segment ab with the edges.
  void AppendCrossings(const ZorPoint& a, const ZorPoint& b,
                       std::vector<ZorPoint>& crossings) const;

 private:
  friend class OutlineCrosser;

  static constexpr std::size_t kFanOut = 8;

  struct Level {
    std::size_t first;  // in boxes_
    std::size_t count;
  };

  void AddLevel();
  template <typename Leaf>
  void VisitLeaves(const Box& reach, std::size_t level, std::size_t first, std::size_t last,
                   Leaf& leaf) const;
  template <typename Leaf>
  void VisitLeaves(const Box& reach, Leaf leaf) const;
  [[nodiscard]] std::span<const ZorPoint> LeafPoints(std::size_t leaf) const;

  std::size_t edge_count_ = 0;
  double largest_ = 0.0;          // |coordinate|
  std::vector<ZorPoint> points_;  // the last vertex, then all vertices
  std::vector<Box> boxes_;
  std::vector<Level> levels_;  // runs of 8 edges, of 64, ...
};

/// A crossing of edge `first_edge` of one outline with edge `second_edge` of another.
struct OutlineCrossing {
  ZorPoint point;
  std::size_t first_edge;
  std::size_t second_edge;
};

/// Which way the first outline's closing edge runs when it is a segment against the other outline:
/// the last bits of a crossing depend on it.
enum class ClosingEdge { kLastToFirst, kFirstToLast };

/// The crossings of every edge of the first outline, in order, with the edges of the second, in
/// order: what a loop over the first outline's edges and AppendCrossings gives.
[[nodiscard]] std::vector<OutlineCrossing> CrossOutlines(const EdgeIndex& first,
                                                         const EdgeIndex& second,
                                                         ClosingEdge closing);

}  // namespace zor::elementary
