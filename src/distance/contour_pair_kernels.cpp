#include "distance/contour_pair_kernels.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "distance/one_sided_search.h"
#include "distance/pairings.h"
#include "distance/parallel_search.h"
#include "distance/point_pair_search.h"
#include "distance/polyline_kernels.h"
#include "distance/run_tree.h"

namespace zor::distance {
namespace {

using Items = RunTree::Items;

inline constexpr double kLargestCoordinate = 1e8;  // pixels; the bounds on rounding rest on it

/// What the bounds of the searches rest on; false for what is not a number.
bool IsSearchable(std::span<const ZorPoint> points) {
  return std::ranges::all_of(points, [](const ZorPoint& p) {
    return std::fabs(p.x) <= kLargestCoordinate && std::fabs(p.y) <= kLargestCoordinate;
  });
}

/// The plain loops. An item of a seeds its search with the first one of b, and the first item of a
/// seeds the whole.
template <class Pairing>
PairRange PlainOneSided(const Pairing& pairing, std::size_t count_a, std::size_t count_b) {
  PairRange range;
  for (std::uint32_t i = 0; i < count_a; ++i) {
    IndexedPair nearest{pairing.Distance(i, 0), i, 0};
    for (std::uint32_t j = 1; j < count_b; ++j) {
      const double d = pairing.Distance(i, j);
      if (d < nearest.distance) nearest = {d, i, j};
    }
    if (i == 0 || nearest.distance < range.low.distance) range.low = nearest;
    if (i == 0 || nearest.distance > range.high.distance) range.high = nearest;
  }
  return range;
}

PairRange PlainPointPairs(std::span<const ZorPoint> a, std::span<const ZorPoint> b) {
  PairRange range = PlainOneSided(PointPairing(a, b), a.size(), b.size());
  for (std::uint32_t i = 0; i < a.size(); ++i) {
    const PointRange of_b = RangeOfPoints(a[i], b);
    const IndexedPair farthest{of_b.farthest.distance, i,
                               static_cast<std::uint32_t>(of_b.farthest.index)};
    if (i == 0 || farthest.distance > range.high.distance) range.high = farthest;
  }
  return range;
}

bool IsNumber(const ZorPoint& p) { return !std::isnan(p.x) && !std::isnan(p.y); }

/// The points of a list that are numbers.
struct Numbers {
  explicit Numbers(std::span<const ZorPoint> all) {
    for (std::uint32_t i = 0; i < all.size(); ++i) {
      if (!IsNumber(all[i])) continue;
      points.push_back(all[i]);
      places.push_back(i);
    }
  }

  std::vector<ZorPoint> points;
  std::vector<std::uint32_t> places;  // in the list
};

/// What the plain loops over pairs of points find where not all points are numbers: they never
/// replace the seed by one that is not, nor such a seed.
template <class Search>
PairRange AmongNumbers(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                       const Search& search) {
  if (!IsNumber(a[0]) || !IsNumber(b[0])) {
    const IndexedPair seed{std::numeric_limits<double>::quiet_NaN(), 0, 0};
    return {seed, seed};
  }
  const Numbers numbers_a(a);
  const Numbers numbers_b(b);
  PairRange range = search(numbers_a.points, numbers_b.points);
  for (IndexedPair* pair : {&range.low, &range.high}) {
    pair->a = numbers_a.places[pair->a];
    pair->b = numbers_b.places[pair->b];
  }
  return range;
}

bool AreNumbers(std::span<const ZorPoint> a, std::span<const ZorPoint> b) {
  return std::ranges::all_of(a, IsNumber) && std::ranges::all_of(b, IsNumber);
}

/// For contours that cannot be searched: `plain` loops over all pairs, or `search` over those that
/// are numbers.
template <class Plain, class Search>
PairRange Unsearchable(std::span<const ZorPoint> a, std::span<const ZorPoint> b, const Plain& plain,
                       const Search& search) {
  return AreNumbers(a, b) ? plain(a, b) : AmongNumbers(a, b, search);
}

template <class Pairing>
PairRange OneSided(const Pairing& pairing, const RunTree& a, const RunTree& b, Wanted wanted) {
  PairRange range;
  if (wanted.low) {
    NearestPairSearch<Pairing> search(pairing, a, b);
    search.Visit(a.Root(), b.Root());
    range.low = search.Best();
  }
  if (wanted.high) range.high = OneSidedSearch<Pairing>(pairing, a, b).FarthestNearest();
  return range;
}

double ExtentOf(const RunTree& tree) { return tree.BoxOf(tree.Root()).Extent(); }

}  // namespace

bool AreSearchable(std::span<const ZorPoint> a, std::span<const ZorPoint> b) {
  return IsSearchable(a) && IsSearchable(b);
}

PairRange PointPairs(std::span<const ZorPoint> a, std::span<const ZorPoint> b, Wanted wanted) {
  if (!AreSearchable(a, b)) {
    return Unsearchable(a, b, PlainPointPairs,
                        [wanted](auto x, auto y) { return PointPairs(x, y, wanted); });
  }
  const RunTree tree_a(a, Items::kPoints);
  const RunTree tree_b(b, Items::kPoints);
  PointPairSearch search(tree_a, tree_b, wanted);
  search.Visit(tree_a.Root());
  return search.Best();
}

PairRange NearestPoints(std::span<const ZorPoint> a, std::span<const ZorPoint> b, Wanted wanted) {
  if (!AreSearchable(a, b)) {
    return Unsearchable(
        a, b, [](auto x, auto y) { return PlainOneSided(PointPairing(x, y), x.size(), y.size()); },
        [wanted](auto x, auto y) { return NearestPoints(x, y, wanted); });
  }
  const PointPairing pairing(a, b);
  return OneSided(pairing, RunTree(a, Items::kPoints), RunTree(b, Items::kPoints), wanted);
}

PairRange PointsToPolyline(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                           Wanted wanted) {
  if (!AreSearchable(a, b)) {
    return PlainOneSided(PointSegmentPairing(a, b, 0.0), a.size(), b.size() - 1);
  }
  const RunTree tree_a(a, Items::kPoints);
  const RunTree tree_b(b, Items::kSegments);
  return OneSided(PointSegmentPairing(a, b, ExtentOf(tree_b)), tree_a, tree_b, wanted);
}

PairRange Polylines(std::span<const ZorPoint> a, std::span<const ZorPoint> b, Wanted wanted) {
  if (!AreSearchable(a, b)) {
    return PlainOneSided(SegmentPairing(a, b, 0.0), a.size() - 1, b.size() - 1);
  }
  RunTree tree_a(a, Items::kSegments);
  RunTree tree_b(b, Items::kSegments);
  tree_a.AddSteps();
  tree_b.AddSteps();
  const double longest = std::max(ExtentOf(tree_a), ExtentOf(tree_b));
  return OneSided(SegmentPairing(a, b, longest), tree_a, tree_b, wanted);
}

PairRange ParallelPointPairs(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                             Wanted wanted) {
  if (!AreSearchable(a, b)) {
    return Unsearchable(a, b, PlainPointPairs,
                        [wanted](auto x, auto y) { return ParallelPointPairs(x, y, wanted); });
  }
  return ParallelSearch(RunTree(a, Items::kPoints), RunTree(b, Items::kPoints), wanted);
}

}  // namespace zor::distance
