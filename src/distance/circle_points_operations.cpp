#include <cstddef>
#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "distance/circle_kernels.h"
#include "distance/extremes.h"
#include "distance/point_pair.h"
#include "distance/store_pair.h"
#include "elementary/point_kernels.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::Extremes;
using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsPositive;
using zor::frame::IsTracing;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

/// Points measured to a circle. The nested operations are called for their records alone.
class CircleMeasure {
 public:
  CircleMeasure(ZorGeometryMeasure& measure, const ZorPoint& centre, double radius)
      : measure_(measure), centre_(centre), radius_(radius), is_tracing_(IsTracing()) {}

  double FromCentre(const ZorPoint& p) {
    if (is_tracing_) {
      ZorPoint point = p;
      static_cast<void>(measure_.PointToCircleDistance(point, centre_, radius_, nullptr, nullptr));
    }
    return elementary::Distance(p, centre_);
  }

  double Least(ZorPoint a, double a_from_centre, ZorPoint b, double b_from_centre) {
    if (is_tracing_) {
      static_cast<void>(
          measure_.LineSegmentToCircleDistance(a, b, centre_, radius_, nullptr, nullptr, nullptr));
    }
    return distance::LeastAlongSegment(a, a_from_centre, b, b_from_centre, centre_, radius_);
  }

  [[nodiscard]] PointPair PairOf(const ZorPoint& p) const {
    const distance::Nearest nearest =
        distance::NearestOnCircle(p, centre_, radius_, elementary::Distance(p, centre_));
    return {nearest.distance, p, nearest.point};
  }

 private:
  ZorGeometryMeasure& measure_;
  ZorPoint centre_;
  double radius_;
  bool is_tracing_;
};

}  // namespace

long ZorGeometryMeasure::PointArrayToCircleDistance(ZorPointArray& points, ZorPoint& centre,
                                                    double radius, ZorPoint* minArrayPoint,
                                                    ZorPoint* minCirclePoint, double* minDistance,
                                                    ZorPoint* maxArrayPoint,
                                                    ZorPoint* maxCirclePoint, double* maxDistance) {
  Trace trace("PointArrayToCircleDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(radius)) return InvalidArgument(3);
  CircleMeasure circle(*this, centre, radius);
  const ZorPointView all = points.View();
  Extremes extremes;
  for (std::size_t i = 0; i < all.size(); ++i) {
    extremes.Add(i, distance::DistanceFromCircle(circle.FromCentre(all[i]), radius));
  }
  const PointPair min = circle.PairOf(all[extremes.Least().index]);
  const PointPair max = circle.PairOf(all[extremes.Greatest().index]);
  StorePair(min, minDistance, minArrayPoint, minCirclePoint);
  StorePair(max, maxDistance, maxArrayPoint, maxCirclePoint);
  return trace.Done();
}

long ZorGeometryMeasure::CircleToContourDistance(ZorContour& contour, ZorPoint& centre,
                                                 double radius, ZorVarArray* distances,
                                                 ZorPoint* minContourPoint,
                                                 ZorPoint* minCirclePoint, double* minDistance,
                                                 ZorPoint* maxContourPoint,
                                                 ZorPoint* maxCirclePoint, double* maxDistance) {
  Trace trace("CircleToContourDistance");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!IsPositive(radius)) return InvalidArgument(3);
  CircleMeasure circle(*this, centre, radius);
  const ZorPointView points = contour.View();
  std::vector<ZorVar> list;
  if (distances != nullptr) list.reserve(points.size());
  const bool wants_min = minContourPoint != nullptr || minCirclePoint != nullptr ||
                         minDistance != nullptr || IsTracing();
  Extremes vertices;
  Extremes segments;      // indexed by their ends
  std::size_t start = 0;  // of the segment to the next point that gives it a direction
  double start_from_centre = 0.0;
  std::size_t least_start = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double from_centre = circle.FromCentre(points[i]);
    const double d = distance::DistanceFromCircle(from_centre, radius);
    vertices.Add(i, d);
    if (distances != nullptr) list.emplace_back(d);
    if (i == 0) start_from_centre = from_centre;
    if (!wants_min || IsDegenerate(points[start], points[i])) continue;
    segments.Add(i, circle.Least(points[start], start_from_centre, points[i], from_centre));
    if (segments.Least().index == i) least_start = start;
    start = i;
    start_from_centre = from_centre;
  }
  const std::size_t end = segments.Least().index;
  const PointPair min =
      segments.IsEmpty() ? circle.PairOf(points[0])
                         : distance::LeastPairAlongSegment(points[least_start], points[end], centre,
                                                           radius, segments.Least().value);
  const PointPair max = circle.PairOf(points[vertices.Greatest().index]);
  StorePair(min, minDistance, minContourPoint, minCirclePoint);
  StorePair(max, maxDistance, maxContourPoint, maxCirclePoint);
  if (distances != nullptr) distances->Assign(std::move(list));
  return trace.Done();
}
