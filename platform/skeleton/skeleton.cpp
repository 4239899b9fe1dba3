#include <cstdint>
#include <limits>
#include <utility>

#include "ZorSkeleton.h"
#include "thinning.h"

namespace ZORMV {
namespace {

using zor::skeleton::ThinningField;

constexpr long kOk = 0;
constexpr long kEmptyImage = 11000001;
constexpr long kInvalidImage = 11200001;

bool IsIndexable(const ZorImage& image) {
  constexpr std::int64_t kMaxCells = std::numeric_limits<std::uint32_t>::max();
  return image.Height() + 2LL <= kMaxCells / (image.Width() + 2LL);
}

}  // namespace

long ZorSkeletonDlg::Execute(const ZorImage& image, ZorImage* skeleton) const noexcept {
  if (image.Width() < 1 || image.Height() < 1) return kEmptyImage;
  if (image.Channels() != 1 || !IsIndexable(image)) return kInvalidImage;
  if (skeleton == nullptr) return kOk;
  try {
    ThinningField field(image);
    field.Thin();
    *skeleton = field.ToImage();
    return kOk;
  } catch (...) {  // allocation is all that can fail here
    return kZorSkeletonOutOfMemory;
  }
}

}  // namespace ZORMV
