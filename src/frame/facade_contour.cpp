#include <utility>
#include <vector>

#include "ZorFindDefectRegion.h"
#include "ZorGeometryMeasureDlg.h"
#include "ZorGeometryMeasureTools.h"
#include "contour/search_line_operations.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::Trace;

namespace ZORMV {

long ZorGeometryMeasureDlg::FindPolygon(ZorPointArray& points, double tolerance, int n, bool closed,
                                        ZorPointArray* polygon) {
  Trace trace("FindPolygon");
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(tolerance)) return InvalidArgument(2);
  if (n < 0) return InvalidArgument(3);
  static_cast<void>(  // checked above
      ZorGeometryMeasureTools().GetPolygon2(points, tolerance, n, closed, polygon));
  return trace.Done();
}

long ZorGeometryMeasureDlg::FindDefectRegion(ZorContour& contour, double tolerance, int count,
                                             double distance, int minLength,
                                             ZorContourArray* defects) {
  Trace trace("FindDefectRegion");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (contour.Length() < 4) return InvalidArgument(1);
  if (!IsPositive(tolerance)) return InvalidArgument(2);
  if (count < 0) return InvalidArgument(3);
  if (!IsPositive(distance)) return InvalidArgument(4);
  if (minLength < 1) return InvalidArgument(5);
  ZorPointArray points;
  contour.ToPointArray(&points);
  std::vector<std::pair<int, int>> runs;
  static_cast<void>(  // always succeeds
      ZorFindDefectRegion().Find(points, tolerance, distance, count, minLength, runs));
  if (runs.empty()) return InvalidArgument(1);
  if (defects != nullptr) {
    defects->Clear();
    for (const auto& [start, length] : runs) {
      const ZorPoint* first = points.begin() + start;
      defects->Append(ZorContour(std::vector<ZorPoint>(first, first + length)));
    }
  }
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSearchLine(ZorContour& contour, int spacing,
                                              ZorROIArray* lines) {
  Trace trace("ContourSearchLine");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (contour.Length() < 3) return InvalidArgument(1);
  if (spacing < 1) return InvalidArgument(2);
  const ZorContourArray contours = {contour};
  if (const long status = zor::contour::GetSearchLines(contours, spacing, lines); status != GM_OK) {
    return status;
  }
  return trace.Done();
}

}  // namespace ZORMV
