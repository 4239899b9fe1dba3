#include "distance/contour_pair_kernels.h"

#include <algorithm>
#include <cmath>

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
  if (!AreSearchable(a, b)) return PlainPointPairs(a, b);
  const RunTree tree_a(a, Items::kPoints);
  const RunTree tree_b(b, Items::kPoints);
  PointPairSearch search(tree_a, tree_b, wanted);
  search.Visit(tree_a.Root());
  return search.Best();
}

PairRange NearestPoints(std::span<const ZorPoint> a, std::span<const ZorPoint> b, Wanted wanted) {
  const PointPairing pairing(a, b);
  if (!AreSearchable(a, b)) return PlainOneSided(pairing, a.size(), b.size());
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
  if (!AreSearchable(a, b)) return PlainPointPairs(a, b);
  return ParallelSearch(RunTree(a, Items::kPoints), RunTree(b, Items::kPoints), wanted);
}

}  // namespace zor::distance
