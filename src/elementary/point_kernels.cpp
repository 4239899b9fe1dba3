#include "elementary/point_kernels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <unordered_map>

#include "frame/tolerances.h"

namespace zor::elementary {
namespace {

inline constexpr double kNearby = 1.0;              // pixels, inclusive
inline constexpr double kCell = 0.7;                // pixels; its diagonal is below kNearby
inline constexpr double kGridReach = 1e9;           // pixels; beyond, cells are not exact
inline constexpr double kFarFrom = kGridReach - 2;  // all nearby points of those beyond lie here
inline constexpr std::size_t kFewPoints = 48;       // up to here the plain loop is faster

bool HasNearby(std::span<const ZorPoint> others, const ZorPoint& p) {
  return std::ranges::any_of(others, [&](const ZorPoint& q) { return Distance(p, q) <= kNearby; });
}

bool IsFinite(const ZorPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

/// Points bucketed in square cells of side kCell. Two points of one cell are nearby; nearby points
/// are at most two cells apart.
class CellGrid {
 public:
  explicit CellGrid(std::span<const ZorPoint> points)
      : points_(points), next_(points.size(), kNone) {
    heads_.reserve(points.size());
  }

  /// Whether a point added before lies within kNearby of point i; adds point i. Every cell is
  /// searched by the first point of each of its neighbours alone, since a later point of an
  /// occupied cell is settled at once: linear in all.
  bool MeetThenAdd(std::size_t i) {
    const auto column = static_cast<std::int64_t>(std::floor(points_[i].x / kCell));
    const auto row = static_cast<std::int64_t>(std::floor(points_[i].y / kCell));
    const auto [own, is_first] = heads_.try_emplace(Key(column, row), i);
    if (!is_first) {
      next_[i] = own->second;
      own->second = i;
      return true;
    }
    for (std::int64_t dy = -2; dy <= 2; ++dy) {
      for (std::int64_t dx = -2; dx <= 2; ++dx) {
        if ((dx != 0 || dy != 0) && HasNearbyIn(Key(column + dx, row + dy), i)) return true;
      }
    }
    return false;
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  static std::uint64_t Key(std::int64_t column, std::int64_t row) {
    return (static_cast<std::uint64_t>(column) << 32) ^
           (static_cast<std::uint64_t>(row) & 0xffffffffU);
  }

  bool HasNearbyIn(std::uint64_t key, std::size_t i) const {
    const auto cell = heads_.find(key);
    if (cell == heads_.end()) return false;
    for (std::size_t j = cell->second; j != kNone; j = next_[j]) {
      if (Distance(points_[i], points_[j]) <= kNearby) return true;
    }
    return false;
  }

  std::span<const ZorPoint> points_;
  std::vector<std::size_t> next_;
  std::unordered_map<std::uint64_t, std::size_t> heads_;
};

}  // namespace

ZorPoint RotateOnScreen(const ZorPoint& p, const ZorPoint& centre, double angle_deg) {
  const double t = angle_deg / 180 * frame::kPi;
  const double dx = p.x - centre.x;
  const double dy = p.y - centre.y;
  return {std::cos(t) * dx + std::sin(t) * dy + centre.x,
          std::cos(t) * dy - std::sin(t) * dx + centre.y};
}

ZorPoint RotateInCoordinates(const ZorPoint& p, const ZorPoint& centre, double angle_deg) {
  const double t = angle_deg * std::numbers::pi / 180;
  const double dx = p.x - centre.x;
  const double dy = p.y - centre.y;
  return {dx * std::cos(t) - dy * std::sin(t) + centre.x,
          dx * std::sin(t) + dy * std::cos(t) + centre.y};
}

std::vector<ZorPoint> WithoutCoincidentNeighbours(std::span<const ZorPoint> points) {
  std::vector<ZorPoint> kept;
  kept.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const bool coincides = i > 0 && Distance(points[i], points[i - 1]) <= frame::kCoincident;
    if (!coincides) kept.push_back(points[i]);
  }
  if (!kept.empty() && Distance(kept.front(), kept.back()) <= frame::kCoincident) kept.pop_back();
  return kept;
}

std::vector<ZorPoint> WithoutNearbyPoints(std::span<const ZorPoint> points) {
  std::vector<ZorPoint> kept;
  kept.reserve(points.size());
  if (points.size() <= kFewPoints) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (!HasNearby(points.first(i), points[i])) kept.push_back(points[i]);
    }
    return kept;
  }
  CellGrid grid(points);
  std::vector<ZorPoint> far;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const ZorPoint& p = points[i];
    bool has_nearby = false;
    // A point that is not finite has no distance to any point that could be small.
    if (IsFinite(p)) {
      const double reach = std::max(std::fabs(p.x), std::fabs(p.y));
      if (reach < kGridReach) has_nearby = grid.MeetThenAdd(i);
      // Of two nearby points either both are in the grid or both are here.
      if (reach >= kFarFrom) {
        has_nearby = has_nearby || HasNearby(far, p);
        far.push_back(p);
      }
    }
    if (!has_nearby) kept.push_back(p);
  }
  return kept;
}

std::vector<ZorPoint> RotatedSequence(std::span<const ZorPoint> points, int start) {
  std::vector<ZorPoint> rotated;
  if (points.empty()) return rotated;
  const long long count = static_cast<long long>(points.size());
  const auto first = static_cast<std::ptrdiff_t>(((start % count) + count) % count);
  rotated.reserve(points.size());
  rotated.insert(rotated.end(), points.begin() + first, points.end());
  rotated.insert(rotated.end(), points.begin(), points.begin() + first);
  return rotated;
}

}  // namespace zor::elementary
