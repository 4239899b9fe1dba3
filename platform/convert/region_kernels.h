#pragma once

#include <ZorImage.h>
#include <ZorRegion.h>

namespace zor::convert {

/// A rectangle of pixels; wide enough for the extremes of `int` and a margin.
struct PixelBox {
  long long left = 0;
  long long top = 0;
  long long width = 0;
  long long height = 0;
};

/// The pixels of `region` outside `removed`; linear in the runs of both.
[[nodiscard]] ZorRegion Subtract(const ZorRegion& region, const ZorRegion& removed);

/// The smallest box around a region that is not empty.
[[nodiscard]] PixelBox BoundingBox(const ZorRegion& region);

/// The part of the region inside the box, as 255 on 0. The box's size must fit an image.
[[nodiscard]] ZorImage Paint(const ZorRegion& region, const PixelBox& box);

}  // namespace zor::convert
