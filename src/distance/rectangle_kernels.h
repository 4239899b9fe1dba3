#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "ZorPoint.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_kernels.h"

namespace zor::distance {

/// The first point on the way along a polyline where it crosses an outline, itself a polyline: a
/// plain loop over the segments of both, since one of them is a rectangle.
[[nodiscard]] inline std::optional<ZorPoint> FirstCommonPoint(std::span<const ZorPoint> polyline,
                                                              std::span<const ZorPoint> outline) {
  std::optional<ZorPoint> first;
  for (std::size_t i = 1; i < polyline.size() && !first; ++i) {
    const ZorPoint& start = polyline[i - 1];
    for (std::size_t j = 1; j < outline.size(); ++j) {
      const std::optional<ZorPoint> crossing =
          elementary::CrossSegments(start, polyline[i], outline[j - 1], outline[j]);
      if (!crossing) continue;
      if (!first || elementary::Distance(start, *crossing) < elementary::Distance(start, *first)) {
        first = crossing;
      }
    }
  }
  return first;
}

}  // namespace zor::distance
