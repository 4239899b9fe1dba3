#include <cmath>
#include <numbers>
#include <span>
#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "distance/polyline_kernels.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::distance::PointRange;
using zor::elementary::NearestPoint;
using zor::frame::CatchAs;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::Store;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

using Points = std::span<const ZorPoint>;

// Deliberate: about two pixel diagonals; contours extracted from an image that run along a line or
// a segment this close (inclusive) count as touching it.
inline constexpr double kTouching = std::numbers::sqrt2 * 2;

struct Outputs {
  ZorPoint* min_point;
  double* min_distance;
  ZorPoint* max_point;
  double* max_distance;

  [[nodiscard]] bool WantMin() const { return min_point != nullptr || min_distance != nullptr; }
  [[nodiscard]] bool WantMax() const { return max_point != nullptr || max_distance != nullptr; }
  void Write(const NearestPoint& nearest, const NearestPoint& farthest) const {
    Store(max_distance, farthest.distance);
    Store(min_distance, nearest.distance);
    Store(max_point, farthest.point);
    Store(min_point, nearest.point);
  }
};

void MeasureToPoint(Points contour, const ZorPoint& p, bool is_polyline, const Outputs& out) {
  if (!out.WantMin() && !out.WantMax()) return;
  NearestPoint nearest;
  NearestPoint farthest;
  if (!is_polyline || out.WantMax()) {
    const PointRange range = distance::RangeOfPoints(p, contour);
    nearest = {range.nearest.distance, contour[range.nearest.index]};
    farthest = {range.farthest.distance, contour[range.farthest.index]};
  }
  if (is_polyline && out.WantMin()) {
    const NearestPoint first{elementary::Distance(p, contour[0]), contour[0]};
    nearest = distance::NearestOnPolyline(p, contour, first);
  }
  out.Write(nearest, farthest);
}

/// Measures the points of a contour one by one, by `distance_of`, and lists the distances.
template <class DistanceOf>
void MeasurePoints(Points contour, const DistanceOf& distance_of, ZorVarArray* distances,
                   const Outputs& out) {
  const bool wants_min = out.WantMin();
  const bool wants_max = out.WantMax();
  NearestPoint nearest{distance_of(contour[0]), contour[0]};
  NearestPoint farthest = nearest;
  // Deliberate: asked for the list alone this gives the first distance only.
  const Points measured = contour.first(wants_min || wants_max ? contour.size() : 1);
  std::vector<ZorVar> list;
  if (distances != nullptr) {
    list.reserve(measured.size());
    list.emplace_back(nearest.distance);
  }
  for (const ZorPoint& p : measured.subspan(1)) {
    const double d = distance_of(p);
    if (distances != nullptr) list.emplace_back(d);
    if (nearest.distance > d) nearest = {d, p};
    if (d > farthest.distance) farthest = {d, p};
  }
  if (nearest.distance <= kTouching) nearest.distance = 0.0;
  out.Write(nearest, farthest);
  if (distances != nullptr) distances->Assign(std::move(list));
}

}  // namespace

long ZorGeometryMeasure::PointToContourDistance(ZorContour& contour, ZorPoint point, int mode,
                                                ZorPoint* minPoint, double* minDistance,
                                                ZorPoint* maxPoint, double* maxDistance) {
  Trace trace("PointToContourDistance");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!IsMode(mode, 1)) return GM_E_PARAM_3;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    MeasureToPoint(contour.View(), point, mode == 1,
                   {minPoint, minDistance, maxPoint, maxDistance});
    return trace.Done();
  });
}

long ZorGeometryMeasure::LineToContourDistance(ZorContour& contour, ZorPoint lineStart,
                                               ZorPoint lineEnd, ZorVarArray* distances,
                                               ZorPoint* minPoint, double* minDistance,
                                               ZorPoint* maxPoint, double* maxDistance) {
  Trace trace("LineToContourDistance");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (IsDegenerate(lineStart, lineEnd)) return GM_E_DEGENERATE_LINE;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    const double length = elementary::Distance(lineStart, lineEnd);
    const auto distance_of = [&](const ZorPoint& p) {
      return std::fabs(elementary::Cross(lineStart - p, lineEnd - p)) / length;
    };
    MeasurePoints(contour.View(), distance_of, distances,
                  {minPoint, minDistance, maxPoint, maxDistance});
    return trace.Done();
  });
}

long ZorGeometryMeasure::ContourToLineSegmentDistance1(ZorContour& contour, ZorPoint& segStart,
                                                       ZorPoint& segEnd, ZorVarArray* distances,
                                                       ZorPoint* minPoint, double* minDistance,
                                                       ZorPoint* maxPoint, double* maxDistance) {
  Trace trace("ContourToLineSegmentDistance1");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (IsDegenerate(segStart, segEnd)) return GM_E_DEGENERATE_LINE;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    const auto distance_of = [&](const ZorPoint& p) {
      return elementary::PointToClosedSegment(p, segStart, segEnd).distance;
    };
    MeasurePoints(contour.View(), distance_of, distances,
                  {minPoint, minDistance, maxPoint, maxDistance});
    return trace.Done();
  });
}
