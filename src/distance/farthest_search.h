#pragma once

#include <cstdint>

#include "distance/indexed_pair.h"
#include "distance/run_tree.h"

namespace zor::distance {

/// The farthest pair of the points of two trees: the largest computed distance, the earliest pair
/// of equals. The counterpart of NearestPairSearch.
class FarthestPairSearch {
 public:
  using Ref = RunTree::Ref;

  FarthestPairSearch(const RunTree& a, const RunTree& b);

  [[nodiscard]] const IndexedPair& Best() const { return best_; }

  void Offer(const IndexedPair& pair);

  /// Offers the farthest pair of two runs, if it can replace the best one.
  void Visit(Ref a, Ref b);

 private:
  [[nodiscard]] bool CanBeFarthest(Ref a, Ref b) const;
  void VisitPoints(Ref a, Ref b);
  void Take(const IndexedPair& pair);

  const RunTree& a_;
  const RunTree& b_;
  IndexedPair best_;
  double least_square_ = 0.0;
};

}  // namespace zor::distance
