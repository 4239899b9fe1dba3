#include "contour/search_line_operations.h"

#include <vector>

#include "ZorStatus.h"
#include "contour/search_line_kernels.h"
#include "contour/skeleton_path.h"
#include "frame/trace.h"
#include <ZorDataConvert.h>
#include <ZorSkeleton.h>

using zor::frame::Trace;

namespace zor::contour {

long GetSearchLines(const ZorContourArray& contours, int spacing, ZorROIArray* lines) {
  Trace trace("Get_Search_Line_for_Contour");
  ZorRegion region;
  if (const long status = ZORMV::ZorContourArrayToRegion(contours, &region); status != GM_OK) {
    return status;
  }
  if (region.Empty()) return GM_E_DEGENERATE_RESULT;
  constexpr int kMargin = 1;
  ZorImage image;
  int left = 0;
  int top = 0;
  if (const long status = ZORMV::ZorRegionToBinImage(region, kMargin, &image, &left, &top);
      status != GM_OK) {
    return status;
  }
  if (const long status = ZORMV::ZorSkeletonDlg().Execute(image, &image); status != GM_OK) {
    return status;
  }
  std::vector<ZorLine> found;
  const ZorPoint origin(left, top);
  for (std::vector<ZorPoint>& way : LongestWays(image)) {
    for (ZorPoint& p : way) p = p + origin;
    const std::vector<ZorLine> across = LinesAcross(contours, way, spacing);
    found.insert(found.end(), across.begin(), across.end());
  }
  if (found.empty()) return GM_E_DEGENERATE_RESULT;
  if (lines != nullptr) {
    for (const ZorLine& line : found) {
      ZorROI roi;
      roi.GenLine(line.start, line.end);
      lines->Append(roi);
    }
  }
  return trace.Done();
}

}  // namespace zor::contour
