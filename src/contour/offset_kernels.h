#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::contour {

/// The points on either side of a point that its normal is taken from.
inline constexpr std::size_t kReach = 5;
inline constexpr std::size_t kWindow = 2 * kReach + 1;

/// The unit normal of every point to the parabola that fits the kWindow points around it best, as
/// y(x) where the window's ends lie further apart in x (or as far), else as x(y). The normals of
/// y(x) point to +y, those of x(y) to +x. Where all points of a window have one or two different
/// coordinates along its axis, as at the tip of a spike, the normal is that axis' other one.
/// Precondition: at least kWindow points.
///  - Closed: the windows are centred, and taken cyclically.
///  - Open: the first and last kReach points share the first and last window.
///
/// The normal equations are set up with the point itself as the origin, so that they are as well
/// conditioned far from the image's origin as near it.
[[nodiscard]] std::vector<ZorPoint> ClosedNormals(std::span<const ZorPoint> points);
[[nodiscard]] std::vector<ZorPoint> OpenNormals(std::span<const ZorPoint> points);

/// Turns every normal round that points against the one before it, the first one measured by the
/// last; in order, each by the neighbour as it is by then.
void AlignClosed(std::span<ZorPoint> normals);

/// Offsets an open contour of at least kWindow points: every normal is turned to agree with the one
/// before. The first point moves by `distance`, the others by -distance where the first step goes
/// to the left.
[[nodiscard]] std::vector<ZorPoint> OffsetOpen(std::span<const ZorPoint> points, double distance);

/// Offsets a closed contour of at least kWindow points: to its outside by a positive distance.
[[nodiscard]] std::vector<ZorPoint> OffsetClosed(std::span<const ZorPoint> points, double distance);

/// The points moved by `distance` away from the centre; one at the centre is not finite.
[[nodiscard]] std::vector<ZorPoint> MovedFrom(const ZorPoint& centre,
                                              std::span<const ZorPoint> points, double distance);

/// The points scaled about the centre.
[[nodiscard]] std::vector<ZorPoint> Scaled(std::span<const ZorPoint> points, const ZorPoint& centre,
                                           double factor);

}  // namespace zor::contour
