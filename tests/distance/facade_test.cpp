#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include "distance/hard_contours.h"
#include "frame/rounding.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kContourKinds;
using zor::test::kNaN;
using zor::test::kUntouched;

namespace {

using Result = zor::test::PairResult;

Result Measure(ZorContour& a, ZorContour& b, int mode) {
  return zor::test::MeasurePair(a, b, mode, [](auto&&... args) {
    return ZORMV::ZorGeometryMeasureDlg().ContourToContourDistance(args...);
  });
}

ZorContour Rounded(const ZorContour& contour) {
  using zor::frame::RoundToFloat;
  std::vector<ZorPoint> points;
  for (const ZorPoint& p : contour) points.emplace_back(RoundToFloat(p.x), RoundToFloat(p.y));
  return ZorContour(points);
}

ZorContour Circle(double radius, ZorPoint centre = {0, 0}) {
  std::vector<ZorPoint> points;
  for (int i = 0; i < 400; ++i) {
    const double turn = 2 * std::numbers::pi * i / 400;
    points.emplace_back(centre.x + radius * std::cos(turn), centre.y + radius * std::sin(turn));
  }
  return ZorContour(points);
}

}  // namespace

TEST(ContourToContourFacade, Mode4IsMode0OfSinglePrecisionCopiesOnAnyThreads) {
  std::mt19937_64 rng(20240617);
  for (int kind = 0; kind < kContourKinds; ++kind) {
    SCOPED_TRACE("kind " + std::to_string(kind));
    ZorContour a(zor::test::HardContour(kind, 3000, 1000.0 / 3, rng));
    ZorContour b(zor::test::HardContour(kind, 2000, 700.0 / 3, rng));
    ZorContour rounded_a = Rounded(a), rounded_b = Rounded(b);
    const Result expected = Measure(rounded_a, rounded_b, 0);
    for (const std::size_t threads : {1U, 4U}) {
      const tbb::global_control limit(tbb::global_control::max_allowed_parallelism, threads);
      zor::test::ExpectSame(Measure(a, b, 4), expected);
    }
  }
}

TEST(ContourToContourFacade, Mode5IsTheWidthOfTheBand) {
  ZorContour outer = Circle(60), inner = Circle(40, {8, 0}), same = Circle(60),
             apart = Circle(5, {90, 0});
  for (const bool is_swapped : {false, true}) {
    const Result r = is_swapped ? Measure(inner, outer, 5) : Measure(outer, inner, 5);
    ASSERT_EQ(r.status, GM_OK);
    // An eccentric ring is 12 wide on one side and 28 on the other; chords of 400 edges.
    EXPECT_NEAR(r.low, 12, 0.01);
    EXPECT_NEAR(r.high, 28, 0.01);
    ExpectNear(is_swapped ? r.min_b : r.min_a, {60, 0}, 2.0);
    ExpectNear(is_swapped ? r.max_a : r.max_b, {-32, 0}, 2.0);
    EXPECT_EQ(r.low, std::hypot(r.min_a.x - r.min_b.x, r.min_a.y - r.min_b.y));
  }
  // Closed: four corners are enough.
  ZorContour square{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
      hole{{10, 20}, {70, 20}, {70, 70}, {10, 70}};
  EXPECT_NEAR(Measure(square, hole, 5).low, 10, 1e-9);
  EXPECT_EQ(Measure(outer, same, 5).high, 0);
  EXPECT_EQ(Measure(outer, apart, 5).status, GM_E_NO_INTERSECTION);
}

TEST(ContourToContourFacade, StatusesOfModes4And5) {
  ZorContour none, one{{0, 0}}, bad{{0, 0}, {kNaN, 1}, {5, 5}}, far{{0, 0}, {2e6, 1}, {5, 5}};
  for (const int mode : {4, 5}) {
    EXPECT_EQ(Measure(none, one, mode).status, GM_E_EMPTY_CONTOUR);
    EXPECT_EQ(Measure(one, none, mode).status, GM_E_EMPTY_CONTOUR);
    EXPECT_EQ(Measure(one, one, mode).low, 0);
  }
  EXPECT_EQ(Measure(bad, one, 5).status, GM_E_PARAM_1);
  EXPECT_EQ(Measure(one, far, 5).status, GM_E_PARAM_2);
  EXPECT_EQ(Measure(one, one, 6).status, GM_E_PARAM_3);
  EXPECT_EQ(Measure(one, one, -1).status, GM_E_PARAM_3);
}

TEST(PointArrayToContourFacade, MeasuresToThePolyline) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray none, points{{2, 3}, {4, -7}};
  ZorContour empty, single{{0, 0}}, contour{{0, 0}, {10, 0}};
  ZorPoint min_p, min_c, max_p, max_c;
  double low = kUntouched, high = kUntouched;
  const auto measure = [&](ZorPointArray& a, ZorContour& c) {
    return dlg.PointArrayToContourDistance(a, c, &min_p, &min_c, &low, &max_p, &max_c, &high);
  };
  EXPECT_EQ(measure(none, empty), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(measure(points, empty), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(measure(points, single), GM_E_PARAM_2);
  EXPECT_TRUE(IsUntouched(low));
  EXPECT_EQ(measure(points, contour), GM_OK);
  EXPECT_EQ(low, 3);
  EXPECT_EQ(high, 7);
  EXPECT_EQ(min_p, ZorPoint(2, 3));
  ExpectNear(min_c, {2, 0}, 1e-12);
  ExpectNear(max_c, {4, 0}, 1e-12);
}
