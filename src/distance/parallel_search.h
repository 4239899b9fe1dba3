#pragma once

#include "distance/indexed_pair.h"
#include "distance/run_tree.h"

namespace zor::distance {

/// The nearest and the farthest pair of points of two trees, the runs of a split over threads.
[[nodiscard]] PairRange ParallelSearch(const RunTree& a, const RunTree& b, Wanted wanted);

}  // namespace zor::distance
