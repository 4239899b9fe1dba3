#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "distance/polyline_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "support/values.h"

using zor::elementary::NearestPoint;
using zor::test::kInfinity;
using zor::test::kNaN;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

NearestPoint PlainNearest(const ZorPoint& p, const std::vector<ZorPoint>& polyline,
                          NearestPoint nearest) {
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    const NearestPoint d = elementary::PointToClosedSegment(p, polyline[i - 1], polyline[i]);
    if (d.distance < nearest.distance) nearest = d;
  }
  return nearest;
}

bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// Polylines that are hard to prune: on a grid (ties), wild, dense, with repeated points, around
/// one centre, and with coordinates that are not finite.
std::vector<ZorPoint> HardPolyline(int kind, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> unit(-1, 1);
  std::vector<ZorPoint> points;
  for (int i = 0; i < 60; ++i) {
    const double turn = 0.1 * i;
    ZorPoint p(std::round(4 * unit(rng)), std::round(4 * unit(rng)));
    if (kind == 1) p = ZorPoint(100 * unit(rng), 100 * unit(rng));
    if (kind == 2) p = ZorPoint(50 + 1e-5 * i, 1e-6 * unit(rng));
    if (kind == 3 && i % 3 != 0) p = points.back();
    if (kind >= 4) p = ZorPoint(10 * std::cos(turn), 10 * std::sin(turn));
    if (kind == 5 && i % 7 == 3) p.x = i % 2 == 0 ? kNaN : kInfinity;
    points.push_back(p);
  }
  return points;
}

}  // namespace

TEST(Polyline, PruningKeepsValuesPointsAndTies) {
  std::mt19937_64 rng(20240612);
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int i = 0; i < 1200; ++i) {
    const int kind = i % 6;
    SCOPED_TRACE("kind " + std::to_string(kind));
    const std::vector<ZorPoint> points = HardPolyline(kind, rng);
    ZorPoint p(std::round(5 * unit(rng)), std::round(5 * unit(rng)));
    if (i % 5 == 0) p = points[static_cast<std::size_t>(i % 60)];
    if (i % 97 == 0) p.y = kNaN;
    const NearestPoint seed{i % 3 == 0 ? 2.0 : elementary::Distance(p, points[0]), points[0]};
    const NearestPoint fast = distance::NearestOnPolyline(p, points, seed);
    const NearestPoint plain = PlainNearest(p, points, seed);
    EXPECT_TRUE(Same(fast.distance, plain.distance)) << fast.distance << " " << plain.distance;
    EXPECT_TRUE(Same(fast.point.x, plain.point.x) && Same(fast.point.y, plain.point.y));

    std::size_t nearest = 0, farthest = 0;
    for (std::size_t k = 1; k < points.size(); ++k) {
      const double d = elementary::Distance(p, points[k]);
      if (elementary::Distance(p, points[nearest]) > d) nearest = k;
      if (d > elementary::Distance(p, points[farthest])) farthest = k;
    }
    const distance::PointRange range = distance::RangeOfPoints(p, points);
    EXPECT_EQ(range.nearest.index, nearest);
    EXPECT_EQ(range.farthest.index, farthest);
    EXPECT_TRUE(Same(range.nearest.distance, elementary::Distance(p, points[nearest])));
    EXPECT_TRUE(Same(range.farthest.distance, elementary::Distance(p, points[farthest])));
  }
}
