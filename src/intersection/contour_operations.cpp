#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "elementary/edge_index.h"
#include "elementary/line_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/trace.h"
#include "intersection/contour_kernels.h"

using zor::frame::CatchAs;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsTracing;
using zor::frame::Trace;
using zor::intersection::ContourCrossing;
namespace elementary = zor::elementary;
namespace intersection = zor::intersection;

namespace {

/// The crossings of a contour through the traced operation, for its records.
std::vector<ContourCrossing> TracedContourCrossings(ZorGeometryMeasure& measure, const ZorPoint& p1,
                                                    const ZorPoint& p2, ZorPointView contour) {
  std::vector<ContourCrossing> crossings;
  for (std::size_t i = 0; i + 1 < contour.size(); ++i) {
    const ZorPoint& q = contour[i];
    const ZorPoint& r = contour[i + 1];
    if (elementary::AreParallel(r - q, p2 - p1)) continue;
    // The status is ignored: what fails leaves a point that is in no box.
    ZorPoint crossing(std::numeric_limits<double>::quiet_NaN(), 0);
    static_cast<void>(measure.LinesIntersection(q, r, p1, p2, &crossing));
    if (intersection::IsInBox(crossing, q, r)) crossings.push_back({crossing, i});
  }
  return crossings;
}

/// The crossings that are not yet in `points`, which may be null.
std::vector<ContourCrossing> NewContourCrossings(ZorGeometryMeasure& measure, const ZorPoint& p1,
                                                 const ZorPoint& p2, const ZorContour& contour,
                                                 const ZorPointArray* points) {
  std::vector<ContourCrossing> crossings =
      IsTracing() ? TracedContourCrossings(measure, p1, p2, contour.View())
                  : intersection::CrossContour(p1, p2, contour.View());
  return intersection::WithoutListed(std::move(crossings),
                                     points == nullptr ? ZorPointView() : points->View());
}

}  // namespace

long ZorGeometryMeasure::LineSegmentPolygonIntersection(ZorPoint& p1, ZorPoint& p2,
                                                        ZorPointArray& polygon,
                                                        ZorPointArray* points) {
  if (polygon.Length() < 3) return InvalidArgument(3);
  std::vector<ZorPoint> crossings;
  if (IsTracing()) {
    ZorPoint* start = polygon.end() - 1;
    for (ZorPoint& end : polygon) {
      ZorPoint hit;
      if (LineSegmentsIntersection(p1, p2, *start, end, &hit, nullptr)) crossings.push_back(hit);
      start = &end;
    }
  } else {
    elementary::AppendSegmentCrossings(p1, p2, polygon.View(), crossings);
  }
  if (points != nullptr) points->Assign(std::move(crossings));
  return GM_OK;
}

long ZorGeometryMeasure::LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                                                 ZorPointArray* points) {
  Trace trace("LineContourIntersection");
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  return CatchAs(GM_E_INTERSECTION_FAILED, [&] {
    for (const ContourCrossing& c : NewContourCrossings(*this, p1, p2, contour, points)) {
      if (points != nullptr) points->Append(c.point);
    }
    return trace.Done();
  });
}

long ZorGeometryMeasure::LineContourIntersection(ZorPoint& p1, ZorPoint& p2, ZorContour& contour,
                                                 ZorPointArray* points,
                                                 std::vector<ZorPoint>* segmentStarts,
                                                 std::vector<ZorPoint>* segmentEnds,
                                                 std::vector<int>* segmentIndices,
                                                 std::vector<int>* /*unused*/) {
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  return CatchAs(GM_E_INTERSECTION_FAILED, [&] {
    const ZorPointView chain = contour.View();
    for (const auto& [point, segment] : NewContourCrossings(*this, p1, p2, contour, points)) {
      if (points != nullptr) points->Append(point);
      if (segmentStarts != nullptr) segmentStarts->push_back(chain[segment]);
      if (segmentEnds != nullptr) segmentEnds->push_back(chain[segment + 1]);
      if (segmentIndices == nullptr) continue;
      segmentIndices->push_back(static_cast<int>(segment));
      segmentIndices->push_back(static_cast<int>(segment) + 1);
    }
    return GM_OK;
  });
}
