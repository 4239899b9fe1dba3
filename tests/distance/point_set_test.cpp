#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::kUntouched;

TEST(PointsToLine, ExtremaWithTiesAndTheMaximumAlone) {
  ZorGeometryMeasure m;
  ZorPointArray points{{0, 2}, {1, -1}, {2, 1}, {3, 5}, {4, -5}};
  ZorPoint start(0, 0), end(10, 0), nearest, farthest;
  double low = kUntouched, high = kUntouched;
  EXPECT_EQ(m.PointsToLineDistance(points, start, end, &nearest, &low, &farthest, &high), GM_OK);
  EXPECT_EQ(nearest, ZorPoint(1, -1));
  EXPECT_EQ(low, 1);
  EXPECT_EQ(farthest, ZorPoint(3, 5));
  EXPECT_EQ(high, 5);
  // Asked for the maximum alone this operation reports the first point, its sibling the maximum.
  EXPECT_EQ(m.PointsToLineDistance(points, start, end, nullptr, nullptr, &farthest, &high), GM_OK);
  EXPECT_EQ(farthest, ZorPoint(0, 2));
  EXPECT_EQ(high, 2);
  EXPECT_EQ(m.PointsToSegmentDistance(points, start, end, nullptr, nullptr, &farthest, &high),
            GM_OK);
  EXPECT_EQ(farthest, ZorPoint(3, 5));
  EXPECT_EQ(high, 5);
  // Beyond the ends the segment is farther away than its line.
  ZorPointArray beyond{{-3, 4}, {13, 4}};
  EXPECT_EQ(m.PointsToSegmentDistance(beyond, start, end, &nearest, &low, &farthest, &high), GM_OK);
  EXPECT_TRUE(low == 5 && high == 5 && nearest == ZorPoint(-3, 4) && farthest == nearest);
}

TEST(PointSets, EmptyIsCheckedBeforeDegenerate) {
  ZorGeometryMeasure m;
  ZorPointArray none, one{{1, 1}};
  ZorPoint a(0, 0), b(0.0005, 0);
  double d = 0;
  for (const auto measure :
       {&ZorGeometryMeasure::PointsToLineDistance, &ZorGeometryMeasure::PointsToSegmentDistance}) {
    EXPECT_EQ((m.*measure)(none, a, b, nullptr, &d, nullptr, nullptr), GM_E_TOO_FEW_POINTS);
    EXPECT_EQ((m.*measure)(one, a, b, nullptr, &d, nullptr, nullptr), GM_E_DEGENERATE_LINE);
  }
}
