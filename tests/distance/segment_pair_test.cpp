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
  int mode;
  ZorPoint a1, a2, b1, b2;
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

TEST(LineToLine, ModesAndTies) {
  const double root5 = std::sqrt(5.0), root8 = std::sqrt(8.0);
  const Case cases[] = {
      {"the first end on ties", 0, {0, 0}, {4, 0}, {0, 3}, {4, 3}, 3, {0, 0}, {0, 3}},
      {"the second end of A", 0, {0, 9}, {2, 4}, {0, 0}, {4, 0}, 4, {2, 4}, {2, 0}},
      {"an end of B", 0, {0, 0}, {10, 0}, {5, 2}, {5, 7}, 2, {5, 0}, {5, 2}},
      {"crossing", 0, {0, 0}, {4, 4}, {0, 4}, {4, 0}, 0, {2, 2}, {2, 2}},
      {"touching end", 0, {0, 0}, {4, 0}, {2, 0}, {2, 5}, 0, {2, 0}, {2, 0}},
      {"collinear overlap", 0, {0, 0}, {4, 0}, {3, 0}, {9, 0}, 0, {4, 0}, {3, 0}},
      {"collinear, apart", 0, {0, 0}, {4, 0}, {50, 0}, {90, 0}, 0, {4, 0}, {50, 0}},
      {"near miss", 0, {0, 0}, {1, 0}, {0, 1e-4}, {1, 1e-4}, 0, {0, 0}, {0, 1e-4}},
      {"no near miss", 0, {0, 0}, {1, 0}, {0, 2e-3}, {1, 2e-3}, 2e-3, {0, 0}, {0, 2e-3}},
      {"largest, the first end on ties", 1, {0, 0}, {4, 0}, {0, 3}, {4, 3}, 3, {0, 0}, {0, 3}},
      {"largest of crossing ones", 1, {0, 0}, {4, 0}, {1, -2}, {1, 5}, 5, {1, 0}, {1, 5}},
      {"from the middle of A", 2, {0, 0}, {4, 0}, {3, 2}, {9, 2}, root5, {2, 0}, {3, 2}},
      {"from the middle of B", 3, {0, 0}, {4, 0}, {3, 2}, {9, 2}, root8, {4, 0}, {6, 2}},
      {"parallel lines", 4, {0, 0}, {4, 0}, {7, 3}, {9, 3}, 3, {0, 0}, {0, 3}},
      {"opposite directions add up", 4, {0, 1}, {4, 1}, {9, 3}, {7, 3}, 4, {0, 1}, {0, 3}},
      {"crossing lines", 4, {0, 0}, {1, 1}, {9, 0}, {9, 1}, 0, {9, 9}, {9, 9}},
      {"too short to project on", 4, {3, 0}, {4, 0}, {0, 2}, {0.002, 2}, 2, {3, 0}, {0, 2}},
  };
  for (const Case& c : cases) Check(c);
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
