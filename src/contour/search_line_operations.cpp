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
namespace {

/// The platform's code, or one of ours for memory that ran out.
long CodeOf(long status) { return status < 0 ? GM_E_DEGENERATE_RESULT : status; }

}  // namespace

long GetSearchLines(const ZorContourArray& contours, int spacing, ZorROIArray* lines) {
  Trace trace("Get_Search_Line_for_Contour");
  ZorRegion region;
  if (const long status = ZORMV::ZorContourArrayToRegion(contours, &region); status != GM_OK) {
    return CodeOf(status);
  }
  if (region.Empty()) return GM_E_DEGENERATE_RESULT;
  constexpr int kMargin = 1;
  ZorImage image;
  int left = 0;
  int top = 0;
  if (const long status = ZORMV::ZorRegionToBinImage(region, kMargin, &image, &left, &top);
      status != GM_OK) {
    return CodeOf(status);
  }
  if (const long status = ZORMV::ZorSkeletonDlg().Execute(image, &image); status != GM_OK) {
    return CodeOf(status);
  }
  std::vector<std::vector<ZorPoint>> ways = LongestWays(image);
  const ZorPoint origin(left, top);
  for (std::vector<ZorPoint>& way : ways) {
    for (ZorPoint& p : way) p = p + origin;
  }
  const std::vector<ZorLine> found = LinesAcross(contours, ways, spacing);
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
