#include "contour/anchor_kernels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "elementary/point_kernels.h"

namespace zor::contour {
namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

constexpr double kCellsPerPixel = 0.25 / kAnchorReach;
constexpr double kCellReach = 1.1 * kAnchorReach;  // more than rounding lets through

/// The cell of a coordinate: never falls as the coordinate grows, and 0 for what is not a number.
/// Cut towards 0, which is faster than down and only makes that cell wider.
std::int64_t CellOf(double coordinate) {
  constexpr double kLast = 1e18;
  const double cell = coordinate * kCellsPerPixel;
  if (std::fabs(cell) < kLast) return static_cast<std::int64_t>(cell);
  return std::isnan(cell) ? 0 : static_cast<std::int64_t>(std::copysign(kLast, cell));
}

/// The vertices hashed by the cells that their reach touches: mostly one, at most four. Linear
/// whatever the extent of the coordinates, and vertices that coincide cost no more than others.
class OpenVertices {
 public:
  explicit OpenVertices(std::span<const ZorPoint> vertices)
      : vertices_(vertices),
        heads_(std::bit_ceil(std::max<std::size_t>(4 * vertices.size(), 64)), kNone),
        shift_(64 - std::countr_zero(heads_.size())) {
    links_.reserve(vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      const ZorPoint& v = vertices[i];
      const std::int64_t right = CellOf(v.x + kCellReach);
      const std::int64_t bottom = CellOf(v.y + kCellReach);
      for (std::int64_t row = CellOf(v.y - kCellReach); row <= bottom; ++row) {
        for (std::int64_t column = CellOf(v.x - kCellReach); column <= right; ++column) {
          Insert(column, row, i);
        }
      }
    }
  }

  /// Gives each vertex within reach of p that has none yet the anchor j. Every vertex that has one
  /// is taken out where it is met.
  void Match(const ZorPoint& p, std::size_t j, std::vector<std::size_t>& anchors) {
    std::size_t* link = &heads_[BucketOf(CellOf(p.x), CellOf(p.y))];
    while (*link != kNone) {
      Link& entry = links_[*link];
      std::size_t& anchor = anchors[entry.vertex];
      const ZorPoint& vertex = vertices_[entry.vertex];
      if (anchor == kNone && elementary::Distance(p, vertex) < kAnchorReach) anchor = j;
      if (anchor == kNone) {
        link = &entry.next;
      } else {
        *link = entry.next;
      }
    }
  }

 private:
  struct Link {
    std::size_t vertex;
    std::size_t next;
  };

  [[nodiscard]] std::size_t BucketOf(std::int64_t column, std::int64_t row) const {
    const std::uint64_t mixed = (static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15ULL +
                                 static_cast<std::uint64_t>(row)) *
                                0xD6E8FEB86659FD93ULL;
    return static_cast<std::size_t>(mixed >> shift_);
  }

  void Insert(std::int64_t column, std::int64_t row, std::size_t vertex) {
    std::size_t& head = heads_[BucketOf(column, row)];
    links_.push_back({vertex, head});
    head = links_.size() - 1;
  }

  std::span<const ZorPoint> vertices_;
  std::vector<std::size_t> heads_;  // by bucket
  int shift_;
  std::vector<Link> links_;
};

}  // namespace

std::vector<std::size_t> FindAnchors(std::span<const ZorPoint> vertices,
                                     std::span<const ZorPoint> points) {
  OpenVertices open(vertices);
  std::vector<std::size_t> anchors(vertices.size(), kNone);
  for (std::size_t j = 0; j < points.size(); ++j) open.Match(points[j], j, anchors);
  std::erase(anchors, kNone);
  return anchors;
}

}  // namespace zor::contour
