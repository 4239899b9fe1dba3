#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "distance/hard_contours.h"
#include "frame/checks.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectSame;
using zor::test::IsUntouched;
using zor::test::kContourKinds;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

using Result = zor::test::PairResult;

Result Measure(ZorContour& a, ZorContour& b, int mode) {
  return zor::test::MeasurePair(a, b, mode, [](auto&&... args) {
    return ZorGeometryMeasure().ContourToContourDistance(args...);
  });
}

Result Measure2(ZorContour& a, ZorContour& b, int mode) {
  return zor::test::MeasurePair(a, b, mode, [](auto&&... args) {
    return ZorGeometryMeasure().ContourToContourDistance2(args...);
  });
}

/// The plain loops over points, for either method: what one point of a has as its nearest one (and,
/// if `farthest`, as its farthest one) goes into the minimum and the maximum over all.
Result PlainOverPoints(ZorContour& a, ZorContour& b, int mode, bool farthest) {
  Result r;
  for (const ZorPoint& p : a) {
    ZorPoint near, far;
    double low = 0, high = 0;
    r.status = ZorGeometryMeasure().PointToContourDistance(b, p, mode, &near, &low, &far, &high);
    if (!farthest) {
      far = near;
      high = low;
    }
    const bool is_first = &p == a.begin();
    if (is_first || low < r.low) r.low = low, r.min_a = p, r.min_b = near;
    if (is_first || high > r.high) r.high = high, r.max_a = p, r.max_b = far;
  }
  return r;
}

Result PlainOverSegments(ZorContour& a, ZorContour& b) {
  Result r;
  for (const ZorPoint* p = a.begin(); p + 1 < a.end(); ++p) {
    double nearest = 0;
    ZorPoint on_a, on_b;
    for (const ZorPoint* q = b.begin(); q + 1 < b.end(); ++q) {
      double d = 0;
      ZorPoint x, y;
      r.status = ZorGeometryMeasure().LineToLineDistance(p[0], p[1], q[0], q[1], 0, &d, &x, &y);
      if (r.status != GM_OK) return {r.status, {}, {}, kUntouched, {}, {}, kUntouched};
      if (q == b.begin() || d < nearest) nearest = d, on_a = x, on_b = y;
    }
    const bool is_first = p == a.begin();
    if (is_first || nearest < r.low) r.low = nearest, r.min_a = on_a, r.min_b = on_b;
    if (is_first || nearest > r.high) r.high = nearest, r.max_a = on_a, r.max_b = on_b;
  }
  return r;
}

}  // namespace

TEST(ContourToContour, SearchesAgreeWithThePlainLoopsToTheLastBit) {
  std::mt19937_64 rng(20240613);
  std::uniform_int_distribution<int> count(2, 150);
  for (int i = 0; i < 4 * kContourKinds * kContourKinds; ++i) {
    const int kind_a = i % kContourKinds;
    const int kind_b = i / kContourKinds % kContourKinds;
    const double size = i % 2 == 0 ? 6.0 : 10.0;  // around a, or as large as it
    SCOPED_TRACE("kinds " + std::to_string(kind_a) + " and " + std::to_string(kind_b));
    ZorContour a(zor::test::HardContour(kind_a, count(rng), 10.0, rng));
    ZorContour b(zor::test::HardContour(kind_b, count(rng), size, rng));
    ExpectSame(Measure(a, b, 0), PlainOverPoints(a, b, 0, true));
    ExpectSame(Measure(a, b, 1), PlainOverPoints(a, b, 1, false));
    ExpectSame(Measure(a, b, 2), PlainOverSegments(a, b));
    ExpectSame(Measure2(a, b, 0), PlainOverPoints(a, b, 0, false));
    ExpectSame(Measure2(a, b, 1), PlainOverPoints(a, b, 0, true));
  }
}

TEST(ContourToContour, PointsThatAreNoNumbersPairWithNothing) {
  std::mt19937_64 rng(20240616);
  for (int round = 0; round < 20; ++round) {
    std::vector<ZorPoint> p = zor::test::HardContour(0, 60, 10.0, rng), q = p;
    for (ZorPoint& point : q) point = point + ZorPoint(1, 2);
    (round % 2 == 0 ? p : q)[static_cast<std::size_t>(1 + round)].x = kNaN;
    q[30].y = kNaN;
    if (round >= 18) q[40].x = 2e8;
    ZorContour a(p), b(q);
    ExpectSame(Measure(a, b, 0), PlainOverPoints(a, b, 0, true));
    ExpectSame(Measure2(a, b, 0), PlainOverPoints(a, b, 0, false));
    ExpectSame(Measure2(a, b, 1), PlainOverPoints(a, b, 0, true));
  }
  ZorContour first{{kNaN, 0}, {1, 0}}, other{{0, 2}, {5, 2}};
  for (const Result& r : {Measure(first, other, 0), Measure(other, first, 0)}) {
    EXPECT_TRUE(std::isnan(r.low) && std::isnan(r.high));
  }
}

TEST(ContourToContour, SinkChangesNothing) {
  std::mt19937_64 rng(20240614);
  for (int kind = 0; kind < kContourKinds; ++kind) {
    SCOPED_TRACE("kind " + std::to_string(kind));
    ZorContour a(zor::test::HardContour(kind, 12, 10.0, rng));
    ZorContour b(zor::test::HardContour(3, 9, 6.0, rng));
    for (int mode = 0; mode <= 2; ++mode) {
      const Result silent = Measure(a, b, mode);
      const zor::test::TraceCapture capture;
      ExpectSame(silent, Measure(a, b, mode));
    }
  }
}

TEST(ContourToContour, MaximaOfModes1And2AreOneSided) {
  ZorContour a{{0, 0}, {10, 0}}, b{{0, 2}, {10, 2}, {10, 30}};
  EXPECT_EQ(Measure(a, b, 0).high, std::sqrt(1000.0));
  for (const int mode : {1, 2}) {
    EXPECT_EQ(Measure(a, b, mode).low, 2);
    EXPECT_EQ(Measure(a, b, mode).high, 2);
    EXPECT_GE(Measure(b, a, mode).high, mode == 1 ? 30 : 2);
  }
  EXPECT_EQ(Measure2(a, b, 0).high, 2);
  const Result hausdorff = Measure2(a, b, 2);
  EXPECT_EQ(hausdorff.high, 30);
  EXPECT_EQ(hausdorff.max_a, ZorPoint(10, 0));
  EXPECT_EQ(hausdorff.max_b, ZorPoint(10, 30));
}

TEST(ContourToContour, LinedUpSegmentsTouchFromAfar) {
  ZorContour a{{0, 5}, {0, 0}, {10, 0}}, b{{500, 9}, {500, 0}, {700, 0}};
  const Result r = Measure(a, b, 2);
  EXPECT_EQ(r.low, 0);
  EXPECT_EQ(r.min_a, ZorPoint(10, 0));
  EXPECT_EQ(r.min_b, ZorPoint(500, 0));
  EXPECT_EQ(Measure(a, b, 1).low, 490);
}

TEST(ContourToContour, IdenticalContours) {
  std::mt19937_64 rng(20240615);
  ZorContour a(zor::test::HardContour(0, 100, 10.0, rng));
  for (int mode = 0; mode <= 2; ++mode) {
    EXPECT_EQ(Measure(a, a, mode).low, 0);
    EXPECT_NEAR(Measure(a, a, mode).high, mode == 0 ? 20 : 0, 1e-12);
  }
}

TEST(ContourToContour, StatusesInOrder) {
  ZorGeometryMeasure m;
  ZorContour none, one{{0, 0}}, two{{0, 0}, {5, 5}}, close{{0, 0}, {5, 5}, {5, 5.0005}};
  EXPECT_EQ(Measure(none, one, 9).status, GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(Measure(one, none, 9).status, GM_E_EMPTY_CONTOUR);
  for (const int mode : {-1, 3}) EXPECT_EQ(Measure(one, one, mode).status, GM_E_PARAM_3);
  EXPECT_EQ(Measure(one, one, 0).status, GM_OK);
  EXPECT_EQ(Measure(one, one, 1).status, GM_E_PARAM_2);
  EXPECT_EQ(Measure(one, two, 1).status, GM_OK);
  EXPECT_EQ(Measure(one, two, 2).status, GM_E_PARAM_1);
  EXPECT_EQ(Measure(two, one, 2).status, GM_E_PARAM_1);
  EXPECT_EQ(Measure(two, close, 2).status, GM_E_DEGENERATE_LINE);
  EXPECT_TRUE(IsUntouched(Measure(two, close, 2).low));
  EXPECT_EQ(Measure2(one, none, 9).status, GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(Measure2(one, one, 3).status, GM_E_PARAM_3);
  double low = kUntouched, high = kUntouched;
  EXPECT_EQ(m.ContourToContourDistance(none, one, &low, &high), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(m.ContourToContourDistance(one, two, &low, &high), GM_OK);
  EXPECT_EQ(low, 0);
  EXPECT_EQ(high, std::sqrt(50.0));
}
