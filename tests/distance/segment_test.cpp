#include <cmath>
#include <initializer_list>
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
namespace elementary = zor::elementary;

namespace {

struct Case {
  const char* what;
  int mode;
  ZorPoint a, b;
  double distance;
  ZorPoint point;
};

template <class Measure>
void Check(std::initializer_list<Case> cases, const Measure& measure) {
  for (Case c : cases) {
    SCOPED_TRACE(c.what);
    ZorPoint point;
    double distance = kUntouched;
    EXPECT_EQ(measure(c, &distance, &point), GM_OK);
    EXPECT_DOUBLE_EQ(distance, c.distance);
    ExpectNear(point, c.point, 1e-12);
  }
}

}  // namespace

TEST(PointToSegment, ModesReportTheirPoints) {
  ZorPoint end(10, 0);
  const auto measure = [&](Case& c, double* distance, ZorPoint* point) {
    return ZorGeometryMeasure().PointToSegmentDistance(c.a, c.b, end, c.mode, distance, point);
  };
  Check({{"foot", 0, {3, 4}, {0, 0}, 4, {3, 0}},
         {"beyond the start", 0, {-3, 4}, {0, 0}, 5, {0, 0}},
         {"beyond the end", 0, {13, -4}, {0, 0}, 5, {10, 0}},
         {"within 1e-5 of an end the distance is 0", 0, {10, 6e-6}, {0, 0}, 0, {10, 0}},
         {"farther end", 1, {3, 4}, {0, 0}, std::sqrt(65.0), {10, 0}},
         {"equally far ends: the second", 1, {5, 4}, {0, 0}, std::sqrt(41.0), {10, 0}},
         {"midpoint", 2, {3, 4}, {0, 0}, std::sqrt(20.0), {5, 0}}},
        measure);
}

TEST(SegmentToLine, ModesAndTies) {
  ZorPoint start(-10, 0), end(10, 0);
  const auto measure = [&](Case& c, double* distance, ZorPoint* point) {
    return ZorGeometryMeasure().SegmentToLineDistance(c.a, c.b, start, end, c.mode, point,
                                                      distance);
  };
  Check({{"nearer end", 0, {0, 2}, {5, 7}, 2, {0, 2}},
         {"parallel: the second end", 0, {0, 2}, {5, 2}, 2, {5, 2}},
         {"crossing", 0, {0, -2}, {4, 2}, 0, {2, 0}},
         {"an end on the line is no crossing", 0, {1, 0}, {4, -2}, 0, {1, 0}},
         {"farther end", 1, {0, 2}, {5, -7}, 7, {5, -7}},
         {"equally far: the first end", 1, {0, 2}, {5, -2}, 2, {0, 2}}},
        measure);
}

TEST(PointToSegment, DegenerateIsCheckedBeforeTheMode) {
  ZorPoint p(1, 1), a(0, 0), short_end(0.0005, 0), long_end(0.00051, 0);
  EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, short_end, 9, nullptr, nullptr),
            GM_E_DEGENERATE_LINE);
  for (const int mode : {-1, 3}) {
    EXPECT_EQ(ZorGeometryMeasure().PointToSegmentDistance(p, a, long_end, mode, nullptr, nullptr),
              GM_E_PARAM_4);
  }
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
