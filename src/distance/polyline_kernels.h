#pragma once

#include <cstddef>
#include <span>

#include "ZorPoint.h"
#include "elementary/segment_distance_kernels.h"

namespace zor::distance {

/// The point of an open polyline nearest to p among those nearer than `seed`, else the seed: in the
/// order of the segments, each by PointToClosedSegment, the earliest on ties. Linear; segments that
/// are plainly too far are passed over by the squared distances of their ends.
[[nodiscard]] elementary::NearestPoint NearestOnPolyline(const ZorPoint& p,
                                                         std::span<const ZorPoint> polyline,
                                                         const elementary::NearestPoint& seed);

/// A point of a list with its distance from the point it was sought for.
struct IndexedDistance {
  std::size_t index = 0;
  double distance = 0.0;
};
struct PointRange {
  IndexedDistance nearest;
  IndexedDistance farthest;
};

/// The points of a list that are nearest to and farthest from p, the earliest on ties. The list is
/// not empty. Linear, without a root a point.
[[nodiscard]] PointRange RangeOfPoints(const ZorPoint& p, std::span<const ZorPoint> points);

}  // namespace zor::distance
