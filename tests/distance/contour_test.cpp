#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kUntouched;

namespace {

std::vector<double> Values(const ZorVarArray& list) {
  std::vector<double> values;
  for (const ZorVar& value : list) values.push_back(value.D());
  return values;
}

}  // namespace

TEST(PointToContour, ModesTiesAndStatuses) {
  ZorGeometryMeasure m;
  ZorContour none, one{{3, 4}}, contour{{0, 0}, {8, 0}, {8, 6}, {0, 6}};
  ZorPoint nearest, farthest;
  double low = kUntouched, high = kUntouched;
  const auto measure = [&](ZorContour& c, ZorPoint p, int mode) {
    return m.PointToContourDistance(c, p, mode, &nearest, &low, &farthest, &high);
  };
  EXPECT_EQ(measure(contour, {4, 3}, 0), GM_OK);
  EXPECT_TRUE(low == 5 && high == 5);
  EXPECT_TRUE(nearest == ZorPoint(0, 0) && farthest == ZorPoint(0, 0));
  EXPECT_EQ(measure(contour, {1, 3}, 1), GM_OK);
  EXPECT_EQ(low, 3) << "an open polyline: the closing edge at distance 1 does not count";
  ExpectNear(nearest, {1, 0}, 1e-12);
  EXPECT_EQ(high, std::sqrt(58.0)) << "the maximum is that of the points in both modes";
  EXPECT_EQ(farthest, ZorPoint(8, 0));
  for (const int mode : {0, 1}) {
    EXPECT_EQ(measure(one, {0, 0}, mode), GM_OK);
    EXPECT_TRUE(low == 5 && high == 5 && nearest == farthest);
  }
  EXPECT_EQ(measure(none, {0, 0}, 7), GM_E_EMPTY_CONTOUR);
  for (const int mode : {-1, 2}) EXPECT_EQ(measure(one, {0, 0}, mode), GM_E_PARAM_3);
}

TEST(ContourToLine, SnapsTheMinimumAndListsTheDistances) {
  const double reach = std::sqrt(2.0) * 2;
  const double above = std::nextafter(reach, 3.0);
  for (const double y : {reach, above}) {
    ZorGeometryMeasure m;
    ZorContour contour{{0, 9}, {4, y}, {20, 0}};
    ZorPoint start(0, 0), end(8, 0), nearest, farthest;
    ZorVarArray list;
    double low = kUntouched, high = kUntouched;
    EXPECT_EQ(m.ContourToLineSegmentDistance1(contour, start, end, &list, &nearest, &low, &farthest,
                                              &high),
              GM_OK);
    EXPECT_EQ(low, y == reach ? 0 : above);
    EXPECT_TRUE(nearest == ZorPoint(4, y) && farthest == ZorPoint(20, 0) && high == 12);
    EXPECT_EQ(Values(list), (std::vector<double>{9, y, 12})) << "the list is not snapped";
    // To the line, not the segment: the last point is on it.
    EXPECT_EQ(
        m.LineToContourDistance(contour, start, end, &list, &nearest, nullptr, nullptr, &high),
        GM_OK);
    EXPECT_TRUE(nearest == ZorPoint(20, 0) && high == 9);
    EXPECT_EQ(Values(list), (std::vector<double>{9, y, 0}));
    // The list alone holds the first distance only.
    EXPECT_EQ(
        m.LineToContourDistance(contour, start, end, &list, nullptr, nullptr, nullptr, nullptr),
        GM_OK);
    EXPECT_EQ(Values(list), std::vector<double>{9});
  }
}

TEST(ContourToLine, EmptyIsCheckedBeforeDegenerate) {
  ZorGeometryMeasure m;
  ZorContour none, one{{1, 1}};
  ZorPoint a(0, 0), b(0.0005, 0);
  ZorVarArray list{1.0};
  for (const bool is_line : {true, false}) {
    const auto measure = [&](ZorContour& c) {
      return is_line ? m.LineToContourDistance(c, a, b, &list, nullptr, nullptr, nullptr, nullptr)
                     : m.ContourToLineSegmentDistance1(c, a, b, &list, nullptr, nullptr, nullptr,
                                                       nullptr);
    };
    EXPECT_EQ(measure(none), GM_E_EMPTY_CONTOUR);
    EXPECT_EQ(measure(one), GM_E_DEGENERATE_LINE);
  }
  EXPECT_EQ(list.Length(), 1);
}

TEST(PointArrayToPoint, ForwardsToTheContourForm) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray none, points{{3, 4}, {0, 1}, {-3, -4}};
  ZorPoint origin(0, 0), nearest, farthest;
  double low = kUntouched, high = kUntouched;
  EXPECT_EQ(dlg.PointArrayToPointDistance(none, origin, nullptr, &low, nullptr, &high),
            GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(IsUntouched(low) && IsUntouched(high));
  EXPECT_EQ(dlg.PointArrayToPointDistance(points, origin, &nearest, &low, &farthest, &high), GM_OK);
  EXPECT_EQ(low, 1);
  EXPECT_EQ(high, 5);
  EXPECT_EQ(farthest, ZorPoint(3, 4));
}
