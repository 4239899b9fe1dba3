#include <utility>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"

// The methods of the facade that only forward: no check and no trace of their own.

namespace ZORMV {

// ==== Points and lines ==========================================================================

long ZorGeometryMeasureDlg::PointToPointDistance(ZorPoint& a, ZorPoint& b, double* distance) {
  return ZorGeometryMeasure().PointToPointDistance(a, b, distance);
}

long ZorGeometryMeasureDlg::MidPoint(ZorPoint& a, ZorPoint& b, ZorPoint* mid) {
  return ZorGeometryMeasure().MidPoint(a, b, mid);
}

long ZorGeometryMeasureDlg::LinesIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3,
                                              ZorPoint& p4, ZorPoint* out) {
  return ZorGeometryMeasure().LinesIntersection(p1, p2, p3, p4, out);
}

long ZorGeometryMeasureDlg::PerpendicularProjection(ZorPoint& p, ZorPoint& a, ZorPoint& b,
                                                    ZorPoint* foot) {
  return ZorGeometryMeasure().PerpendicularProjection(p, a, b, foot);
}

long ZorGeometryMeasureDlg::ParallerLine(ZorPoint& p, ZorPoint& a, ZorPoint& b, ZorPoint* out) {
  return ZorGeometryMeasure().ParallerLine(p, a, b, out);
}

// ==== Bisectors =================================================================================

long ZorGeometryMeasureDlg::BissectingLine(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4,
                                           ZorPoint* out1, ZorPoint* out2) {
  return ZorGeometryMeasure().BissectingLine2(p1, p2, p3, p4, out1, out2);
}

long ZorGeometryMeasureDlg::BissectingVector(ZorPoint& u, ZorPoint& v, ZorPoint* bisector) {
  return ZorGeometryMeasure().BissectingVector(u, v, bisector);
}

long ZorGeometryMeasureDlg::MidLine(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint* out1,
                                    ZorPoint* out2) {
  return ZorGeometryMeasure().MidLine(p1, p2, p3, out1, out2);
}

// ==== Angles ====================================================================================

long ZorGeometryMeasureDlg::VectorAngle(ZorPoint& p1, ZorPoint& p2, double* angle) {
  return ZorGeometryMeasure().AngleFromHorizontal(p1, p2, angle);
}

long ZorGeometryMeasureDlg::AngleFrom3Points(ZorPoint& p1, ZorPoint& vertex, ZorPoint& p3,
                                             double* angle) {
  return ZorGeometryMeasure().AngleFrom3Point(p1, vertex, p3, angle);
}

long ZorGeometryMeasureDlg::AngleFrom4Points(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4,
                                             double* angle) {
  return ZorGeometryMeasure().AngleFrom4Point(p1, p2, p3, p4, angle);
}

long ZorGeometryMeasureDlg::IncludedAngle(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4,
                                          int mode, double* angle) {
  return ZorGeometryMeasure().IncludedAngle(p1, p2, p3, p4, mode, angle);
}

// ==== Arcs ======================================================================================

long ZorGeometryMeasureDlg::OvalArcSample(ZorPoint& centre, float a, float b, float phi,
                                          float start, float extent, int count,
                                          ZorPointArray* out) {
  return ZorGeometryMeasure().SampleArc(centre, a, b, phi, start, extent, count, out);
}

// ==== Line fits =================================================================================

long ZorGeometryMeasureDlg::LeastSqaureLineFit(ZorPointArray& points, int iterations,
                                               double clipDistance, ZorPoint* start,
                                               ZorPoint* end) {
  return ZorGeometryMeasure().LeastSqaureLineFit(points, iterations, clipDistance, start, end);
}

long ZorGeometryMeasureDlg::LeastAbsoluteLineFit(ZorPointArray& points, int iterations,
                                                 double clipDistance, ZorPoint* start,
                                                 ZorPoint* end) {
  return ZorGeometryMeasure().LeastAbsoluteLineFit(points, iterations, clipDistance, start, end);
}

// ==== Circle and ellipse fits ===================================================================

long ZorGeometryMeasureDlg::LeastSqaureCircleFit(ZorPointArray& points, int iterations,
                                                 double clipDistance, ZorPoint* center,
                                                 double* radius) {
  return ZorGeometryMeasure().LeastSqaureCircleFit(points, iterations, clipDistance, center,
                                                   radius);
}

long ZorGeometryMeasureDlg::LeastAbsoluteCircleFit(ZorPointArray& points, int iterations,
                                                   double clipDistance, ZorPoint* center,
                                                   double* radius) {
  return ZorGeometryMeasure().LeastAbsoluteCircleFit(points, iterations, clipDistance, center,
                                                     radius);
}

long ZorGeometryMeasureDlg::PointAnglePairsCircleFit(ZorPointArray& points, ZorVarArray& angles,
                                                     ZorPoint* center, double* radius) {
  return ZorGeometryMeasure().PointAnglePairsCircleFit(points, angles, center, radius);
}

long ZorGeometryMeasureDlg::VerticalBisectorCircleFit(ZorPointArray& points, ZorPoint* center,
                                                      double* radius) {
  return ZorGeometryMeasure().VerticalBisectorCircleFit(points, center, radius);
}

long ZorGeometryMeasureDlg::LeastSqaureEllipseFit(ZorPointArray& points, int iterations,
                                                  double clipDistance, ZorPoint* center,
                                                  float* semiAxisA, float* semiAxisB,
                                                  float* angle) {
  return ZorGeometryMeasure().LeastSqaureEllipseFit(points, iterations, clipDistance, center,
                                                    semiAxisA, semiAxisB, angle);
}

long ZorGeometryMeasureDlg::LeastAbsoluteEllipseFit(ZorPointArray& points, int iterations,
                                                    double clipDistance, ZorPoint* center,
                                                    float* semiAxisA, float* semiAxisB,
                                                    float* angle) {
  return ZorGeometryMeasure().LeastAbsoluteEllipseFit(points, iterations, clipDistance, center,
                                                      semiAxisA, semiAxisB, angle);
}

// ==== Curve fits and splines ====================================================================

long ZorGeometryMeasureDlg::LeastSqaurePolynomialFit(ZorPointArray& points, int order,
                                                     int iterations, double clipDistance,
                                                     ZorVarArray* coefficients,
                                                     ZorPointArray* curve) {
  return ZorGeometryMeasure().LeastSqaurePolynomialFit(points, order, iterations, clipDistance,
                                                       coefficients, curve);
}

long ZorGeometryMeasureDlg::LeastAbsolutePolynomialFit(ZorPointArray& points, int order,
                                                       int iterations, double clipDistance,
                                                       ZorVarArray* coefficients,
                                                       ZorPointArray* curve) {
  return ZorGeometryMeasure().LeastAbsolutePolynomialFit(points, order, iterations, clipDistance,
                                                         coefficients, curve);
}

long ZorGeometryMeasureDlg::SolveLinerEquationsGaussianFit(ZorPointArray& points, int intSetting,
                                                           double realSetting,
                                                           ZorVarArray* coefficients,
                                                           ZorPointArray* curve) {
  return ZorGeometryMeasure().GenGaussianCurve(points, intSetting, realSetting, coefficients,
                                               curve);
}

long ZorGeometryMeasureDlg::SolveLinerEquationsSinFit(ZorPointArray& points, int intSetting,
                                                      double realSetting, ZorVarArray* coefficients,
                                                      ZorPointArray* curve) {
  return ZorGeometryMeasure().GenSinCurve(points, intSetting, realSetting, coefficients, curve);
}

long ZorGeometryMeasureDlg::Point2DNormal(ZorPointArray& points, int neighbours,
                                          ZorPointArray* normals) {
  return ZorGeometryMeasure().Point2DNormal(points, neighbours, normals);
}

long ZorGeometryMeasureDlg::DiscretePoint2DNormal(ZorPointArray& points, ZorPointArray* normals) {
  return ZorGeometryMeasure().DiscretePoint2DNormal(points, normals);
}

long ZorGeometryMeasureDlg::FitGaussianCurve(ZorPointArray& points, int maxIterations,
                                             ZorVarArray* parameters) {
  return ZorGeometryMeasure().FitGaussianCurve(points, maxIterations, parameters);
}

long ZorGeometryMeasureDlg::SplineCurveInterpolate(ZorPointArray& points, int splineType,
                                                   int insertCount, ZorPointArray* curve) {
  return ZorGeometryMeasure().GenSplineCurve(points, splineType, insertCount, curve);
}

// ==== Distances of points, lines and segments ===================================================

long ZorGeometryMeasureDlg::PointToLineDistance(ZorPoint& point, ZorPoint& lineStart,
                                                ZorPoint& lineEnd, double* distance) {
  return ZorGeometryMeasure().PointTolineDistance(point, lineStart, lineEnd, distance);
}

long ZorGeometryMeasureDlg::LineToLineDistance(ZorPoint& a1, ZorPoint& a2, ZorPoint& b1,
                                               ZorPoint& b2, int mode, double* distance,
                                               ZorPoint* pointOnA, ZorPoint* pointOnB) {
  return ZorGeometryMeasure().LineToLineDistance(a1, a2, b1, b2, mode, distance, pointOnA,
                                                 pointOnB);
}

long ZorGeometryMeasureDlg::PointToSegmentDistance(ZorPoint& point, ZorPoint& segStart,
                                                   ZorPoint& segEnd, int mode, double* distance,
                                                   ZorPoint* resultPoint) {
  return ZorGeometryMeasure().PointToSegmentDistance(point, segStart, segEnd, mode, distance,
                                                     resultPoint);
}

long ZorGeometryMeasureDlg::PointsToLineDistance(ZorPointArray& points, ZorPoint& lineStart,
                                                 ZorPoint& lineEnd, ZorPoint* minPoint,
                                                 double* minDistance, ZorPoint* maxPoint,
                                                 double* maxDistance) {
  return ZorGeometryMeasure().PointsToLineDistance(points, lineStart, lineEnd, minPoint,
                                                   minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::PointsToSegmentDistance(ZorPointArray& points, ZorPoint& segStart,
                                                    ZorPoint& segEnd, ZorPoint* minPoint,
                                                    double* minDistance, ZorPoint* maxPoint,
                                                    double* maxDistance) {
  return ZorGeometryMeasure().PointsToSegmentDistance(points, segStart, segEnd, minPoint,
                                                      minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::PolygonToLineDistance(ZorPointArray& polygon, ZorPoint& lineStart,
                                                  ZorPoint& lineEnd, ZorPoint* minPoint,
                                                  double* minDistance, ZorPoint* maxPoint,
                                                  double* maxDistance) {
  return ZorGeometryMeasure().PolygonToLineDistance(polygon, lineStart, lineEnd, minPoint,
                                                    minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::PolygonToSegmentDistance(ZorPointArray& polygon, ZorPoint& segStart,
                                                     ZorPoint& segEnd, ZorPoint* minPoint,
                                                     double* minDistance, ZorPoint* maxPoint,
                                                     double* maxDistance) {
  return ZorGeometryMeasure().PolygonToSegmentDistance(polygon, segStart, segEnd, minPoint,
                                                       minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::SegmentToLineDistance(ZorPoint& segStart, ZorPoint& segEnd,
                                                  ZorPoint& lineStart, ZorPoint& lineEnd, int mode,
                                                  ZorPoint* resultPoint, double* distance) {
  return ZorGeometryMeasure().SegmentToLineDistance(segStart, segEnd, lineStart, lineEnd, mode,
                                                    resultPoint, distance);
}

long ZorGeometryMeasureDlg::PointToPolygonDistance(ZorPoint& point, ZorPointArray& polygon,
                                                   double* distance) {
  return ZorGeometryMeasure().PointToPolygonDistance(point, polygon, distance, nullptr);
}

// ==== Distances of contours and point sets ======================================================

long ZorGeometryMeasureDlg::PointToContourDistance(ZorContour& contour, ZorPoint& point,
                                                   ZorPoint* minPoint, double* minDistance,
                                                   ZorPoint* maxPoint, double* maxDistance) {
  return ZorGeometryMeasure().PointToContourDistance(contour, point, 0, minPoint, minDistance,
                                                     maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::ContourToLineDistance(ZorContour& contour, ZorPoint& lineStart,
                                                  ZorPoint& lineEnd, ZorVarArray* distances,
                                                  ZorPoint* minPoint, double* minDistance,
                                                  ZorPoint* maxPoint, double* maxDistance) {
  return ZorGeometryMeasure().LineToContourDistance(contour, lineStart, lineEnd, distances,
                                                    minPoint, minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::ContourToLineSegmentDistance(ZorContour& contour, ZorPoint& segStart,
                                                         ZorPoint& segEnd, ZorVarArray* distances,
                                                         ZorPoint* minPoint, double* minDistance,
                                                         ZorPoint* maxPoint, double* maxDistance) {
  return ZorGeometryMeasure().ContourToLineSegmentDistance1(
      contour, segStart, segEnd, distances, minPoint, minDistance, maxPoint, maxDistance);
}

long ZorGeometryMeasureDlg::PointArrayToPointArrayDistance(
    ZorPointArray& a, ZorPointArray& b, double lower, double upper, int mode,
    ZorVarArray* distances, ZorPointArray* pointsA, ZorVarArray* indicesA, ZorPointArray* pointsB,
    ZorVarArray* indicesB) {
  return ZorGeometryMeasure().PointArrayToPointArrayDistance(a, b, lower, upper, mode, distances,
                                                             pointsA, indicesA, pointsB, indicesB);
}

// ==== Distances of circles, ellipses and rectangles =============================================

long ZorGeometryMeasureDlg::PointToCircleDistance(ZorPoint& point, ZorPoint& centre, double radius,
                                                  double* distance, ZorPoint* nearestPoint) {
  return ZorGeometryMeasure().PointToCircleDistance(point, centre, radius, distance, nearestPoint);
}

long ZorGeometryMeasureDlg::PointToOvalDistance(ZorPoint& point, ZorPoint& centre, double a,
                                                double b, double angleDeg, double* distance,
                                                ZorPoint* nearestPoint) {
  return ZorGeometryMeasure().PointToOvalDistance(point, centre, a, b, angleDeg, distance,
                                                  nearestPoint);
}

long ZorGeometryMeasureDlg::PointArrayToCircleDistance(ZorPointArray& points, ZorPoint& centre,
                                                       double radius, ZorPoint* minArrayPoint,
                                                       ZorPoint* minCirclePoint,
                                                       double* minDistance, ZorPoint* maxArrayPoint,
                                                       ZorPoint* maxCirclePoint,
                                                       double* maxDistance) {
  return ZorGeometryMeasure().PointArrayToCircleDistance(points, centre, radius, minArrayPoint,
                                                         minCirclePoint, minDistance, maxArrayPoint,
                                                         maxCirclePoint, maxDistance);
}

long ZorGeometryMeasureDlg::PointArrayToOvalDistance(ZorPointArray& points, ZorPoint& centre,
                                                     double a, double b, double angleDeg,
                                                     ZorPoint* minArrayPoint,
                                                     ZorPoint* minOvalPoint, double* minDistance,
                                                     ZorPoint* maxArrayPoint,
                                                     ZorPoint* maxOvalPoint, double* maxDistance) {
  return ZorGeometryMeasure().PointArrayToOvalDistance(points, centre, a, b, angleDeg,
                                                       minArrayPoint, minOvalPoint, minDistance,
                                                       maxArrayPoint, maxOvalPoint, maxDistance);
}

long ZorGeometryMeasureDlg::PointArrayToRectAngularDistance(
    ZorPointArray& points, ZorPoint& centre, double width, double height, double angle,
    ZorPoint* minArrayPoint, ZorPoint* minRectanglePoint, double* minDistance,
    ZorPoint* maxArrayPoint, ZorPoint* maxRectanglePoint, double* maxDistance) {
  return ZorGeometryMeasure().PointArrayToRectAngularDistance(
      points, centre, width, height, angle, minArrayPoint, minRectanglePoint, minDistance,
      maxArrayPoint, maxRectanglePoint, maxDistance);
}

long ZorGeometryMeasureDlg::LineSegmentToCircleDistance(
    ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double radius, double* minDistance,
    ZorPoint* minSegmentPoint, ZorPoint* minCirclePoint, double* maxDistance,
    ZorPoint* maxSegmentPoint, ZorPoint* maxCirclePoint) {
  return ZorGeometryMeasure().LineSegmentToCircleDistance(
      segStart, segEnd, centre, radius, minDistance, minSegmentPoint, minCirclePoint, maxDistance,
      maxSegmentPoint, maxCirclePoint);
}

long ZorGeometryMeasureDlg::LineSegmentToOvalDistance(
    ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a, double b, double angleDeg,
    double* minDistance, ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint, double* maxDistance,
    ZorPoint* maxSegmentPoint, ZorPoint* maxOvalPoint) {
  return ZorGeometryMeasure().LineSegmentToOvalDistance2(
      segStart, segEnd, centre, a, b, angleDeg, minDistance, minSegmentPoint, minOvalPoint,
      maxDistance, maxSegmentPoint, maxOvalPoint);
}

long ZorGeometryMeasureDlg::ContourToCircleDistance(ZorContour& contour, ZorPoint& centre,
                                                    double radius, ZorPoint* minContourPoint,
                                                    ZorPoint* minCirclePoint, double* minDistance,
                                                    ZorPoint* maxContourPoint,
                                                    ZorPoint* maxCirclePoint, double* maxDistance) {
  return ZorGeometryMeasure().CircleToContourDistance(contour, centre, radius, nullptr,
                                                      minContourPoint, minCirclePoint, minDistance,
                                                      maxContourPoint, maxCirclePoint, maxDistance);
}

long ZorGeometryMeasureDlg::ContourToOvalDistance(ZorContour& contour, ZorPoint& centre, double a,
                                                  double b, double angleDeg,
                                                  ZorPoint* minContourPoint, ZorPoint* minOvalPoint,
                                                  double* minDistance, ZorPoint* maxContourPoint,
                                                  ZorPoint* maxOvalPoint, double* maxDistance) {
  return ZorGeometryMeasure().OvalToContourDistance(contour, centre, a, b, angleDeg, nullptr,
                                                    minContourPoint, minOvalPoint, minDistance,
                                                    maxContourPoint, maxOvalPoint, maxDistance);
}

// ==== Intersections of lines and segments =======================================================

long ZorGeometryMeasureDlg::LineCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                   double radius, ZorPointArray* points) {
  return ZorGeometryMeasure().LineCircleIntersection(p1, p2, centre, radius, points);
}

long ZorGeometryMeasureDlg::LineOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                 double a, double b, double angle,
                                                 ZorPointArray* points) {
  return ZorGeometryMeasure().LineOvalIntersection(p1, p2, centre, a, b, angle, points);
}

long ZorGeometryMeasureDlg::LineRectangularIntersection(ZorPoint& p1, ZorPoint& p2,
                                                        ZorPoint& centre, double width,
                                                        double height, double angle,
                                                        ZorPointArray* points) {
  return ZorGeometryMeasure().LineRectangularIntersection(p1, p2, centre, width, height, angle,
                                                          points);
}

long ZorGeometryMeasureDlg::LineSegmentCircleIntersection(ZorPoint& p1, ZorPoint& p2,
                                                          ZorPoint& centre, double radius,
                                                          ZorPointArray* points) {
  return ZorGeometryMeasure().LineSegmentCircleIntersection(p1, p2, centre, radius, points);
}

long ZorGeometryMeasureDlg::LineSegmentOvalIntersection(ZorPoint& p1, ZorPoint& p2,
                                                        ZorPoint& centre, double a, double b,
                                                        double angle, ZorPointArray* points) {
  return ZorGeometryMeasure().LineSegmentOvalIntersection(p1, p2, centre, a, b, angle, points);
}

long ZorGeometryMeasureDlg::LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                                                    ZorPointArray* points) {
  return ZorGeometryMeasure().LineContourIntersection(p1, p2, contour, points);
}

long ZorGeometryMeasureDlg::TangentFromPointToCircle(ZorPoint& point, ZorPoint& centre,
                                                     double radius, ZorPointArray* points) {
  return ZorGeometryMeasure().TangentFromPointToCircle(point, centre, radius, points);
}

// ==== Intersections of shapes ===================================================================

long ZorGeometryMeasureDlg::CircleToCircleIntersection(ZorPoint& c1, double r1, ZorPoint& c2,
                                                       double r2, ZorPointArray* points,
                                                       double* area) {
  return ZorGeometryMeasure().CircleToCircleIntersection(c1, r1, c2, r2, points, area);
}

long ZorGeometryMeasureDlg::OvalsIntersection(ZorPoint& c1, double a1, double b1, double angle1,
                                              ZorPoint& c2, double a2, double b2, double angle2,
                                              ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().OvalsIntersection(c1, a1, b1, angle1, c2, a2, b2, angle2, points,
                                                area);
}

long ZorGeometryMeasureDlg::CircleOvalIntersection(ZorPoint& c, double r, ZorPoint& centre,
                                                   double a, double b, double angle,
                                                   ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().CircleOvalIntersection(c, r, centre, a, b, angle, points, area);
}

long ZorGeometryMeasureDlg::CircleRectangularIntersection(ZorPoint& c, double r, ZorPoint& centre,
                                                          double width, double height, double angle,
                                                          ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().CircleRectangularIntersection(c, r, centre, width, height, angle,
                                                            points, area);
}

long ZorGeometryMeasureDlg::OvalRectangularIntersection(ZorPoint& ovalCentre, double a, double b,
                                                        double ovalAngle, ZorPoint& centre,
                                                        double width, double height, double angle,
                                                        ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().OvalRectangularIntersection(ovalCentre, a, b, ovalAngle, centre,
                                                          width, height, angle, points, area);
}

long ZorGeometryMeasureDlg::PolygonCircleIntersection(ZorPointArray& polygon, ZorPoint& c, double r,
                                                      ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().PolygonCircleIntersection(polygon, c, r, points, area);
}

long ZorGeometryMeasureDlg::PolygonOvalIntersection(ZorPointArray& polygon, ZorPoint& centre,
                                                    double a, double b, double angle,
                                                    ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().PolygonOvalIntersection(polygon, centre, a, b, angle, points, area);
}

long ZorGeometryMeasureDlg::PolygonsIntersection(ZorPointArray& p, ZorPointArray& q,
                                                 ZorPointArray* points, double* area) {
  return ZorGeometryMeasure().PolygonsIntersection2(p, q, points, area);
}

// ==== Position relations ========================================================================

long ZorGeometryMeasureDlg::PointToCirclePosRelation(ZorPoint& point, ZorPoint& centre,
                                                     double radius, int* code) {
  return ZorGeometryMeasure().PointToCirclePosRelation(point, centre, radius, code);
}

long ZorGeometryMeasureDlg::PointToOvalPosRelation(ZorPoint& point, ZorPoint& centre, double a,
                                                   double b, double angle, int* code) {
  return ZorGeometryMeasure().PointToOvalPosRelation(point, centre, a, b, angle, code);
}

long ZorGeometryMeasureDlg::PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon,
                                                      int* code) {
  return ZorGeometryMeasure().PointToPolygonPosRelation(point, polygon, code);
}

// ==== Selection by region =======================================================================

long ZorGeometryMeasureDlg::PointArraySelectedByPolygon(ZorPointArray& points,
                                                        ZorPointArray& polygon,
                                                        ZorPointArray* selected) {
  return ZorGeometryMeasure().PointArraySelectedByPolygon(points, polygon, selected);
}

long ZorGeometryMeasureDlg::PointArraySelectedByCircle(ZorPointArray& points, ZorPoint& centre,
                                                       double radius, ZorPointArray* selected) {
  return ZorGeometryMeasure().PointArraySelectedByCircle(points, centre, radius, selected);
}

// ==== Area, centroid, moments ===================================================================

long ZorGeometryMeasureDlg::PointArrayCenter(ZorPointArray& points, ZorPoint* centre) {
  return ZorGeometryMeasure().PointArrayCenter(points, centre);
}

long ZorGeometryMeasureDlg::PolygonCenter(ZorPointArray& points, ZorPoint* centre) {
  return ZorGeometryMeasure().PolygonCenter(points, centre);
}

// ==== Form measures =============================================================================

long ZorGeometryMeasureDlg::MinAreaRectangularity(ZorPointArray& points, ZorPoint* centre,
                                                  double* length, double* width, double* angle) {
  return ZorGeometryMeasure().MinAreaRectangularity(points, centre, length, width, angle);
}

// ==== Enclosing figures =========================================================================

long ZorGeometryMeasureDlg::CircleExternalRectangle(ZorPoint& centre, double radius,
                                                    ZorPoint* rectCentre, double* length,
                                                    double* width, double* angle) {
  return ZorGeometryMeasure().CircleExternalRectangle(centre, radius, rectCentre, length, width,
                                                      angle);
}

long ZorGeometryMeasureDlg::EllipseExternalRectangle(ZorPoint& centre, double a, double b,
                                                     double angle, ZorPoint* rectCentre,
                                                     double* length, double* width,
                                                     double* rectAngle) {
  return ZorGeometryMeasure().EllipseExternalRectangle(centre, a, b, angle, rectCentre, length,
                                                       width, rectAngle);
}

long ZorGeometryMeasureDlg::PolygonExternalRectangle(ZorPointArray& points, ZorPoint* boxCentre,
                                                     double* width, double* height) {
  return ZorGeometryMeasure().PolygonExternalRectangle(points, boxCentre, width, height);
}

long ZorGeometryMeasureDlg::ExternalCircle(ZorPointArray& points, ZorPoint* centre,
                                           double* radius) {
  return ZorGeometryMeasure().ExternalCircle(points, centre, radius);
}

long ZorGeometryMeasureDlg::IncisionCircle(ZorPointArray& points, ZorPoint* centre,
                                           double* radius) {
  return ZorGeometryMeasure().IncisionCircle(points, centre, radius);
}

// ==== Contours and defects ======================================================================

// ==== Images ====================================================================================

long ZorGeometryMeasureDlg::localminima(ZorImage image, int threshold, int radius,
                                        ZorPointArray* output) {
  return ZorGeometryMeasure().localminima(std::move(image), threshold, radius, output);
}

long ZorGeometryMeasureDlg::localmaxima(ZorImage image, int threshold, int radius,
                                        ZorPointArray* output) {
  return ZorGeometryMeasure().localmaxima(std::move(image), threshold, radius, output);
}

long ZorGeometryMeasureDlg::PSFlocalminimum(ZorImage image, int threshold, int radius, int width,
                                            ZorPointArray* output) {
  return ZorGeometryMeasure().PSFlocalminimum(std::move(image), threshold, radius, width, output);
}

long ZorGeometryMeasureDlg::PSFlocalmaximum(ZorImage image, int threshold, int radius, int width,
                                            ZorPointArray* output) {
  return ZorGeometryMeasure().PSFlocalmaximum(std::move(image), threshold, radius, width, output);
}

}  // namespace ZORMV
