#pragma once

#include "distance/farthest_search.h"
#include "distance/indexed_pair.h"
#include "distance/pair_search.h"
#include "distance/pairings.h"
#include "distance/run_tree.h"

namespace zor::distance {

/// The nearest and the farthest pair of points between runs of one tree and all of the other.
class PointPairSearch {
 public:
  PointPairSearch(const RunTree& a, const RunTree& b, Wanted wanted)
      : b_(b),
        wanted_(wanted),
        nearest_(PointPairing(a.Points(), b.Points()), a, b),
        farthest_(a, b) {}

  void Visit(RunTree::Ref run_of_a) {
    if (wanted_.low) nearest_.Visit(run_of_a, b_.Root());
    if (wanted_.high) farthest_.Visit(run_of_a, b_.Root());
  }
  void Offer(const PairRange& range) {
    nearest_.Offer(range.low);
    farthest_.Offer(range.high);
  }
  [[nodiscard]] PairRange Best() const { return {nearest_.Best(), farthest_.Best()}; }

 private:
  const RunTree& b_;
  Wanted wanted_;
  NearestPairSearch<PointPairing> nearest_;
  FarthestPairSearch farthest_;
};

}  // namespace zor::distance
