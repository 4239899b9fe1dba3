#include "elementary/polygon_index.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/polygon_kernels.h"
#include "support/values.h"

namespace {

using zor::elementary::PolygonIndex;
using zor::elementary::PolygonRelation;
using zor::test::kInfinity;
using zor::test::kNaN;

constexpr int kKinds = 5;

/// Polygons in hard places: vertices on whole numbers (crossing itself, repeated, level), a
/// staircase, spikes, a comb as high as it is long, a sliver of hardly any height.
std::vector<ZorPoint> HardPolygon(int kind, int n, double offset, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> real(0, 1);
  std::uniform_int_distribution<int> whole(0, 9);
  std::vector<ZorPoint> polygon;
  ZorPoint step;
  for (int i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * i / n, r = 40 * real(rng);
    step = step + (i % 2 == 0 ? ZorPoint(whole(rng) - 4, 0) : ZorPoint(0, whole(rng) - 4));
    const ZorPoint shapes[kKinds] = {
        ZorPoint(whole(rng), whole(rng)), step, ZorPoint(r * std::cos(t), r * std::sin(t)),
        ZorPoint(i, i % 2 * n), ZorPoint(50 * real(rng), whole(rng) / 3 * 1e-5)};
    polygon.push_back(shapes[kind] + ZorPoint(offset, offset));
  }
  return polygon;
}

/// Points about an edge of the polygon: on it, off it by about the reach along either axis, level
/// with its end, at its end, anywhere, and between it and another vertex.
std::array<ZorPoint, 7> HardPoints(const std::vector<ZorPoint>& polygon, std::mt19937_64& rng) {
  std::uniform_int_distribution<std::size_t> pick(0, polygon.size() - 1);
  std::uniform_real_distribution<double> share(0, 1), nearby(-1.5e-5, 1.5e-5), anywhere(-60, 60);
  const std::size_t i = pick(rng);
  const ZorPoint a = polygon[i];
  const ZorPoint b = polygon[(i + 1) % polygon.size()];
  const ZorPoint c = polygon[pick(rng)];
  const double t = share(rng);
  const ZorPoint on(a.x + t * (b.x - a.x), a.y + t * (b.y - a.y));
  return {a,
          ZorPoint(on.x + nearby(rng), on.y),
          ZorPoint(on.x, on.y + nearby(rng)),
          ZorPoint(a.x + anywhere(rng), a.y),
          ZorPoint(a.x + nearby(rng), a.y + nearby(rng)),
          ZorPoint(a.x + anywhere(rng), a.y + anywhere(rng)),
          ZorPoint((a.x + c.x) / 2, (a.y + c.y) / 2)};
}

}  // namespace

TEST(PolygonIndex, AnswersAsTheWalkDoes) {
  std::mt19937_64 rng(20240615);
  std::array<int, 3> answers{};
  for (int kind = 0; kind < 2 * kKinds; ++kind) {
    for (const int n : {1, 2, 3, 7, 40, 500}) {
      for (const double offset : {0.0, -1234.5, 5e6}) {
        std::vector<ZorPoint> polygon = HardPolygon(kind % kKinds, n, offset, rng);
        if (kind >= kKinds) {
          for (ZorPoint& p : polygon) std::swap(p.x, p.y);
        }
        for (const std::size_t queries : {200U, 100000U}) {
          const PolygonIndex index(polygon, queries);
          for (int k = 0; k < 100; ++k) {
            for (const ZorPoint& p : HardPoints(polygon, rng)) {
              const int expected = PolygonRelation(p, polygon);
              ++answers.at(static_cast<std::size_t>(expected + 1));
              ASSERT_EQ(index.Relation(p), expected)
                  << "kind " << kind << ", " << n << " vertices at " << offset << ", for "
                  << queries << " queries, " << zor::test::Show(p);
            }
          }
        }
      }
    }
  }
  for (const int count : answers) EXPECT_GT(count, 10000);
}

TEST(PolygonIndex, LevelEdgesReachIntoTheNextRow) {
  // Cells of one pixel: one edge on the bound of a row, one just above it.
  const std::vector<ZorPoint> steps{{0, 0},        {16, 0}, {16, 16}, {12, 16}, {12, 8 - 4e-6},
                                    {8, 8 - 4e-6}, {8, 16}, {4, 16},  {4, 8},   {0, 8}};
  const PolygonIndex index(steps, 8 * 16 * 16);
  for (const double x : {2.0, 10.0}) {
    for (double dy = -1.5e-5; dy <= 1.5e-5; dy += 1e-6) {
      EXPECT_EQ(index.Relation({x, 8 + dy}), PolygonRelation({x, 8 + dy}, steps))
          << x << ", " << dy;
    }
  }
}

TEST(PolygonIndex, PointsAndPolygonsThatAreNoNumbers) {
  const std::vector<ZorPoint> square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  std::vector<ZorPoint> broken = square, vast = square;
  broken[2].x = kNaN;
  vast[2] = {kInfinity, 1e300};
  for (const auto& polygon : {square, broken, vast, std::vector<ZorPoint>()}) {
    const PolygonIndex index(polygon, 1000);
    for (const double x : {-1.0, 5.0, kNaN, kInfinity, -kInfinity, 1e300}) {
      for (const double y : {-1.0, 5.0, kNaN, kInfinity, -kInfinity, 1e300}) {
        EXPECT_EQ(index.Relation({x, y}), PolygonRelation({x, y}, polygon)) << x << ", " << y;
      }
    }
  }
}
