#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;
using zor::test::Show;
using zor::test::UntouchedPoint;
namespace elementary = zor::elementary;

TEST(PointToSegment, ModesReportTheirPoints) {
  struct Case {
    const char* what;
    ZorPoint p;
    int mode;
    long status;
    double distance;
    ZorPoint point;
  };
  for (const Case& c : {
           Case{"foot", {3, 4}, 0, GM_OK, 4, {3, 0}},
           Case{"beyond the start", {-3, 4}, 0, GM_OK, 5, {0, 0}},
           Case{"beyond the end", {13, -4}, 0, GM_OK, 5, {10, 0}},
           Case{"over the start the foot is used", {0, 4}, 0, GM_OK, 4, {0, 0}},
           Case{"within 1e-5 of an end the distance is 0", {10, 6e-6}, 0, GM_OK, 0, {10, 0}},
           Case{"farther end", {3, 4}, 1, GM_OK, std::sqrt(65.0), {10, 0}},
           Case{"equally far ends: the second", {5, 4}, 1, GM_OK, std::sqrt(41.0), {10, 0}},
           Case{"midpoint", {3, 4}, 2, GM_OK, std::sqrt(20.0), {5, 0}},
           Case{"mode too large", {3, 4}, 3, GM_E_PARAM_4, kUntouched, UntouchedPoint()},
           Case{"negative mode", {3, 4}, -1, GM_E_PARAM_4, kUntouched, UntouchedPoint()},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint p = c.p, a(0, 0), b(10, 0), point = UntouchedPoint();
    double distance = kUntouched;
    EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, b, c.mode, &distance, &point),
              c.status);
    EXPECT_DOUBLE_EQ(distance, c.distance);
    ExpectNear(point, c.point, 1e-12);
  }
}

TEST(PointToSegment, DegenerateIsCheckedBeforeTheMode) {
  ZorPoint p(1, 1), a(0, 0), short_end(0.0005, 0), long_end(0.00051, 0);
  EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, short_end, 9, nullptr, nullptr),
            GM_E_DEGENERATE_LINE);
  EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, long_end, 9, nullptr, nullptr),
            GM_E_PARAM_4);
}

TEST(PointToSegment, ResultHasNoNegativeZerosAndIsDefinedOnShortSegments) {
  ZorPoint p(0, 3), a(-1, -0.0), b(1, -0.0), point;
  double distance = 0;
  EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, b, 1, nullptr, &point), GM_OK);
  EXPECT_FALSE(std::signbit(point.y));
  // Too short to project on: the first end stands for the foot.
  ZorPoint start(5, 5), end(5.002, 5), above(5.001, 5.0001);
  EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(above, start, end, 0, &distance, &point),
            GM_OK);
  EXPECT_NEAR(distance, 0.0001, 1e-12);
  EXPECT_EQ(point, start);
}

TEST(ClosedSegment, FallsBackToTheFirstEndOfAShortSegment) {
  const ZorPoint p(0.002, 0);
  const auto at_bound = elementary::PointToClosedSegment(p, {0, 0}, {1e-5, 0});
  EXPECT_EQ(at_bound.point, ZorPoint(0, 0));
  EXPECT_EQ(at_bound.distance, 0.002);
  // 1.00000001e-5 rounds to the single below 1e-5, 1.0001e-5 does not.
  EXPECT_EQ(elementary::PointToClosedSegment(p, {0, 0}, {1.00000001e-5, 0}).distance, 0.002);
  EXPECT_EQ(elementary::PointToClosedSegment(p, {0, 0}, {1.0001e-5, 0}).point,
            ZorPoint(1.0001e-5, 0));
}

TEST(ClosedSegment, AgreesWithDenseSamplingAndWithTheOperation) {
  constexpr int kSamples = 2000;
  std::mt19937_64 rng(20240611);
  std::uniform_real_distribution<double> coordinate(-10, 10);
  for (int i = 0; i < 300; ++i) {
    ZorPoint p(coordinate(rng), coordinate(rng)), a(coordinate(rng), coordinate(rng));
    // Every other segment is short, so that all three cases are met.
    const double reach = i % 2 == 0 ? 1.0 : 0.05;
    ZorPoint b(a.x + reach * coordinate(rng), a.y + reach * coordinate(rng));
    double sampled = elementary::Distance(p, a);
    for (int k = 1; k <= kSamples; ++k) {
      const double t = static_cast<double>(k) / kSamples;
      sampled = std::min(sampled,
                         elementary::Distance(p, {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}));
    }
    const double step = elementary::Distance(a, b) / kSamples;
    const auto nearest = elementary::PointToClosedSegment(p, a, b);
    EXPECT_NEAR(nearest.distance, sampled, step) << Show(p) << Show(a) << Show(b);
    EXPECT_NEAR(elementary::Distance(p, nearest.point), nearest.distance, 1e-12);
    double distance = 0;
    ZorPoint point;
    EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, b, 0, &distance, &point), GM_OK);
    EXPECT_NEAR(distance, nearest.distance, 1e-12);
    ExpectNear(point, nearest.point, 1e-9);
  }
}

TEST(SegmentToLine, ModesAndTies) {
  struct Case {
    const char* what;
    ZorPoint a, b;
    int mode;
    double distance;
    ZorPoint point;
  };
  for (const Case& c : {
           Case{"nearer end", {0, 2}, {5, 7}, 0, 2, {0, 2}},
           Case{"parallel: the second end", {0, 2}, {5, 2}, 0, 2, {5, 2}},
           Case{"crossing", {0, -2}, {4, 2}, 0, 0, {2, 0}},
           Case{"an end on the line is no crossing", {1, 0}, {4, -2}, 0, 0, {1, 0}},
           Case{"farther end", {0, 2}, {5, -7}, 1, 7, {5, -7}},
           Case{"equally far: the first end", {0, 2}, {5, -2}, 1, 2, {0, 2}},
       }) {
    SCOPED_TRACE(c.what);
    ZorPoint a = c.a, b = c.b, start(-10, 0), end(10, 0), point;
    double distance = kUntouched;
    EXPECT_EQ(
        ZorGeometryMeasure().SegmentToLineDistance(a, b, start, end, c.mode, &point, &distance),
        GM_OK);
    EXPECT_DOUBLE_EQ(distance, c.distance);
    ExpectNear(point, c.point, 1e-12);
  }
}

TEST(SegmentToLine, StatusesInOrder) {
  ZorGeometryMeasure m;
  ZorPoint a(0, 0), b(1, 0), close(0.0004, 0), above(0, 4e-6), below(0.001, -4e-6), point;
  EXPECT_EQ(m.SegmentToLineDistance(a, close, a, b, 7, nullptr, nullptr), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.SegmentToLineDistance(a, b, a, close, 0, nullptr, nullptr), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.SegmentToLineDistance(a, b, a, b, 2, nullptr, nullptr), GM_E_PARAM_5);
  EXPECT_EQ(m.SegmentToLineDistance(a, b, a, b, -1, nullptr, nullptr), GM_E_PARAM_5);
  // A crossing of lines that count as parallel: the status of the intersection, nothing written.
  double distance = kUntouched;
  EXPECT_EQ(m.SegmentToLineDistance(above, below, a, b, 0, &point, &distance), GM_E_PARALLEL);
  EXPECT_TRUE(IsUntouched(distance));
}
