#include "elementary/polygon_index.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/polygon_kernels.h"
#include "support/values.h"

namespace {

using zor::elementary::PolygonIndex;
using zor::elementary::PolygonRelation;
using zor::test::kInfinity;
using zor::test::kNaN;

enum Kind { kWholeNumbers, kStaircase, kCircle, kSpikes, kCombUpright, kCombFlat, kSliver, kKinds };

/// Polygons in hard places: crossing themselves, repeated, collinear and level vertices, edges as
/// long as the polygon, hardly any height, near the origin or far from it.
std::vector<ZorPoint> HardPolygon(int kind, int n, double offset, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> real(0, 1);
  std::uniform_int_distribution<int> whole(0, 9);
  std::vector<ZorPoint> polygon;
  ZorPoint at(offset, offset);
  for (int i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * i / n;
    const double r = kind == kSpikes ? 40 * real(rng) : 40 + 0.1 * real(rng);
    const ZorPoint round(offset + r * std::cos(t), offset + r * std::sin(t));
    switch (kind) {
      case kWholeNumbers:
        at = {offset + whole(rng), offset + whole(rng)};
        break;
      case kStaircase:
        at = at + (i % 2 == 0 ? ZorPoint(whole(rng) - 4, 0) : ZorPoint(0, whole(rng) - 4));
        break;
      case kCombUpright:
        at = {offset + i, offset + i % 2 * n};
        break;
      case kCombFlat:
        at = {offset + i % 2 * n, offset + i};
        break;
      case kSliver:
        at = {offset + 50 * real(rng), offset + whole(rng) / 3 * 1e-5};
        break;
      default:
        at = round;
    }
    polygon.push_back(at);
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
  for (int kind = 0; kind < kKinds; ++kind) {
    for (const int n : {1, 2, 3, 7, 40, 500}) {
      for (const double offset : {0.0, -1234.5, 5e6}) {
        const std::vector<ZorPoint> polygon = HardPolygon(kind, n, offset, rng);
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
