#pragma once

#include <functional>
#include <span>

#include "ZorPoint.h"

namespace zor::intersection {

/// Told every pair of convex pieces whose common area counts, those apart too; may be called from
/// several threads at once.
using PairWitness =
    std::function<void(std::span<const ZorPoint> piece, std::span<const ZorPoint> other)>;

/// Area common to two simple polygons of at least 3 vertices, in either direction: each is cut into
/// a convex core and convex pieces, and the areas common to core and core, pieces and core, core
/// and pieces, and pieces and pieces are added, the last three in parallel. Pairs whose boxes are
/// apart are not measured. The sums are compensated: the result does not depend on the number of
/// threads. Polygons that cross themselves give some number. `witness` may be empty.
[[nodiscard]] double PolygonOverlapArea(std::span<const ZorPoint> p, std::span<const ZorPoint> q,
                                        const PairWitness& witness = {});

}  // namespace zor::intersection
