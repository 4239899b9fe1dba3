#include "elementary/polygon_kernels.h"

#include <cstddef>

#include "elementary/edge_scan.h"

namespace zor::elementary {

int PolygonRelation(const ZorPoint& p, std::span<const ZorPoint> polygon) {
  if (polygon.empty()) return kOutside;
  bool is_inside = false;
  const auto touches = [&](const ZorPoint& a, const ZorPoint& b) {
    const EdgeVerdict verdict = JudgeEdge(p, a, b);
    is_inside ^= verdict == EdgeVerdict::kCrosses;
    return verdict == EdgeVerdict::kTouches;
  };
  if (touches(polygon.back(), polygon.front())) return kOnOutline;

  // Only edges whose ends lie on different sides of the scan line, or that end close to it, have
  // something to say. A scan line at -0.0 would be below a vertex at 0.0.
  constexpr double kCloseBy = 2 * kOutlineReach;
  const double scan_y = p.y + 0.0;
  const bool is_on_outline = ScanEdges(
      polygon, [=](const ZorPoint& vertex) { return scan_y - vertex.y; },
      [](double start, double end) {
        return (Bits(start) ^ Bits(end)) | Bits(std::fabs(end) - kCloseBy);
      },
      [&](std::size_t i) { return touches(polygon[i - 1], polygon[i]); });
  if (is_on_outline) return kOnOutline;
  return is_inside ? kInside : kOutside;
}

}  // namespace zor::elementary
