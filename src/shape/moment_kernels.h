#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// The integral of x^p y^q over the polygon by Green's theorem, for order = 10 p + q one of 0, 1,
/// 2, 10, 11, 20 and 22; any other order gives 0. Signed like SignedArea. At least one vertex.
[[nodiscard]] double PolygonMoment(std::span<const ZorPoint> polygon, int order);

}  // namespace zor::shape
