#pragma once

#include "zordataconvert_export.h"
#include <ZorContour.h>
#include <ZorContourArray.h>
#include <ZorImage.h>
#include <ZorPointArray.h>
#include <ZorRegion.h>

namespace ZORMV {

// Conversions between point lists, contours, pixel regions and binary images. The pixel (column c,
// row r) has its centre at (c, r). Status 0 is success, 11200000 + N names the N-th argument as
// invalid, and kZorConvertOutOfMemory is what it says; outputs may be null and are written only on
// success. Nothing is traced.

inline constexpr long kZorConvertOutOfMemory = -1;

/// The largest |coordinate| of a contour that becomes a region, pixels, inclusive.
inline constexpr double kZorConvertMaxCoordinate = 1048576.0;
/// The largest number of pixels of an image made from a region.
inline constexpr long long kZorConvertMaxPixels = 1LL << 28;

/// Replaces the contour's points by those of the list, in order, whatever their coordinates. Always
/// 0. Unlike the other conversions it lets std::bad_alloc pass, as the value types themselves do.
ZORDATACONVERT_EXPORT long ZorPointArrayToContour(const ZorPointArray& points, ZorContour* contour);

/// The union of the regions that the contours enclose. Each contour is closed by an edge from its
/// last point to its first; a pixel belongs to its region when the pixel's centre lies on the
/// contour, or inside by the even-odd rule (parts enclosed twice are outside). For contours on
/// whole coordinates this is exact; otherwise centres within rounding (about 1e-9 pixel) of the
/// contour may fall on either side. Contours that enclose no centre, those of fewer than 3 points
/// included, add only centres on them. A contour inside another cuts no hole: ZorRegionSub does. No
/// contours give an empty region.
/// @retval 11200001  a coordinate is NaN or beyond kZorConvertMaxCoordinate, or the contours cross
///                   pixel rows more than 2^26 times in all
ZORDATACONVERT_EXPORT long ZorContourArrayToRegion(const ZorContourArray& contours,
                                                   ZorRegion* region) noexcept;

/// The pixels of `region` that are not in `removed`. The output may be one of the inputs.
ZORDATACONVERT_EXPORT long ZorRegionSub(const ZorRegion& region, const ZorRegion& removed,
                                        ZorRegion* difference) noexcept;

/// The region as a one-channel image of 255 on it and 0 elsewhere, in the frame of columns 0 to
/// width - 1 and rows 0 to height - 1; pixels outside the frame are left out.
/// @retval 11200002  width below 1 or above kZorConvertMaxPixels
/// @retval 11200003  height below 1, or width * height above kZorConvertMaxPixels
ZORDATACONVERT_EXPORT long ZorRegionToBinImage(const ZorRegion& region, int width, int height,
                                               ZorImage* image) noexcept;

/// The same in the region's bounding box widened by `margin` pixels on each side; (left, top) is
/// the pixel that the image's first pixel shows. An empty region gives an empty image and (0, 0).
/// @retval 11200002  margin below 0 (checked first)
/// @retval 11200001  the widened box has more than kZorConvertMaxPixels pixels, or leaves the range
///                   of `int`
ZORDATACONVERT_EXPORT long ZorRegionToBinImage(const ZorRegion& region, int margin, ZorImage* image,
                                               int* left, int* top) noexcept;

}  // namespace ZORMV
