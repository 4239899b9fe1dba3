#pragma once

#include <cstdint>
#include <span>

#include "ZorPoint.h"
#include "distance/indexed_pair.h"

// The pairs that the plain double loops over two contours find: same computed distances, same
// points, the earliest of ties. Fast where neighbours in the list are mostly neighbours in the
// plane, n log n for points in any order, and the plain loops themselves for coordinates that are
// infinite or beyond 1e8, in the searches of polylines also for what is not a number. The lists are
// not empty.

namespace zor::distance {

/// Whether the bounds of the searches hold: all coordinates are finite and within 1e8.
[[nodiscard]] bool AreSearchable(std::span<const ZorPoint> a, std::span<const ZorPoint> b);

/// The nearest and the farthest pair of points.
[[nodiscard]] PairRange PointPairs(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                   Wanted wanted);

/// Of the points of a with their nearest ones of b, the pair with the smallest and the one with the
/// largest distance.
[[nodiscard]] PairRange NearestPoints(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                      Wanted wanted);

/// The same of the points of a and the polyline b of at least two points, by PointToClosedSegment.
/// An index of b is that of a segment, the polyline's first point belonging to segment 0.
[[nodiscard]] PairRange PointsToPolyline(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                         Wanted wanted);

/// The same of the segments of two polylines, none of them degenerate, by the shortest distance of
/// LineToLineDistance.
[[nodiscard]] PairRange Polylines(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                  Wanted wanted);

/// PointPairs, the work split over threads by the points of a. The result does not depend on how.
[[nodiscard]] PairRange ParallelPointPairs(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                           Wanted wanted);

}  // namespace zor::distance
