#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::elementary {

/// PolygonRelation for many points, with the same answers. A grid over the polygon: a point is
/// judged against the edges near its cell alone; what lies to the right of the cell is known from
/// the grid. Building is linear in the vertices plus the cells that the outline passes; a query is
/// constant time for outlines whose vertices do not crowd into a few cells. May be used from
/// several threads.
class PolygonIndex {
 public:
  /// The polygon must outlive the index. `queries`: about how many points will be asked for; the
  /// grid is made as fine as pays for them, or not at all.
  PolygonIndex(std::span<const ZorPoint> polygon, std::size_t queries);

  [[nodiscard]] int Relation(const ZorPoint& p) const;

 private:
  friend class PolygonGridBuilder;

  /// An edge near a cell. Its neighbours on the outline may lie to the right of the cell; their
  /// share in the crossings then changes at the vertex in common.
  struct NearEdge {
    std::uint32_t edge;  // from points_[edge] to points_[edge + 1]
    bool is_right_before;
    bool is_right_after;
  };
  struct Cell {
    std::uint32_t first_near;  // up to the next cell's
    bool is_odd_right;         // crossings with edges to the right of the cell
  };

  [[nodiscard]] std::uint32_t Column(double x) const { return Slot(x - low_.x, columns_); }
  [[nodiscard]] std::uint32_t Row(double y) const { return Slot(y - low_.y, rows_); }
  [[nodiscard]] std::uint32_t Slot(double offset, std::size_t count) const;

  std::span<const ZorPoint> polygon_;
  std::size_t columns_ = 0;  // 0: no grid, every query walks the polygon
  std::size_t rows_ = 0;
  ZorPoint low_;
  ZorPoint high_;
  double per_pixel_ = 0.0;        // cells
  std::vector<ZorPoint> points_;  // the last vertex, then all vertices
  std::vector<Cell> cells_;       // row by row, and one to end the last
  std::vector<NearEdge> near_;
};

}  // namespace zor::elementary
