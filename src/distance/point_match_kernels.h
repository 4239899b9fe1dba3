#pragma once

#include <span>
#include <vector>

#include "ZorPoint.h"
#include "distance/indexed_pair.h"

// Partners in list b for the points of list a, in the order of a. The lists are not empty;
// distances are sqrt(dx*dx + dy*dy) in double. Fast under the conditions of contour_pair_kernels.h.

namespace zor::distance {

/// For each point of a the nearest one of b, the earliest on ties.
[[nodiscard]] std::vector<IndexedPair> NearestMatches(std::span<const ZorPoint> a,
                                                      std::span<const ZorPoint> b);

/// For each point of a the farthest one of b, the earliest on ties.
[[nodiscard]] std::vector<IndexedPair> FarthestMatches(std::span<const ZorPoint> a,
                                                       std::span<const ZorPoint> b);

/// All pairs with a distance in [lower, upper], those of a point of a in the order of b.
[[nodiscard]] std::vector<IndexedPair> PairsWithin(std::span<const ZorPoint> a,
                                                   std::span<const ZorPoint> b, double lower,
                                                   double upper);

}  // namespace zor::distance
