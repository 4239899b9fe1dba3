#pragma once

#include <span>

#include "ZorPoint.h"
#include "elementary/polygon_kernels.h"

// The relation of a point to a polygon whose outline is about a pixel wide.

namespace zor::intersection {

/// Whether a direction in degrees, less 180 from 180 on, lies near an axis or a diagonal of the
/// pixel grid: below 20, above 160, or inside 35 to 55, 80 to 100, 125 to 145, bounds excluded.
[[nodiscard]] bool IsNearAxisOrDiagonal(double angle_deg);

/// Whether a point at this distance from an edge is on the outline: below 1.1 pixels, or on a wide
/// outline up to the diagonal of a pixel, inclusive.
[[nodiscard]] bool IsWithinPixel(double distance, bool is_wide);

/// Distance of p from segment ab where it could matter to IsWithinPixel, else some larger number;
/// infinite for a degenerate segment.
[[nodiscard]] double DistanceWithinPixel(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b);

/// Relation of p to the polygon: on the outline within a pixel of an edge, by distance_to(a, b),
/// otherwise by the crossings of the ray as in PolygonRelation, but without that one's reach along
/// x. An empty polygon has every point outside.
template <typename DistanceTo>
[[nodiscard]] int PixelRelation(const ZorPoint& p, std::span<const ZorPoint> polygon, bool is_wide,
                                DistanceTo distance_to) {
  bool is_inside = false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const ZorPoint& a = polygon[i];
    const ZorPoint& b = i + 1 < polygon.size() ? polygon[i + 1] : polygon[0];
    if (IsWithinPixel(distance_to(a, b), is_wide)) return elementary::kOnOutline;
    if (a.y == b.y) {
      if (elementary::IsOnHorizontal(p, a, b)) return elementary::kOnOutline;
    } else if (elementary::MeetsScanLine(p, a, b)) {
      is_inside ^= elementary::ScanCrossing(p, a, b) > p.x;
    }
  }
  return is_inside ? elementary::kInside : elementary::kOutside;
}

}  // namespace zor::intersection
