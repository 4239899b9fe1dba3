#pragma once

#include <span>

#include "ZorPoint.h"

namespace zor::elementary {

/// Signed area of the polygon (closing edge implied), half the sum of the edges' cross values from
/// the closing edge on: positive when the vertices run clockwise on the screen. No vertices: 0.
[[nodiscard]] double SignedArea(std::span<const ZorPoint> polygon);

/// The same measured from the first vertex, where the sign must hold however far out the polygon
/// is.
[[nodiscard]] double LocalSignedArea(std::span<const ZorPoint> polygon);

}  // namespace zor::elementary
