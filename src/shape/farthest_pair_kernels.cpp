#include "shape/farthest_pair_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <vector>

#include "elementary/point_kernels.h"
#include "shape/best_pair.h"
#include "shape/capsule_tree.h"

namespace zor::shape {

namespace {

// Up to here comparing all is as quick as sorting out.
constexpr std::size_t kFew = 96;

// Sizes of a point set for which squares neither vanish nor overflow, by a wide margin.
constexpr double kSmallestSize = 1e-100;
constexpr double kLargestSize = 1e100;

// Relative; see CapsuleTree.
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

ListedPoint Listed(std::span<const ZorPoint> points, std::size_t i) {
  return {points[i].x, points[i].y, static_cast<std::uint32_t>(i)};
}

/// The plain way, less the rows that cannot have a distance and those after an infinite one.
void CompareAll(std::span<const ZorPoint> points, BestPair& best) {
  for (std::size_t i = 0; i < points.size() && !std::isinf(best.Distance()); ++i) {
    if (IsNotANumber(points[i])) continue;
    const ListedPoint p = Listed(points, i);
    for (std::size_t j = i + 1; j < points.size(); ++j) best.Offer(p, Listed(points, j));
  }
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
    for (std::size_t i = 0; i < points.size(); ++i) {
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

  /// Offers the pairs of outermost points: the best of them is close to the best of all.
  void OfferOutermost(BestPair& best) const {
    std::vector<ListedPoint> outermost;
    outermost.reserve(kSectors);
    for (std::size_t k = 0; k < kSectors; ++k) {
      if (outer2_[k] > 0) outermost.push_back(Listed(points_, outermost_[k]));
    }
    OfferAllPairs(outermost, best);
  }

  /// The points that some point could lie as far from as `distance`, in the order of their angles
  /// about the centre (up to a fine grid) and of their indices.
  [[nodiscard]] std::vector<ListedPoint> Candidates(double distance) const {
    const std::array<double, kSectors> least2 = LeastSquaredRadii(std::max(distance, size_));
    std::vector<std::uint32_t> kept;
    for (std::size_t i = 0; i < points_.size(); ++i) {
      if (sector_of_[i] == kNowhere) continue;
      const ZorPoint v = points_[i] - centre_;
      if (elementary::Dot(v, v) >= least2[sector_of_[i]]) {
        kept.push_back(static_cast<std::uint32_t>(i));
      }
    }
    return InAngularOrder(kept);
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

  /// A stable counting sort.
  [[nodiscard]] std::vector<ListedPoint> InAngularOrder(
      const std::vector<std::uint32_t>& kept) const {
    const std::size_t parts = std::max<std::size_t>(4, kept.size());
    const auto part_of = [&](std::uint32_t i) {
      return PartOf(DiamondAngle(points_[i] - centre_), parts);
    };
    std::vector<std::uint32_t> next(parts + 1, 0);
    for (const std::uint32_t i : kept) ++next[part_of(i) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    std::vector<ListedPoint> ordered(kept.size());
    for (const std::uint32_t i : kept) ordered[next[part_of(i)]++] = Listed(points_, i);
    return ordered;
  }

  std::span<const ZorPoint> points_;
  ZorPoint centre_;
  double size_;  // of the bounding box, less the slack
  std::vector<std::uint8_t> sector_of_;
  std::array<double, kSectors> outer2_ = {};
  std::array<std::size_t, kSectors> outermost_ = {};
};

BestPair Search(std::span<const ZorPoint> points) {
  BestPair best;
  const Box box = BoundsOf(points);
  const double size = box.Size();
  if (points.size() <= kFew || !(size >= kSmallestSize && size <= kLargestSize)) {
    // Coinciding points have no pair; skip looking for it.
    if (box.low != box.high) CompareAll(points, best);
    return best;
  }
  const Sectors sectors(points, box);
  sectors.OfferOutermost(best);
  CapsuleTree(sectors.Candidates(best.Distance())).OfferFarthest(best);
  return best;
}

}  // namespace

PointPair FarthestPair(std::span<const ZorPoint> points) {
  if (points.size() == 2) return {points[0], points[1]};
  const BestPair best = Search(points);
  if (!best.Found()) return {};
  return {points[best.First()], points[best.Second()]};
}

}  // namespace zor::shape
