#include "elementary/segment_kernels.h"

#include "elementary/line_kernels.h"
#include "frame/checks.h"

namespace zor::elementary {

std::optional<ZorPoint> CrossLines(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& p3,
                                   const ZorPoint& p4) {
  if (frame::IsDegenerate(p1, p2) || frame::IsDegenerate(p3, p4)) return std::nullopt;
  if (AreParallel(p2 - p1, p4 - p3)) return std::nullopt;
  return IntersectLines(p1, p2, p3, p4);
}

std::optional<ZorPoint> CrossSegments(const ZorPoint& a1, const ZorPoint& a2, const ZorPoint& b1,
                                      const ZorPoint& b2) {
  const std::optional<ZorPoint> crossing = CrossLines(a1, a2, b1, b2);
  if (!crossing || !IsBetween(*crossing, a1, a2) || !IsBetween(*crossing, b1, b2)) {
    return std::nullopt;
  }
  return crossing;
}

}  // namespace zor::elementary
