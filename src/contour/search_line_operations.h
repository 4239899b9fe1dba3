#pragma once

#include "ZorContourArray.h"
#include "ZorROIArray.h"

namespace zor::contour {

/// Appends to `lines`, which may be null, the search lines across the band that the contours
/// enclose, `spacing` pixels apart: the lines of LinesAcross, along the skeleton of the band's
/// image. Traced as "Get_Search_Line_for_Contour".
/// Status: that of the conversions; GM_E_DEGENERATE_RESULT when there is no line or memory ran out.
[[nodiscard]] long GetSearchLines(const ZorContourArray& contours, int spacing, ZorROIArray* lines);

}  // namespace zor::contour
