#pragma once

#include <vector>

#include "ZorStatus.h"
#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

/// The measuring operations. Coordinates are pixels, y grows downwards; angles are degrees unless
/// said otherwise. Unless an operation says otherwise:
///  - it returns GM_OK or the code of the first check that fails, in the order of its @retval list;
///  - outputs may be null, and are written only on GM_OK;
///  - "traced" means a "start" record and, on success, an "<operation> end" record.
/// Every call stands alone: an object may be made for one call or kept for many.
class ZORGEOMETRYMEASURE_EXPORT ZorGeometryMeasure {
 public:
  ZorGeometryMeasure() noexcept = default;
  ZorGeometryMeasure(const ZorGeometryMeasure&) = default;
  ZorGeometryMeasure& operator=(const ZorGeometryMeasure&) = default;
  ~ZorGeometryMeasure() = default;

  // ==== Points and lines ========================================================================
  // Lines are given by two points on them, segments by their ends. Degenerate: the two points lie
  // within 0.0005 of each other, inclusive.

  /// Euclidean distance of a and b. Traced.
  long PointToPointDistance(ZorPoint& a, ZorPoint& b, double* distance);

  /// The midpoint of a and b. Not traced.
  ZorPoint MidPoint(ZorPoint& a, ZorPoint& b);
  /// The midpoint of a and b. Traced.
  long MidPoint(ZorPoint a, ZorPoint b, ZorPoint* mid);

  /// Intersection of line p1p2 with line p3p4. Traced. The test for parallel lines is not
  /// normalised: two very short segments can count as parallel at any angle.
  /// @retval GM_E_DEGENERATE_LINE  either line is degenerate
  /// @retval GM_E_PARALLEL  |cross product of the directions, rounded to float| < 1e-5
  /// @retval GM_E_PARAM_1  zero denominator
  long LinesIntersection(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4, ZorPoint* out);

  /// Foot of the perpendicular from p on line ab. Traced, around a nested "LinesIntersection". The
  /// status is GM_OK and `foot` keeps what it held where that finds none: a line shorter than about
  /// 0.003 counts as parallel to its own perpendicular, and far enough away (p + ab rounds to p)
  /// the perpendicular has no second point.
  /// @retval GM_E_DEGENERATE_LINE  ab is degenerate
  /// @retval GM_E_PROJECTION_FAILED  an exception while projecting
  long PerpendicularProjection(ZorPoint p, ZorPoint a, ZorPoint b, ZorPoint* foot);

  /// Second point p + b - a of the line through p parallel to ab. Traced, around a nested
  /// "PointTolineDistance".
  /// @retval GM_E_DEGENERATE_LINE  ab is degenerate
  /// @retval GM_E_COLLINEAR  p lies within 1e-5 (inclusive) of line ab
  long ParallerLine(ZorPoint& p, ZorPoint& a, ZorPoint& b, ZorPoint* out);

  /// Midpoint and slope of the perpendicular bisector of ab; the slope is infinite or not a number
  /// when a.y equals b.y. Always GM_OK. Not traced.
  long MidVertLine(ZorPoint& a, ZorPoint& b, ZorPoint* mid, double* slope);

  /// p turned about centre by `angle` degrees, counter-clockwise on the screen, with the ten-digit
  /// pi. The facade's RotateProjection turns the other way, with full pi. Not traced.
  ZorPoint TransformPoint(ZorPoint& p, ZorPoint& centre, double angle);

  /// Radians to degrees, with pi = 3.141592653. Always GM_OK. Not traced.
  long Deg(double radians, double* degrees);
  /// Degrees to radians, with pi = 3.141592653. Always GM_OK. Not traced.
  long Rad(double degrees, double* radians);

  /// Turns coordinates of -0.0 into +0.0. Not traced.
  void FormatResult(ZorPoint& p);

  /// Removes every point within 1e-5 (inclusive) of its predecessor in the given list, then the
  /// last one left when it lies that close to the first: two coincident points leave an empty list,
  /// a single point stays. Not traced.
  void FormatPointArray(ZorPointArray& points);

  /// Removes every point within 1.0 (inclusive) of any earlier point of the given list, also of one
  /// that is removed itself. Not traced.
  void FormatPointArray2(ZorPointArray& points);

  /// Inert: returns GM_OK. Not traced.
  long PointPosition(ZorPointArray& first, ZorPointArray& second, int mode, ZorPointArray* out);

  /// Appends in[start], in[start + 1], ..., in[start - 1] to `out`. A start outside 0 .. n is taken
  /// cyclically. Always GM_OK. Not traced.
  long AdjustPointArray(ZorPointArray& in, int start, ZorPointArray* out);

  /// Turns the triangle (its first three points) rigidly so that its first edge starts at the
  /// segment's first point in the segment's direction, and appends the third vertex, then its
  /// mirror image in the segment's line; in the origin where PerpendicularProjection finds no foot
  /// (a segment too short). A first edge or a segment of length 0 gives NaN. The counts are not
  /// checked; `mode` is not used. Always GM_OK. Not traced itself (a nested
  /// "PerpendicularProjection" is).
  long TrianglePosition(ZorPointArray& triangle, ZorPointArray& segment, int mode,
                        ZorPointArray* out);

  /// Moves an ROI by an offset: circle, polygon and ellipse into `out`. A rotated rectangle is
  /// moved in place, in `in`, and `out` stays as it is; other shapes do nothing. Not traced.
  void TransverseROI(ZorROI& in, ZorPoint& offset, ZorROI* out);

  // ==== Bisectors ===============================================================================

  /// The point where line p1p3 meets the line through `vertex` at the screen angle H - A/2, with A
  /// the angle from ray vertex-p1 to ray vertex-p3 and H the direction p1 -> vertex. That line is
  /// the bisector's mirror image in ray vertex-p1; hosts rely on it. For the bisector as seen use
  /// BissectingLine2 or the facade's BissectingLine. Not traced itself; AngleFrom3Point,
  /// AngleFromHorizontal and LinesIntersection, which it calls, are.
  /// @retval GM_E_DEGENERATE_LINE  two of the three points lie within 0.0005 (inclusive)
  /// @retval GM_E_COLLINEAR  H - A/2 is exactly 0 or 180
  /// @retval (LinesIntersection's codes)  that line does not meet p1p3
  /// @retval GM_E_COLLINEAR  the point found lies within 1e-5 (inclusive) of the vertex
  long BissectingLine(ZorPoint p1, ZorPoint vertex, ZorPoint p3, ZorPoint* out);

  /// BissectingLine2 without a record of its own.
  long BissectingLine(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4, ZorPoint* out1,
                      ZorPoint* out2);

  /// The bisector of the smaller angle between the directions p1 -> p2 and p3 -> p4, as a segment
  /// out1 -> out2 in the bisecting direction. It runs through the crossing of the two lines and is
  /// clipped by the segments p1p3, p2p4, p1p4 and p2p3: out1 is the first and out2 the last point
  /// where it crosses one of them, or the crossing of the lines where an end lies within 1e-5 of
  /// it. Two edges seen side by side thus give the middle line between them, from end to end, and
  /// two arms from a common vertex the piece from the vertex to the segment between their tips.
  /// Where that leaves no two points more than 1e-5 apart, out1 is the crossing and out2 lies
  /// (|p1p2| + |p3p4|) / 2 further on: so for two arms that are nearly opposite. Reverse one of the
  /// lines for the other bisector. Directions are rounded to about 1e-8 radians, and so is the
  /// bisector of a thin angle. Traced, around nested records of AngleFromHorizontal and
  /// LinesIntersection.
  /// @retval GM_E_DEGENERATE_LINE  either line is degenerate
  /// @retval GM_E_PARALLEL  the lines are parallel as for LinesIntersection
  /// @retval GM_E_PARAM_1  zero denominator in their intersection
  long BissectingLine2(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4, ZorPoint* out1,
                       ZorPoint* out2);

  /// Unit vector halving the smaller angle between the vectors u and v. Traced.
  /// @retval GM_E_DEGENERATE_LINE  u or v is at most 0.0005 long
  /// @retval GM_E_COLLINEAR  u and v are opposite: their unit vectors add up to at most 1e-5
  long BissectingVector(ZorPoint u, ZorPoint v, ZorPoint* bisector);

  /// Mid-line of the triangle p1 p2 p3 parallel to p2p3: out1 the midpoint of p1 and p2, out2 that
  /// of p1 and p3. Traced.
  /// @retval GM_E_DEGENERATE_LINE  two of the three points lie within 0.0005 (inclusive)
  /// @retval GM_E_PARALLEL  p2 - p1 and p3 - p1 are parallel as for LinesIntersection
  long MidLine(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint* out1, ZorPoint* out2);

  // ==== Angles ==================================================================================
  // As seen on the screen: an angle grows when a direction turns from +x towards -y (upwards).
  // Conversions use pi = 3.141592653, so results differ from exact values by about 2e-8 degrees.
  // Coordinates that are not numbers give an angle that is not one, unless it stays unwritten.

  /// Direction of p1 -> p2 from +x: right 0, up 90, left 180, down 270, and on to 360, which it is
  /// only by rounding, a hair before +x. Leaves "start" and, unlike other traced operations, no end
  /// record in the four ordinary quadrants; with a coordinate that is not a number it leaves the
  /// end record, GM_OK, and the angle unwritten.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  long AngleFromHorizontal(ZorPoint p1, ZorPoint p2, double* angle);

  /// Direction of p1 -> p2 from +y: down 0, right 90, up 180, left 270, and on to 360, which it is
  /// only by rounding, a hair before +y. With a coordinate that is not a number it returns GM_OK
  /// and leaves the angle unwritten. Not traced.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  long AngleFromVertical(ZorPoint p1, ZorPoint p2, double* angle);

  /// Angle in [0, 360) through which ray vertex-p1 turns, counter-clockwise on the screen, onto ray
  /// vertex-p3. Traced, around two nested AngleFromHorizontal.
  /// @retval GM_E_DEGENERATE_LINE  p1 or p3 lies within 0.0005 of the vertex
  /// @retval GM_E_ANGLE_FAILED  an exception while computing
  long AngleFrom3Point(ZorPoint p1, ZorPoint vertex, ZorPoint p3, double* angle);

  /// Angle in [0, 360) from direction p1 -> p2 to direction p3 -> p4. Traced.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 or p3p4 is degenerate
  /// @retval GM_E_ANGLE_FAILED  an exception while computing
  long AngleFrom4Point(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4, double* angle);

  /// Angle between the lines p1p2 and p3p4, folded to [0, 180] (mode 0) or [0, 90] (mode 1).
  /// Traced, around a nested "AngleFrom4Point".
  /// @retval GM_E_DEGENERATE_LINE  either line is degenerate
  /// @retval GM_E_PARAM_5  mode is not 0 or 1
  long IncludedAngle(ZorPoint& p1, ZorPoint& p2, ZorPoint& p3, ZorPoint& p4, int mode,
                     double* angle);

  // ==== Arcs ====================================================================================

  /// Replaces `out` by `count` samples of an elliptical arc: semi-axes a and b, phi the angle of
  /// the first axis, `start` the angle of the first sample and `extent` the angle covered, in
  /// degrees, counter-clockwise on the screen. Samples are evenly spaced in the polar angle about
  /// the centre. An extent of exactly 360 does not repeat the first point, a smaller one includes
  /// both ends. Traced.
  /// @retval GM_E_PARAM_2  a <= 0
  /// @retval GM_E_PARAM_3  b <= 0
  /// @retval GM_E_PARAM_4  phi outside [0, 360]
  /// @retval GM_E_PARAM_5  start outside [0, 360]
  /// @retval GM_E_PARAM_6  extent <= 0 or > 360
  /// @retval GM_E_PARAM_7  count < 3
  long SampleArc(ZorPoint& centre, float a, float b, float phi, float start, float extent,
                 int count, ZorPointArray* out);

  // ==== Line fits ===============================================================================
  // A fit reports a straight line by two points on it. Points are edge points in any order, but for
  // the ends: a re-weighted fit evaluates its line at the first and at the last point (x, or y for
  // a steep line), the second 0.1 further on when both are equal. It minimises the offsets along y,
  // or along x when the line is steep: when its Huber fit lies within a millionth of vertical. So
  // a nearly vertical edge that is not exactly vertical wants x and y exchanged by the caller.
  //
  // `iterations` is the number of passes; between two of them every point gets the weight
  // 1 - (e / clipDistance)^2 for its offset e below clipDistance, else 0, which enters squared.
  // With fewer than 2 points left the fit ends with the passes done. A singular system is no error:
  // the coefficients are 0, or in a later least-squares pass those of the pass before. Coordinates
  // that are not finite give results that are not either.

  /// Method 0: the Huber line over the points' extent along its dominant axis (two points come back
  /// as they are); `iterations` is not used. Method 1: least absolute offsets along y, never along
  /// x, with a clipping distance of its own for every re-weighting: 0.5, or the residual at rank
  /// trunc(0.8 n) when that at trunc(0.5 n) exceeds 0.5; iterations below 1 give the line y = 0.
  /// Any other method does nothing and returns GM_OK. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_FIT_FAILED  an exception while fitting
  long FitLine(ZorPointArray& points, int method, int iterations, ZorPoint* start, ZorPoint* end);

  /// Re-weighted least squares; one iteration is the fit over the extent of FitLine's method 0.
  /// Traced, but one iteration leaves no end record. Exceptions of the matrix library pass.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  long LeastSqaureLineFit(ZorPointArray& points, int iterations, double clipDistance,
                          ZorPoint* start, ZorPoint* end);

  /// Re-weighted least absolute offsets, at most 50 steps a pass; a pass ends once the offsets' sum
  /// is below 1 or no longer falls. Offsets beyond 2 enter the steps less 2 and cut to a whole
  /// number. An offset of exactly 0 in a step makes the result not a number. Traced. Exceptions of
  /// the matrix library pass.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  long LeastAbsoluteLineFit(ZorPointArray& points, int iterations, double clipDistance,
                            ZorPoint* start, ZorPoint* end);

  /// Inert: returns GM_OK. Not traced.
  long SSETest(ZorVarArray values, ZorVar* result);

  // ==== Circle and ellipse fits =================================================================
  // Re-weighted fits: `iterations` passes; between two of them every point gets the weight
  // 1 - (e / clipDistance)^2 for its distance e from the figure below clipDistance, else 0, which
  // enters squared. With fewer points left than the figure has coefficients (3, or 5 for an
  // ellipse) the fit ends with the passes done. Coordinates that are not finite give a code or
  // results that are not finite either.

  /// Circle by the closed-form algebraic fit. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  /// @retval GM_E_PARAM_1  singular sums, as for points on a line
  long FitCircle(ZorPointArray& points, ZorPoint* center, double* radius);

  /// Re-weighted least squares of the algebraic model; one iteration is the fit of FitCircle.
  /// Traced, but one iteration leaves no end record. With GM_E_CIRCLE_FIT_FAILED the outputs are
  /// written, for singular sums with a radius of 0 at the origin.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  /// @retval GM_E_CIRCLE_FIT_FAILED  a value is not a number; with one iteration also singular sums
  ///   or a radius below 1e-6, which more iterations accept
  long LeastSqaureCircleFit(ZorPointArray& points, int iterations, double clipDistance,
                            ZorPoint* center, double* radius);

  /// Re-weighted least absolute residuals of the algebraic model (square pixels), at most 10 steps
  /// a pass. Residuals beyond 2 enter the steps less 2 and cut to a whole number; one of exactly 0
  /// makes the result not a number. Traced. With GM_E_CIRCLE_FIT_FAILED the outputs are written.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  /// @retval GM_E_CIRCLE_FIT_FAILED  a radius below 1e-6, or a value is not a number
  long LeastAbsoluteCircleFit(ZorPointArray& points, int iterations, double clipDistance,
                              ZorPoint* center, double* radius);

  /// Centre of rotation of points that carry an angle each, in degrees. From three points on: every
  /// three of them give the centre of the rotation by the difference of the first two's angles that
  /// carries the first onto the second, and the mean distance of the three; of the two senses of
  /// rotation the one that fits the three better. The result is the mean over all of them, which
  /// takes time with the cube of the number of points. Two points: the centre lies midway between
  /// the points where the lines through them at their angles (from +x towards +y) meet their
  /// perpendicular bisector, snapped to four decimals, coordinates below 1e-5 to 0. The last two
  /// codes come with a radius of 0 at the origin. Traced; two points leave no end record, but
  /// nested ones of "LinesIntersection".
  /// @retval GM_E_PARAM_1  fewer than 2 points
  /// @retval GM_E_PARAM_2  not as many angles as points
  /// @retval GM_E_DEGENERATE_LINE  two points that differ by less than 1e-6 in both coordinates
  /// @retval GM_E_FIT_FAILED  two points of which two of the lines do not meet
  long PointAnglePairsCircleFit(ZorPointArray& points, ZorVarArray& angles, ZorPoint* center,
                                double* radius);

  /// Centre as the mean of the intersections of the perpendicular bisectors of consecutive points,
  /// every one with every other (parallel ones excepted), radius as the points' mean distance from
  /// it. Centre coordinates below 1e-6, negative ones too, become 0, and the radius is taken from
  /// there. Traced.
  /// @retval GM_E_PARAM_1  fewer than 3 or more than 1000 points
  /// @retval GM_E_PARAM_1  no intersection, or a value is not a number
  long VerticalBisectorCircleFit(ZorPointArray& points, ZorPoint* center, double* radius);

  /// Ellipse by OpenCV's fitEllipse of the coordinates cut to whole numbers towards zero: centre,
  /// semi-axes and the angle of the first in degrees, the negative of OpenCV's angle.
  /// Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 5 points
  /// @retval GM_E_FIT_FAILED  an exception while fitting
  long FitEllipse(ZorPointArray& points, ZorPoint* center, float* semiAxisA, float* semiAxisB,
                  float* angle);

  /// Re-weighted least squares of a conic. One iteration is OpenCV's fitEllipse of the coordinates
  /// in single precision, with its angle negated. More give the angle in [0, 360) and do not order
  /// the axes: the first can be the minor one. The conic is scaled but not centred, so digits are
  /// lost as the ellipse gets small against its distance from the origin: bring its points near the
  /// origin for the best result. Points that fit no ellipse give infinite values, or what is not a
  /// number. Traced, around a nested "PointToOvalDistance" for every point and re-weighting; one
  /// iteration leaves no end record. Exceptions of OpenCV pass.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 5 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  /// @retval GM_E_FIT_FAILED  a system could not be solved
  long LeastSqaureEllipseFit(ZorPointArray& points, int iterations, double clipDistance,
                             ZorPoint* center, float* semiAxisA, float* semiAxisB, float* angle);

  /// The same by least absolute residuals of the conic, at most 10 steps a pass, one iteration too.
  /// Traced as above, with an end record for any number of iterations.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 5 points
  /// @retval GM_E_PARAM_2  iterations < 1
  /// @retval GM_E_PARAM_3  clipDistance < 0
  long LeastAbsoluteEllipseFit(ZorPointArray& points, int iterations, double clipDistance,
                               ZorPoint* center, float* semiAxisA, float* semiAxisB, float* angle);

  // ==== Curve fits and splines ==================================================================
  // Curves are functions of x. A fitted curve is listed as points every half unit from the x of
  // the first to that of the last point, starting at the smaller of the two: trunc(|2 (last -
  // first)
  // + 1|) points, so that over d units an ascending sequence gives 2d + 1 of them and a descending
  // one 2d - 1, which ends one step short. Coefficients and curve replace what the outputs held.
  //
  // A re-weighted fit makes a number of passes; between two of them every point gets the weight
  // 1 - (e / clip)^2 for its offset e in y below the clipping distance, else 0, which enters
  // squared. With fewer points left than coefficients it ends with the passes done.

  /// Re-weighted least-squares polynomial in `iterations` passes; coefficients c0 .. cn in
  /// ascending order of power, for n = `order`. Coefficients that are not numbers are listed too,
  /// with their code, but no curve. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  order outside 0 .. 100
  /// @retval GM_E_PARAM_3  iterations < 1
  /// @retval GM_E_PARAM_4  clipDistance < 0
  /// @retval GM_E_FIT_FAILED  the equations of a pass are singular, or a coefficient is not a
  /// number
  /// @retval GM_E_PARAM_1  a curve is wanted and would have more than 67 108 864 points
  long LeastSqaurePolynomialFit(ZorPointArray& points, int order, int iterations,
                                double clipDistance, ZorVarArray* coefficients,
                                ZorPointArray* curve);

  /// As LeastSqaurePolynomialFit, by least absolute offsets, at most 50 steps a pass: a pass ends
  /// once the offsets' sum is below 1 or grows. Offsets beyond 2 enter the steps less 2 and cut to
  /// a whole number. An offset of exactly 0 in a step makes the fit fail; singular equations give
  /// coefficients of 0. Traced.
  /// @retval (LeastSqaurePolynomialFit's codes)  singular equations excepted
  long LeastAbsolutePolynomialFit(ZorPointArray& points, int order, int iterations,
                                  double clipDistance, ZorVarArray* coefficients,
                                  ZorPointArray* curve);

  /// LeastSqaurePolynomialFit in max(intSetting, 1) passes, clipping at trunc(realSetting) (0 and
  /// what is not a number: one pass). With a code nothing is written. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  order outside 1 .. 20
  /// @retval GM_E_PARAM_3  intSetting outside 0 .. 99
  /// @retval GM_E_PARAM_4  realSetting < 0
  /// @retval (LeastSqaurePolynomialFit's codes)  as there from the fit on
  long GenPolynomialCurve(ZorPointArray& points, int order, int intSetting, double realSetting,
                          ZorVarArray* coefficients, ZorPointArray* curve);

  /// Gaussian peak on a baseline, with the parameters of the FitGaussianCurve that takes an
  /// iteration limit, but from a spread that suits the width of the peak, so that short profiles
  /// of narrow peaks succeed too; re-weighted in max(intSetting, 1) passes with the clipping
  /// distance trunc(realSetting) (0 and what is not a number: one pass). Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 4 points
  /// @retval GM_E_PARAM_2  intSetting outside 0 .. 99
  /// @retval GM_E_PARAM_3  realSetting < 0
  /// @retval GM_E_FIT_UNBOUNDED  a parameter is infinite or the largest finite double
  /// @retval GM_E_FIT_FAILED  a parameter is not a number, or the spread is not above 0, as where
  ///         all x are equal; a profile without a peak may also give some flat curve
  /// @retval GM_E_PARAM_1  a curve is wanted and would have more than 67 108 864 points
  long GenGaussianCurve(ZorPointArray& points, int intSetting, double realSetting,
                        ZorVarArray* coefficients, ZorPointArray* curve);

  /// As GenGaussianCurve, for the sine of FitSinCurve. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 4 points
  /// @retval GM_E_PARAM_2  intSetting outside 0 .. 99
  /// @retval GM_E_PARAM_3  realSetting < 0
  /// @retval GM_E_FIT_FAILED  as FitSinCurve
  /// @retval GM_E_PARAM_1  a curve is wanted and would have more than 67 108 864 points
  long GenSinCurve(ZorPointArray& points, int intSetting, double realSetting,
                   ZorVarArray* coefficients, ZorPointArray* curve);

  /// Sine curve by non-linear least squares: replaces `parameters` by the amplitude (>= 0), the
  /// angular frequency (>= 0, radians a unit of x), the phase (radians, in (-pi, pi]) and the
  /// offset of y = amplitude sin(frequency x + phase) + offset. The points need be neither sorted
  /// nor evenly spaced. The frequency is sought below half the mean sampling rate, half a turn from
  /// one x to the next on the average (of 4 194 304 x at most); of the sines with the same values
  /// at evenly spaced points the one below that limit is given. At most `maxIterations` steps (0:
  /// the solver's own limit, 50). Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 4 points
  /// @retval GM_E_PARAM_2  maxIterations < 0
  /// @retval GM_E_FIT_FAILED  all x or all y are equal, or a coordinate or a result is not finite
  long FitSinCurve(ZorPointArray& points, int maxIterations, ZorVarArray* parameters);

  /// Least-squares polynomial y(x) of the given order over all points; coefficients from the
  /// highest power down to the constant. Powers of x cancel away from x = 0: where the farthest x
  /// is r half widths of the points off 0, y keeps about 16 - order log10(2 r) digits (order 2 at
  /// r = 1000 keeps 9, order 6 none), without a code; measure x from the middle of the points for
  /// high orders. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  no point, or not more points than the order
  /// @retval GM_E_PARAM_2  order outside 1 .. 20
  /// @retval GM_E_FIT_FAILED  not more different x than the order (or, for a high order, too many
  /// of them too close together), or results that are not finite
  long FitCurve(ZorPointArray& points, int order, ZorVarArray* coefficients);
  /// FitCurve with x and y exchanged: x as a polynomial in y. Not traced.
  long FitCurveInv(ZorPointArray& points, int order, ZorVarArray* coefficients);

  /// Least-squares polynomial y(x) of the order max(order, 0) by the normal equations in the raw
  /// powers of x. Replaces `coefficients`, highest power first; `curve` is not used. Unlike
  /// elsewhere 1 is success and 0 failure: a row of the equations holds only zeros (all x are 0, no
  /// points) or nothing comparable, or the order is above 1000; then the line "Singular matrix in
  /// routine ludcmp" goes to the standard error stream and nothing is written. Equations that are
  /// singular in another way (too few distinct points) give one of their solutions where they have
  /// one, otherwise large or non-finite numbers. Not traced.
  long SolveLinerEquationsPolynomialFit(ZorPointArray& points, int order, ZorVarArray* coefficients,
                                        ZorPointArray* curve);

  /// Gaussian peak y = amplitude exp(-(x - mean)^2 / (2 variance)) in closed form, by the parabola
  /// through ln y (SolveLinerEquationsPolynomialFit). Where its equations cannot be solved the
  /// status is GM_OK and nothing is written. Not traced.
  /// @retval GM_E_GAUSS_TOO_FEW_POINTS  fewer than 4 points
  /// @retval GM_E_PARAM_1  a y <= 0
  /// @retval GM_E_DEGENERATE_RESULT  all three results are below 1e-8 in magnitude; they are
  /// written
  long FitGaussianCurve(ZorPointArray& points, double* amplitude, double* mean, double* variance);

  /// Gaussian peak on a baseline by non-linear least squares: replaces `parameters` by p0 (height),
  /// p1 (position), p2 (spread), p3 (baseline) of y = p0 exp(-(x - p1)^2 / (2 p2)) + p3. It starts
  /// from the largest y, the x of its first occurrence, the extent in x and the smallest y, and
  /// makes at most `maxIterations` steps (0: the solver's own limit, 50). Convergence is not
  /// judged: the parameters where the solver stopped are returned, which are those of the last step
  /// at which the curve and its derivatives could be evaluated; the start values where they never
  /// can be (one common x, coordinates that are not numbers, values beyond 1e140). From 100 points
  /// on the solver runs in several threads, as many as the configuration says, which can change the
  /// last digits from call to call. Traced.
  /// @retval GM_E_PARAM_1  fewer than 4 points
  /// @retval GM_E_PARAM_2  maxIterations < 0
  /// @retval GM_E_FIT_UNBOUNDED  a parameter is infinite or the largest finite double
  long FitGaussianCurve(ZorPointArray points, int maxIterations, ZorVarArray* parameters);

  /// Densifies a point sequence: between every two points it inserts `insertCount` points, x evenly
  /// spaced, y from a cubic (splineType 0: uniform B-spline, approximating; 1: Catmull-Rom; 2:
  /// natural spline, both interpolating) through the y values on unit spacing. The given points
  /// stay in the curve unchanged, for the B-spline too. The inserted y values advance by
  /// insertCount a gap, not by insertCount + 1, and so lag behind x from the second gap on.
  /// Replaces `curve`. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  splineType is not 0, 1 or 2
  /// @retval GM_E_PARAM_3  insertCount < 1
  /// @retval GM_E_PARAM_1  the first and the last point are equal
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  /// @retval GM_E_PARAM_3  the curve would have more than 67 108 864 points
  /// @retval GM_E_FIT_NO_RESULT  an exception while computing the B-spline
  long GenSplineCurve(ZorPointArray& points, int splineType, int insertCount, ZorPointArray* curve);

  /// Unit normals of an open sequence of points, one a point: the direction of travel turned by a
  /// quarter turn from +x towards +y (to the right of it on the screen). Each is that of the
  /// parabola approximating the point and its `neighbours` nearest on either side, as far as there
  /// are any; fewer (halved as often as needed) where these turn past half a circle. Where they do
  /// not determine a parabola, or it points to the other side, that of DiscretePoint2DNormal.
  /// Points so noisy that an eighth of the steps goes back on the one before are taken as many as
  /// given, and their side from the ends of that window. Replaces `normals`. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  neighbours outside 1 .. 100
  /// @retval GM_E_PARAM_1  all points are equal
  long Point2DNormal(ZorPointArray& points, int neighbours, ZorPointArray* normals);

  /// As Point2DNormal, each normal that of the chord between the two neighbouring points, at the
  /// ends of the sequence of the first or last segment. Neighbours equal to the point are passed
  /// over. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_1  all points are equal
  long DiscretePoint2DNormal(ZorPointArray& points, ZorPointArray* normals);

  /// Computes nothing: draws 30 numbers from the standard rand. Always GM_OK. Not traced.
  long FitPlane();

  // ==== Distances of points, lines and segments =================================================

  // Lines and segments are given by two points; degenerate: these lie within 0.0005 of each other,
  // inclusive. Distances are Euclidean and, but for PointToPolygonDistance, not negative. Of points
  // at the same distance the first in order is reported, unless an operation says otherwise. A
  // status of a nested operation is returned as it is.

  /// Unsigned distance of a point from the line through lineStart and lineEnd. Traced.
  /// @retval GM_E_DEGENERATE_LINE  the line is degenerate
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long PointTolineDistance(ZorPoint point, ZorPoint lineStart, ZorPoint lineEnd, double* distance);

  /// Distance of segment A = a1a2 and segment B = b1b2, by mode:
  ///  - 0: the shortest distance. Segments that touch have 0, by a loose test: unless the products
  ///    of the areas that the ends of one form over the other are above 1e-6 for either, they
  ///    touch. So do near misses, and collinear segments however far apart;
  ///  - 1: the largest of the distances of an end from the other segment;
  ///  - 2: of the midpoint of A from B; 3: of the midpoint of B from A;
  ///  - 4: of the two lines, 0 unless they are exactly parallel. The lines' offsets from the origin
  ///    have the sign of their directions: give both the same direction, opposite ones yield the
  ///    sum of the offsets.
  /// Traced.
  /// @retval GM_E_DEGENERATE_LINE  either segment is degenerate
  /// @retval GM_E_PARAM_5  mode is not 0 to 4
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long LineToLineDistance(ZorPoint a1, ZorPoint a2, ZorPoint b1, ZorPoint b2, int mode,
                          double* distance);

  /// The same with the pair of points that realises it, on A and on B: modes 0 and 1 an end and the
  /// point of the other segment nearest to it (ends in the order a1, a2, b1, b2 on ties), modes 2
  /// and 3 the midpoint and the point nearest to it, mode 4 a1 and its projection on line B, or the
  /// crossing twice. Segments that touch in mode 0 give their crossing twice; where there is none
  /// (collinear ones, near misses) their closest ends, although the distance is 0. Where line B is
  /// too short to project on (about 0.003) mode 4 gives b1. Traced, around the records of
  /// PointToSegmentDistance (of all four ends in modes 0 and 1), LinesIntersection and
  /// PerpendicularProjection.
  /// @retval GM_E_DEGENERATE_LINE  either segment is degenerate
  /// @retval GM_E_PARAM_5  mode is not 0 to 4
  /// @retval (LinesIntersection's codes)  mode 4, the lines not exactly parallel but nearly
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long LineToLineDistance(ZorPoint a1, ZorPoint a2, ZorPoint b1, ZorPoint b2, int mode,
                          double* distance, ZorPoint* pointOnA, ZorPoint* pointOnB);

  /// Distance of a point from a segment, by mode: 0 from its nearest point, 1 from its farther end
  /// (segEnd on ties), 2 from its midpoint. In mode 0 an end within 1e-5 of the point (inclusive)
  /// is at distance 0, and segStart stands for a foot on a segment too short to project on (about
  /// 0.003). Negative zeros of the result point are cleared. Traced, around the records of
  /// PerpendicularProjection and PointTolineDistance where the nearest point is no end.
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate
  /// @retval GM_E_PARAM_4  mode is not 0, 1 or 2
  long PointToSegmentDistance(ZorPoint& point, ZorPoint& segStart, ZorPoint& segEnd, int mode,
                              double* distance, ZorPoint* resultPoint);

  /// The points of a list nearest to and farthest from a line. The maximum is sought only together
  /// with the minimum: a call for the maximum alone reports the first point. Traced, around the
  /// records of PointTolineDistance.
  /// @retval GM_E_TOO_FEW_POINTS  the list is empty
  /// @retval GM_E_DEGENERATE_LINE  the line is degenerate
  long PointsToLineDistance(ZorPointArray& points, ZorPoint& lineStart, ZorPoint& lineEnd,
                            ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                            double* maxDistance);

  /// The points of a list nearest to and farthest from a segment, as PointToSegmentDistance
  /// measures in mode 0. The maximum alone is found too, unlike above. Traced, around its records.
  /// @retval GM_E_TOO_FEW_POINTS  the list is empty
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate
  long PointsToSegmentDistance(ZorPointArray& points, ZorPoint& segStart, ZorPoint& segEnd,
                               ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                               double* maxDistance);

  /// The vertices of a closed polygon nearest to and farthest from a line. A polygon that crosses
  /// the line has the minimum 0, at the first crossing met from the last vertex on; a vertex
  /// exactly on the line has 0 too, but gives way to a later such vertex or crossing. Traced,
  /// around the records of PointTolineDistance and LinesIntersection.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  /// @retval GM_E_DEGENERATE_LINE  the line is degenerate
  /// @retval (LinesIntersection's codes)  the crossing edge is degenerate or nearly parallel
  long PolygonToLineDistance(ZorPointArray& polygon, ZorPoint& lineStart, ZorPoint& lineEnd,
                             ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                             double* maxDistance);

  /// The point on the edges of a closed polygon nearest to a segment, by mode 0 of
  /// LineToLineDistance with its loose test (closing edge first), and the vertex farthest from it.
  /// Inside the polygon the distance is that of the outline. Traced, around the records of
  /// LineToLineDistance (for the minimum) and PointsToSegmentDistance (for the maximum).
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate; or, with the minimum wanted, an edge
  long PolygonToSegmentDistance(ZorPointArray& polygon, ZorPoint& segStart, ZorPoint& segEnd,
                                ZorPoint* minPoint, double* minDistance, ZorPoint* maxPoint,
                                double* maxDistance);

  /// Distance of a segment from a line, by mode: 0 from its nearer end (segEnd on ties), or 0 at
  /// the crossing when the ends lie strictly on opposite sides; 1 from its farther end (segStart on
  /// ties). Traced, around the records of LinesIntersection at a crossing.
  /// @retval GM_E_DEGENERATE_LINE  the line or the segment is degenerate
  /// @retval GM_E_PARAM_5  mode is not 0 or 1
  /// @retval (LinesIntersection's codes)  crossing and line are nearly parallel
  long SegmentToLineDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& lineStart,
                             ZorPoint& lineEnd, int mode, ZorPoint* resultPoint, double* distance);

  /// Signed distance of a point from the outline of a closed polygon: negative inside, times the
  /// code of PointToPolygonPosRelation, so that a point which that relation finds on the outline
  /// (within 1e-5 along its scan line) reports 0. The nearest point of the outline is written all
  /// the same; edges in the order of the closing edge, then from vertex 0 on. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  long PointToPolygonDistance(ZorPoint& point, ZorPointArray& polygon, double* distance,
                              ZorPoint* nearestPoint);

  /// Inert: returns GM_OK and leaves its outputs as they are. Not traced.
  long LineSegmentToPolygonDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPointArray& polygon,
                                    double* minDistance, ZorPoint* minPointOnSegment,
                                    ZorPoint* minPointOnPolygon, double* maxDistance,
                                    ZorPoint* maxPointOnSegment, ZorPoint* maxPointOnPolygon);

  // ==== Distances of contours and point sets ====================================================
  // Contours are open polylines: the last point is not joined to the first. Of equal distances the
  // first in order is reported. An output is sought only when one of its pointers is not null.

  /// Distance of a point from a contour, by mode: 0 from its points; 1 the nearest point of the
  /// polyline, but the farthest of its points (a point within 1e-5 of a segment's end is at
  /// distance 0 from it). Traced.
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_PARAM_3  mode is not 0 or 1
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long PointToContourDistance(ZorContour& contour, ZorPoint point, int mode, ZorPoint* minPoint,
                              double* minDistance, ZorPoint* maxPoint, double* maxDistance);

  /// The points of a contour nearest to and farthest from a line. A minimum up to twice the square
  /// root of 2 (inclusive) is reported as 0, at its point. Replaces `distances` by the distances of
  /// all points in order, as they are, or of the first one alone when neither minimum nor maximum
  /// is wanted. Traced.
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_DEGENERATE_LINE  the line's points lie within 0.0005 (inclusive)
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long LineToContourDistance(ZorContour& contour, ZorPoint lineStart, ZorPoint lineEnd,
                             ZorVarArray* distances, ZorPoint* minPoint, double* minDistance,
                             ZorPoint* maxPoint, double* maxDistance);

  /// The same for a segment.
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_DEGENERATE_LINE  the segment's ends lie within 0.0005 (inclusive)
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long ContourToLineSegmentDistance1(ZorContour& contour, ZorPoint& segStart, ZorPoint& segEnd,
                                     ZorVarArray* distances, ZorPoint* minPoint,
                                     double* minDistance, ZorPoint* maxPoint, double* maxDistance);

  /// Distance of contours A and B, by mode:
  ///  - 0: of their points; the nearest and the farthest pair;
  ///  - 1: of the points of A from the polyline B, as PointToContourDistance; the point of A that
  ///    is nearest to B, and the one whose nearest distance is the largest;
  ///  - 2: of the segments of A from those of B, as mode 0 of LineToLineDistance with its loose
  ///    test (segments that line up have distance 0 however far apart); the segment of A that is
  ///    nearest to B, and the one whose nearest distance is the largest.
  /// So the maxima of modes 1 and 2 are one-sided nearest distances, from A to B. Takes about
  /// n log n; the longer the jumps between neighbours in the polylines of modes 1 and 2, the nearer
  /// it gets to all pairs, which a coordinate beyond 1e8 or that is not finite asks for (not a
  /// number in mode 0 does not). Traced, around a record pair of PointToContourDistance for every
  /// point of A, or, in mode 2, the records of LineToLineDistance for every pair of segments; with
  /// a sink attached all pairs are measured.
  /// @retval GM_E_EMPTY_CONTOUR  either contour is empty
  /// @retval GM_E_PARAM_3  mode is not 0, 1 or 2
  /// @retval GM_E_PARAM_2  mode 1, B has a single point
  /// @retval GM_E_PARAM_1  mode 2, either contour has a single point
  /// @retval GM_E_DEGENERATE_LINE  mode 2, two neighbouring points lie within 0.0005 (inclusive)
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long ContourToContourDistance(ZorContour& contourA, ZorContour& contourB, int mode,
                                ZorPoint* minPointA, ZorPoint* minPointB, double* minDistance,
                                ZorPoint* maxPointA, ZorPoint* maxPointB, double* maxDistance);

  /// The distances alone, of mode 0, without a record of its own.
  long ContourToContourDistance(ZorContour& contourA, ZorContour& contourB, double* minDistance,
                                double* maxDistance);

  /// Distance of the points of contours A and B; the minimum is that of the nearest pair, the
  /// maximum goes by mode:
  ///  - 0: one-sided, the point of A whose nearest point of B is the farthest;
  ///  - 1: the farthest pair;
  ///  - 2: two-sided (the Hausdorff distance), the larger of the one-sided ones from A to B and
  ///    from B to A.
  /// Traced.
  /// @retval GM_E_EMPTY_CONTOUR  either contour is empty
  /// @retval GM_E_PARAM_3  mode is not 0, 1 or 2
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long ContourToContourDistance2(ZorContour& contourA, ZorContour& contourB, int mode,
                                 ZorPoint* minPointA, ZorPoint* minPointB, double* minDistance,
                                 ZorPoint* maxPointA, ZorPoint* maxPointB, double* maxDistance);

  /// Pairs of a point of `a` and a point of `b` with a distance in [lower, upper], by mode: 0 each
  /// point of `a` with its nearest one of `b`, 1 with its farthest one, 2 all pairs. In the order
  /// of `a`, then of `b`. The lists are replaced and run alongside each other, one entry a pair:
  /// the distance, the point of `a` and its index, the point of `b` and its index; they are empty
  /// when no pair is in the range. An infinite `upper` is no bound. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  `a` or `b` is empty
  /// @retval GM_E_PARAM_3  lower < 0
  /// @retval GM_E_PARAM_4  upper < lower
  /// @retval GM_E_PARAM_5  mode is not 0, 1 or 2
  /// @retval GM_E_DISTANCE_FAILED  an exception while computing
  long PointArrayToPointArrayDistance(ZorPointArray& a, ZorPointArray& b, double lower,
                                      double upper, int mode, ZorVarArray* distances,
                                      ZorPointArray* pointsA, ZorVarArray* indicesA,
                                      ZorPointArray* pointsB, ZorVarArray* indicesB);

  // ==== Distances of circles, ellipses and rectangles ===========================================

  /// Distance of a point to a circle, negative inside, and the nearest point of the circle: the one
  /// below the centre on the screen for a point within 1e-5 (inclusive) of the centre, at distance
  /// -radius. Traced, around a nested "PointToPointDistance".
  /// @retval GM_E_PARAM_3  radius <= 0
  long PointToCircleDistance(ZorPoint& point, ZorPoint& centre, double radius, double* distance,
                             ZorPoint* nearestPoint);

  /// Signed distance of a point from an ellipse (negative inside) and the point of the ellipse that
  /// it is measured to: semi-axes a and b, the angle of the first in degrees, counter-clockwise on
  /// the screen, converted with pi = 3.141592653. A point within 1e-5 of the centre has minus the
  /// smaller semi-axis; one on the ellipse to 1e-5 of its equation has 0 and is its own nearest
  /// point. Else found by ten updates of an approximation, the last of them unused. Its error,
  /// found on points within twice the larger semi-axis a: below 1e-8 a down to b = 0.35 a, and for
  /// thinner ellipses (to b = 0.1 a) inside and up to a / 20 outside; farther out it reaches 0.24 a
  /// at b = 0.3 a and 0.4 a at b = 0.1 a. A hundred times a away it is off from b = 0.47 a on.
  /// Traced.
  /// @retval GM_E_PARAM_5  angleDeg outside [0, 360]
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  long PointToOvalDistance(ZorPoint& point, ZorPoint& centre, double a, double b, double angleDeg,
                           double* distance, ZorPoint* nearestPoint);

  // The operations below report pairs: the point of what is measured, then the figure's point that
  // is nearest to it; the minimum before the maximum. An oval is given as in PointToOvalDistance,
  // which measures it, with its errors outside thin ellipses.

  /// Least and greatest distance of a list of points to a circle, negative inside as in
  /// PointToCircleDistance. The earliest point on ties. Traced, around a nested
  /// "PointToCircleDistance" a point.
  /// @retval GM_E_TOO_FEW_POINTS  no point
  /// @retval GM_E_PARAM_3  radius <= 0
  long PointArrayToCircleDistance(ZorPointArray& points, ZorPoint& centre, double radius,
                                  ZorPoint* minArrayPoint, ZorPoint* minCirclePoint,
                                  double* minDistance, ZorPoint* maxArrayPoint,
                                  ZorPoint* maxCirclePoint, double* maxDistance);

  /// Least and greatest distance of a list of points to an oval, negative inside. The earliest
  /// point on ties. Traced, around a nested "PointToOvalDistance" a point.
  /// @retval GM_E_TOO_FEW_POINTS  no point
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angleDeg outside [0, 360]
  long PointArrayToOvalDistance(ZorPointArray& points, ZorPoint& centre, double a, double b,
                                double angleDeg, ZorPoint* minArrayPoint, ZorPoint* minOvalPoint,
                                double* minDistance, ZorPoint* maxArrayPoint,
                                ZorPoint* maxOvalPoint, double* maxDistance);

  /// Least and greatest distance of a list of points to a rotated rectangle (width, height and
  /// angle as in RectAngularToPolygon), by PointToPolygonDistance to its corners: negative inside,
  /// 0 on the outline. The earliest point on ties. Traced, around a nested "PointToPolygonDistance"
  /// a point.
  /// @retval GM_E_TOO_FEW_POINTS  no point
  /// @retval GM_E_PARAM_3  width <= 0
  /// @retval GM_E_PARAM_4  height <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PointArrayToRectAngularDistance(ZorPointArray& points, ZorPoint& centre, double width,
                                       double height, double angle, ZorPoint* minArrayPoint,
                                       ZorPoint* minRectanglePoint, double* minDistance,
                                       ZorPoint* maxArrayPoint, ZorPoint* maxRectanglePoint,
                                       double* maxDistance);

  /// Unsigned distance of a segment to a circle, 0 where it meets the outline (both points are then
  /// the first of LineSegmentCircleIntersection). A segment within the circle is nearest to the
  /// outline at an end. Traced, around nested "PointToSegmentDistance" and
  /// "LineSegmentCircleIntersection" or "PointToCircleDistance".
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate
  /// @retval GM_E_PARAM_4  radius <= 0
  long LineSegmentToCircleDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre,
                                   double radius, double* distance, ZorPoint* segmentPoint,
                                   ZorPoint* circlePoint);
  /// The same distance and the greatest one, which a segment has at an end or, deep in the circle,
  /// in the point nearest to the centre. Where both ends are as far the maximum is the start.
  /// Traced, with a further nested "PointToCircleDistance".
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate
  /// @retval GM_E_PARAM_4  radius <= 0
  long LineSegmentToCircleDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre,
                                   double radius, double* minDistance, ZorPoint* minSegmentPoint,
                                   ZorPoint* minCirclePoint, double* maxDistance,
                                   ZorPoint* maxSegmentPoint, ZorPoint* maxCirclePoint);

  /// The two points where the tangent of the ellipse (x/a)^2 + (y/b)^2 = 1 has the given direction;
  /// they lie opposite each other. Nothing is checked: a direction of (0, 0) gives points that are
  /// not numbers. Always GM_OK. Not traced.
  long FindOvalTangentPoint(ZorPoint& direction, double a, double b, ZorPoint* tangentPoint1,
                            ZorPoint* tangentPoint2);

  /// Unsigned distance of the line through two points to an oval, in closed form; 0 where they meet
  /// (both points are then the crossing with the larger coordinate along the longer axis, or for a
  /// line along the shorter axis the one with the larger coordinate along that). What counts as
  /// touching does not shrink with the oval: one a tenth of a pixel wide is touched by lines a
  /// tenth away. The line is not checked: two equal points stand for the line along the shorter
  /// axis. The last three outputs are never written, since a line has no farthest point. Traced.
  /// @retval GM_E_PARAM_6  angleDeg outside [0, 360]
  /// @retval GM_E_PARAM_4  a <= 0
  /// @retval GM_E_PARAM_5  b <= 0
  long LineToOvalDistance(ZorPoint& lineStart, ZorPoint& lineEnd, ZorPoint& centre, double a,
                          double b, double angleDeg, double* distance, ZorPoint* linePoint,
                          ZorPoint* ovalPoint, double* maxDistance, ZorPoint* maxLinePoint,
                          ZorPoint* maxOvalPoint);

  /// Inert: returns GM_OK, whatever the arguments, and writes nothing; use the form with a maximum.
  /// Not traced itself (a nested "LineSegmentOvalIntersection" is).
  long LineSegmentToOvalDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a,
                                 double b, double angleDeg, double* distance,
                                 ZorPoint* segmentPoint, ZorPoint* ovalPoint);
  /// Least and greatest unsigned distance of a segment to the outline of an oval. The least is 0
  /// where they meet, with the crossing nearest to the start as both points; else it lies at an end
  /// or, past the oval, where the tangent is parallel to the segment. The greatest lies at an end
  /// or in the deepest point within the oval. The start on ties. Traced, around nested
  /// "PerpendicularProjection" and "PointTolineDistance" for the two tangents and
  /// "PointToOvalDistance" for the ends and what may be the deepest point.
  /// @retval GM_E_DEGENERATE_LINE  the segment is degenerate
  /// @retval GM_E_PARAM_3  a <= 0 (numbered as in PointToOvalDistance)
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angleDeg outside [0, 360]
  long LineSegmentToOvalDistance(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a,
                                 double b, double angleDeg, double* minDistance,
                                 ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint,
                                 double* maxDistance, ZorPoint* maxSegmentPoint,
                                 ZorPoint* maxOvalPoint);
  /// The same measurement, traced under its own name; the facade's LineSegmentToOvalDistance.
  long LineSegmentToOvalDistance2(ZorPoint& segStart, ZorPoint& segEnd, ZorPoint& centre, double a,
                                  double b, double angleDeg, double* minDistance,
                                  ZorPoint* minSegmentPoint, ZorPoint* minOvalPoint,
                                  double* maxDistance, ZorPoint* maxSegmentPoint,
                                  ZorPoint* maxOvalPoint);

  /// Least and greatest distance of a contour, an open polyline, to a circle, signed as in
  /// PointToCircleDistance. The minimum is measured along the polyline: a segment outside the
  /// circle counts with its nearest point, one within it with its deepest (negative), and one that
  /// meets the outline, or comes within 1e-5 of it, with 0. The maximum is measured at the contour
  /// points, which for the signed distance is that of the polyline. `distances` is replaced by the
  /// signed distances of all contour points in order. The earliest on ties; segments without a
  /// direction are passed over, and a contour with none that has one counts with its first point.
  /// Traced, around a nested "PointToCircleDistance" a point and "LineSegmentToCircleDistance" a
  /// segment.
  /// @retval GM_E_EMPTY_CONTOUR  no point
  /// @retval GM_E_PARAM_3  radius <= 0
  long CircleToContourDistance(ZorContour& contour, ZorPoint& centre, double radius,
                               ZorVarArray* distances, ZorPoint* minContourPoint,
                               ZorPoint* minCirclePoint, double* minDistance,
                               ZorPoint* maxContourPoint, ZorPoint* maxCirclePoint,
                               double* maxDistance);
  /// The same for an oval; on the outline is what PointToOvalDistance puts there. Traced, around a
  /// nested "PointToOvalDistance" a point and "LineSegmentToOvalDistance" a segment.
  /// @retval GM_E_EMPTY_CONTOUR  no point
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angleDeg outside [0, 360]
  long OvalToContourDistance(ZorContour& contour, ZorPoint& centre, double a, double b,
                             double angleDeg, ZorVarArray* distances, ZorPoint* minContourPoint,
                             ZorPoint* minOvalPoint, double* minDistance, ZorPoint* maxContourPoint,
                             ZorPoint* maxOvalPoint, double* maxDistance);

  // ==== Intersections of lines and segments =====================================================
  // Lines are given by two points on them, segments by their ends, which belong to them.
  // Degenerate: the two points lie within 0.0005 of each other, inclusive.

  /// Whether (p - a) . (p - b) <= 0: for a point p of line ab, that it lies on segment ab, ends
  /// included. Not traced.
  bool PointOnSegment(ZorPoint& p, ZorPoint& a, ZorPoint& b);

  /// Whether segments a1a2 and b1b2 cross, ends included. False for degenerate segments and for
  /// every parallel pair, overlapping ones too. `point` receives the crossing of the two lines
  /// whenever there is one, also where the answer is false. The flag is neither read nor written.
  /// Not traced itself (a nested "LinesIntersection" is).
  bool LineSegmentsIntersection(ZorPoint& a1, ZorPoint& a2, ZorPoint& b1, ZorPoint& b2,
                                ZorPoint* point, bool* unused);

  /// Whether segment s1s2 meets line l1l2, with a slack beyond the ends: (x - s1) . (x - s2) may be
  /// up to 1e-5. False when LinesIntersection fails; otherwise `point` receives the crossing of the
  /// two lines, also where the answer is false. The flag is neither read nor written. Not traced
  /// itself (a nested "LinesIntersection" is).
  bool LineSegmentToLineIntersection(ZorPoint& s1, ZorPoint& s2, ZorPoint& l1, ZorPoint& l2,
                                     ZorPoint* point, bool* unused);

  // Finding no point is GM_OK with an empty list. Ovals have semi-axes a and b, rectangles a width
  // and a height along axes that are turned by `angle` degrees counter-clockwise on the screen.

  /// Replaces `points` by the crossings of a line with a circle. Vertical (p1.x == p2.x exactly):
  /// larger y first; otherwise larger x first. A line whose distance from the centre is within 1e-6
  /// (inclusive) of the radius touches: one point. On failure `points` is emptied. Traced.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  /// @retval GM_E_PARAM_4  radius <= 0
  long LineCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double radius,
                              ZorPointArray* points);

  /// Replaces `points` by the crossings of a line with an oval. For a < b the axes are swapped and
  /// the angle raised by 90; the order is that along the first axis of this frame, larger first, or
  /// along its second axis for a line parallel to that. Touching within 1e-5 (inclusive) of the
  /// normalised discriminant gives one point, with a coordinate that is not a number where the line
  /// is parallel to the second axis and just misses the oval. The formulas work in image
  /// coordinates: far from the origin, small ovals lose digits. Traced, around a nested
  /// "PerpendicularProjection".
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  /// @retval GM_E_PARAM_4  a <= 0
  /// @retval GM_E_PARAM_5  b <= 0
  /// @retval GM_E_PARAM_6  angle outside [0, 360]
  long LineOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double a, double b,
                            double angle, ZorPointArray* points);

  /// Replaces `points` by the crossings of a line with a rectangle's edges: from corner 3 to corner
  /// 0 (see RectAngularToPolygon), then 0 to 1, 1 to 2, 2 to 3, as LineSegmentToLineIntersection
  /// finds them. A hit within 1e-5 (inclusive) of the one kept before it is dropped, so is the last
  /// when it is that close to the first: a corner counts once. An edge along the line has no hit of
  /// its own, and a line between 1e-5 and 0.0005 long none at all. Traced, around nested records of
  /// LinesIntersection unless `points` is null.
  /// @retval GM_E_DEGENERATE_LINE  p1 and p2 lie within 1e-5 (inclusive) of each other
  /// @retval GM_E_PARAM_4  width <= 0
  /// @retval GM_E_PARAM_5  height <= 0
  /// @retval GM_E_PARAM_6  angle outside [0, 360]
  long LineRectangularIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double width,
                                   double height, double angle, ZorPointArray* points);

  /// Replaces `points` by the crossings of segment p1p2 with a circle, in the order of
  /// LineCircleIntersection. A segment whose ends differ by less than 1e-6 in x is taken as
  /// vertical at p1.x, larger y first, and its length and the radius are not checked. On failure
  /// `points` is emptied. Traced, around a nested "LineCircleIntersection" unless vertical.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  /// @retval GM_E_PARAM_4  radius <= 0
  long LineSegmentCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double radius,
                                     ZorPointArray* points);

  /// Replaces `points` by the crossings of segment p1p2 with an oval, in the order of
  /// LineOvalIntersection, whose codes it passes on. On failure `points` is emptied. Traced, around
  /// a nested "LineOvalIntersection".
  long LineSegmentOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre, double a, double b,
                                   double angle, ZorPointArray* points);

  /// Replaces `points` by the crossings of segment p1p2 with a polygon's edges, as
  /// LineSegmentsIntersection finds them: the closing edge (last vertex to first) first, then the
  /// edges in order. A segment through a vertex meets it once on each of its edges. Linear, about
  /// 2 ns an edge. Not traced itself (nested "LinesIntersection" are).
  /// @retval GM_E_PARAM_3  fewer than 3 vertices; `points` stays as it is
  long LineSegmentPolygonIntersection(ZorPoint& p1, ZorPoint& p2, ZorPointArray& polygon,
                                      ZorPointArray* points);

  /// Appends to `points` the crossings of line p1p2 with the segments of an open contour, in its
  /// order: those of the lines, where they lie in the segment's bounding box to the last bit. A
  /// point that equals one in the list bit by bit, also one that the caller left there, is not
  /// appended again. Segments at most 0.0005 long, or parallel to the line by LinesIntersection's
  /// test, have no crossing. Traced, around nested records of LinesIntersection.
  /// @retval GM_E_DEGENERATE_LINE  p1p2 is degenerate
  /// @retval GM_E_EMPTY_CONTOUR  the contour is empty
  /// @retval GM_E_INTERSECTION_FAILED  an exception while reading or appending
  long LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                               ZorPointArray* points);
  /// The same, without a record of its own; for each point appended also the start and the end of
  /// its segment, and the indices of both (two entries a point). All lists are appended to, any may
  /// be null; without `points` a point counts as repeated when this call found it before. The last
  /// vector is neither read nor written.
  long LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                               ZorPointArray* points, std::vector<ZorPoint>* segmentStarts,
                               std::vector<ZorPoint>* segmentEnds, std::vector<int>* segmentIndices,
                               std::vector<int>* unused);

  /// Replaces `points` by the points where the tangents from a point touch a circle, the one
  /// counter-clockwise of the point (as seen from the centre, on the screen) first; by the point
  /// itself when it lies exactly on the circle, by none when it lies inside. Traced, around a
  /// nested "PointToCircleDistance".
  /// @retval GM_E_PARAM_3  radius <= 0
  long TangentFromPointToCircle(ZorPoint& point, ZorPoint& centre, double radius,
                                ZorPointArray* points);

  // ==== Intersections of shapes =================================================================
  // Two closed figures: the points where their outlines cross and the area that they share. Either
  // output may be null and is then not computed; lists are replaced. Here pi is 3.141592653.

  /// Circles c1, r1 and c2, r2 (pixels). Traced, around nested AngleFrom4Point and IncludedAngle
  /// when the area of crossing circles is wanted. In the order of the tests:
  ///  - centres within 0.0005, inclusive: no points, the smaller disc; radii within 1e-5 as well:
  ///    the area is written and the code below returned;
  ///  - more than 0.001 apart: no points, area 0;
  ///  - one more than 0.001 inside the other: no points, the smaller disc;
  ///  - else within 0.001 of touching from outside: one point on the way from c1 to c2, area 0;
  ///  - else within 0.001 of touching from inside: one point on the side of c1 away from c2, be
  ///    c1's circle the larger one or not, and the smaller disc;
  ///  - else two points, clockwise and then counter-clockwise on the screen of the direction from
  ///    c1 to c2, and the lens.
  /// @retval GM_E_PARAM_2  r1 <= 0
  /// @retval GM_E_PARAM_4  r2 <= 0
  /// @retval GM_E_NO_INTERSECTION  the circles coincide; `area` is written, `points` is not
  long CircleToCircleIntersection(ZorPoint& c1, double r1, ZorPoint& c2, double r2,
                                  ZorPointArray* points, double* area);

  /// Ovals with semi-axes a, b and the angle of the first axis in degrees. Points in ascending
  /// parametric angle on the first oval (clockwise on the screen from the end of its first axis),
  /// touching ones included, less those within 1.0 of an earlier one; none at all when the area is
  /// below 1e-6 (it is computed for that test even when `area` is null). One oval inside the other
  /// gives its area. Two circles given as ovals with other angle differences than below are not
  /// recognised as coincident: no points, and their area. Traced.
  /// @retval GM_E_PARAM_2  a1 <= 0
  /// @retval GM_E_PARAM_3  b1 <= 0
  /// @retval GM_E_PARAM_4  angle1 outside [0, 360]
  /// @retval GM_E_PARAM_6  a2 <= 0
  /// @retval GM_E_PARAM_7  b2 <= 0
  /// @retval GM_E_PARAM_8  angle2 outside [0, 360]
  /// @retval GM_E_NO_INTERSECTION  the same oval: centres within 1e-5, and axes within 1e-5 with
  ///         angles a multiple of 180 apart, or swapped axes with 90 or 270, within 1e-5
  long OvalsIntersection(ZorPoint& c1, double a1, double b1, double angle1, ZorPoint& c2, double a2,
                         double b2, double angle2, ZorPointArray* points, double* area);

  /// A circle and an oval, as OvalsIntersection with the circle first, but points are reported
  /// whatever the area: figures that touch give the point where they do. Traced.
  /// @retval GM_E_PARAM_2  r <= 0
  /// @retval GM_E_PARAM_4  a <= 0
  /// @retval GM_E_PARAM_5  b <= 0
  /// @retval GM_E_PARAM_6  angle outside [0, 360]
  /// @retval GM_E_NO_INTERSECTION  the same figure, as for OvalsIntersection with angle 0
  long CircleOvalIntersection(ZorPoint& c, double r, ZorPoint& centre, double a, double b,
                              double angle, ZorPointArray* points, double* area);

  // Pairs with a rectangle or a polygon. Crossing points are those of the polygon's edges, the
  // closing one (last vertex, or corner 3, to the first) first, in the order of the segment
  // operations above, less those within 1.0 of an earlier one. Areas are those of the curved figure
  // as a polygon of samples (SampleArc, in single precision), which falls short of a circle by
  // about 2 pi^2 / (3 n^2) of it for n samples, and of an oval with b = k a by (3 / k^2 + 2 + 3
  // k^2) / 8 times as much, since its samples are even in direction; n is limited to ten million,
  // of ovals to one. Polygons are simple, in either direction; one that crosses itself gives some
  // area. Traced, around nested records.

  /// A circle and a rectangle. The rectangle's angle turns the other way than in every other
  /// operation (clockwise on the screen), one of 180 or more counts less 180. At least 10 000
  /// samples, ten a pixel of radius. `points` is emptied before the arguments are checked.
  /// @retval GM_E_PARAM_2  r <= 0
  /// @retval GM_E_PARAM_4  width <= 0
  /// @retval GM_E_PARAM_5  height <= 0
  /// @retval GM_E_PARAM_6  angle outside [0, 360]
  long CircleRectangularIntersection(ZorPoint& c, double r, ZorPoint& centre, double width,
                                     double height, double angle, ZorPointArray* points,
                                     double* area);

  /// An oval and a rectangle. An oval angle above 180 gives no crossing points (the area is right;
  /// give the angle less 180 for both). At least 10 000 samples, ten a pixel of the larger
  /// semi-axis. `points` is emptied before the arguments are checked.
  /// @retval GM_E_PARAM_2  a <= 0
  /// @retval GM_E_PARAM_3  b <= 0
  /// @retval GM_E_PARAM_4  ovalAngle outside [0, 360]
  /// @retval GM_E_PARAM_6  width <= 0
  /// @retval GM_E_PARAM_7  height <= 0
  /// @retval GM_E_PARAM_8  angle outside [0, 360]
  long OvalRectangularIntersection(ZorPoint& ovalCentre, double a, double b, double ovalAngle,
                                   ZorPoint& centre, double width, double height, double angle,
                                   ZorPointArray* points, double* area);

  /// A polygon and a circle. At least 1000 samples, ten a pixel of radius.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  /// @retval GM_E_PARAM_3  r <= 0
  long PolygonCircleIntersection(ZorPointArray& polygon, ZorPoint& c, double r,
                                 ZorPointArray* points, double* area);

  /// A polygon and an oval. At least 1000 samples, ten a pixel of the larger semi-axis.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PolygonOvalIntersection(ZorPointArray& polygon, ZorPoint& centre, double a, double b,
                               double angle, ZorPointArray* points, double* area);

  /// Replaces `points` by the crossings of the edges of p (the closing one, from the first vertex
  /// to the last, then the edges in order) with those of q, cleaned by FormatPointArray: a lone
  /// crossing found on two edges vanishes. `area` is never written. Nothing is checked; a polygon
  /// without edges gives no points. Always GM_OK. Not traced itself.
  long PolygonsIntersection(ZorPointArray& p, ZorPointArray& q, ZorPointArray* points,
                            double* area);

  /// Overlap of two convex polygons: its vertices in ascending angle about their mean, from +x
  /// towards +y, some of them repeated, and the area that this order encloses. Polygons that are
  /// not convex give something else. Nothing is checked; no overlap gives an empty list and area 0.
  /// Always GM_OK. Not traced itself; selections and intersections inside are.
  long ConvexPolygonIntersection(ZorPointArray& p, ZorPointArray& q, ZorPointArray* points,
                                 double* area);

  /// Overlap of two simple polygons in either direction: crossings as PolygonsIntersection gathers
  /// them, less those within 1.0 of an earlier one, and the exact area. The area does not depend on
  /// the number of threads that work on it. Traced; with a sink, around nested records.
  /// @retval GM_E_TOO_FEW_POINTS  either has fewer than 3 vertices
  long PolygonsIntersection2(ZorPointArray& p, ZorPointArray& q, ZorPointArray* points,
                             double* area);

  /// Replaces `corners` by the corners of a rotated rectangle: (w/2, h/2), (-w/2, h/2),
  /// (-w/2, -h/2), (w/2, -h/2) in its own frame, turned by `angle` degrees (less 180 from 180 on)
  /// counter-clockwise on the screen. Not traced.
  /// @retval GM_E_PARAM_2  width <= 0
  /// @retval GM_E_PARAM_3  height <= 0
  /// @retval GM_E_PARAM_4  angle outside [0, 360]
  long RectAngularToPolygon(ZorPoint& centre, double width, double height, double angle,
                            ZorPointArray* corners);

  // ==== Position relations ======================================================================
  // Relation codes: -1 inside, 0 on the outline within the operation's tolerance, 1 outside.

  /// Relation of a point to a circle; on the outline when closer than 1e-5 to it. Traced.
  /// @retval GM_E_PARAM_3  radius <= 0
  long PointToCirclePosRelation(ZorPoint& point, ZorPoint& centre, double radius, int* code);

  /// Relation of a point to an oval with semi-axes a and b, the first turned by `angle` degrees
  /// counter-clockwise on the screen. On the outline when its equation (u/a)^2 + (v/b)^2 - 1 is at
  /// most 1e-5 in size, which is no distance in pixels. Traced.
  /// @retval GM_E_PARAM_3  a <= 0
  /// @retval GM_E_PARAM_4  b <= 0
  /// @retval GM_E_PARAM_5  angle outside [0, 360]
  long PointToOvalPosRelation(ZorPoint& point, ZorPoint& centre, double a, double b, double angle,
                              int* code);

  /// Relation of a point to a polygon, by the crossings of a ray with its edges (even-odd where it
  /// crosses itself). On the outline: within 1e-5 (inclusive) of an edge, measured along x for
  /// edges that are not horizontal, and along y, between their ends, for horizontal ones; and at a
  /// vertex exactly. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  long PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon, int* code);
  /// The same relation as the return value, for any number of vertices: an empty polygon has every
  /// point outside. Not traced.
  long PointToPolygonPosRelation(ZorPoint& point, ZorPointArray& polygon);

  /// Relation of a point to a polygon with an outline about a pixel wide: on the outline when an
  /// edge, by PointToSegmentDistance mode 0, is closer than 1.1, or up to sqrt(2) (inclusive) when
  /// `angle` lies near an axis or a diagonal. The angle is a direction in degrees, such as that of
  /// the edge in question; less 180 from 180 on it does so below 20, above 160, and between 35 and
  /// 55, 80 and 100, 125 and 145 (exclusive). Otherwise the crossings of the ray decide as in
  /// PointToPolygonPosRelation, without its reach along x; edges at most 0.0005 long have no
  /// distance. Not traced itself (nested "PointToSegmentDistance" are, up to the first edge in
  /// reach).
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  long PointToPolygonPosRelation2(ZorPoint& point, ZorPointArray& polygon, double angle, int* code);
  /// The same relation as the return value, for any number of vertices: an empty polygon has every
  /// point outside. Not traced itself.
  long PointToPolygonPosRelation2(ZorPoint& point, double angle, ZorPointArray& polygon);

  // ==== Selection by region =====================================================================
  // Kept are the points whose relation to the region is not "outside", in order.

  /// Appends to `selected` the points inside or on a polygon, by PointToPolygonPosRelation. Runs in
  /// parallel; the result does not depend on the number of threads. Fast for any number of points
  /// and vertices while no sink is attached, through an index over the polygon. Traced, around a
  /// nested "PointToPolygonPosRelation" for each point, from several threads and so interleaved,
  /// unless `selected` is null.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points, or fewer than 3 vertices
  long PointArraySelectedByPolygon(ZorPointArray& points, ZorPointArray& polygon,
                                   ZorPointArray* selected);

  /// Replaces `selected`, which may be the list of the points, by the points inside or on a circle.
  /// Traced, around a nested "PointToCirclePosRelation" for each point unless `selected` is null.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  /// @retval GM_E_PARAM_3  radius <= 0
  long PointArraySelectedByCircle(ZorPointArray& points, ZorPoint& centre, double radius,
                                  ZorPointArray* selected);

  // ==== Area, centroid, moments =================================================================
  // A polygon's closing edge, from the last vertex to the first, is implied. Signed results are
  // positive when the vertices run counter-clockwise with y upwards, clockwise on the screen.

  /// Area of the polygon whose vertices are cut to whole pixels (towards zero): never negative. A
  /// coordinate outside the range of an int is cut to that range, one that is not a number to 0.
  /// Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  long Area(ZorPointArray points, double* area);

  /// Signed area of the polygon. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points; the area is then set to 0
  long Area2(ZorPointArray& points, double* area);

  /// Mean of the points. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  long PointArrayCenter(ZorPointArray& points, ZorPoint* centre);

  /// Centroid of the polygon's area, with vertices cut to whole pixels as in Area; the mean of the
  /// points as given (a nested "PointArrayCenter") when the cut polygon's area is at most 1e-5.
  /// Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  long PolygonCenter(ZorPointArray points, ZorPoint* centre);

  /// Mean of the centres of all triangles of three consecutive vertices, each weighted with its
  /// signed area; fewer than four points give their mean. The area centroid only of special shapes:
  /// PolygonCenter gives that. Total weight 0: the mean of the points, by a nested
  /// "PointArrayCenter". Not traced itself.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  long PolygonWeightCenter(ZorPointArray& points, ZorPoint* centre);

  /// The integral of x^p y^q over the polygon, for order = 10 p + q one of 0, 1, 2, 10, 11, 20 and
  /// 22; signed like Area2. Any other order gives 0 and GM_OK. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  long CalcMoment(ZorPointArray& points, int order, double* moment);

  /// The two points farthest apart, in the order of the list; of equal distances the pair whose
  /// first point comes first, then whose second does. Two points are given back as they are; of
  /// three or more that all coincide both outputs are (0, 0). A point with a coordinate that is not
  /// a number belongs to no pair. About linear. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  long FindMaxDistancePointPair(ZorPointArray& points, ZorPoint* first, ZorPoint* second);

  // ==== Form measures ===========================================================================
  // How closely an outline matches an ideal form. Points are the vertices of a closed polygon.
  // Routines in single precision take the points rounded to it; a coordinate that is not finite
  // then makes their results not a number.

  /// How nearly the outline is a circle, 1 for one. Mode 0: area over that of the circle with the
  /// same perimeter. Mode 1: 1 less the root mean square of the distances from the fitted circle
  /// (FitCircle) over its radius. Mode 2: area over that of the fitted circle. Mode 3: area over
  /// that of the circle about PolygonCenter through the farthest point. A ratio v rates as
  /// 1 - |1 - v|; ratings below 0 are 0. Where no circle fits, mode 1 rates 0. Not a number where a
  /// mode divides 0 by 0: any may for points that all coincide, and mode 2 does for points in line.
  /// Not traced itself; a nested "PolygonCenter" in mode 3 is.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 10 points
  /// @retval GM_E_PARAM_2  mode outside 0 .. 3
  long Roundness(ZorPointArray& points, int mode, double* roundness);

  /// Straightness of a point set. Mode 0: eccentricity of the ellipse of its second moments, from 0
  /// for a set as wide as it is long to 1 for a line; not a number for points that all coincide.
  /// Mode 1: width of the band of distances from the fitted line (LeastSqaureLineFit with one
  /// iteration), the largest distance less the smallest, in pixels. Not traced itself; in mode 1
  /// the fit and PointTolineDistance, once a point, are.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 10 points
  /// @retval GM_E_PARAM_2  mode is not 0 or 1
  long Straightness(ZorPointArray& points, int mode, double* straightness);

  /// Area (of the polygon cut to whole pixels) over that of the rectangle of least area about the
  /// points: 1 for a rectangle of whole pixels however it is turned; slightly above 1 where cutting
  /// enlarges the polygon. Not traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 4 points
  long Rectangularity(ZorPointArray& points, double* rectangularity);

  /// Rectangularity by a moment of fourth order, turned to the polygon's orientation: r = 144 times
  /// the integral of x^2 y^2 over the cube of the area, or 1 / r when r is above 1. Exactly right
  /// for rectangles along the axes only: at other angles the turn doubles the tilt instead of
  /// undoing it, so that a rectangle does not reach 1; Rectangularity does. 0 when Area2 is at most
  /// 1e-5, hence for every polygon that runs counter-clockwise on the screen. Not traced itself; a
  /// nested MinAreaRectangularity, where the moments show no orientation, is.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 4 points
  long Rectangularity2(ZorPointArray& points, double* rectangularity);

  /// Rectangle of least area about the points: centre, longer and shorter side, and the direction
  /// of the longer one in degrees in [0, 180) as by AngleFromHorizontal (0 when all points
  /// coincide). Single precision. Traced, around nested MidPoint and AngleFromHorizontal.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  long MinAreaRectangularity(ZorPointArray& points, ZorPoint* centre, double* length, double* width,
                             double* angle);

  // ==== Enclosing figures =======================================================================
  // Rectangles come as from MinAreaRectangularity, whose nested records they leave: the longer side
  // first, its direction in degrees in [0, 180).

  /// The square about a circle; its direction is that of one of its sides. Traced.
  /// @retval GM_E_PARAM_2  radius <= 0
  long CircleExternalRectangle(ZorPoint& centre, double& radius, ZorPoint* rectCentre,
                               double* length, double* width, double* angle);

  /// The rectangle about an ellipse with semi-axes a and b along its own axes. Unlike everywhere
  /// else the ellipse's `angle` is in radians, and it turns from +x towards +y. Traced.
  /// @retval GM_E_PARAM_2  a <= 0
  /// @retval GM_E_PARAM_3  b <= 0
  long EllipseExternalRectangle(ZorPoint& centre, double a, double b, double angle,
                                ZorPoint* rectCentre, double* length, double* width,
                                double* rectAngle);

  /// The bounding box of the points, rounded to single precision, along the axes. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  long PolygonExternalRectangle(ZorPointArray& points, ZorPoint* boxCentre, double* width,
                                double* height);

  /// The smallest circle about the points, in single precision: a point may lie 1e-4 outside the
  /// exact one, by which the radius is enlarged. About linear in the number of points in any order.
  /// Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  long ExternalCircle(ZorPointArray& points, ZorPoint* centre, double* radius);

  /// The largest circle inside a simple polygon, convex or concave, in either direction; of equally
  /// large ones any. Its radius is exact for its centre, and no circle is larger by more than 1e-7
  /// of the polygon's extent (of arms narrower than a thousandth of it the search may take one that
  /// is not the widest). Of a polygon that crosses itself the inside is what an odd number of
  /// turns encloses. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 points
  /// @retval GM_E_INSCRIBED_CIRCLE_FAILED  no circle fits: the polygon is thinner than 1e-7 of its
  ///         extent, or a coordinate is not finite
  long IncisionCircle(ZorPointArray& points, ZorPoint* centre, double* radius);

  /// Radius, and centre, of the circle that touches the three sides of the triangle abc. A triangle
  /// whose points a and c lie within 1e-5 (inclusive), or the cross product of two of whose sides
  /// is at most 1e-5, gives 0 and leaves the centre as it is. Not traced.
  double GetInnerCircle(ZorPoint& a, ZorPoint& b, ZorPoint& c, ZorPoint* centre);

  // ==== Contour offsetting ======================================================================
  // The result replaces `result`, which may be the contour itself. None is traced itself.

  /// The contour scaled about `centre`: every point goes to centre + factor (point - centre).
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_3  factor <= 0
  long ContourScaling(ZorContour& contour, ZorPoint& centre, double factor, ZorContour* result);

  /// Inert: returns GM_OK and leaves `result` as it is.
  long ContourScaling2(ZorContour& contour, ZorPoint& centre, ZorContour* result, double factor);

  /// Offsets an open contour. With 15 points or more every point moves along the normal of a
  /// parabola through it and its neighbours, five on either side, and all normals point to one side
  /// of the contour. On a flat start, where that parabola is y(x), a positive distance moves to +y
  /// if the first step goes to the right or straight up or down, and to -y if it goes to the left;
  /// the first point alone always moves by the distance as given. A shorter contour, of 3 to 14
  /// points, grows by the distance from its PolygonWeightCenter (a point there is not finite);
  /// "PointArrayCenter" is recorded where that falls back to the mean. A distance of 0 copies.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  long ContourScaling3(ZorContour& contour, double distance, ZorContour* result);

  /// Offsets a closed contour: outwards by a positive distance, inwards by a negative one, wherever
  /// the contour starts and whichever way it runs. Along a spike that is one pixel wide and longer
  /// than the five neighbours on either side the normals may change sides, and with them the part
  /// of the contour up to the start. Points, codes and records otherwise as ContourScaling3, the
  /// neighbours taken cyclically.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  long ContourScaling_Closed(ZorContour& contour, double distance, ZorContour* result);

  // ==== Convex points, curvature, search lines ==================================================
  // A point's neighbours are as many points before and behind it as given; at least 1, and so few
  // that no point is on both sides. The contours are closed and may run either way.

  /// Replaces `convex` by the points where the contour bulges outwards most: where the curvature of
  /// ZorGeometryMeasureTools::GetCurvatures, taken as positive towards the outside, is at least
  /// `curvature` (1 / pixel), greater than at all neighbours before and no less than at all behind.
  /// In the order of the contour; none is no failure. Traced.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  /// @retval GM_E_PARAM_2  neighbours < 1, or 2 * neighbours >= number of points
  /// @retval GM_E_PARAM_3  curvature < 0
  long FindConvexPoint(ZorContour& contour, int neighbours, double curvature,
                       ZorPointArray* convex);

  /// The same by the height in pixels of each point over the chord between its outermost
  /// neighbours, at least `height`. Traced.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  /// @retval GM_E_PARAM_2  neighbours < 1, or 2 * neighbours >= number of points
  /// @retval GM_E_PARAM_3  height < 0
  long FindConvexPoint2(ZorContour& contour, int neighbours, double height, ZorPointArray* convex);

  /// Replaces `indices` by the places, ascending, of the local minima (mode 0) or maxima (mode 1)
  /// of a list: values beyond all their neighbours before and not surpassed by those behind, so
  /// that of equal ones the first counts. A closed list goes on at its other end, an open one ends.
  /// A value that is not a number counts for nothing, and values that are all equal have no
  /// extremum. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 values
  /// @retval GM_E_PARAM_2  mode is not 0 or 1
  /// @retval GM_E_PARAM_3  neighbours < 1, or 2 * neighbours >= number of values
  long FindExtremeValue(ZorVarArray& values, int mode, int neighbours, bool closed,
                        ZorVarArray* indices);

  // ==== Images ==================================================================================
  // Three channels are taken as blue, green, red and turned into grey. An empty image has no
  // extrema. What the image routines underneath throw passes to the caller.

  /// Appends the local minima of an image, as (column, row) in scan order: pixels darker than
  /// `threshold` and no brighter than any pixel within `radius` columns and rows, as far as the
  /// image reaches. Row 0 and column 0 are neither searched nor compared with. A pixel with a pixel
  /// of its own value that near, or itself, already in `output` is left out, be it found before or
  /// left there by the caller: a plateau gives its first pixel in scan order, and further ones
  /// where it is wider than the radius. A radius below 0 compares with nothing. Always GM_OK.
  /// Traced.
  long localminima(ZorImage image, int threshold, int radius, ZorPointArray* output);
  /// Appends the local maxima of an image: pixels brighter than `threshold` and no darker than any
  /// pixel within `radius`; all else as for localminima. Always GM_OK. Traced.
  long localmaxima(ZorImage image, int threshold, int radius, ZorPointArray* output);

  /// The local minima of the image smoothed by a Gaussian spot: `width` is its full width at half
  /// maximum in pixels (sigma = width / (2 sqrt(2 ln 2)), the kernel reaches three sigma to each
  /// side, its size forced odd). A width below 1 does not smooth, one above 255 or above the larger
  /// side of the image counts as the smaller of these; the time grows with it. Threshold and
  /// comparisons are of the smoothed image, rounded to whole grey values, under the rules of
  /// localminima. Always GM_OK. Traced.
  long PSFlocalminimum(ZorImage image, int threshold, int radius, int width, ZorPointArray* output);
  /// The local maxima of the smoothed image; all else as for PSFlocalminimum. Always GM_OK. Traced.
  long PSFlocalmaximum(ZorImage image, int threshold, int radius, int width, ZorPointArray* output);

  /// Measures the white areas of a binary image; `roi` and `rois` are neither read nor written, the
  /// whole image is measured. Mode 0: every blob of pixels other than 0 whose outer boundary, holes
  /// included, encloses an area of minArea to maxArea (both included): the area and the centre,
  /// each coordinate to the nearest whole number (halves away from zero), in the order in which the
  /// boundaries are found. Areas are those between pixel centres: a single pixel or a line of
  /// pixels has 0, and the centre of its bounding box. Mode 1: the number of pixels of value 255,
  /// as the only area. Any other mode measures nothing. The three lists are cleared first, whatever
  /// follows. Traced.
  /// @retval GM_E_EMPTY_IMAGE  no rows or no columns
  long AreaMeasure(ZorImage& image, ZorROI& roi, int mode, float minArea, float maxArea,
                   ZorROIArray* rois, ZorVarArray& areas, ZorVarArray& centreX,
                   ZorVarArray& centreY);

 private:
  ZorPointArray scratch_;  // kept for the object's layout; no operation reads what a call left here
};
