#pragma once

#include "distance/contour_pair_outputs.h"
#include <ZorContour.h>

namespace zor::distance {

enum class BandStatus {
  kFound,
  kInvalidA,  // a coordinate that is not finite or beyond what regions allow, or too wide
  kInvalidB,
  kNotOverlapping,
  kOutOfMemory,
};

/// Widths of the band between two closed contours, at their narrowest and their widest.
struct Band {
  BandStatus status = BandStatus::kFound;
  ContourPair narrowest;
  ContourPair widest;
};

/// The band is the region of the contour that encloses more pixels (A on ties) less that of the
/// other. At each pixel of its skeleton, row by row, the width is the distance of the points of the
/// two outlines nearest to that pixel; the first of equal ones counts. A band too thin to hold a
/// pixel is measured at the points of A instead.
///
///      ________________          o  a pixel of the skeleton
///     |   a            |         ab the width there
///     |   o  ______    |
///     |   b |      |   |
///     |     |______|   |
///     |________________|
[[nodiscard]] Band MeasureBand(const ZorContour& contour_a, const ZorContour& contour_b);

}  // namespace zor::distance
