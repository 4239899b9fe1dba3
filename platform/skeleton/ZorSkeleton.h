#pragma once

#include "zorskeleton_export.h"
#include <ZorImage.h>

namespace ZORMV {

inline constexpr long kZorSkeletonOutOfMemory = -1;

/// Skeletons of binary images. Holds nothing; calls may run on any threads at once.
class ZORSKELETON_EXPORT ZorSkeletonDlg {
 public:
  /// Thins the foreground (every pixel that is not 0) to centred curves about one pixel wide: 255
  /// on the skeleton, 0 elsewhere. The skeleton is part of the foreground and has its topology: as
  /// many 8-connected parts and as many 4-connected holes. Beyond the image's edge all is
  /// background. The result depends on nothing but the pixels. Linear in the foreground. `skeleton`
  /// may be null or the input itself; it becomes an image of its own, so that pixels that it
  /// wrapped stay as they are. Written only on success; not traced.
  /// @retval 11000001  the image is empty
  /// @retval 11200001  it has more than one channel, or about 2^32 pixels or more
  /// @retval kZorSkeletonOutOfMemory  memory ran out
  long Execute(const ZorImage& image, ZorImage* skeleton) const noexcept;
};

}  // namespace ZORMV
