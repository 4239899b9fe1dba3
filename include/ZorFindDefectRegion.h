#pragma once

#include <utility>
#include <vector>

#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

/// Finds the runs of contour points that stray from the straight edges that the contour follows.
/// The contour is reduced to a polygon; to the contour's points along each side of it, from one
/// vertex up to but not including the next, a line is fitted (LeastSqaureLineFit with one pass);
/// the points farther from that line than a distance are the defects of the side.
///
/// A run is the index of its first point and a length, which is one less than its number of points.
/// Of each side the runs come longest first, up to the first one that is too short. There is no
/// side from the last vertex back to the first. Sides whose vertices are not points of the contour
/// to within 0.001, and those that run backwards, are left out.
///
/// The numbers of vertices, points and vertices found go to the system's debugger output. Not
/// traced; the line fits are.
class ZORGEOMETRYMEASURE_EXPORT ZorFindDefectRegion {
 public:
  ZorFindDefectRegion() noexcept = default;
  /// With a contour for the second form of Find.
  explicit ZorFindDefectRegion(const ZorContour& contour) : contour_(contour) {}

  /// Appends the defects of a list of points, reduced by GetPolygon2 as an open outline with
  /// `tolerance` and at most `count` vertices (0: any number): runs of points farther than
  /// `distance` from their side and of a length of at least minLength. Always GM_OK.
  long Find(ZorPointArray& points, double tolerance, double distance, int count, int minLength,
            std::vector<std::pair<int, int>>& runs);

  /// The same for the contour given to the constructor, reduced by GetPolygon with `epsilon`, that
  /// is as a closed one. `reserved` does nothing. Always GM_OK.
  long Find(double epsilon, double distance, double reserved, int minLength,
            std::vector<std::pair<int, int>>& runs);

 private:
  ZorContour contour_;
};
