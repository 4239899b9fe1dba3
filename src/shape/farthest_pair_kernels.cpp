#include "shape/farthest_pair_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "distance/farthest_search.h"
#include "distance/indexed_pair.h"
#include "distance/run_tree.h"
#include "elementary/point_kernels.h"

using zor::distance::FarthestPairSearch;
using zor::distance::IndexedPair;
using zor::distance::RunTree;

namespace zor::shape {

namespace {

// Up to here comparing all is as quick as sorting out.
constexpr std::size_t kFew = 96;

// Sizes of a point set for which squares neither vanish nor overflow, by a wide margin.
constexpr double kSmallestSize = 1e-100;
constexpr double kLargestSize = 1e100;

// Relative. Far above the rounding of the bounds (some 1e-15), far below what they tell apart.
constexpr double kRoundingSlack = 1e-12;

constexpr std::size_t kSectors = 64;

struct Box {
  ZorPoint low = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  ZorPoint high = {-std::numeric_limits<double>::infinity(),
                   -std::numeric_limits<double>::infinity()};

  [[nodiscard]] double Size() const { return std::max(high.x - low.x, high.y - low.y); }
};

bool IsNotANumber(const ZorPoint& p) { return p != p; }

/// Of the points that can be in a pair.
Box BoundsOf(std::span<const ZorPoint> points) {
  Box box;
  for (const ZorPoint& p : points) {
    if (IsNotANumber(p)) continue;
    box.low.x = p.x < box.low.x ? p.x : box.low.x;
    box.low.y = p.y < box.low.y ? p.y : box.low.y;
    box.high.x = p.x > box.high.x ? p.x : box.high.x;
    box.high.y = p.y > box.high.y ? p.y : box.high.y;
  }
  return box;
}

/// The plain way, less the rows that cannot have a distance and those after an infinite one.
IndexedPair CompareAll(std::span<const ZorPoint> points) {
  IndexedPair best;
  for (std::uint32_t i = 0; i < points.size() && !std::isinf(best.distance); ++i) {
    if (IsNotANumber(points[i])) continue;
    for (std::uint32_t j = i + 1; j < points.size(); ++j) {
      const double distance = elementary::Distance(points[i], points[j]);
      if (distance > best.distance) best = {distance, i, j};
    }
  }
  return best;
}

/// Direction as a number in [0, 4], rising with the angle from +x towards +y: the way along the
/// square |x| + |y| = 1. `v` is not zero.
double DiamondAngle(const ZorPoint& v) {
  const double s = v.y / (std::fabs(v.x) + std::fabs(v.y));
  if (v.x < 0) return 2 - s;
  return s < 0 ? 4 + s : s;
}

/// Unit vector at a diamond angle in [0, 4].
ZorPoint DiamondDirection(double angle) {
  const double x = angle <= 2 ? 1 - angle : angle - 3;
  const double y = angle <= 1 ? angle : (angle <= 3 ? 2 - angle : angle - 4);
  const double length = std::sqrt(x * x + y * y);
  return {x / length, y / length};
}

std::size_t PartOf(double diamond_angle, std::size_t parts) {
  const auto part = static_cast<std::size_t>(diamond_angle * (static_cast<double>(parts) / 4));
  return std::min(part, parts - 1);
}

/// Cosine of the largest angle between a direction in the first sector and one in the one that is
/// `ahead` sectors further on; by it and the two radii a distance is bounded.
std::array<std::array<double, kSectors>, kSectors> WidestCosines() {
  std::array<ZorPoint, kSectors> border;
  for (std::size_t k = 0; k < kSectors; ++k) {
    border[k] = DiamondDirection(4.0 * static_cast<double>(k) / kSectors);
  }
  std::array<std::array<double, kSectors>, kSectors> cosines;
  for (std::size_t a = 0; a < kSectors; ++a) {
    for (std::size_t ahead = 0; ahead < kSectors; ++ahead) {
      const std::size_t b = (a + ahead) % kSectors;
      double cosine = -1.0;
      if (ahead + 1 < kSectors / 2) {
        cosine = elementary::Dot(border[a], border[(b + 1) % kSectors]);
      } else if (ahead > kSectors / 2 + 1) {
        cosine = elementary::Dot(border[(a + 1) % kSectors], border[b]);
      }
      cosines[a][b] = cosine;
    }
  }
  return cosines;
}

/// Point set seen from its centre in sectors: which points can have a partner at the best distance.
class Sectors {
 public:
  Sectors(std::span<const ZorPoint> points, const Box& box)
      : points_(points),
        centre_(elementary::Midpoint(box.low, box.high)),
        size_(box.Size() * (1 - kRoundingSlack)) {
    // Some distance is at least the size, and no radius above half the diagonal.
    const double inner = size_ - elementary::Distance(box.high, centre_);
    const double inner2 = inner * inner;
    sector_of_.resize(points.size());
    for (std::uint32_t i = 0; i < points.size(); ++i) {
      const ZorPoint v = points[i] - centre_;
      const double r2 = elementary::Dot(v, v);
      if (!(r2 >= inner2)) {  // also a point that is not a number
        sector_of_[i] = kNowhere;
        continue;
      }
      const std::size_t sector = PartOf(DiamondAngle(v), kSectors);
      sector_of_[i] = static_cast<std::uint8_t>(sector);
      if (r2 > outer2_[sector]) {
        outer2_[sector] = r2;
        outermost_[sector] = i;
      }
    }
  }

  /// The largest distance of outermost points: close to the largest of all.
  [[nodiscard]] double FarthestOutermost() const {
    double farthest = size_;
    for (std::size_t a = 0; a < kSectors; ++a) {
      for (std::size_t b = a + 1; b < kSectors; ++b) {
        if (!(outer2_[a] > 0) || !(outer2_[b] > 0)) continue;
        const double distance =
            elementary::Distance(points_[outermost_[a]], points_[outermost_[b]]);
        farthest = std::max(farthest, distance);
      }
    }
    return farthest;
  }

  /// The indices of the points that some point could lie as far from as `distance`, which is at
  /// least the box's size.
  [[nodiscard]] std::vector<std::uint32_t> Candidates(double distance) const {
    const std::array<double, kSectors> least2 = LeastSquaredRadii(distance);
    std::vector<std::uint32_t> kept;
    for (std::uint32_t i = 0; i < points_.size(); ++i) {
      if (sector_of_[i] == kNowhere) continue;
      const ZorPoint v = points_[i] - centre_;
      if (elementary::Dot(v, v) >= least2[sector_of_[i]]) kept.push_back(i);
    }
    return kept;
  }

 private:
  static constexpr std::uint8_t kNowhere = kSectors;

  /// Of each sector, the square of the radius from which on a point can lie `distance` from
  /// another. Against the farthest reaching point of a sector, at radius q and an angle phi at the
  /// widest,
  ///   d^2 = r^2 + q^2 - 2 r q cos(phi)   equals distance^2 at
  ///   r = q cos(phi) + sqrt(distance^2 - q^2 sin(phi)^2),
  /// and is smaller for smaller r; q < distance, as q is half the diagonal of the bounding box at
  /// most.
  [[nodiscard]] std::array<double, kSectors> LeastSquaredRadii(double distance) const {
    static const auto cosines = WidestCosines();
    std::array<double, kSectors> least2;
    for (std::size_t a = 0; a < kSectors; ++a) {
      double least = distance;
      for (std::size_t b = 0; b < kSectors; ++b) {
        if (!(outer2_[b] > 0)) continue;
        const double cosine = cosines[a][b];
        const double across2 = outer2_[b] * (1 - cosine * cosine);
        const double r = std::sqrt(outer2_[b]) * cosine + std::sqrt(distance * distance - across2);
        least = std::min(least, r);
      }
      least2[a] = least * least * (1 - kRoundingSlack);
    }
    return least2;
  }

  std::span<const ZorPoint> points_;
  ZorPoint centre_;
  double size_;  // of the bounding box, less the slack
  std::vector<std::uint8_t> sector_of_;
  std::array<double, kSectors> outer2_ = {};
  std::array<std::uint32_t, kSectors> outermost_ = {};
};

/// The farthest pair among the candidates.
IndexedPair SearchRuns(std::span<const ZorPoint> points,
                       const std::vector<std::uint32_t>& candidates) {
  std::vector<ZorPoint> chosen;
  chosen.reserve(candidates.size());
  for (const std::uint32_t i : candidates) chosen.push_back(points[i]);
  const RunTree tree(chosen, RunTree::Items::kPoints);
  FarthestPairSearch search(tree, tree);
  search.Visit(tree.Root(), tree.Root());
  const IndexedPair best = search.Best();
  return {best.distance, candidates[best.a], candidates[best.b]};
}

IndexedPair Search(std::span<const ZorPoint> points) {
  const Box box = BoundsOf(points);
  if (box.low == box.high) return {};  // all coincide
  const double size = box.Size();
  const bool is_ordinary = size >= kSmallestSize && size <= kLargestSize;
  if (points.size() <= kFew || !is_ordinary) return CompareAll(points);
  const Sectors sectors(points, box);
  return SearchRuns(points, sectors.Candidates(sectors.FarthestOutermost()));
}

}  // namespace

PointPair FarthestPair(std::span<const ZorPoint> points) {
  if (points.size() == 2) return {points[0], points[1]};
  const IndexedPair best = Search(points);
  if (!(best.distance > 0)) return {};
  return {points[best.a], points[best.b]};
}

}  // namespace zor::shape
