#include "intersection/contour_kernels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_set>

#include "elementary/edge_scan.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_kernels.h"

namespace zor::intersection {
namespace {

struct PointBits {
  std::uint64_t x;
  std::uint64_t y;
  friend bool operator==(const PointBits&, const PointBits&) = default;
};

PointBits BitsOf(const ZorPoint& p) {
  return {std::bit_cast<std::uint64_t>(p.x), std::bit_cast<std::uint64_t>(p.y)};
}

struct HashBits {
  std::size_t operator()(const PointBits& bits) const {
    constexpr std::uint64_t kGolden = 0x9e3779b97f4a7c15U;  // spreads the few low bits that vary
    return static_cast<std::size_t>((bits.x * kGolden) ^ std::rotl(bits.y * kGolden, 29));
  }
};

/// How far from the line (times its length) a segment may end and still have a crossing in its
/// box. The crossing is computed as a point of the line, within some roundings; along the line it
/// is off by rounding over the sine of the angle with the segment, so that it can only enter the
/// box of a segment that ends within rounding of the line. `largest` is the largest |coordinate|;
/// its ratio to the length takes in that the box may lie far beyond the line's two points.
double SideReach(double largest, double length) {
  constexpr double kRoundings = 32 * std::numeric_limits<double>::epsilon();
  const double stretch = 1 + 6 * largest / length;
  return kRoundings * largest * length * (stretch * stretch);
}

/// Few crossings are looked for in the list one by one; many by hash, so that long lists with many
/// crossings stay linear.
constexpr std::size_t kFewCrossings = 16;

bool IsAmong(const PointBits& bits, std::span<const ZorPoint> points) {
  return std::any_of(points.begin(), points.end(),
                     [&](const ZorPoint& p) { return BitsOf(p) == bits; });
}

}  // namespace

bool IsInBox(const ZorPoint& crossing, const ZorPoint& q, const ZorPoint& r) {
  return std::min(q.x, r.x) <= crossing.x && crossing.x <= std::max(q.x, r.x) &&
         std::min(q.y, r.y) <= crossing.y && crossing.y <= std::max(q.y, r.y);
}

std::vector<ContourCrossing> CrossContour(const ZorPoint& p1, const ZorPoint& p2,
                                          std::span<const ZorPoint> contour) {
  using elementary::Bits;
  std::vector<ContourCrossing> crossings;
  const ZorPoint d = p2 - p1;
  const ZorPoint ends[] = {p1, p2};
  const double largest =
      std::max(elementary::LargestCoordinate(contour), elementary::LargestCoordinate(ends));
  const double reach = SideReach(largest, elementary::Norm(d));
  elementary::ScanEdges(
      contour, [&](const ZorPoint& q) { return elementary::Cross(d, q - p1); },
      // |s + e| - |e - s| is twice the smaller of |s| and |e| where the signs agree, else negative.
      [=](double s, double e) { return Bits(std::fabs(s + e) - std::fabs(e - s) - 2 * reach); },
      [&](std::size_t i) {
        const ZorPoint& q = contour[i - 1];
        const ZorPoint& r = contour[i];
        const auto crossing = elementary::CrossLines(q, r, p1, p2);
        if (crossing && IsInBox(*crossing, q, r)) crossings.push_back({*crossing, i - 1});
        return false;
      });
  return crossings;
}

std::vector<ContourCrossing> WithoutListed(std::vector<ContourCrossing> crossings,
                                           std::span<const ZorPoint> listed) {
  std::vector<ContourCrossing> kept;
  kept.reserve(crossings.size());
  if (crossings.size() <= kFewCrossings) {
    for (const ContourCrossing& c : crossings) {
      const PointBits bits = BitsOf(c.point);
      const bool is_repeated = std::any_of(kept.begin(), kept.end(), [&](const auto& earlier) {
        return BitsOf(earlier.point) == bits;
      });
      if (!is_repeated && !IsAmong(bits, listed)) kept.push_back(c);
    }
    return kept;
  }
  std::unordered_set<PointBits, HashBits> seen(2 * (listed.size() + crossings.size()));
  for (const ZorPoint& p : listed) seen.insert(BitsOf(p));
  for (const ContourCrossing& c : crossings) {
    if (seen.insert(BitsOf(c.point)).second) kept.push_back(c);
  }
  return kept;
}

}  // namespace zor::intersection
