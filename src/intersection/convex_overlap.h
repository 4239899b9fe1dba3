#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

// Areas common to convex polygons, by sweeping a horizontal line: between the heights of their
// vertices both ends of the common chord are straight.

namespace zor::intersection {

/// One vertex of a chain that runs with rising y, and the slope dx/dy of the edge from it.
struct ChainNode {
  double y = 0.0;
  double x = 0.0;
  double slope = 0.0;
};

/// A side of a convex polygon: its x as a function of y. At least two nodes, y strictly rising.
using Chain = std::span<const ChainNode>;

/// Both sides of a convex polygon over one range of y, or no sides when it has no height.
struct ConvexSides {
  Chain left;
  Chain right;

  [[nodiscard]] bool IsFlat() const { return left.empty(); }
  [[nodiscard]] double Low() const { return left.front().y; }
  [[nodiscard]] double High() const { return left.back().y; }
};

/// Convex polygons with their sides in one block of memory.
class ConvexPieces {
 public:
  /// Vertices in either direction. Those on straight edges and repeated ones are allowed; what
  /// sticks out of a side by rounding is passed over.
  void Add(std::span<const ZorPoint> vertices);
  /// The same where a vertex of the least and one of the greatest y are known.
  void Add(std::span<const ZorPoint> vertices, std::size_t low, std::size_t high);

  [[nodiscard]] std::size_t Count() const { return spans_.size(); }
  [[nodiscard]] ConvexSides Sides(std::size_t i) const {
    const Span& span = spans_[i];
    return {{nodes_.data() + span.left, span.right - span.left},
            {nodes_.data() + span.right, span.end - span.right}};
  }

 private:
  struct Span {
    std::size_t left, right, end;  // in nodes_; all equal for a piece without height
  };

  void Walk(std::span<const ZorPoint> vertices, std::size_t first, std::size_t last,
            std::size_t step);

  std::vector<ChainNode> nodes_;
  std::vector<Span> spans_;
};

/// Area common to two convex polygons. Linear in the vertices within the common range of y.
[[nodiscard]] double OverlapArea(const ConvexSides& p, const ConvexSides& q);

/// What one look at the vertices of a polygon tells.
struct OutlineTraits {
  bool is_convex = false;    // it turns one way only, within rounding, and around once
  int reversals = 0;         // of its direction in y: two where it goes around once
  bool has_repeats = false;  // a vertex equals the next one
  std::size_t low = 0;       // of a convex one: a vertex of the least y, and one of the greatest
  std::size_t high = 0;
};
[[nodiscard]] OutlineTraits TraitsOf(std::span<const ZorPoint> polygon);

}  // namespace zor::intersection
