#include <cstdlib>
#include <ctime>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/ransac_kernels.h"
#include "support/values.h"
#include <ZorRansacFit.h>
#include <ZorStatus.h>

namespace {

using Runs = std::vector<std::pair<int, int>>;

}  // namespace

TEST(RansacFit, FarRunsStartAboveAndContinueAtTheDistance) {
  const auto check = [](const std::vector<double>& heights, const Runs& expected) {
    ZorLine axis({-1, 0}, {-2, 0});
    ZorPointArray points;
    for (const double y : heights) points.Append({0, y});
    Runs runs = {{7, 7}};
    ZorRansacFit().SelectOutRange(axis, 1, points, runs);
    EXPECT_EQ(runs, expected);
  };
  check({}, {});
  check({1, 1, 0, -1}, {});                     // at the distance nothing starts
  check({0, 2, 0}, {{1, 0}});                   // a lone far point
  check({1, 2, 1, -1, -9, 1, 0, 1}, {{1, 4}});  // at it a run goes on, on both sides
  check({2, 0, 2, 2, 0, 3, 3, 0, 2, 2, 2}, {{8, 2}, {2, 1}, {5, 1}, {0, 0}});  // longest first
  check({3, 3, zor::test::kNaN, 3}, {{0, 1}, {3, 0}});
}

TEST(RansacFit, SampleIndexReseedsWithTheSecondAtEveryDraw) {
  ZorRansacFit fit;
  std::vector<int> drawn, again, expected;
  std::time_t before = 0;
  do {  // until a second passes within no draw
    before = std::time(nullptr);
    ASSERT_TRUE(fit.SampleIndex(7, 5, drawn));
    ASSERT_TRUE(fit.SampleIndex(7, 5, again));
  } while (std::time(nullptr) != before);
  std::srand(static_cast<unsigned>(before));
  for (int i = 0; i < 5; ++i) expected.push_back(std::rand() % 7);
  EXPECT_EQ(drawn, expected);
  EXPECT_EQ(again, expected);
  EXPECT_TRUE(fit.SampleIndex(0, 5, drawn));
  EXPECT_TRUE(drawn.empty());
}

TEST(RansacFit, LineRunsFromTheProjectionOfTheFirstToThatOfTheLastPoint) {
  ZorRansacFit fit;
  ZorPointArray points;
  for (int i = 0; i < 40; ++i) points.Append({3.0 * i, 4.0 * i});
  ZorLine line({7, 7}, {8, 8});
  do {  // equal draws skip all pairs; another second, another pair
    ASSERT_EQ(fit.RansacFitLine(points, 0.1, 100, 0.5, &line), GM_OK);
  } while (line.start.x == 7);
  zor::test::ExpectNear(line.start, points[0], 1e-12);
  zor::test::ExpectNear(line.end, points[39], 1e-12);
  const ZorLine found = line;
  ZorPointArray none, same(std::vector<ZorPoint>(9, {5, 5}));
  EXPECT_EQ(fit.RansacFitLine(none, 0.1, 100, 0.5, &line), GM_OK);
  EXPECT_EQ(fit.RansacFitLine(same, 0.1, 100, 0.5, &line), GM_OK);
  EXPECT_EQ(line, found);
}

TEST(RansacFit, CountsOfSupportersWrapAt65536) {
  std::vector<ZorPoint> points(65536, {1, 0});
  points.insert(points.end(), 3, {1, 5});
  const ZorLine crowded({0, 0}, {2, 0}), sparse({0, 5}, {2, 5});
  const std::vector<ZorLine> candidates = {crowded, crowded, sparse};
  EXPECT_EQ(zor::fitting::BestSupported(candidates, points, 0.5), sparse);
}

TEST(RansacFit, LinesAndPoints) {
  ZorRansacFit fit;
  ZorPoint origin(0, 0), p(0, 1), q(0.1, 0), r(0.09, 0);
  ZorLine axis(origin, {2, 0}), short_line({3, 3}, {3, 3 + 9e-6}), line = axis;
  EXPECT_EQ(fit.PointToLineDistance(p, axis), 1);  // the right of the way, y grows downwards
  EXPECT_EQ(fit.ProjectToLine(p, short_line), origin);
  ZorLine slanted({1, 0}, {4, 4});
  zor::test::ExpectNear(fit.ProjectToLine(origin, slanted), {1 - 0.36, -0.48}, 1e-15);

  EXPECT_TRUE(!fit.FitLine(origin, r, &line) && line == axis);
  EXPECT_TRUE(fit.FitLine(origin, q, &line) && line == ZorLine(origin, q));

  ZorPointArray points = {{9, 0.5}, {-9, -0.5}, {0, 0.6}};
  EXPECT_EQ(fit.SelectPointByLine(points, axis, 0.5), 2);

  ZorLine unit(origin, {1, 0}), leaning(origin, {1000, 5}), steeper(origin, {1000, 11});
  EXPECT_TRUE(fit.CompareLine(unit, leaning));  // measures the ends of the first line only
  EXPECT_FALSE(fit.CompareLine(leaning, unit));
  EXPECT_FALSE(fit.CompareLine(unit, steeper));
  fit.angleTolerance = fit.distanceTolerance = 0.02;
  EXPECT_TRUE(fit.CompareLine(unit, steeper));
}
