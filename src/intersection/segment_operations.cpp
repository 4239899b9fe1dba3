#include "ZorGeometryMeasure.h"
#include "elementary/segment_kernels.h"
#include "frame/store.h"

using zor::frame::Store;
namespace elementary = zor::elementary;

bool ZorGeometryMeasure::PointOnSegment(ZorPoint& p, ZorPoint& a, ZorPoint& b) {
  return elementary::IsBetween(p, a, b);
}

bool ZorGeometryMeasure::LineSegmentsIntersection(ZorPoint& a1, ZorPoint& a2, ZorPoint& b1,
                                                  ZorPoint& b2, ZorPoint* point, bool* /*unused*/) {
  ZorPoint crossing;
  // Deliberate: false for every parallel pair, also where the segments overlap; the distances and
  // the shape intersections rely on it.
  if (LinesIntersection(a1, a2, b1, b2, &crossing) != GM_OK) return false;
  const bool is_on_both =
      elementary::IsBetween(crossing, a1, a2) && elementary::IsBetween(crossing, b1, b2);
  Store(point, crossing);  // Deliberate: the crossing of the lines, also where the answer is false.
  return is_on_both;
}

bool ZorGeometryMeasure::LineSegmentToLineIntersection(ZorPoint& s1, ZorPoint& s2, ZorPoint& l1,
                                                       ZorPoint& l2, ZorPoint* point,
                                                       bool* /*unused*/) {
  ZorPoint crossing;
  if (LinesIntersection(s1, s2, l1, l2, &crossing) != GM_OK) return false;
  const bool is_on_segment = elementary::IsAboutBetween(crossing, s1, s2);
  Store(point, crossing);
  return is_on_segment;
}
