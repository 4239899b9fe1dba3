#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::UntouchedPoint;

TEST(LineSegmentsIntersection, WritesTheLinesCrossingWhateverTheAnswer) {
  struct Case {
    const char* what;
    ZorPoint a1, a2, b1, b2;
    bool cross;
    ZorPoint at;  // untouched where the lines have no crossing
  };
  const ZorPoint nowhere = UntouchedPoint();
  for (Case c : {
           Case{"crossing", {0, 0}, {4, 0}, {2, -1}, {2, 1}, true, {2, 0}},
           {"meeting end to end", {0, 0}, {4, 0}, {4, 0}, {5, 3}, true, {4, 0}},
           {"first too short", {0, 0}, {1, 0}, {2, -1}, {2, 1}, false, {2, 0}},
           {"second too short", {0, 0}, {4, 0}, {2, 1}, {2, 2}, false, {2, 0}},
           {"overlapping", {0, 0}, {4, 0}, {1, 0}, {3, 0}, false, nowhere},
           {"collinear, end to end", {0, 0}, {4, 0}, {4, 0}, {8, 0}, false, nowhere},
           {"degenerate, on the other", {0, 0}, {4, 0}, {2, 0}, {2, 0.0005}, false, nowhere},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint at = UntouchedPoint();
    bool flag = true;
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentsIntersection(c.a1, c.a2, c.b1, c.b2, &at, &flag),
              c.cross);
    ExpectNear(at, c.at, 1e-12);
    EXPECT_TRUE(flag);
    // The result may be one of the inputs.
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentsIntersection(c.a1, c.a2, c.b1, c.b2, &c.a1, nullptr),
              c.cross);
  }
}

TEST(LineSegmentToLineIntersection, ReachesAHairBeyondTheEnds) {
  ZorPoint l1(0, -1), l2(0, 1), s1(4, 0);
  for (const double end : {-1.0, 0.0, 2.4e-6, 2.6e-6}) {  // (x - s1) . (x - s2) = 4 * end
    ZorPoint s2(end, 0), at = UntouchedPoint();
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentToLineIntersection(s1, s2, l1, l2, &at, nullptr),
              end < 2.5e-6)
        << end;
    ExpectNear(at, {0, 0}, 1e-12);
  }
  ZorPoint at = UntouchedPoint(), beside(1, -1), above(1, 1);
  EXPECT_FALSE(
      ZorGeometryMeasure().LineSegmentToLineIntersection(beside, above, l1, l2, &at, nullptr));
  EXPECT_TRUE(IsUntouched(at));
}

TEST(PointOnSegment, IncludesTheEndsAndNoMore) {
  ZorPoint a(1, 1), b(3, 1), middle(2, 1), beyond(3.0000001, 1), in_the_disc(2, 1.9);
  ZorGeometryMeasure m;
  EXPECT_TRUE(m.PointOnSegment(a, a, b));
  EXPECT_TRUE(m.PointOnSegment(b, a, b));
  EXPECT_TRUE(m.PointOnSegment(middle, a, b));
  EXPECT_FALSE(m.PointOnSegment(beyond, a, b));
  EXPECT_TRUE(m.PointOnSegment(in_the_disc, a, b));  // only the order along the line is looked at
}
