#include "distance/farthest_search.h"

#include <cmath>

#include "distance/box.h"
#include "distance/run_bounds.h"
#include "elementary/point_kernels.h"

namespace zor::distance {
namespace {

// Squares this close may have the same rounded root.
inline constexpr double kSameRoot = 1.0 - 1e-15;

/// The indices of a leaf's points, or the first of a run without extent, whose points are all the
/// same.
template <class Call>
void ForEachPoint(const RunTree& tree, RunTree::Ref run, const Call& call) {
  if (tree.At(run).box.Extent() == 0.0) return call(tree.LeastIndex(run));
  const RunTree::Parts points = tree.PartsOf(run);
  for (std::uint32_t k = points.begin; k < points.end; ++k) call(tree.Index(k));
}

}  // namespace

FarthestPairSearch::FarthestPairSearch(const RunTree& a, const RunTree& b) : a_(a), b_(b) {
  Take({elementary::Distance(a.Start(0), b.Start(0)), 0, 0});
}

void FarthestPairSearch::Offer(const IndexedPair& pair) {
  if (pair.distance < best_.distance) return;
  if (pair.distance > best_.distance || IsEarlier(pair.a, pair.b, best_)) Take(pair);
}

void FarthestPairSearch::Take(const IndexedPair& pair) {
  best_ = pair;
  least_square_ = pair.distance * pair.distance * kSameRoot;
}

void FarthestPairSearch::Visit(Ref a, Ref b) {
  if (!CanBeFarthest(a, b)) return;
  const double extent_a = a_.At(a).box.Extent();
  const double extent_b = b_.At(b).box.Extent();
  const bool is_a_whole = a.level == 0 || extent_a == 0.0;
  const bool is_b_whole = b.level == 0 || extent_b == 0.0;
  if (is_a_whole && is_b_whole) return VisitPoints(a, b);
  const bool is_a_split = is_b_whole || (!is_a_whole && extent_a >= extent_b);
  const RunTree& tree = is_a_split ? a_ : b_;
  const Box& other = is_a_split ? b_.At(b).box : a_.At(a).box;
  const RunTree::Parts parts = tree.PartsOf(is_a_split ? a : b);
  const auto visit = [&](std::uint32_t k) {
    const Ref part{parts.level, k};
    is_a_split ? Visit(part, b) : Visit(a, part);
  };
  const std::uint32_t last = parts.end - 1;
  if (last == parts.begin) return visit(last);
  const bool is_last_farther = SquaredSpan(tree.At({parts.level, last}).box, other) >
                               SquaredSpan(tree.At({parts.level, parts.begin}).box, other);
  visit(is_last_farther ? last : parts.begin);
  visit(is_last_farther ? parts.begin : last);
}

bool FarthestPairSearch::CanBeFarthest(Ref a, Ref b) const {
  const RunTree::Run& run_a = a_.At(a);
  const RunTree::Run& run_b = b_.At(b);
  // The bound of the boxes holds to the last bit, so that ties need no slack.
  const double span_squared = SquaredSpan(run_a.box, run_b.box);
  if (span_squared < least_square_) return false;
  if (!(std::sqrt(span_squared) > best_.distance) &&
      !IsEarlier(run_a.least_index, run_b.least_index, best_)) {
    return false;
  }
  return CapsuleSpan(run_a, run_b) >= best_.distance;
}

void FarthestPairSearch::VisitPoints(Ref a, Ref b) {
  ForEachPoint(a_, a, [&](std::uint32_t i) {
    ForEachPoint(b_, b, [&](std::uint32_t j) {
      const ZorPoint v = a_.Start(i) - b_.Start(j);
      const double square = elementary::Dot(v, v);
      if (square >= least_square_) Offer({std::sqrt(square), i, j});
    });
  });
}

}  // namespace zor::distance
