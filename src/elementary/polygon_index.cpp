#include "elementary/polygon_index.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "elementary/polygon_kernels.h"

// How the grid answers. The edges of a row of cells fall into three kinds for each cell: those near
// it, those entirely to its left, which no ray from the cell meets, and those entirely to its
// right, which the ray from p crosses exactly when one of their ends is level with p or above it
// and the other is not. The crossings with a run of consecutive edges to the right telescope to the
// two ends of the run:
//
//   crossed an odd number of times  <=>  (first.y <= p.y) != (last.y <= p.y)
//
// An end that lies in another row compares the same for every p of this row, so its share is stored
// with the cell. An end in this row lies to the right of the cell and belongs to a near edge as
// well; there the comparison is made at query time. What comes out are the very comparisons of the
// plain walk, with nothing computed from coordinates but which cells an edge may be near to, and
// that generously.

namespace zor::elementary {
namespace {

// Beyond this the rounding of a crossing could reach kMargin.
inline constexpr double kLargestGridded = 1e7;  // pixels, |coordinate|
inline constexpr double kMargin = 1e-3;         // pixels; an edge is near a cell up to this
inline constexpr double kSmallestCell = 1e-2;   // pixels; well above kMargin
inline constexpr double kBoxReach = 2 * kOutlineReach;
inline constexpr std::size_t kFewQueries = 128;  // up to here the walk is faster
inline constexpr std::size_t kMostCells = std::size_t{1} << 22;

struct Extent {
  ZorPoint low;
  ZorPoint high;
  double length;  // of the outline, along x plus along y
};

Extent Measure(std::span<const ZorPoint> polygon) {
  Extent extent{polygon.front(), polygon.front(), 0.0};
  const ZorPoint* a = &polygon.back();
  for (const ZorPoint& b : polygon) {
    extent.low = {std::min(extent.low.x, b.x), std::min(extent.low.y, b.y)};
    extent.high = {std::max(extent.high.x, b.x), std::max(extent.high.y, b.y)};
    extent.length += std::fabs(b.x - a->x) + std::fabs(b.y - a->y);
    a = &b;
  }
  return extent;
}

bool IsModerate(const ZorPoint& p) {
  return std::fabs(p.x) <= kLargestGridded && std::fabs(p.y) <= kLargestGridded;
}

}  // namespace

class PolygonGridBuilder {
 public:
  PolygonGridBuilder(PolygonIndex& index, std::size_t queries) : index_(index) {
    const std::span<const ZorPoint> polygon = index.polygon_;
    index_.points_.reserve(polygon.size() + 1);
    index_.points_.push_back(polygon.back());
    index_.points_.insert(index_.points_.end(), polygon.begin(), polygon.end());
    ChooseCells(queries);
    rows_.reserve(index_.points_.size());
    for (const ZorPoint& p : index_.points_) rows_.push_back(index_.Row(p.y));
  }

  void Build() {
    const auto edges = static_cast<std::uint32_t>(index_.polygon_.size());
    stretches_.reserve(2 * edges);
    for (std::uint32_t edge = 0; edge < edges; ++edge) AddStretches(edge);
    CountCells();
    for (const Stretch& stretch : stretches_) Enter(stretch);
  }

 private:
  /// The columns to which an edge is near in one row.
  struct Columns {
    std::uint32_t first;
    std::uint32_t last;
  };
  struct Stretch {
    std::uint32_t edge;
    std::uint32_t row;
    Columns columns;
  };

  const ZorPoint& Start(std::size_t edge) const { return index_.points_[edge]; }
  const ZorPoint& End(std::size_t edge) const { return index_.points_[edge + 1]; }

  /// Several cells a vertex, and more for many queries, unless the outline is so long for its size
  /// that it would pass through too many of them.
  void ChooseCells(std::size_t queries) {
    const double vertices = static_cast<double>(index_.polygon_.size());
    const double asked = static_cast<double>(queries);
    const Extent extent = Measure(index_.polygon_);
    const double width = extent.high.x - extent.low.x;
    const double height = extent.high.y - extent.low.y;
    const double wanted =
        std::min(std::max(4 * vertices, asked / 8), static_cast<double>(kMostCells) / 4);
    const double passes = 8 * vertices + std::min(asked / 2, 1e6);
    const double side = std::max({std::sqrt(width * height / wanted), width / wanted,
                                  height / wanted, extent.length / passes, kSmallestCell});
    index_.low_ = extent.low;
    index_.high_ = extent.high;
    index_.per_pixel_ = 1 / side;
    index_.columns_ = static_cast<std::size_t>(width / side) + 1;
    index_.rows_ = static_cast<std::size_t>(height / side) + 1;
  }

  /// The rows in which the edge has something to say. A horizontal edge reaches above and below.
  std::pair<std::uint32_t, std::uint32_t> RowsOf(std::size_t edge) const {
    const double y = Start(edge).y;
    if (y == End(edge).y) return {index_.Row(y - kBoxReach), index_.Row(y + kBoxReach)};
    return std::minmax({rows_[edge], rows_[edge + 1]});
  }

  /// The columns of the part of the edge that lies in the row, widened along y by a thousandth of a
  /// cell and along x by kMargin.
  Columns ColumnsOf(std::size_t edge, std::uint32_t row) const {
    const ZorPoint& a = Start(edge);
    const ZorPoint& b = End(edge);
    double low = std::min(a.x, b.x);
    double high = std::max(a.x, b.x);
    if (rows_[edge] != rows_[edge + 1]) {
      const double side = 1 / index_.per_pixel_;
      const double top = index_.low_.y + (row - 1e-3) * side;
      const double bottom = index_.low_.y + (row + 1 + 1e-3) * side;
      const double slope = (b.x - a.x) / (b.y - a.y);
      const auto [first_y, last_y] = std::minmax(a.y, b.y);
      const double at_top = a.x + (std::max(top, first_y) - a.y) * slope;
      const double at_bottom = a.x + (std::min(bottom, last_y) - a.y) * slope;
      low = std::max(low, std::min(at_top, at_bottom));
      high = std::min(high, std::max(at_top, at_bottom));
    }
    return {index_.Column(low - kMargin), index_.Column(high + kMargin)};
  }

  void AddStretches(std::uint32_t edge) {
    const auto [first, last] = RowsOf(edge);
    for (std::uint32_t row = first; row <= last; ++row) {
      stretches_.push_back({edge, row, ColumnsOf(edge, row)});
    }
  }

  PolygonIndex::Cell& CellAt(std::size_t row, std::size_t column) {
    return index_.cells_[row * index_.columns_ + column];
  }

  /// Whether the ends of the edge lie in rows on different sides of the upper bound of `row`.
  bool MeetsTopOf(std::size_t row, std::size_t edge) const {
    return (rows_[edge] < row) != (rows_[edge + 1] < row);
  }

  /// Sizes the lists of near edges, and finds for each cell whether the edges to its right cross
  /// the top of the row an odd number of times.
  void CountCells() {
    index_.cells_.assign(index_.columns_ * index_.rows_ + 1, {0, false});
    std::size_t total = 0;
    for (const auto& [edge, row, columns] : stretches_) {
      for (std::size_t c = columns.first; c <= columns.last; ++c) ++CellAt(row, c).first_near;
      total += columns.last - columns.first + 1;
      if (columns.first > 0 && MeetsTopOf(row, edge)) {
        CellAt(row, columns.first - 1).is_odd_right ^= true;
      }
    }
    index_.near_.resize(total);
    std::uint32_t end = 0;
    for (PolygonIndex::Cell& cell : index_.cells_) {
      end += cell.first_near;
      cell.first_near = end;  // filled from the back
    }
    for (std::size_t row = 0; row < index_.rows_; ++row) {
      for (std::size_t c = index_.columns_ - 1; c-- > 0;) {
        CellAt(row, c).is_odd_right ^= CellAt(row, c + 1).is_odd_right;
      }
    }
  }

  /// The first column of the row to which a neighbour of an edge is near, if the vertex that they
  /// share lies in the row; else no column is to the left of it.
  std::uint32_t FirstColumnIfIn(std::uint32_t row, std::size_t vertex,
                                std::size_t neighbour) const {
    return rows_[vertex] == row ? ColumnsOf(neighbour, row).first : 0;
  }

  void Enter(const Stretch& stretch) {
    const auto& [edge, row, columns] = stretch;
    const std::size_t last = index_.polygon_.size() - 1;
    const std::uint32_t before = FirstColumnIfIn(row, edge, edge == 0 ? last : edge - 1);
    const std::uint32_t after = FirstColumnIfIn(row, edge + 1, edge == last ? 0 : edge + 1);
    for (std::size_t c = columns.first; c <= columns.last; ++c) {
      index_.near_[--CellAt(row, c).first_near] = {edge, c < before, c < after};
    }
  }

  PolygonIndex& index_;
  std::vector<std::uint32_t> rows_;  // of points_
  std::vector<Stretch> stretches_;
};

PolygonIndex::PolygonIndex(std::span<const ZorPoint> polygon, std::size_t queries)
    : polygon_(polygon) {
  const bool is_gridded = queries > kFewQueries && !polygon.empty() &&
                          polygon.size() < kMostCells && std::ranges::all_of(polygon, IsModerate);
  if (is_gridded) PolygonGridBuilder(*this, queries).Build();
}

std::uint32_t PolygonIndex::Slot(double offset, std::size_t count) const {
  const double slot = std::max(offset * per_pixel_, 0.0);
  return static_cast<std::uint32_t>(std::min(static_cast<std::size_t>(slot), count - 1));
}

int PolygonIndex::Relation(const ZorPoint& p) const {
  if (columns_ == 0) return PolygonRelation(p, polygon_);
  const bool is_in_box = low_.x - kBoxReach <= p.x && p.x <= high_.x + kBoxReach &&
                         low_.y - kBoxReach <= p.y && p.y <= high_.y + kBoxReach;
  if (!is_in_box) return kOutside;
  const Cell* cell = &cells_[Row(p.y) * columns_ + Column(p.x)];
  bool is_inside = cell[0].is_odd_right;
  for (std::uint32_t i = cell[0].first_near; i < cell[1].first_near; ++i) {
    const NearEdge& near = near_[i];
    const ZorPoint& a = points_[near.edge];
    const ZorPoint& b = points_[near.edge + 1];
    const EdgeVerdict verdict = JudgeEdge(p, a, b);
    if (verdict == EdgeVerdict::kTouches) return kOnOutline;
    is_inside ^= verdict == EdgeVerdict::kCrosses;
    is_inside ^= near.is_right_before && a.y <= p.y;
    is_inside ^= near.is_right_after && b.y <= p.y;
  }
  return is_inside ? kInside : kOutside;
}

}  // namespace zor::elementary
