#include <cstddef>

#include "ZorGeometryMeasure.h"
#include "distance/line_function.h"
#include "distance/polyline_kernels.h"
#include "distance/segment_pair_kernels.h"
#include "elementary/line_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::distance::LineFunction;
using zor::elementary::NearestPoint;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

inline constexpr int kFewestVertices = 3;

/// The walk along a closed polygon that measures it to a line.
class LineWalk {
 public:
  LineWalk(ZorGeometryMeasure& measure, const ZorPointArray& polygon, const ZorPoint& start,
           const ZorPoint& end)
      : measure_(measure), polygon_(polygon), start_(start), end_(end), f_(start, end) {}

  long Run(bool wants_min, bool wants_max) {
    const ZorPoint& last = polygon_[-1];
    const bool side = f_(last) > 0.0;
    nearest_ = {DistanceOf(last), last};
    farthest_ = nearest_;
    for (int i = 0; i < polygon_.Length(); ++i) {
      const ZorPoint& vertex = polygon_[i];
      const double d = DistanceOf(vertex);
      if (wants_min) {
        const double value = f_(vertex);
        if (value == 0.0) {
          // Deliberate: a vertex on the line does not end the search; a crossing after it, or a
          // later vertex on the line, replaces it.
          nearest_ = {0.0, vertex};
        } else if ((value > 0.0) != side) {
          nearest_.distance = 0.0;
          const long status =
              measure_.LinesIntersection(polygon_[i - 1], vertex, start_, end_, &nearest_.point);
          if (status != GM_OK) return status;
          wants_min = false;
        } else if (nearest_.distance > d) {
          nearest_ = {d, vertex};
        }
      }
      if (wants_max && d > farthest_.distance) farthest_ = {d, vertex};
      if (!wants_min && !wants_max) break;
    }
    return GM_OK;
  }

  [[nodiscard]] const NearestPoint& Nearest() const { return nearest_; }
  [[nodiscard]] const NearestPoint& Farthest() const { return farthest_; }

 private:
  double DistanceOf(const ZorPoint& p) {
    if (IsTracing()) static_cast<void>(measure_.PointTolineDistance(p, start_, end_, nullptr));
    return elementary::PointToLine(p, start_, end_);
  }

  ZorGeometryMeasure& measure_;
  const ZorPointArray& polygon_;
  ZorPoint start_;
  ZorPoint end_;
  LineFunction f_;
  NearestPoint nearest_;
  NearestPoint farthest_;
};

/// The point of the closed polygon's edges nearest to segment ab, by LineToLineDistance. Without a
/// sink only the nearest edge needs its points.
long NearestOnEdges(ZorGeometryMeasure& measure, const ZorPointArray& polygon, const ZorPoint& a,
                    const ZorPoint& b, bool wants_point, NearestPoint* nearest) {
  const bool is_tracing = IsTracing();
  int nearest_edge = 0;
  for (int i = 0; i < polygon.Length(); ++i) {  // edge i ends in vertex i: the closing edge first
    const ZorPoint& start = polygon[i - 1];
    const ZorPoint& end = polygon[i];
    ZorPoint on_edge;
    if (is_tracing) {
      const long status =
          measure.LineToLineDistance(start, end, a, b, 0, nullptr, &on_edge, nullptr);
      if (status != GM_OK) return status;
    } else if (IsDegenerate(start, end)) {
      return GM_E_DEGENERATE_LINE;
    }
    const double d = distance::ShortestDistance(start, end, a, b);
    if (i > 0 && !(d < nearest->distance)) continue;
    *nearest = {d, on_edge};
    nearest_edge = i;
  }
  if (is_tracing || !wants_point) return GM_OK;
  return measure.LineToLineDistance(polygon[nearest_edge - 1], polygon[nearest_edge], a, b, 0,
                                    nullptr, &nearest->point, nullptr);
}

}  // namespace

long ZorGeometryMeasure::PolygonToLineDistance(ZorPointArray& polygon, ZorPoint& lineStart,
                                               ZorPoint& lineEnd, ZorPoint* minPoint,
                                               double* minDistance, ZorPoint* maxPoint,
                                               double* maxDistance) {
  Trace trace("PolygonToLineDistance");
  if (polygon.Length() < kFewestVertices) return GM_E_TOO_FEW_POINTS;
  if (IsDegenerate(lineStart, lineEnd)) return GM_E_DEGENERATE_LINE;
  LineWalk walk(*this, polygon, lineStart, lineEnd);
  const long status = walk.Run(minPoint != nullptr || minDistance != nullptr,
                               maxPoint != nullptr || maxDistance != nullptr);
  if (status != GM_OK) return status;
  Store(minPoint, walk.Nearest().point);
  Store(minDistance, walk.Nearest().distance);
  Store(maxPoint, walk.Farthest().point);
  Store(maxDistance, walk.Farthest().distance);
  return trace.Done();
}

long ZorGeometryMeasure::PolygonToSegmentDistance(ZorPointArray& polygon, ZorPoint& segStart,
                                                  ZorPoint& segEnd, ZorPoint* minPoint,
                                                  double* minDistance, ZorPoint* maxPoint,
                                                  double* maxDistance) {
  Trace trace("PolygonToSegmentDistance");
  if (polygon.Length() < kFewestVertices) return GM_E_TOO_FEW_POINTS;
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  NearestPoint nearest;
  NearestPoint farthest;
  if (minPoint != nullptr || minDistance != nullptr) {
    const long status =
        NearestOnEdges(*this, polygon, segStart, segEnd, minPoint != nullptr, &nearest);
    if (status != GM_OK) return status;
  }
  if (maxPoint != nullptr || maxDistance != nullptr) {
    const long status = PointsToSegmentDistance(polygon, segStart, segEnd, nullptr, nullptr,
                                                &farthest.point, &farthest.distance);
    if (status != GM_OK) return status;
  }
  Store(minPoint, nearest.point);
  Store(minDistance, nearest.distance);
  Store(maxPoint, farthest.point);
  Store(maxDistance, farthest.distance);
  return trace.Done();
}

long ZorGeometryMeasure::PointToPolygonDistance(ZorPoint& point, ZorPointArray& polygon,
                                                double* distance, ZorPoint* nearestPoint) {
  Trace trace("PointToPolygonDistance");
  if (polygon.Length() < kFewestVertices) return GM_E_TOO_FEW_POINTS;
  const NearestPoint closing = elementary::PointToClosedSegment(point, polygon[-1], polygon[0]);
  const NearestPoint nearest = distance::NearestOnPolyline(point, polygon.View(), closing);
  // Deliberate: the relation has a reach of its own along the scan line, so that a point it finds
  // on the outline reports 0 whatever its distance.
  if (distance != nullptr) {
    *distance = static_cast<double>(PointToPolygonPosRelation(point, polygon)) * nearest.distance;
  }
  Store(nearestPoint, nearest.point);
  return trace.Done();
}

long ZorGeometryMeasure::LineSegmentToPolygonDistance(
    ZorPoint& /*segStart*/, ZorPoint& /*segEnd*/, ZorPointArray& /*polygon*/,
    double* /*minDistance*/, ZorPoint* /*minPointOnSegment*/, ZorPoint* /*minPointOnPolygon*/,
    double* /*maxDistance*/, ZorPoint* /*maxPointOnSegment*/, ZorPoint* /*maxPointOnPolygon*/) {
  return GM_OK;  // Deliberate: kept for the interface's sake, hosts call it and expect no output.
}
