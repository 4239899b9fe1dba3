#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"
#include "frame/checks.h"
#include "frame/trace.h"
#include "intersection/selection.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Trace;
namespace intersection = zor::intersection;

namespace {

/// The checks of an oval or a rectangle, whose loose numbers are arguments 3 to 5 here.
long CheckTurnedShape(double first, double second, double angle) {
  if (!IsPositive(first)) return InvalidArgument(3);
  if (!IsPositive(second)) return InvalidArgument(4);
  if (!IsDegreeAngle(angle)) return InvalidArgument(5);
  return GM_OK;
}

ZorPointArray Corners(ZorPoint& centre, double width, double height, double angle) {
  ZorPointArray corners;
  static_cast<void>(
      ZorGeometryMeasure().RectAngularToPolygon(centre, width, height, angle, &corners));
  return corners;
}

ZorPointArray Vertices(const ZorContour& region) {
  ZorPointArray vertices;
  region.ToPointArray(&vertices);
  return vertices;
}

void Replace(ZorContour* selected, std::vector<ZorPoint> kept) {
  if (selected != nullptr) *selected = ZorContour(std::move(kept));
}

}  // namespace

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

long ZorGeometryMeasureDlg::PointArraySelectedByOval(ZorPointArray& points, ZorPoint& centre,
                                                     double a, double b, double angle,
                                                     ZorPointArray* selected) {
  Trace trace("PointArraySelectedByOval");
  if (points.Length() < 1) return GM_E_TOO_FEW_POINTS;
  if (const long status = CheckTurnedShape(a, b, angle); status != GM_OK) return status;
  if (selected == nullptr) return trace.Done();
  selected->Assign(intersection::KeptByOval(points.View(), centre, a, b, angle));
  return trace.Done();
}

long ZorGeometryMeasureDlg::PointArraySelectedByRectangular(ZorPointArray& points, ZorPoint& centre,
                                                            double width, double height,
                                                            double angle, ZorPointArray* selected) {
  Trace trace("PointArraySelectedByRectangular");
  if (points.Length() < 1) return GM_E_TOO_FEW_POINTS;
  if (const long status = CheckTurnedShape(width, height, angle); status != GM_OK) return status;
  if (selected == nullptr) return trace.Done();
  ZorPointArray corners = Corners(centre, width, height, angle);
  selected->Assign(intersection::KeptByPolygon(points.View(), corners));
  return trace.Done();
}

long ZorGeometryMeasureDlg::PointArraySelectedByContours(ZorPointArray& points, ZorContour& region,
                                                         ZorPointArray* selected) {
  Trace trace("PointArraySelectedByContours");
  if (points.Length() < 1) return GM_E_TOO_FEW_POINTS;
  if (region.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (region.Length() < 4) return InvalidArgument(2);
  if (selected == nullptr) return trace.Done();
  ZorPointArray vertices = Vertices(region);
  selected->Assign(intersection::KeptByPolygon(points.View(), vertices));
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSelectedByCircle(ZorContour& contour, ZorPoint& centre,
                                                    double radius, ZorContour* selected) {
  Trace trace("ContourSelectedByCircle");
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (!IsPositive(radius)) return InvalidArgument(3);
  Replace(selected, intersection::KeptByCircle(contour.View(), centre, radius));
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSelectedByOval(ZorContour& contour, ZorPoint& centre, double a,
                                                  double b, double angle, ZorContour* selected) {
  Trace trace("ContourSelectedByOval");
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (const long status = CheckTurnedShape(a, b, angle); status != GM_OK) return status;
  Replace(selected, intersection::KeptByOval(contour.View(), centre, a, b, angle));
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSelectedByRectangular(ZorContour& contour, ZorPoint& centre,
                                                         double width, double height, double angle,
                                                         ZorContour* selected) {
  Trace trace("ContourSelectedByRectangular");
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (const long status = CheckTurnedShape(width, height, angle); status != GM_OK) return status;
  ZorPointArray corners = Corners(centre, width, height, angle);
  Replace(selected, intersection::KeptByPolygon(contour.View(), corners));
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSelectedByPolygon(ZorContour& contour, ZorPointArray& polygon,
                                                     ZorContour* selected) {
  Trace trace("ContourSelectedByPolygon");
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  Replace(selected, intersection::KeptByPolygon(contour.View(), polygon));
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourSelectedByContour(ZorContour& contour, ZorContour& region,
                                                     ZorContour* selected) {
  Trace trace("ContourSelectedByContour");
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (region.Length() < 4) return GM_E_EMPTY_CONTOUR;  // unlike PointArraySelectedByContours
  ZorPointArray vertices = Vertices(region);
  Replace(selected, intersection::KeptByPolygon(contour.View(), vertices));
  return trace.Done();
}

long ZorGeometryMeasureDlg::RectAngularPolygonIntersection(ZorPoint& centre, double width,
                                                           double height, double angle,
                                                           ZorPointArray& polygon,
                                                           ZorPointArray* points, double* area) {
  Trace trace("RectAngularPolygonIntersection");
  ZorGeometryMeasure measure;
  ZorPointArray rectangle;
  const long status = measure.RectAngularToPolygon(centre, width, height, angle, &rectangle);
  if (status != GM_OK) return status;
  if (polygon.Length() <= 2) return GM_E_TOO_FEW_POINTS;
  // Deliberate: the end record comes before the measurement, whose status is what counts.
  static_cast<void>(trace.Done());
  return measure.PolygonsIntersection2(rectangle, polygon, points, area);
}

}  // namespace ZORMV
