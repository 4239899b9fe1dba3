#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"
#include "frame/trace.h"

using zor::frame::Trace;

namespace ZORMV {

long ZorGeometryMeasureDlg::PointToRectangularPos(ZorPoint& point, ZorPoint& centre, double width,
                                                  double height, double angle, int* code) {
  Trace trace("PointToRectangularPos");
  ZorGeometryMeasure measure;
  ZorPointArray corners;
  const long status = measure.RectAngularToPolygon(centre, width, height, angle, &corners);
  if (status != GM_OK) return status + 1;  // so that the number names this method's own argument
  if (const long inner = measure.PointToPolygonPosRelation(point, corners, code); inner != GM_OK) {
    return inner;
  }
  return trace.Done();
}

}  // namespace ZORMV
