#pragma once

#include "ZorStatus.h"
#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

namespace ZORMV {

/// The public facade: one method a measurement. A method without a comment forwards to the method
/// of ZorGeometryMeasure of the same name, where its meaning and codes are described, and returns
/// its status unchanged; it neither checks nor traces itself. Outputs may be null unless the
/// measuring method says otherwise. The class has no state: one object may serve many threads.
class ZORGEOMETRYMEASURE_EXPORT ZorGeometryMeasureDlg {
 public:
  ZorGeometryMeasureDlg() noexcept = default;
  ZorGeometryMeasureDlg(const ZorGeometryMeasureDlg&) noexcept = default;
  ZorGeometryMeasureDlg& operator=(const ZorGeometryMeasureDlg&) noexcept = default;
  ~ZorGeometryMeasureDlg() = default;

  // ==== Points and lines ========================================================================

  long PointToPointDistance(ZorPoint& a, ZorPoint& b, double* distance);
  long MidPoint(ZorPoint& a, ZorPoint& b, ZorPoint* mid);
  long LinesIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4, ZorPoint* out);
  long PerpendicularProjection(ZorPoint& p, ZorPoint& a, ZorPoint& b, ZorPoint* foot);
  long ParallerLine(ZorPoint& p, ZorPoint& a, ZorPoint& b, ZorPoint* out);

  /// Second point of the perpendicular to ab through p: p plus ab turned by a quarter turn. Traced
  /// as "Perpendicular".
  /// @retval GM_E_DEGENERATE_LINE  a and b are exactly equal
  long Perpendicular(ZorPoint& a, ZorPoint& b, ZorPoint& p, ZorPoint* out);

  /// p turned about centre by `angle` degrees from +x towards +y (clockwise on the screen), with
  /// full pi; ZorGeometryMeasure::TransformPoint turns the other way. Always GM_OK. Traced as
  /// "RotateProjection".
  long RotateProjection(ZorPoint& p, ZorPoint& centre, double& angle, ZorPoint* out);

  // ==== Bisectors ===============================================================================

  /// The point where the bisector of the angle p1 - vertex - p3, as seen, meets segment p1p3. Of a
  /// nearly straight angle, whose bisector meets p1p3 within 1e-5 of the vertex, the point on the
  /// bisector at the mean length of the arms from the vertex. Traced as "BissectingLine", around a
  /// nested "BissectingLine2", whose codes it passes on.
  long BissectingLine(ZorPoint& p1, ZorPoint& vertex, ZorPoint& p3, ZorPoint* out);
  /// Forwards to BissectingLine2.
  long BissectingLine(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4, ZorPoint* out1,
                      ZorPoint* out2);
  long BissectingVector(ZorPoint& u, ZorPoint& v, ZorPoint* bisector);
  long MidLine(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint* out1, ZorPoint* out2);

  // ==== Angles ==================================================================================

  /// Forwards to AngleFromHorizontal.
  long VectorAngle(ZorPoint& p1, ZorPoint& p2, double* angle);
  /// Forwards to AngleFrom3Point.
  long AngleFrom3Points(ZorPoint& p1, ZorPoint& vertex, ZorPoint& p3, double* angle);
  /// Forwards to AngleFrom4Point.
  long AngleFrom4Points(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4, double* angle);
  long IncludedAngle(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4, int mode,
                     double* angle);

  // ==== Arcs ====================================================================================

  /// Forwards to SampleArc.
  long OvalArcSample(ZorPoint& centre, float a, float b, float phi, float start, float extent,
                     int count, ZorPointArray* out);

  /// Replaces `out` by `count` samples of a circular arc, as SampleArc with both semi-axes equal to
  /// the radius. Traced as "CircleArcSample", around a nested "SampleArc".
  /// @retval GM_E_PARAM_2  radius <= 0
  /// @retval GM_E_PARAM_3  start outside [0, 360]
  /// @retval GM_E_PARAM_4  extent <= 0 or > 360
  /// @retval GM_E_PARAM_5  count < 3
  long CircleArcSample(ZorPoint& centre, float radius, float start, float extent, int count,
                       ZorPointArray* out);

  // ==== Line fits ===============================================================================

  long LeastSqaureLineFit(ZorPointArray& points, int iterations, double clipDistance,
                          ZorPoint* start, ZorPoint* end);
  long LeastAbsoluteLineFit(ZorPointArray& points, int iterations, double clipDistance,
                            ZorPoint* start, ZorPoint* end);

  // ==== Circle and ellipse fits =================================================================

  long LeastSqaureCircleFit(ZorPointArray& points, int iterations, double clipDistance,
                            ZorPoint* center, double* radius);
  long LeastAbsoluteCircleFit(ZorPointArray& points, int iterations, double clipDistance,
                              ZorPoint* center, double* radius);
  long PointAnglePairsCircleFit(ZorPointArray& points, ZorVarArray& angles, ZorPoint* center,
                                double* radius);
  long VerticalBisectorCircleFit(ZorPointArray& points, ZorPoint* center, double* radius);
  long LeastSqaureEllipseFit(ZorPointArray& points, int iterations, double clipDistance,
                             ZorPoint* center, float* semiAxisA, float* semiAxisB, float* angle);
  long LeastAbsoluteEllipseFit(ZorPointArray& points, int iterations, double clipDistance,
                               ZorPoint* center, float* semiAxisA, float* semiAxisB, float* angle);

  // ==== Curve fits and splines ==================================================================

  long LeastSqaurePolynomialFit(ZorPointArray& points, int order, int iterations,
                                double clipDistance, ZorVarArray* coefficients,
                                ZorPointArray* curve);
  long LeastAbsolutePolynomialFit(ZorPointArray& points, int order, int iterations,
                                  double clipDistance, ZorVarArray* coefficients,
                                  ZorPointArray* curve);
  /// Forwards to GenGaussianCurve.
  long SolveLinerEquationsGaussianFit(ZorPointArray& points, int intSetting, double realSetting,
                                      ZorVarArray* coefficients, ZorPointArray* curve);
  /// Forwards to GenSinCurve.
  long SolveLinerEquationsSinFit(ZorPointArray& points, int intSetting, double realSetting,
                                 ZorVarArray* coefficients, ZorPointArray* curve);
  long Point2DNormal(ZorPointArray& points, int neighbours, ZorPointArray* normals);
  long DiscretePoint2DNormal(ZorPointArray& points, ZorPointArray* normals);
  long FitGaussianCurve(ZorPointArray& points, int maxIterations, ZorVarArray* parameters);
  /// Forwards to GenSplineCurve.
  long SplineCurveInterpolate(ZorPointArray& points, int splineType, int insertCount,
                              ZorPointArray* curve);

  // ==== Distances of points, lines and segments =================================================

  /// Forwards to PointTolineDistance.
  long PointToLineDistance(ZorPoint& point, ZorPoint& lineStart, ZorPoint& lineEnd,
                           double* distance);
  /// Forwards to the form with the two points.
  long LineToLineDistance(ZorPoint& a1, ZorPoint& a2, ZorPoint& b1, ZorPoint& b2, int mode,
                          double* distance, ZorPoint* pointOnA, ZorPoint* pointOnB);
  long PointToSegmentDistance(ZorPoint& point, ZorPoint& segStart, ZorPoint& segEnd, int mode,
                              double* distance, ZorPoint* resultPoint);
  long PointsToLineDistance(ZorPointArray& points, ZorPoint& lineStart, ZorPoint& lineEnd,
                            ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                            double* maxDistance);
  long PointsToSegmentDistance(ZorPointArray& points, ZorPoint& segStart, ZorPoint& segEnd,
                               ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                               double* maxDistance);
  long PolygonToLineDistance(ZorPointArray& polygon, ZorPoint& lineStart, ZorPoint& lineEnd,
                             ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                             double* maxDistance);
  long PolygonToSegmentDistance(ZorPointArray& polygon, ZorPoint& segStart, ZorPoint& segEnd,
                                ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                                double* maxDistance);
  long SegmentToLineDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& lineStart,
                             ZorPoint& lineEnd, int mode, ZorPoint* resultPoint, double* distance);
  /// Forwards without the nearest point.
  long PointToPolygonDistance(ZorPoint& point, ZorPointArray& polygon, double* distance);

  /// The points of a list nearest to and farthest from a point, the first in order of equals.
  /// Traced as "PointArrayToPointDistance", around a nested "PointToContourDistance".
  /// @retval GM_E_TOO_FEW_POINTS  the list is empty
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long PointArrayToPointDistance(ZorPointArray& points, ZorPoint& point, ZorPoint* minPoint,
                                 double* minDistance, ZorPoint* maxPoint, double* maxDistance);

  // ==== Distances of contours and point sets ====================================================

  /// Forwards with mode 0: the distance from the points of the contour.
  long PointToContourDistance(ZorContour& contour, ZorPoint& point, ZorPoint* minPoint,
                              double* minDistance, ZorPoint* maxPoint, double* maxDistance);
  /// Forwards to LineToContourDistance.
  long ContourToLineDistance(ZorContour& contour, ZorPoint& lineStart, ZorPoint& lineEnd,
                             ZorVarArray* distances, ZorPoint* minPoint, double* minDistance,
                             ZorPoint* maxPoint, double* maxDistance);
  /// Forwards to ContourToLineSegmentDistance1.
  long ContourToLineSegmentDistance(ZorContour& contour, ZorPoint& segStart, ZorPoint& segEnd,
                                    ZorVarArray* distances, ZorPoint* minPoint, double* minDistance,
                                    ZorPoint* maxPoint, double* maxDistance);

  /// Distance of contours A and B. Modes 0 to 2 are those of ZorGeometryMeasure, of which this
  /// calls the form with nine arguments; the others:
  ///  - 4: what mode 0 reports for the two contours with their coordinates rounded to single
  ///    precision (the points reported are rounded, too), by all processors;
  ///  - 5: the width of the band between the two, which are closed here: the narrowest and the
  ///    widest place. The band is the region of the contour that encloses more pixels (A if as
  ///    many) less that of the other; its width is taken at every pixel of its skeleton, as the
  ///    distance between the points of A and of B nearest to that pixel, which are reported. Where
  ///    no pixel is left between the two it is taken at the points of A. For parallel edges and
  ///    concentric arcs a width is exact wherever it is taken; places are met to about a pixel.
  ///    Contours that overlap in part have the part of the larger one outside the other as their
  ///    band.
  /// Traced as "ContourToContourDistance", around a nested "ContourToContourDistance" in modes 0 to
  /// 2.
  /// @retval (ContourToContourDistance's codes)  modes other than 4 and 5
  /// @retval GM_E_EMPTY_CONTOUR  either contour is empty
  /// @retval GM_E_PARAM_1  mode 5, A has a coordinate that is not finite or beyond 2^20, or is too
  ///                       large for an image of 2^28 pixels
  /// @retval GM_E_PARAM_2  the same for B
  /// @retval GM_E_NO_INTERSECTION  mode 5, one contour encloses pixels and none of them is enclosed
  ///         by both
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long ContourToContourDistance(ZorContour& contourA, ZorContour& contourB, int mode,
                                ZorPoint* minPointA, ZorPoint* minPointB, double* minDistance,
                                ZorPoint* maxPointA, ZorPoint* maxPointB, double* maxDistance);

  long PointArrayToPointArrayDistance(ZorPointArray& a, ZorPointArray& b, double lower,
                                      double upper, int mode, ZorVarArray* distances,
                                      ZorPointArray* pointsA, ZorVarArray* indicesA,
                                      ZorPointArray* pointsB, ZorVarArray* indicesB);

  /// Distance of the points of a list from a contour as a polyline: the point that is nearest to it
  /// and the one whose nearest distance is the largest, each with its nearest point of the contour.
  /// Traced as "PointArrayToContourDistance", around a nested "ContourToContourDistance" (mode 1).
  /// @retval GM_E_TOO_FEW_POINTS  the list is empty
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_PARAM_2  the contour has a single point
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long PointArrayToContourDistance(ZorPointArray& points, ZorContour& contour,
                                   ZorPoint* minPointOfArray, ZorPoint* minPointOnContour,
                                   double* minDistance, ZorPoint* maxPointOfArray,
                                   ZorPoint* maxPointOnContour, double* maxDistance);

  // ==== Distances of circles, ellipses and rectangles ===========================================

  long PointToCircleDistance(ZorPoint& point, ZorPoint& centre, double radius, double* distance,
                             ZorPoint* nearestPoint);
  long PointToOvalDistance(ZorPoint& point, ZorPoint& centre, double a, double b, double angleDeg,
                           double* distance, ZorPoint* nearestPoint);
  long PointArrayToCircleDistance(ZorPointArray& points, ZorPoint& centre, double radius,
                                  ZorPoint* minArrayPoint, ZorPoint* minCirclePoint,
                                  double* minDistance, ZorPoint* maxArrayPoint,
                                  ZorPoint* maxCirclePoint, double* maxDistance);
  long PointArrayToOvalDistance(ZorPointArray& points, ZorPoint& centre, double a, double b,
                                double angleDeg, ZorPoint* minArrayPoint, ZorPoint* minOvalPoint,
                                double* minDistance, ZorPoint* maxArrayPoint,
                                ZorPoint* maxOvalPoint, double* maxDistance);
  long PointArrayToRectAngularDistance(ZorPointArray& points, ZorPoint& centre, double width,
                                       double height, double angle, ZorPoint* minArrayPoint,
                                       ZorPoint* minRectanglePoint, double* minDistance,
                                       ZorPoint* maxArrayPoint, ZorPoint* maxRectanglePoint,
                                       double* maxDistance);
  /// Forwards to the form with a maximum.
  long LineSegmentToCircleDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre,
                                   double radius, double* minDistance, ZorPoint* minSegmentPoint,
                                   ZorPoint* minCirclePoint, double* maxDistance,
                                   ZorPoint* maxSegmentPoint, ZorPoint* maxCirclePoint);
  /// Forwards to LineSegmentToOvalDistance2.
  long LineSegmentToOvalDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a,
                                 double b, double angleDeg, double* minDistance,
                                 ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint,
                                 double* maxDistance, ZorPoint* maxSegmentPoint,
                                 ZorPoint* maxOvalPoint);
  /// Forwards to CircleToContourDistance, without its list.
  long ContourToCircleDistance(ZorContour& contour, ZorPoint& centre, double radius,
                               ZorPoint* minContourPoint, ZorPoint* minCirclePoint,
                               double* minDistance, ZorPoint* maxContourPoint,
                               ZorPoint* maxCirclePoint, double* maxDistance);
  /// Forwards to OvalToContourDistance, without its list.
  long ContourToOvalDistance(ZorContour& contour, ZorPoint& centre, double a, double b,
                             double angleDeg, ZorPoint* minContourPoint, ZorPoint* minOvalPoint,
                             double* minDistance, ZorPoint* maxContourPoint, ZorPoint* maxOvalPoint,
                             double* maxDistance);

  /// Unsigned distances of a contour, an open polyline, from the outline of a rotated rectangle
  /// (width, height and angle as in RectAngularToPolygon): pairs of a contour point and a point of
  /// the rectangle. The minimum is measured along the polyline, 0 where it first crosses the
  /// outline; the maximum is the largest distance of a contour point from the nearest point of the
  /// outline. The earliest contour point on ties. Traced as "ContourToRectangularDistance", around
  /// a nested "ContourToContourDistance".
  /// @retval GM_E_EMPTY_CONTOUR  no point
  /// @retval GM_E_PARAM_3  width <= 0
  /// @retval GM_E_PARAM_4  height <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  /// @retval GM_E_DISTANCE_FAILED  an exception while measuring
  long ContourToRectangularDistance(ZorContour& contour, ZorPoint& centre, double width,
                                    double height, double angle, ZorPoint* minContourPoint,
                                    ZorPoint* minRectanglePoint, double* minDistance,
                                    ZorPoint* maxContourPoint, ZorPoint* maxRectanglePoint,
                                    double* maxDistance);

  // ==== Intersections of lines and segments =====================================================

  long LineCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double radius,
                              ZorPointArray* points);
  long LineOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double a, double b,
                            double angle, ZorPointArray* points);
  long LineRectangularIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double width,
                                   double height, double angle, ZorPointArray* points);
  long LineSegmentCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double radius,
                                     ZorPointArray* points);
  long LineSegmentOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double a, double b,
                                   double angle, ZorPointArray* points);
  long LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                               ZorPointArray* points);
  long TangentFromPointToCircle(ZorPoint& point, ZorPoint& centre, double radius,
                                ZorPointArray* points);

  // ==== Intersections of shapes =================================================================

  long CircleToCircleIntersection(ZorPoint& c1, double r1, ZorPoint& c2, double r2,
                                  ZorPointArray* points, double* area);
  long OvalsIntersection(ZorPoint& c1, double a1, double b1, double angle1, ZorPoint& c2, double a2,
                         double b2, double angle2, ZorPointArray* points, double* area);
  long CircleOvalIntersection(ZorPoint& c, double r, ZorPoint& centre, double a, double b,
                              double angle, ZorPointArray* points, double* area);
  long CircleRectangularIntersection(ZorPoint& c, double r, ZorPoint& centre, double width,
                                     double height, double angle, ZorPointArray* points,
                                     double* area);
  long OvalRectangularIntersection(ZorPoint& ovalCentre, double a, double b, double ovalAngle,
                                   ZorPoint& centre, double width, double height, double angle,
                                   ZorPointArray* points, double* area);
  long PolygonCircleIntersection(ZorPointArray& polygon, ZorPoint& c, double r,
                                 ZorPointArray* points, double* area);
  long PolygonOvalIntersection(ZorPointArray& polygon, ZorPoint& centre, double a, double b,
                               double angle, ZorPointArray* points, double* area);
  /// Forwards to PolygonsIntersection2.
  long PolygonsIntersection(ZorPointArray& p, ZorPointArray& q, ZorPointArray* points,
                            double* area);

  /// Overlap of a rectangle (see RectAngularToPolygon) and a polygon, as PolygonsIntersection2.
  /// Traced as "RectAngularPolygonIntersection", with its end record before the nested
  /// "PolygonsIntersection2".
  /// @retval GM_E_PARAM_2  width <= 0
  /// @retval GM_E_PARAM_3  height <= 0
  /// @retval GM_E_PARAM_4  angle outside [0, 360]
  /// @retval GM_E_TOO_FEW_POINTS  the polygon has fewer than 3 vertices
  long RectAngularPolygonIntersection(ZorPoint& centre, double width, double height, double angle,
                                      ZorPointArray& polygon, ZorPointArray* points, double* area);

  // ==== Position relations ======================================================================

  long PointToCirclePosRelation(ZorPoint& point, ZorPoint& centre, double radius, int* code);
  long PointToOvalPosRelation(ZorPoint& point, ZorPoint& centre, double a, double b, double angle,
                              int* code);
  long PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon, int* code);

  /// Relation of a point to a rotated rectangle, as ZorGeometryMeasure::PointToPolygonPosRelation
  /// to its corners (RectAngularToPolygon). Traced as "PointToRectangularPos", around a nested
  /// "PointToPolygonPosRelation".
  /// @retval GM_E_PARAM_3  width <= 0
  /// @retval GM_E_PARAM_4  height <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PointToRectangularPos(ZorPoint& point, ZorPoint& centre, double width, double height,
                             double angle, int* code);

  // ==== Selection by region =====================================================================
  // Kept are the points whose relation to the region is not "outside", in order. Those methods that
  // do not forward replace `selected`, which may be an input, are traced under their own names, and
  // leave nested records of the relation of each point: "PointToCirclePosRelation",
  // "PointToOvalPosRelation" or, for rectangles, polygons and contours, which count as closed,
  // "PointToPolygonPosRelation". The point forms end before that when `selected` is null.

  long PointArraySelectedByPolygon(ZorPointArray& points, ZorPointArray& polygon,
                                   ZorPointArray* selected);
  long PointArraySelectedByCircle(ZorPointArray& points, ZorPoint& centre, double radius,
                                  ZorPointArray* selected);

  /// @retval GM_E_TOO_FEW_POINTS  no points
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PointArraySelectedByOval(ZorPointArray& points, ZorPoint& centre, double a, double b,
                                double angle, ZorPointArray* selected);

  /// By the corners of RectAngularToPolygon.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  /// @retval GM_E_PARAM_3  width <= 0
  /// @retval GM_E_PARAM_4  height <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PointArraySelectedByRectangular(ZorPointArray& points, ZorPoint& centre, double width,
                                       double height, double angle, ZorPointArray* selected);

  /// @retval GM_E_TOO_FEW_POINTS  no points
  /// @retval GM_E_EMPTY_CONTOUR  the region is empty
  /// @retval GM_E_PARAM_2  the region has fewer than 4 points
  long PointArraySelectedByContours(ZorPointArray& points, ZorContour& region,
                                    ZorPointArray* selected);

  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_PARAM_3  radius <= 0
  long ContourSelectedByCircle(ZorContour& contour, ZorPoint& centre, double radius,
                               ZorContour* selected);

  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long ContourSelectedByOval(ZorContour& contour, ZorPoint& centre, double a, double b,
                             double angle, ZorContour* selected);

  /// By the corners of RectAngularToPolygon.
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_PARAM_3  width <= 0
  /// @retval GM_E_PARAM_4  height <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long ContourSelectedByRectangular(ZorContour& contour, ZorPoint& centre, double width,
                                    double height, double angle, ZorContour* selected);

  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  long ContourSelectedByPolygon(ZorContour& contour, ZorPointArray& polygon, ZorContour* selected);

  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty, or the region has fewer than 4 points
  long ContourSelectedByContour(ZorContour& contour, ZorContour& region, ZorContour* selected);

  // ==== Area, centroid, moments =================================================================

  /// Area of the polygon, never negative: |Area2|. Traced as "PolygonArea".
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points; the area is then set to 0
  long PolygonArea(ZorPointArray& points, double* area);
  long PointArrayCenter(ZorPointArray& points, ZorPoint* centre);
  long PolygonCenter(ZorPointArray& points, ZorPoint* centre);

  /// Principal axes of a point set: appends the two eigenvalues of its covariance (divided by the
  /// number of points) to `values`, the smaller first, and their unit eigenvectors to `axes`, all
  /// rounded to single precision; the sign of a vector is not defined. Neither list is cleared.
  /// Traced as "PrincipalComponentAnalysis".
  /// @retval GM_E_PARAM_1  fewer than 2 points
  long PrincipalComponentAnalysis(ZorPointArray& points, ZorVarArray* values, ZorPointArray* axes);

  // ==== Form measures ===========================================================================

  long MinAreaRectangularity(ZorPointArray& points, ZorPoint* centre, double* length, double* width,
                             double* angle);

  // ==== Enclosing figures =======================================================================

  long CircleExternalRectangle(ZorPoint& centre, double radius, ZorPoint* rectCentre,
                               double* length, double* width, double* angle);
  long EllipseExternalRectangle(ZorPoint& centre, double a, double b, double angle,
                                ZorPoint* rectCentre, double* length, double* width,
                                double* rectAngle);
  long PolygonExternalRectangle(ZorPointArray& points, ZorPoint* boxCentre, double* width,
                                double* height);
  long ExternalCircle(ZorPointArray& points, ZorPoint* centre, double* radius);
  long IncisionCircle(ZorPointArray& points, ZorPoint* centre, double* radius);

  // ==== Contours and defects ====================================================================

  /// ZorGeometryMeasureTools::GetPolygon2: reduces an outline to a polygon, whose vertices are
  /// points of the outline in single precision. Traced as "FindPolygon".
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  tolerance <= 0
  /// @retval GM_E_PARAM_3  n < 0
  long FindPolygon(ZorPointArray& points, double tolerance, int n, bool closed,
                   ZorPointArray* polygon);

  /// Replaces `defects` by the parts of the contour that stray from its straight sides, found by
  /// ZorFindDefectRegion::Find: `tolerance` and `count` reduce the contour, taken as open, to the
  /// vertices between the sides; a defect is a run of points farther than `distance` from the line
  /// along its side. A run of k + 1 points counts as k long, and its first k points become a
  /// contour; k is at least minLength. So for a nick to be found whole the tolerance must exceed
  /// its depth, and `distance` must not. Traced as "FindDefectRegion", around a nested
  /// "LeastSqaureLineFit" a side.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 4 points
  /// @retval GM_E_PARAM_2  tolerance <= 0
  /// @retval GM_E_PARAM_3  count < 0
  /// @retval GM_E_PARAM_4  distance <= 0
  /// @retval GM_E_PARAM_5  minLength < 1
  /// @retval GM_E_PARAM_1  nothing found
  long FindDefectRegion(ZorContour& contour, double tolerance, int count, double distance,
                        int minLength, ZorContourArray* defects);

  /// Appends to `lines` search lines (line ROIs) across the band that the contour encloses,
  /// `spacing` pixels apart along its centre line: from the outline on the left of the way along
  /// it, seen on the screen, to that on its right. The centre line is the longest way through the
  /// band's skeleton, carried on to the band's ends; its way starts at the end that is higher up.
  /// What is left over of its length is shared between both ends; one shorter than the spacing gets
  /// a line in its middle. Branches get no lines, and a centre line that closes is not followed all
  /// the way round. Traced as "ContourSearchLine", around "Get_Search_Line_for_Contour".
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  /// @retval GM_E_PARAM_2  spacing < 1
  /// @retval GM_E_PARAM_1  a coordinate is not a number or beyond 1048576, or the contour covers
  ///                       more than 2^28 pixels
  /// @retval GM_E_DEGENERATE_RESULT  the contour encloses nothing that has a centre line, or
  ///         memory ran out
  long ContourSearchLine(ZorContour& contour, int spacing, ZorROIArray* lines);

  // ==== Images ==================================================================================

  long localminima(ZorImage image, int threshold, int radius, ZorPointArray* output);
  long localmaxima(ZorImage image, int threshold, int radius, ZorPointArray* output);
  long PSFlocalminimum(ZorImage image, int threshold, int radius, int width, ZorPointArray* output);
  long PSFlocalmaximum(ZorImage image, int threshold, int radius, int width, ZorPointArray* output);
};

}  // namespace ZORMV
