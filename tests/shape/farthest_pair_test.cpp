#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "shape/farthest_pair_kernels.h"
#include "shape/point_sets.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::shape::PointPair;
using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

/// Every pair in order, the larger computed distance wins.
PointPair PlainFarthestPair(const std::vector<ZorPoint>& points) {
  PointPair best;
  double farthest = 0.0;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    for (std::size_t j = i + 1; j < points.size(); ++j) {
      const double dx = points[i].x - points[j].x;
      const double dy = points[i].y - points[j].y;
      const double distance = std::sqrt(dx * dx + dy * dy);
      if (!(distance > farthest)) continue;
      farthest = distance;
      best.first = points[i];  // the type's assignments return nothing
      best.second = points[j];
    }
  }
  return best;
}

void ExpectAsPlain(const std::vector<ZorPoint>& points, const std::string& what) {
  const PointPair fast = zor::shape::FarthestPair(points);
  const PointPair plain = PlainFarthestPair(points);
  EXPECT_TRUE(fast.first == plain.first && fast.second == plain.second)
      << what << ": " << zor::test::Show(fast.first) << zor::test::Show(fast.second) << " for "
      << zor::test::Show(plain.first) << zor::test::Show(plain.second);
}

}  // namespace

TEST(FarthestPair, AgreesWithTheExhaustiveSearch) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.3);
  std::uniform_int_distribution<int> cell(0, 40);
  for (const std::size_t n : {std::size_t{97}, std::size_t{1000}, std::size_t{2001}}) {
    const std::string size = " of " + std::to_string(n);
    ExpectAsPlain(zor::test::SquareCloud(rng, n, 1000), "cloud" + size);
    std::vector<ZorPoint> points = zor::test::EllipsePoints(n, 300, 300);
    ExpectAsPlain(points, "circle" + size);  // every distance across ties but for rounding
    std::shuffle(points.begin(), points.end(), rng);
    ExpectAsPlain(points, "shuffled circle" + size);
    for (ZorPoint& p : points) p = ZorPoint(std::round(p.x), std::round(p.y));
    ExpectAsPlain(points, "circle of pixels" + size);  // duplicates and exact ties
    points = zor::test::EllipsePoints(n, 500, 1e-3);
    ExpectAsPlain(points, "sliver" + size);
    for (ZorPoint& p : points) p = p + ZorPoint(noise(rng), noise(rng));
    ExpectAsPlain(points, "thick line" + size);
    for (ZorPoint& p : points) p = ZorPoint(cell(rng), cell(rng));
    ExpectAsPlain(points, "grid" + size);
    for (ZorPoint& p : points) p = ZorPoint(1e-9 * p.x, 1e-9 * p.y + 4000);
    ExpectAsPlain(points, "grid near the end of the digits" + size);
    for (ZorPoint& p : points) p = cell(rng) < 20 ? ZorPoint(1, 2) : ZorPoint(3, 1);
    ExpectAsPlain(points, "two places" + size);
  }
}

TEST(FarthestPair, SquaresThatDifferCanTie) {
  // The roots of the squares of these distances round to the same number, so that the pair met
  // first stays although a later one is farther apart.
  const double step = std::ldexp(1.0, -52);
  std::vector<ZorPoint> points(200, ZorPoint(0.5, 0));
  points[10] = ZorPoint(0, 0);
  points[20] = ZorPoint(1, 1);
  points[30] = ZorPoint(0, 1);
  points[40] = ZorPoint(1, -step);
  ASSERT_EQ(std::sqrt(2.0), std::sqrt(1 + (1 + step) * (1 + step)));
  const PointPair pair = zor::shape::FarthestPair(points);
  EXPECT_EQ(pair.first, points[10]);
  EXPECT_EQ(pair.second, points[20]);
}

TEST(FarthestPair, OddCoordinatesNeitherHangNorTakePart) {
  std::mt19937_64 rng(11);
  std::vector<ZorPoint> points = zor::test::SquareCloud(rng, 300, 100);
  const PointPair clean = PlainFarthestPair(points);
  points.insert(points.begin() + 7, {{kNaN, 5000}, {5000, kNaN}, {kNaN, kNaN}});
  ExpectAsPlain(points, "not a number");
  EXPECT_EQ(zor::shape::FarthestPair(points).first, clean.first);
  points[50] = ZorPoint(kInfinity, 3);
  points[60] = ZorPoint(kInfinity, 4);
  ExpectAsPlain(points, "infinite");
  for (const double scale : {1e-170, 1e-150, 1e200}) {
    points = zor::test::SquareCloud(rng, 300, scale);
    ExpectAsPlain(points, std::to_string(std::log10(scale)));
  }
  ExpectAsPlain(std::vector<ZorPoint>(300, ZorPoint(kNaN, 1)), "all not a number");
  ExpectAsPlain(std::vector<ZorPoint>(300, ZorPoint(3, 1)), "all in one place");
}

TEST(FindMaxDistancePointPair, CountsTiesAndNullOutputs) {
  ZorGeometryMeasure m;
  ZorPoint first = zor::test::UntouchedPoint(), second = zor::test::UntouchedPoint();
  ZorPointArray one = {{5, 6}}, two = {{5, 6}, {5, 6}}, three = {{5, 6}, {5, 6}, {5, 6}},
                rectangle = {{0, 0}, {3, 0}, {0, 4}, {3, 4}};
  EXPECT_EQ(m.FindMaxDistancePointPair(one, &first, &second), GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(zor::test::IsUntouched(first) && zor::test::IsUntouched(second));
  EXPECT_EQ(m.FindMaxDistancePointPair(two, &first, &second), GM_OK);
  EXPECT_EQ(second, ZorPoint(5, 6)) << "two points are not compared";
  EXPECT_EQ(m.FindMaxDistancePointPair(three, &first, &second), GM_OK);
  EXPECT_EQ(first, ZorPoint()) << "no pair among coinciding points";
  EXPECT_EQ(m.FindMaxDistancePointPair(rectangle, &first, nullptr), GM_OK);
  EXPECT_EQ(m.FindMaxDistancePointPair(rectangle, nullptr, &second), GM_OK);
  EXPECT_TRUE(first == ZorPoint(0, 0) && second == ZorPoint(3, 4));
}
