#pragma once

#include <span>

#include "ZorLine.h"
#include "ZorPoint.h"

// Straight lines through at least two points, each given by two points on it.

namespace zor::fitting {

/// Which coordinate the line is a function of.
enum class Axis { kX, kY };

/// The Huber line, cut to the extent of the points along its dominant axis. Two points are returned
/// as they are.
[[nodiscard]] ZorLine FitExtentLine(std::span<const ZorPoint> points);

/// The axis for the fits below: y where the Huber line is steep, else x.
[[nodiscard]] Axis ChooseAxis(std::span<const ZorPoint> points);

/// `passes` re-weighted fits with the clipping distance `clip`; the line is evaluated at the first
/// and at the last point. No passes give v = 0.
[[nodiscard]] ZorLine FitLineSquares(std::span<const ZorPoint> points, Axis axis, int passes,
                                     double clip);
[[nodiscard]] ZorLine FitLineAbsolute(std::span<const ZorPoint> points, Axis axis, int passes,
                                      double clip);

/// The same over x with a clipping distance found anew for every re-weighting: the residual that is
/// greater than eight tenths of all, or half a pixel where the middle residual is no greater.
[[nodiscard]] ZorLine FitLineAbsoluteSelfClipped(std::span<const ZorPoint> points, int passes);

}  // namespace zor::fitting
