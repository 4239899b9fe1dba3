#include <optional>
#include <utility>

#include "ZorGeometryMeasure.h"
#include "distance/segment_pair_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::distance::EndDistance;
using zor::elementary::NearestPoint;
using zor::frame::CatchAs;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

enum Mode { kShortest, kLargest, kFromMiddleOfA, kFromMiddleOfB, kLines, kModeCount };

/// Points on A and on B with their distance.
struct Pair {
  double distance = 0.0;
  ZorPoint on_a;
  ZorPoint on_b;
};

/// The segments A = a1a2 and B = b1b2 measured with the operations that leave their records.
class SegmentPair {
 public:
  SegmentPair(ZorGeometryMeasure& measure, const ZorPoint& a1, const ZorPoint& a2,
              const ZorPoint& b1, const ZorPoint& b2)
      : measure_(measure), a1_(a1), a2_(a2), b1_(b1), b2_(b2) {}

  long Measure(int mode, Pair* found) {
    switch (mode) {
      case kShortest:
        if (elementary::SegmentsTouch(a1_, a2_, b1_, b2_)) return Touching(found);
        return FromEnd(distance::NearestEnd(a1_, a2_, b1_, b2_), found);
      case kLargest:
        return FromEnd(distance::FarthestEnd(a1_, a2_, b1_, b2_), found);
      case kFromMiddleOfA: {
        const ZorPoint middle = elementary::Midpoint(a1_, a2_);
        const NearestPoint nearest = elementary::PointToClosedSegment(middle, b1_, b2_);
        *found = {nearest.distance, middle, nearest.point};
        return GM_OK;
      }
      case kFromMiddleOfB: {
        const ZorPoint middle = elementary::Midpoint(b1_, b2_);
        const NearestPoint nearest = elementary::PointToClosedSegment(middle, a1_, a2_);
        *found = {nearest.distance, nearest.point, middle};
        return GM_OK;
      }
      default:
        return Lines(found);
    }
  }

 private:
  /// The pair of an end and the point nearest to it on the other segment. All four ends are
  /// measured for their records; without a sink the one that is wanted is enough.
  long FromEnd(const EndDistance& wanted, Pair* found) {
    found->distance = wanted.distance;
    for (int end = 0; end < 4; ++end) {
      if (end != wanted.end && !IsTracing()) continue;
      const bool is_on_a = end < 2;
      ZorPoint from = is_on_a ? (end == 0 ? a1_ : a2_) : (end == 2 ? b1_ : b2_);
      ZorPoint nearest;
      const long status = measure_.PointToSegmentDistance(
          from, is_on_a ? b1_ : a1_, is_on_a ? b2_ : a2_, 0, nullptr, &nearest);
      if (status != GM_OK) return status;
      if (end != wanted.end) continue;
      found->on_a = is_on_a ? from : nearest;
      found->on_b = is_on_a ? nearest : from;
    }
    return GM_OK;
  }

  /// Deliberate: the distance is 0 also where the segments do not cross (collinear ones, near
  /// misses); the points are then the closest ends, which may lie apart.
  long Touching(Pair* found) {
    ZorPoint crossing;
    if (measure_.LineSegmentsIntersection(a1_, a2_, b1_, b2_, &crossing, nullptr)) {
      *found = {0.0, crossing, crossing};
      return GM_OK;
    }
    double nearest = elementary::Distance(a1_, b1_);
    *found = {0.0, a1_, b1_};
    for (const auto& [a, b] : {std::pair(a1_, b2_), std::pair(a2_, b1_), std::pair(a2_, b2_)}) {
      const double d = elementary::Distance(a, b);
      if (!(d < nearest)) continue;
      nearest = d;
      *found = {0.0, a, b};
    }
    return GM_OK;
  }

  long Lines(Pair* found) {
    const std::optional<double> apart = distance::ParallelLineDistance(a1_, a2_, b1_, b2_);
    if (!apart) {
      const long status = measure_.LinesIntersection(a1_, a2_, b1_, b2_, &found->on_a);
      found->on_b = found->on_a;
      return status;
    }
    *found = {*apart, a1_, b1_};  // b1 stays where B is too short to project on
    return measure_.PerpendicularProjection(a1_, b1_, b2_, &found->on_b);
  }

  ZorGeometryMeasure& measure_;
  ZorPoint a1_;
  ZorPoint a2_;
  ZorPoint b1_;
  ZorPoint b2_;
};

double MeasureDistance(const ZorPoint& a1, const ZorPoint& a2, const ZorPoint& b1,
                       const ZorPoint& b2, int mode) {
  switch (mode) {
    case kShortest:
      return distance::ShortestDistance(a1, a2, b1, b2);
    case kLargest:
      return distance::FarthestEnd(a1, a2, b1, b2).distance;
    case kFromMiddleOfA:
      return elementary::PointToClosedSegment(elementary::Midpoint(a1, a2), b1, b2).distance;
    case kFromMiddleOfB:
      return elementary::PointToClosedSegment(elementary::Midpoint(b1, b2), a1, a2).distance;
    default:
      return distance::ParallelLineDistance(a1, a2, b1, b2).value_or(0.0);
  }
}

}  // namespace

long ZorGeometryMeasure::LineToLineDistance(ZorPoint a1, ZorPoint a2, ZorPoint b1, ZorPoint b2,
                                            int mode, double* distance) {
  Trace trace("LineToLineDistance");
  if (IsDegenerate(a1, a2) || IsDegenerate(b1, b2)) return GM_E_DEGENERATE_LINE;
  if (!IsMode(mode, kModeCount - 1)) return GM_E_PARAM_5;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    Store(distance, MeasureDistance(a1, a2, b1, b2, mode));
    return trace.Done();
  });
}

long ZorGeometryMeasure::LineToLineDistance(ZorPoint a1, ZorPoint a2, ZorPoint b1, ZorPoint b2,
                                            int mode, double* distance, ZorPoint* pointOnA,
                                            ZorPoint* pointOnB) {
  Trace trace("LineToLineDistance");
  if (IsDegenerate(a1, a2) || IsDegenerate(b1, b2)) return GM_E_DEGENERATE_LINE;
  if (!IsMode(mode, kModeCount - 1)) return GM_E_PARAM_5;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    Pair found;
    if (const long status = SegmentPair(*this, a1, a2, b1, b2).Measure(mode, &found);
        status != GM_OK) {
      return status;
    }
    Store(distance, found.distance);
    Store(pointOnA, found.on_a);
    Store(pointOnB, found.on_b);
    return trace.Done();
  });
}
