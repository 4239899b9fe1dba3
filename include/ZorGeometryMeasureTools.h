#pragma once

#include <utility>
#include <vector>

#include "ZorStatus.h"
#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

/// Vector, polygon and contour tools beside the measuring operations. No state. The conventions of
/// ZorGeometryMeasure hold, but that nothing is traced unless it says so.
class ZORGEOMETRYMEASURE_EXPORT ZorGeometryMeasureTools {
 public:
  ZorGeometryMeasureTools() noexcept = default;

  /// Direction of a vector in degrees from 0 to below 360, or 360 by rounding a hair before +x, by
  /// atan2 in the frame of the coordinates: from +x towards +y, which is clockwise on the screen.
  /// The zero vector gives 0.
  double CalcVectorAngle(ZorPoint& v);

  /// Mean of the points; of an empty list, not a number.
  ZorPoint PointArrayCenter(ZorPointArray& points);

  // ==== Polygons ================================================================================
  // Vertices come out as points of the input rounded to single precision, in the order of the
  // contour. Tolerances are distances in pixels.

  /// Replaces `polygon` by the contour's approximation by OpenCV's approxPolyDP, taken as closed.
  /// It can start anywhere on the contour. A tolerance of 0 drops only points in line.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_2  tolerance is not in [0, 1e30)
  long GetPolygon(ZorContour& contour, double tolerance, ZorPointArray* polygon);

  /// Replaces `polygon` by the fewest vertices that splitting where the outline deviates most
  /// leaves: every point lies within the tolerance (inclusive) of the side that stands for it. A
  /// vertex that its neighbours can do without, the top of a bump that is within the tolerance,
  /// say, is dropped again. With n above 0 there are at most n vertices, those found first; 0 sets
  /// no bound. An outline that is not closed keeps its ends; a closed one may start at any of its
  /// points and comes out from the lowest index on.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 2 points
  /// @retval GM_E_PARAM_2  tolerance <= 0
  /// @retval GM_E_PARAM_3  n < 0
  long GetPolygon2(ZorPointArray& points, double tolerance, int n, bool closed,
                   ZorPointArray* polygon);

  /// Orders the vertices of a convex polygon, in place, by their direction from the mean of all of
  /// them: from +x towards +y (clockwise on the screen), angles in [0, 360) ascending. Always
  /// GM_OK.
  long OrderConvexPolygonVertex(ZorPointArray& points);

  /// Brings a polygon, in place, into standard form: clockwise on the screen, starting at its
  /// topmost vertex (the leftmost of several). Equal outlines thus become equal lists. A polygon
  /// without area keeps its direction.
  /// @retval GM_E_TOO_FEW_POINTS  fewer than 3 vertices
  long ReorganizePolygon(ZorPointArray& polygon);

  // ==== Curvature ===============================================================================

  /// Unsigned distance of a point from a line. Traced.
  /// @retval GM_E_DEGENERATE_LINE  the line's points lie within 0.0005 of each other (inclusive)
  long PointTolineDistance(ZorPoint& point, ZorLine& line, double* distance);

  /// Curvature of the circle through three points, one over its radius in pixels: positive where
  /// the way turns from +x towards +y (clockwise on the screen), 0 for points in line. Traced.
  /// @retval GM_E_DEGENERATE_LINE  two of the points lie within 0.0005 of each other (inclusive)
  long GetCurvature(ZorPoint& before, ZorPoint& point, ZorPoint& behind, double* curvature);

  /// Replaces `curvatures` by that of every point, by GetCurvature from it and the points
  /// `neighbours` before and behind: the more, the smoother. 0 where two of the three coincide. A
  /// closed contour goes on at its other end; of an open one the first and last points take the
  /// value of the nearest point that has both neighbours. Traced.
  /// @retval GM_E_EMPTY_CONTOUR  no points
  /// @retval GM_E_PARAM_1  fewer than 3 points
  /// @retval GM_E_PARAM_2  neighbours < 1, or 2 * neighbours >= number of points
  long GetCurvatures(ZorContour& contour, int neighbours, bool closed, ZorVarArray* curvatures);

  /// The point that bulges most from a line, and its distance; the earliest of several. Traced.
  /// @retval GM_E_TOO_FEW_POINTS  no points
  /// @retval GM_E_DEGENERATE_LINE  the line's points lie within 0.0005 of each other (inclusive)
  long FindConvexPoint(ZorPointArray& points, ZorLine& line, ZorPoint* convex, double* distance);

  // ==== Defects =================================================================================

  /// Finds nothing; ZorFindDefectRegion and the facade's FindDefectRegion do. Reseeds `rand` as
  /// ZorRansacFit does and reads or writes no argument but the contour's points. GM_OK with more
  /// than 10 points, else -1.
  long FindDefectRegion(ZorContour& contour, double tolerance, double distance, double reserved,
                        int minLength, std::vector<std::pair<int, int>>& runs);
};
