#include <algorithm>
#include <cmath>

#include "ZorGeometryMeasure.h"
#include "distance/circle_kernels.h"
#include "distance/point_pair.h"
#include "distance/store_pair.h"
#include "elementary/point_kernels.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsPositive;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

/// A segment measured to a circle with the operations that leave their records. The distance from
/// the outline is extreme at an end or in the segment point nearest to the centre, the foot.
class SegmentToCircle {
 public:
  SegmentToCircle(ZorGeometryMeasure& measure, const ZorPoint& start, const ZorPoint& end,
                  const ZorPoint& centre, double radius)
      : measure_(measure), start_(start), end_(end), centre_(centre), radius_(radius) {}

  [[nodiscard]] long Locate() {
    double from_centre = 0.0;
    const long status =
        measure_.PointToSegmentDistance(centre_, start_, end_, 0, &from_centre, &foot_);
    if (status != GM_OK) return status;
    const double d1 = elementary::Distance(start_, centre_);
    const double d2 = elementary::Distance(end_, centre_);
    const double e1 = std::fabs(d1 - radius_);
    const double e2 = std::fabs(d2 - radius_);
    const double ef = std::fabs(from_centre - radius_);
    const bool is_end_farther = e2 > e1;
    const ZorPoint& nearer = is_end_farther ? start_ : end_;
    const ZorPoint& farther = is_end_farther ? end_ : start_;
    if (ef <= distance::kTouchesCircle) {
      nearest_ = foot_;
      farthest_ = farther;
      return GM_OK;
    }
    nearest_ = ef > std::min(e1, e2) ? nearer : foot_;
    farthest_ = ef > std::max(e1, e2) ? foot_ : farther;
    meets_ = from_centre <= radius_ && radius_ <= std::max(d1, d2);
    return GM_OK;
  }

  [[nodiscard]] long Nearest(PointPair* pair) {
    if (!meets_) return FromPoint(nearest_, pair);
    ZorPointArray crossings;
    const long status =
        measure_.LineSegmentCircleIntersection(start_, end_, centre_, radius_, &crossings);
    if (status != GM_OK) return status;
    if (!crossings.Empty()) {
      *pair = {0.0, crossings[0], crossings[0]};
      return GM_OK;
    }
    // An end so close to the outline that rounding puts the crossing beyond it.
    const double from_centre = elementary::Distance(nearest_, centre_);
    *pair = {0.0, nearest_,
             distance::NearestOnCircle(nearest_, centre_, radius_, from_centre).point};
    return GM_OK;
  }

  [[nodiscard]] long Farthest(PointPair* pair) { return FromPoint(farthest_, pair); }

 private:
  [[nodiscard]] long FromPoint(ZorPoint point, PointPair* pair) {
    double signed_distance = 0.0;
    const long status =
        measure_.PointToCircleDistance(point, centre_, radius_, &signed_distance, &pair->figure);
    pair->distance = std::fabs(signed_distance);
    pair->own = point;
    return status;
  }

  ZorGeometryMeasure& measure_;
  ZorPoint start_;
  ZorPoint end_;
  ZorPoint centre_;
  double radius_;
  ZorPoint foot_;
  ZorPoint nearest_;
  ZorPoint farthest_;
  bool meets_ = false;
};

}  // namespace

long ZorGeometryMeasure::LineSegmentToCircleDistance(ZorPoint& segStart, ZorPoint& segEnd,
                                                     ZorPoint& centre, double radius,
                                                     double* distance, ZorPoint* segmentPoint,
                                                     ZorPoint* circlePoint) {
  Trace trace("LineSegmentToCircleDistance");
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  if (!IsPositive(radius)) return InvalidArgument(4);
  SegmentToCircle segment(*this, segStart, segEnd, centre, radius);
  if (const long status = segment.Locate(); status != GM_OK) return status;
  PointPair nearest;
  if (const long status = segment.Nearest(&nearest); status != GM_OK) return status;
  StorePair(nearest, distance, segmentPoint, circlePoint);
  return trace.Done();
}

long ZorGeometryMeasure::LineSegmentToCircleDistance(ZorPoint& segStart, ZorPoint& segEnd,
                                                     ZorPoint& centre, double radius,
                                                     double* minDistance, ZorPoint* minSegmentPoint,
                                                     ZorPoint* minCirclePoint, double* maxDistance,
                                                     ZorPoint* maxSegmentPoint,
                                                     ZorPoint* maxCirclePoint) {
  Trace trace("LineSegmentToCircleDistance");
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  if (!IsPositive(radius)) return InvalidArgument(4);
  SegmentToCircle segment(*this, segStart, segEnd, centre, radius);
  if (const long status = segment.Locate(); status != GM_OK) return status;
  PointPair nearest;
  if (const long status = segment.Nearest(&nearest); status != GM_OK) return status;
  PointPair farthest;
  if (const long status = segment.Farthest(&farthest); status != GM_OK) return status;
  StorePair(nearest, minDistance, minSegmentPoint, minCirclePoint);
  StorePair(farthest, maxDistance, maxSegmentPoint, maxCirclePoint);
  return trace.Done();
}
