#include <cmath>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;

namespace {

struct Case {
  const char* what;
  ZorPoint a1, a2, b1, b2;
  int mode;
  double distance;
  ZorPoint on_a, on_b;
};

void Check(const Case& c) {
  SCOPED_TRACE(c.what);
  ZorGeometryMeasure m;
  double distance = kUntouched;
  double short_distance = kUntouched;
  ZorPoint on_a, on_b;
  EXPECT_EQ(m.LineToLineDistance(c.a1, c.a2, c.b1, c.b2, c.mode, &distance, &on_a, &on_b), GM_OK);
  EXPECT_EQ(m.LineToLineDistance(c.a1, c.a2, c.b1, c.b2, c.mode, &short_distance), GM_OK);
  EXPECT_NEAR(distance, c.distance, 1e-12);
  EXPECT_EQ(short_distance, distance);
  ExpectNear(on_a, c.on_a, 1e-9);
  ExpectNear(on_b, c.on_b, 1e-9);
  // The records of a sink change nothing.
  const zor::test::TraceCapture capture;
  double traced = kUntouched;
  ZorPoint traced_a, traced_b;
  EXPECT_EQ(m.LineToLineDistance(c.a1, c.a2, c.b1, c.b2, c.mode, &traced, &traced_a, &traced_b),
            GM_OK);
  EXPECT_EQ(traced, distance);
  EXPECT_EQ(traced_a, on_a);
  EXPECT_EQ(traced_b, on_b);
}

}  // namespace

TEST(LineToLine, ShortestAndLargest) {
  for (const Case& c : {
           Case{"ends of A: the first on ties",
                {0, 0},
                {4, 0},
                {0, 3},
                {4, 3},
                0,
                3,
                {0, 0},
                {0, 3}},
           Case{"the second end of A", {0, 9}, {2, 4}, {0, 0}, {4, 0}, 0, 4, {2, 4}, {2, 0}},
           Case{"an end of B", {0, 0}, {10, 0}, {5, 2}, {5, 7}, 0, 2, {5, 0}, {5, 2}},
           Case{"crossing", {0, 0}, {4, 4}, {0, 4}, {4, 0}, 0, 0, {2, 2}, {2, 2}},
           Case{"touching end", {0, 0}, {4, 0}, {2, 0}, {2, 5}, 0, 0, {2, 0}, {2, 0}},
           Case{"collinear overlap: closest ends",
                {0, 0},
                {4, 0},
                {3, 0},
                {9, 0},
                0,
                0,
                {4, 0},
                {3, 0}},
           Case{"collinear, apart", {0, 0}, {4, 0}, {50, 0}, {90, 0}, 0, 0, {4, 0}, {50, 0}},
           Case{"near miss: 0 with the ends apart",
                {0, 0},
                {1, 0},
                {0, 1e-4},
                {1, 1e-4},
                0,
                0,
                {0, 0},
                {0, 1e-4}},
           Case{"above the touch bound",
                {0, 0},
                {1, 0},
                {0, 2e-3},
                {1, 2e-3},
                0,
                2e-3,
                {0, 0},
                {0, 2e-3}},
           Case{"largest: an end of A, the first on ties",
                {0, 0},
                {4, 0},
                {0, 3},
                {4, 3},
                1,
                3,
                {0, 0},
                {0, 3}},
           Case{"largest of crossing segments",
                {0, 0},
                {4, 0},
                {1, -2},
                {1, 5},
                1,
                5,
                {1, 0},
                {1, 5}},
       }) {
    Check(c);
  }
}

TEST(LineToLine, MidpointsAndLines) {
  for (const Case& c : {
           Case{"from the middle of A",
                {0, 0},
                {4, 0},
                {3, 2},
                {9, 2},
                2,
                std::sqrt(5.0),
                {2, 0},
                {3, 2}},
           Case{"from the middle of B",
                {0, 0},
                {4, 0},
                {3, 2},
                {9, 2},
                3,
                std::sqrt(8.0),
                {4, 0},
                {6, 2}},
           Case{"parallel lines", {0, 0}, {4, 0}, {7, 3}, {9, 3}, 4, 3, {0, 0}, {0, 3}},
           Case{"opposite directions add the offsets",
                {0, 1},
                {4, 1},
                {9, 3},
                {7, 3},
                4,
                4,
                {0, 1},
                {0, 3}},
           Case{"crossing lines", {0, 0}, {1, 1}, {9, 0}, {9, 1}, 4, 0, {9, 9}, {9, 9}},
           Case{"a line too short to project on",
                {3, 0},
                {4, 0},
                {0, 2},
                {0.002, 2},
                4,
                2,
                {3, 0},
                {0, 2}},
       }) {
    Check(c);
  }
}

TEST(LineToLine, StatusesInOrder) {
  ZorGeometryMeasure m;
  const ZorPoint a(0, 0), b(9, 0), close(0.0005, 0), c(0, 1), d(9, 1.0000001);
  double distance = kUntouched;
  EXPECT_EQ(m.LineToLineDistance(a, close, c, d, 9, &distance), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(m.LineToLineDistance(a, b, a, close, 9, &distance, nullptr, nullptr),
            GM_E_DEGENERATE_LINE);
  for (const int mode : {-1, 5}) {
    EXPECT_EQ(m.LineToLineDistance(a, b, c, d, mode, &distance), GM_E_PARAM_5);
    EXPECT_EQ(m.LineToLineDistance(a, b, c, d, mode, &distance, nullptr, nullptr), GM_E_PARAM_5);
  }
  // Not exactly parallel, but too nearly for an intersection.
  EXPECT_EQ(m.LineToLineDistance(a, b, c, d, 4, &distance, nullptr, nullptr), GM_E_PARALLEL);
  EXPECT_TRUE(IsUntouched(distance));
  EXPECT_EQ(m.LineToLineDistance(a, b, c, d, 4, &distance), GM_OK);
  EXPECT_EQ(distance, 0);
}
