#include <limits>
#include <utility>

#include "ZorDataConvert.h"
#include "contour_fill.h"
#include "region_kernels.h"

namespace ZORMV {
namespace {

namespace convert = zor::convert;

constexpr long kOk = 0;
constexpr long InvalidArgument(int position) { return 11200000 + position; }

template <class Body>
long CatchOutOfMemory(Body body) noexcept {
  try {
    return body();
  } catch (...) {  // allocation is all that can fail here
    return kZorConvertOutOfMemory;
  }
}

template <class Value>
void Store(Value* out, Value value) {
  if (out != nullptr) *out = std::move(value);
}

bool FitsInt(long long value) {
  return value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
}

}  // namespace

long ZorPointArrayToContour(const ZorPointArray& points, ZorContour* contour) {
  if (contour != nullptr) contour->FromPointArray(points);
  return kOk;
}

long ZorContourArrayToRegion(const ZorContourArray& contours, ZorRegion* region) noexcept {
  return CatchOutOfMemory([&] {
    convert::ContourFill fill;
    for (const ZorContour& contour : contours) {
      if (!fill.Add(contour.View())) return InvalidArgument(1);
    }
    Store(region, fill.TakeRegion());
    return kOk;
  });
}

long ZorRegionSub(const ZorRegion& region, const ZorRegion& removed,
                  ZorRegion* difference) noexcept {
  return CatchOutOfMemory([&] {
    Store(difference, convert::Subtract(region, removed));
    return kOk;
  });
}

long ZorRegionToBinImage(const ZorRegion& region, int width, int height, ZorImage* image) noexcept {
  if (width < 1 || width > kZorConvertMaxPixels) return InvalidArgument(2);
  if (height < 1 || height > kZorConvertMaxPixels / width) return InvalidArgument(3);
  return CatchOutOfMemory([&] {
    if (image != nullptr) *image = convert::Paint(region, {0, 0, width, height});
    return kOk;
  });
}

long ZorRegionToBinImage(const ZorRegion& region, int margin, ZorImage* image, int* left,
                         int* top) noexcept {
  if (margin < 0) return InvalidArgument(2);
  convert::PixelBox box;
  if (!region.Empty()) {
    box = convert::BoundingBox(region);
    box = {box.left - margin, box.top - margin, box.width + 2LL * margin,
           box.height + 2LL * margin};
    const bool fits = FitsInt(box.left) && FitsInt(box.top) && FitsInt(box.left + box.width - 1) &&
                      FitsInt(box.top + box.height - 1);
    if (!fits || box.height > kZorConvertMaxPixels / box.width) return InvalidArgument(1);
  }
  return CatchOutOfMemory([&] {
    if (image != nullptr) *image = convert::Paint(region, box);
    Store(left, static_cast<int>(box.left));
    Store(top, static_cast<int>(box.top));
    return kOk;
  });
}

}  // namespace ZORMV
