#pragma once

#include <utility>
#include <vector>

#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

/// Fits a line to points with outliers: it samples pairs of points, counts the points near the line
/// of each and keeps the line with the most. A line is the infinite one through its two points.
/// Nothing is traced. SampleIndex, and with it RansacFitLine, reseeds the process-wide `rand`, so
/// calls on several threads disturb one another's samples; all else may run on any threads.
class ZORGEOMETRYMEASURE_EXPORT ZorRansacFit {
 public:
  ZorRansacFit() noexcept = default;

  /// CompareLine: the sine of the angle between two lines must be below this.
  double angleTolerance = 0.01;
  /// CompareLine: both points of one line must be closer than this to the other, pixels.
  double distanceTolerance = 0.01;
  /// RansacFitLine: pairs to sample; none when it is not positive.
  int iterationCount = 50;

  /// The line of the sampled pair that has the most points at most `inlierDistance` away, from the
  /// projection of the first to the projection of the last point. Pairs less than 0.1 pixels apart
  /// are skipped; when all are, `line` stays as it is. Points are counted modulo 65536. The pairs
  /// come from SampleIndex: calls within one second agree, and a call that stays within one second
  /// tries a single pair. `reservedCount` and `reservedValue` do nothing. Always GM_OK.
  long RansacFitLine(ZorPointArray& points, double inlierDistance, int reservedCount,
                     double reservedValue, ZorLine* line);

  /// Foot of the perpendicular from `point` on the line; (0, 0) when the line's points are less
  /// than 1e-5 apart.
  ZorPoint ProjectToLine(ZorPoint& point, ZorLine& line);

  /// Replaces `runs` by the runs of consecutive points far from the line, each as its first index
  /// and a length. A run starts at a point farther away than `distance` and goes on as long as
  /// points are at least that far. The length is one less than the run's number of points, so that
  /// a lone far point has 0. Longest first, equal ones in the order of the points.
  void SelectOutRange(ZorLine& line, double distance, ZorPointArray& points,
                      std::vector<std::pair<int, int>>& runs);

  /// Replaces `indices` by `sampleSize` indices below `count`, some of them perhaps equal; by none
  /// when `count` is below 1. Seeds `rand` with the time in seconds first: calls within one second
  /// draw the same. Always true.
  bool SampleIndex(int count, int sampleSize, std::vector<int>& indices);

  /// Makes the line through two points; false, with `line` as it was, when they are less than 0.1
  /// pixels apart.
  bool FitLine(ZorPoint& first, ZorPoint& second, ZorLine* line);

  /// The number of points at most `distance` away from the line.
  int SelectPointByLine(ZorPointArray& points, ZorLine& line, double distance);

  /// Whether two lines coincide within the tolerances. Their distance is that of the points of `a`
  /// from `b`, so the order matters.
  bool CompareLine(ZorLine& a, ZorLine& b);

  /// Signed distance: positive for a point to the right, seen on the screen, of the way from
  /// line.start to line.end. Infinite or not a number when the line's points are equal.
  double PointToLineDistance(ZorPoint& point, ZorLine& line);
};
