#pragma once

#include <cmath>

#include "ZorPoint.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/rounding.h"
#include "frame/tolerances.h"

// Distances of points and segments. Segments are given by their ends; pixels.

namespace zor::elementary {

/// A point of a figure, with its distance from what it was sought for.
struct NearestPoint {
  double distance = 0.0;
  ZorPoint point;
};

/// Which point of a segment is nearest to a free point: an end, or the foot of the perpendicular.
enum class SegmentPart { kStart, kEnd, kFoot };

/// The distance is that of an end; that of a foot is for the caller to compute and 0 here.
struct NearestPart {
  SegmentPart part = SegmentPart::kStart;
  double distance = 0.0;
};

/// |a - b| <= kCoincident.
[[nodiscard]] inline bool Coincide(const ZorPoint& a, const ZorPoint& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return dx * dx + dy * dy <= frame::kCoincidentSquared;
}

/// The part of segment ab nearest to p. An end that coincides with p has distance 0.
///
///      s < 0     |  s, t >= 0  |  t < 0        s = (p - a) . (b - a)
///    ---- kStart a --- kFoot - b kEnd ----     t = (p - b) . (a - b)
[[nodiscard]] inline NearestPart PartNearestTo(const ZorPoint& p, const ZorPoint& a,
                                               const ZorPoint& b) {
  if (Coincide(b, a) || Coincide(p, a)) return {SegmentPart::kStart, 0.0};
  if (Coincide(p, b)) return {SegmentPart::kEnd, 0.0};
  if (Dot(p - a, b - a) < 0.0) return {SegmentPart::kStart, Distance(a, p)};
  if (Dot(p - b, a - b) < 0.0) return {SegmentPart::kEnd, Distance(b, p)};
  return {SegmentPart::kFoot, 0.0};
}

/// Distance of p from segment ab, which is not degenerate: that of an end as above, else that of
/// the line ab.
[[nodiscard]] inline double PointToSegment(const ZorPoint& p, const ZorPoint& a,
                                           const ZorPoint& b) {
  const NearestPart nearest = PartNearestTo(p, a, b);
  return nearest.part == SegmentPart::kFoot ? PointToLine(p, a, b) : nearest.distance;
}

/// The point of segment ab nearest to p. A segment whose length, rounded to single precision, is at
/// most kCoincident stands for its first end.
[[nodiscard]] inline NearestPoint PointToClosedSegment(const ZorPoint& p, const ZorPoint& a,
                                                       const ZorPoint& b) {
  const ZorPoint along = b - a;
  const double length = Norm(along);
  if (frame::RoundToFloat(length) <= frame::kCoincident) return {Distance(p, a), a};
  const NearestPart nearest = PartNearestTo(p, a, b);
  if (nearest.part == SegmentPart::kStart) return {nearest.distance, a};
  if (nearest.part == SegmentPart::kEnd) return {nearest.distance, b};
  const double share = Dot(p - a, along) / Dot(along, along);
  return {std::fabs(TriangleCross(p, a, b)) / length,
          ZorPoint(a.x + share * along.x, a.y + share * along.y)};
}

/// Above this product of two areas (square pixels, squared) two ends lie clearly on one side.
inline constexpr double kTouchProduct = 1e-6;

/// Whether neither segment has both of its ends clearly on one side of the other's line.
/// Deliberate: a loose test. Near misses count as touching, and so do collinear segments however
/// far apart; hosts rely on distance 0 for them.
[[nodiscard]] inline bool SegmentsTouch(const ZorPoint& a1, const ZorPoint& a2, const ZorPoint& b1,
                                        const ZorPoint& b2) {
  if (TriangleCross(a1, b1, b2) * TriangleCross(a2, b1, b2) > kTouchProduct) return false;
  return !(TriangleCross(b1, a1, a2) * TriangleCross(b2, a1, a2) > kTouchProduct);
}

}  // namespace zor::elementary
