#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "distance/hard_contours.h"
#include "elementary/point_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::elementary::Distance;
using zor::test::kContourKinds;
using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

struct Lists {
  ZorVarArray distances{7.0};
  ZorPointArray points_a, points_b;
  ZorVarArray indices_a, indices_b;

  long Fill(ZorPointArray& a, ZorPointArray& b, double lower, double upper, int mode) {
    return ZorGeometryMeasure().PointArrayToPointArrayDistance(
        a, b, lower, upper, mode, &distances, &points_a, &indices_a, &points_b, &indices_b);
  }
};

/// The partner of p by the plain loop.
int Partner(const ZorPoint& p, const ZorPointArray& b, int mode) {
  int best = 0;
  for (int j = 1; j < b.Length(); ++j) {
    const double d = Distance(p, b[j]);
    if (mode == 0 ? d < Distance(p, b[best]) : d > Distance(p, b[best])) best = j;
  }
  return best;
}

}  // namespace

TEST(PointArrays, PartnersAgreeWithThePlainLoops) {
  std::mt19937_64 rng(20240616);
  for (int i = 0; i < 4 * kContourKinds; ++i) {
    SCOPED_TRACE("kind " + std::to_string(i % kContourKinds));
    ZorPointArray a(zor::test::HardContour(i % kContourKinds, 40, 8.0, rng));
    ZorPointArray b(zor::test::HardContour(i / 4 % 8, 100, 6.0, rng));
    for (int mode = 0; mode <= 2; ++mode) {
      const double lower = mode == 2 ? 3.0 : 0.0;
      const double upper = mode == 2 ? 3.5 : kInfinity;
      Lists lists;
      ASSERT_EQ(lists.Fill(a, b, lower, upper, mode), GM_OK);
      int k = 0;
      for (int j = 0; j < a.Length() * b.Length(); ++j) {
        const int ia = j / b.Length();
        const int ib = j % b.Length();
        const double d = Distance(a[ia], b[ib]);
        const bool is_paired = mode == 2 || Partner(a[ia], b, mode) == ib;
        if (!is_paired || !(d >= lower && d <= upper)) continue;
        ASSERT_LT(k, lists.distances.Length());
        EXPECT_EQ(lists.distances[k].D(), d);
        EXPECT_EQ(lists.indices_a[k].D(), ia);
        EXPECT_EQ(lists.indices_b[k].D(), ib);
        EXPECT_TRUE(lists.points_a[k] == a[ia] && lists.points_b[k] == b[ib]);
        ++k;
      }
      EXPECT_EQ(lists.distances.Length(), k);
    }
  }
}

TEST(PointArrays, RangeIsInclusiveAndStatusesInOrder) {
  ZorPointArray none, a{{0, 0}, {10, 0}}, b{{3, 0}, {10, 2}};
  Lists lists;
  EXPECT_EQ(lists.Fill(a, b, 2, 3, 0), GM_OK);
  EXPECT_EQ(lists.distances.Length(), 2);
  EXPECT_EQ(lists.Fill(a, b, 4, 5, 0), GM_OK);
  EXPECT_TRUE(lists.distances.Empty() && lists.points_b.Empty());
  EXPECT_EQ(lists.Fill(none, b, -1, 1, 9), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(lists.Fill(a, none, -1, 1, 9), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(lists.Fill(a, b, -1, -2, 9), GM_E_PARAM_3);
  EXPECT_EQ(lists.Fill(a, b, 2, 1, 9), GM_E_PARAM_4);
  EXPECT_EQ(lists.Fill(a, b, 1, 2, 3), GM_E_PARAM_5);
  EXPECT_EQ(lists.Fill(a, b, 1, 2, -1), GM_E_PARAM_5);
  EXPECT_EQ(lists.Fill(a, b, kNaN, kNaN, 2), GM_OK);
  EXPECT_TRUE(lists.distances.Empty());
}
