#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace ZORMV {

long ZorGeometryMeasureDlg::Perpendicular(ZorPoint& a, ZorPoint& b, ZorPoint& p, ZorPoint* out) {
  Trace trace("Perpendicular");
  // Deliberate: only exact equality counts as degenerate here, unlike everywhere else.
  if (a == b) return GM_E_DEGENERATE_LINE;
  Store(out, elementary::PerpendicularThrough(p, a, b));
  return trace.Done();
}

long ZorGeometryMeasureDlg::RotateProjection(ZorPoint& p, ZorPoint& centre, double& angle,
                                             ZorPoint* out) {
  Trace trace("RotateProjection");
  Store(out, elementary::RotateInCoordinates(p, centre, angle));
  return trace.Done();
}

long ZorGeometryMeasureDlg::BissectingLine(ZorPoint& p1, ZorPoint& vertex, ZorPoint& p3,
                                           ZorPoint* out) {
  Trace trace("BissectingLine");
  ZorPoint end;
  const long status = ZorGeometryMeasure().BissectingLine2(vertex, p1, vertex, p3, nullptr, &end);
  if (status != GM_OK) return status;
  Store(out, end);
  return trace.Done();
}

long ZorGeometryMeasureDlg::CircleArcSample(ZorPoint& centre, float radius, float start,
                                            float extent, int count, ZorPointArray* out) {
  Trace trace("CircleArcSample");
  const long status =
      ZorGeometryMeasure().SampleArc(centre, radius, radius, 0.0F, start, extent, count, out);
  switch (status) {  // so that the number names this method's own argument
    case GM_OK:
      return trace.Done();
    case GM_E_PARAM_5:
      return GM_E_PARAM_3;
    case GM_E_PARAM_6:
      return GM_E_PARAM_4;
    case GM_E_PARAM_7:
      return GM_E_PARAM_5;
    default:
      return status;
  }
}

}  // namespace ZORMV
