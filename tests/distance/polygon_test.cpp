#include <cmath>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;

TEST(PolygonToLine, CrossingsAndVerticesOnTheLine) {
  struct Case {
    const char* what;
    ZorPointArray polygon;
    double low;
    ZorPoint nearest;
    double high;
    ZorPoint farthest;
  };
  const Case cases[] = {
      {"apart: the last vertex is the seed", {{0, 5}, {2, 2}, {4, 2}}, 2, {4, 2}, 5, {0, 5}},
      {"the closing edge crosses", {{0, 4}, {4, 4}, {0, -4}}, 0, {0, 0}, 4, {0, -4}},
      {"first crossing", {{0, 4}, {4, 4}, {4, -4}, {8, 4}}, 0, {4, 0}, 4, {8, 4}},
      {"the later vertex on the line", {{0, 0}, {4, 0}, {2, 3}}, 0, {4, 0}, 3, {2, 3}},
      {"a crossing after one", {{0, 0}, {4, 2}, {5, -2}, {1, 3}}, 0, {4.5, 0}, 3, {1, 3}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ZorPointArray polygon = c.polygon;
    ZorPoint start(-10, 0), end(10, 0), nearest, farthest;
    double low = kUntouched, high = kUntouched;
    EXPECT_EQ(ZorGeometryMeasure().PolygonToLineDistance(polygon, start, end, &nearest, &low,
                                                         &farthest, &high),
              GM_OK);
    EXPECT_EQ(low, c.low);
    ExpectNear(nearest, c.nearest, 1e-12);
    EXPECT_EQ(high, c.high);
    EXPECT_EQ(farthest, c.farthest);
  }
}

TEST(PolygonToSegment, NearestOnTheEdgesFarthestAtTheVertices) {
  ZorGeometryMeasure m;
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  ZorPoint a(12, 4), b(15, 5), inside1(4, 5), inside2(4.5, 5), nearest, farthest;
  double low = kUntouched, high = kUntouched;
  EXPECT_EQ(m.PolygonToSegmentDistance(square, a, b, &nearest, &low, &farthest, &high), GM_OK);
  EXPECT_EQ(low, 2);
  ExpectNear(nearest, {10, 4}, 1e-12);
  EXPECT_DOUBLE_EQ(high, std::sqrt(144.0 + 36.0));
  EXPECT_EQ(farthest, ZorPoint(0, 10));
  EXPECT_EQ(m.PolygonToSegmentDistance(square, inside1, inside2, &nearest, &low, nullptr, nullptr),
            GM_OK);
  EXPECT_EQ(low, 4);
  ExpectNear(nearest, {0, 5}, 1e-12);
}

TEST(PolygonToSegment, DegenerateEdgeFailsTheMinimumOnly) {
  ZorGeometryMeasure m;
  ZorPointArray polygon{{0, 0}, {10, 0}, {10, 0.0004}, {0, 10}};
  ZorPoint a(12, 4), b(15, 5);
  double low = kUntouched, high = kUntouched;
  EXPECT_EQ(m.PolygonToSegmentDistance(polygon, a, b, nullptr, &low, nullptr, &high),
            GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(low) && IsUntouched(high));
  EXPECT_EQ(m.PolygonToSegmentDistance(polygon, a, b, nullptr, nullptr, nullptr, &high), GM_OK);
}

TEST(PointToPolygon, SignFollowsTheRelation) {
  ZorGeometryMeasure m;
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  struct Case {
    const char* what;
    ZorPoint p;
    double distance;
    ZorPoint nearest;
  };
  const Case cases[] = {
      {"inside", {3, 5}, -3, {0, 5}},
      {"outside", {13, 14}, 5, {10, 10}},
      {"equally near edges: the closing one", {5, 5}, -5, {0, 5}},
      {"near an upright edge counts as on it", {10.000009, 5}, 0, {10, 5}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ZorPoint p = c.p, nearest;
    double distance = kUntouched, of_facade = kUntouched;
    EXPECT_EQ(m.PointToPolygonDistance(p, square, &distance, &nearest), GM_OK);
    EXPECT_DOUBLE_EQ(distance, c.distance);
    ExpectNear(nearest, c.nearest, 1e-12);
    EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().PointToPolygonDistance(p, square, &of_facade), GM_OK);
    EXPECT_EQ(of_facade, distance);
  }
}

TEST(PolygonDistances, StatusesInOrder) {
  ZorGeometryMeasure m;
  ZorPointArray two{{0, 0}, {1, 0}}, three{{0, 0}, {1, 0}, {0, 1}};
  ZorPoint a(0, 0), close(0.0005, 0);
  double distance = kUntouched;
  EXPECT_EQ(m.PointToPolygonDistance(a, two, &distance, nullptr), GM_E_TOO_FEW_POINTS);
  for (const auto measure : {&ZorGeometryMeasure::PolygonToLineDistance,
                             &ZorGeometryMeasure::PolygonToSegmentDistance}) {
    EXPECT_EQ((m.*measure)(two, a, close, nullptr, &distance, nullptr, nullptr),
              GM_E_TOO_FEW_POINTS);
    EXPECT_EQ((m.*measure)(three, a, close, nullptr, &distance, nullptr, nullptr),
              GM_E_DEGENERATE_LINE);
  }
  // Inert on purpose.
  EXPECT_EQ(m.LineSegmentToPolygonDistance(a, close, two, &distance, nullptr, nullptr, nullptr,
                                           nullptr, nullptr),
            GM_OK);
  EXPECT_TRUE(IsUntouched(distance));
}
