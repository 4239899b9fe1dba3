#include "ZorGeometryMeasure.h"
#include "frame/checks.h"
#include "frame/trace.h"
#include "intersection/selection.h"

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::Trace;
namespace intersection = zor::intersection;

long ZorGeometryMeasure::PointArraySelectedByPolygon(ZorPointArray& points, ZorPointArray& polygon,
                                                     ZorPointArray* selected) {
  Trace trace("PointArraySelectedByPolygon");
  // Deliberate: three candidates at least, not only three vertices; hosts know the code for both.
  if (points.Length() < 3 || polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (selected == nullptr) return trace.Done();
  // Deliberate: appended. The intersection of convex polygons gathers its points this way.
  for (const ZorPoint& p : intersection::KeptByPolygonInParallel(points.View(), polygon)) {
    selected->Append(p);
  }
  return trace.Done();
}

long ZorGeometryMeasure::PointArraySelectedByCircle(ZorPointArray& points, ZorPoint& centre,
                                                    double radius, ZorPointArray* selected) {
  Trace trace("PointArraySelectedByCircle");
  if (points.Length() < 1) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(radius)) return InvalidArgument(3);
  if (selected == nullptr) return trace.Done();
  selected->Assign(intersection::KeptByCircle(points.View(), centre, radius));
  return trace.Done();
}
