#include <utility>

#include "ZorGeometryMeasureDlg.h"
#include "ZorGeometryMeasureTools.h"
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

}  // namespace ZORMV
