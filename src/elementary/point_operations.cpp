#include "ZorGeometryMeasure.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"

using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

long ZorGeometryMeasure::PointToPointDistance(ZorPoint& a, ZorPoint& b, double* distance) {
  Trace trace("PointToPointDistance");
  Store(distance, elementary::Distance(a, b));
  return trace.Done();
}

ZorPoint ZorGeometryMeasure::MidPoint(ZorPoint& a, ZorPoint& b) {
  return elementary::Midpoint(a, b);
}

long ZorGeometryMeasure::MidPoint(ZorPoint a, ZorPoint b, ZorPoint* mid) {
  Trace trace("MidPoint");
  Store(mid, elementary::Midpoint(a, b));
  return trace.Done();
}

ZorPoint ZorGeometryMeasure::TransformPoint(ZorPoint& p, ZorPoint& centre, double angle) {
  return elementary::RotateOnScreen(p, centre, angle);
}

long ZorGeometryMeasure::Deg(double radians, double* degrees) {
  Store(degrees, radians / zor::frame::kPi * 180);
  return GM_OK;
}

long ZorGeometryMeasure::Rad(double degrees, double* radians) {
  Store(radians, degrees / 180 * zor::frame::kPi);
  return GM_OK;
}

void ZorGeometryMeasure::FormatResult(ZorPoint& p) { p = elementary::WithoutNegativeZeros(p); }

void ZorGeometryMeasure::FormatPointArray(ZorPointArray& points) {
  if (points.Length() < 2) return;
  // Deliberate: the comparison of first and last also runs when one point is left, which is then
  // within reach of itself, so that a list of coincident points ends empty.
  points.Assign(elementary::WithoutCoincidentNeighbours(points.View()));
}

void ZorGeometryMeasure::FormatPointArray2(ZorPointArray& points) {
  if (points.Length() < 2) return;
  points.Assign(elementary::WithoutNearbyPoints(points.View()));
}

long ZorGeometryMeasure::PointPosition(ZorPointArray& /*first*/, ZorPointArray& /*second*/,
                                       int /*mode*/, ZorPointArray* /*out*/) {
  return GM_OK;  // Deliberate: kept for the interface's sake, hosts call it and expect no output.
}

long ZorGeometryMeasure::AdjustPointArray(ZorPointArray& in, int start, ZorPointArray* out) {
  if (out == nullptr) return GM_OK;
  for (const ZorPoint& p : elementary::RotatedSequence(in.View(), start)) out->Append(p);
  return GM_OK;
}

long ZorGeometryMeasure::TrianglePosition(ZorPointArray& triangle, ZorPointArray& segment,
                                          int /*mode*/, ZorPointArray* out) {
  const ZorPoint s0 = segment[0];
  const ZorPoint s1 = segment[1];
  const ZorPoint q = elementary::CarryThirdVertex(triangle[0], triangle[1], triangle[2], s0, s1);
  ZorPoint foot;
  // Deliberate: a segment too short to project on leaves the foot at the origin.
  static_cast<void>(PerpendicularProjection(q, s0, s1, &foot));
  if (out == nullptr) return GM_OK;
  out->Append(q);
  out->Append(ZorPoint(2 * foot.x - q.x, 2 * foot.y - q.y));
  return GM_OK;
}

namespace {

ZorPointArray MovedVertices(const ZorROI& polygon, const ZorPoint& offset) {
  ZorPointArray vertices;
  polygon.GetPolygon(&vertices);
  for (ZorPoint& vertex : vertices) vertex = vertex + offset;
  return vertices;
}

}  // namespace

void ZorGeometryMeasure::TransverseROI(ZorROI& in, ZorPoint& offset, ZorROI* out) {
  ZorPoint centre;
  double first = 0.0;
  double second = 0.0;
  double third = 0.0;
  switch (in.ROIType()) {
    case ZorROICircle:
      in.GetCircle(&centre, &first);
      if (out != nullptr) out->GenCircle(centre + offset, first);
      return;
    case ZorROIPolygon:
      if (out != nullptr) out->GenPolygon(MovedVertices(in, offset));
      return;
    case ZorROIEllipse:
      in.GetEllipse(&centre, &first, &second, &third);
      if (out != nullptr) out->GenEllipse(centre + offset, first, second, third);
      return;
    case ZorROIRect2:
      // Deliberate: the moved rectangle replaces the input and `out` stays as it is; hosts move
      // their rectangles in place this way.
      in.GetRect2(&centre, &first, &second, &third);
      in.GenRect2(centre + offset, first, second, third);
      return;
    default:
      return;
  }
}
