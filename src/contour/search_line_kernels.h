#pragma once

#include <span>
#include <vector>

#include "ZorContourArray.h"
#include "ZorLine.h"
#include "ZorPoint.h"

namespace zor::contour {

/// Lines across the band that the contours enclose, `spacing` apart along its centre line, from the
/// outline on the left of the way (seen on the screen) to that on its right. `ways` are first ideas
/// of the centre lines of its parts, good to about a pixel: the longest ways through the skeletons.
/// A centre line is refined to the middles between the outlines and carried on to the band's ends;
/// what is left over of its length is shared between both ends. A centre line shorter than the
/// spacing gets one line, in its middle. Where the outline is not met on both sides there is none.
/// Precondition: at least two points in a way, not all the same; spacing > 0.
[[nodiscard]] std::vector<ZorLine> LinesAcross(const ZorContourArray& contours,
                                               std::span<const std::vector<ZorPoint>> ways,
                                               double spacing);

}  // namespace zor::contour
