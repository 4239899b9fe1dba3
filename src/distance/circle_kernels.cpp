#include "distance/circle_kernels.h"

#include <cmath>
#include <optional>

#include "distance/oval_segment_kernels.h"
#include "elementary/point_kernels.h"

namespace zor::distance {
namespace {

Nearest NearestOf(const ZorPoint& p, const ZorPoint& centre, double radius) {
  return NearestOnCircle(p, centre, radius, elementary::Distance(p, centre));
}

}  // namespace

PointPair LeastPairAlongSegment(const ZorPoint& a, const ZorPoint& b, const ZorPoint& centre,
                                double radius, double least) {
  const ZorPoint foot = elementary::PointToClosedSegment(centre, a, b).point;
  if (least != 0.0) return {least, foot, NearestOf(foot, centre, radius).point};
  const std::optional<double> crossing = FirstCrossing(a - centre, b - centre, radius, radius);
  if (crossing) {
    const ZorPoint common(a.x + *crossing * (b.x - a.x), a.y + *crossing * (b.y - a.y));
    return {0.0, common, common};
  }
  ZorPoint closest = a;
  for (const ZorPoint& p : {foot, b}) {
    const double d = std::fabs(NearestOf(p, centre, radius).distance);
    if (d < std::fabs(NearestOf(closest, centre, radius).distance)) closest = p;
  }
  return {0.0, closest, NearestOf(closest, centre, radius).point};
}

}  // namespace zor::distance
