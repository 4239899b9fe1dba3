#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::intersection {

/// Area common to two simple polygons of at least 3 vertices, in either direction: each is cut into
/// a convex core and ears, and the areas common to core and core, ears and core, core and ears, and
/// ears and ears are added, the last three in parallel. Pairs whose boxes are apart are skipped.
/// The sums are compensated: the result does not depend on the number of threads. Polygons that
/// cross themselves give some number.
[[nodiscard]] double PolygonOverlapArea(std::span<const ZorPoint> p, std::span<const ZorPoint> q);

}  // namespace zor::intersection
