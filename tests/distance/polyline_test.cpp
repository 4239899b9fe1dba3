#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "distance/hard_contours.h"
#include "distance/polyline_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "support/values.h"

using zor::elementary::NearestPoint;
using zor::test::IsSame;
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

}  // namespace

TEST(Polyline, PruningKeepsValuesPointsAndTies) {
  std::mt19937_64 rng(20240612);
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int i = 0; i < 1200; ++i) {
    const int kind = i % zor::test::kContourKinds;
    SCOPED_TRACE("kind " + std::to_string(kind));
    const std::vector<ZorPoint> points = zor::test::HardContour(kind, 60, 5.0, rng);
    ZorPoint p(std::round(5 * unit(rng)), std::round(5 * unit(rng)));
    if (i % 5 == 0) p = points[static_cast<std::size_t>(i % 60)];
    if (i % 97 == 0) p.y = kNaN;
    const NearestPoint seed{i % 3 == 0 ? 2.0 : elementary::Distance(p, points[0]), points[0]};
    const NearestPoint fast = distance::NearestOnPolyline(p, points, seed);
    const NearestPoint plain = PlainNearest(p, points, seed);
    EXPECT_TRUE(IsSame(fast.distance, plain.distance)) << fast.distance << " " << plain.distance;
    EXPECT_TRUE(IsSame(fast.point, plain.point));

    std::size_t nearest = 0, farthest = 0;
    for (std::size_t k = 1; k < points.size(); ++k) {
      const double d = elementary::Distance(p, points[k]);
      if (elementary::Distance(p, points[nearest]) > d) nearest = k;
      if (d > elementary::Distance(p, points[farthest])) farthest = k;
    }
    const distance::PointRange range = distance::RangeOfPoints(p, points);
    EXPECT_EQ(range.nearest.index, nearest);
    EXPECT_EQ(range.farthest.index, farthest);
    EXPECT_TRUE(IsSame(range.nearest.distance, elementary::Distance(p, points[nearest])));
    EXPECT_TRUE(IsSame(range.farthest.distance, elementary::Distance(p, points[farthest])));
  }
}
