#include "distance/point_match_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "distance/box.h"
#include "distance/contour_pair_kernels.h"
#include "distance/one_sided_search.h"
#include "distance/pairings.h"
#include "distance/polyline_kernels.h"
#include "distance/run_tree.h"
#include "elementary/point_kernels.h"

namespace zor::distance {
namespace {

using Items = RunTree::Items;
using Points = std::span<const ZorPoint>;
using Ref = RunTree::Ref;

/// The point of a tree that is farthest from another point.
class FarthestQuery {
 public:
  FarthestQuery(const RunTree& tree, const ZorPoint& p, std::uint32_t i)
      : tree_(tree), p_(p), box_(Box::Of(p)), best_{-1.0, i, 0} {
    Visit(tree.Root());
  }

  [[nodiscard]] const IndexedPair& Best() const { return best_; }

 private:
  void Visit(Ref run) {
    const double most = std::sqrt(SquaredSpan(tree_.At(run).box, box_));
    if (most < best_.distance) return;
    if (most == best_.distance && tree_.LeastIndex(run) > best_.b) return;
    const RunTree::Parts parts = tree_.PartsOf(run);
    if (parts.level < 0) {
      for (std::uint32_t k = parts.begin; k < parts.end; ++k) Offer(tree_.Index(k));
      return;
    }
    Ref first{parts.level, parts.begin};
    Ref second{parts.level, parts.end - 1};
    if (SquaredSpan(tree_.At(second).box, box_) > SquaredSpan(tree_.At(first).box, box_)) {
      std::swap(first, second);
    }
    Visit(first);
    if (second.k != first.k) Visit(second);
  }

  void Offer(std::uint32_t j) {
    const double d = elementary::Distance(p_, tree_.Start(j));
    if (d > best_.distance || (d == best_.distance && j < best_.b)) best_ = {d, best_.a, j};
  }

  const RunTree& tree_;
  ZorPoint p_;
  Box box_;
  IndexedPair best_;
};

/// Appends the points of a run at a distance from p in [lower, upper].
class RangeQuery {
 public:
  RangeQuery(const RunTree& tree, double lower, double upper, std::vector<IndexedPair>& found)
      : tree_(tree), lower_(lower), upper_(upper), found_(found) {}

  void Append(const ZorPoint& p, std::uint32_t i) {
    const auto begin = static_cast<std::ptrdiff_t>(found_.size());
    Visit(p, i, tree_.Root());
    std::sort(found_.begin() + begin, found_.end(),
              [](const IndexedPair& x, const IndexedPair& y) { return x.b < y.b; });
  }

 private:
  void Visit(const ZorPoint& p, std::uint32_t i, Ref run) {
    const Box& box = tree_.At(run).box;
    if (std::sqrt(SquaredGap(box, Box::Of(p))) > upper_) return;
    if (std::sqrt(SquaredSpan(box, Box::Of(p))) < lower_) return;
    const RunTree::Parts parts = tree_.PartsOf(run);
    for (std::uint32_t k = parts.begin; k < parts.end; ++k) {
      if (parts.level >= 0) {
        Visit(p, i, {parts.level, k});
        continue;
      }
      const std::uint32_t j = tree_.Index(k);
      const double d = elementary::Distance(p, tree_.Start(j));
      if (d >= lower_ && d <= upper_) found_.push_back({d, i, j});
    }
  }

  const RunTree& tree_;
  double lower_;
  double upper_;
  std::vector<IndexedPair>& found_;
};

IndexedPair Paired(std::uint32_t i, const IndexedDistance& found) {
  return {found.distance, i, static_cast<std::uint32_t>(found.index)};
}

}  // namespace

std::vector<IndexedPair> NearestMatches(Points a, Points b) {
  std::vector<IndexedPair> matches(a.size());
  if (!AreSearchable(a, b)) {
    for (std::uint32_t i = 0; i < a.size(); ++i) {
      matches[i] = Paired(i, RangeOfPoints(a[i], b).nearest);
    }
    return matches;
  }
  const RunTree tree_a(a, Items::kPoints);
  const RunTree tree_b(b, Items::kPoints);
  OneSidedSearch<PointPairing> search(PointPairing(a, b), tree_a, tree_b);
  for (std::uint32_t i = 0; i < a.size(); ++i) matches[i] = search.NearestTo(i);
  return matches;
}

std::vector<IndexedPair> FarthestMatches(Points a, Points b) {
  std::vector<IndexedPair> matches(a.size());
  if (!AreSearchable(a, b)) {
    for (std::uint32_t i = 0; i < a.size(); ++i) {
      matches[i] = Paired(i, RangeOfPoints(a[i], b).farthest);
    }
    return matches;
  }
  const RunTree tree(b, Items::kPoints);
  for (std::uint32_t i = 0; i < a.size(); ++i) matches[i] = FarthestQuery(tree, a[i], i).Best();
  return matches;
}

std::vector<IndexedPair> PairsWithin(Points a, Points b, double lower, double upper) {
  std::vector<IndexedPair> found;
  if (!(lower <= upper)) return found;  // also where either is not a number
  if (!AreSearchable(a, b)) {
    for (std::uint32_t i = 0; i < a.size(); ++i) {
      for (std::uint32_t j = 0; j < b.size(); ++j) {
        const double d = elementary::Distance(a[i], b[j]);
        if (d >= lower && d <= upper) found.push_back({d, i, j});
      }
    }
    return found;
  }
  const RunTree tree(b, Items::kPoints);
  RangeQuery query(tree, lower, upper, found);
  for (std::uint32_t i = 0; i < a.size(); ++i) query.Append(a[i], i);
  return found;
}

}  // namespace zor::distance
