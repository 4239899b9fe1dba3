#include <algorithm>
#include <array>
#include <span>

#include "ZorGeometryMeasure.h"
#include "elementary/shape_frame.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

inline constexpr int kRectangleSamples = 10000;  // at least
inline constexpr int kPolygonSamples = 1000;     // at least
// Beyond a reach of a million pixels more samples would cost memory and no longer show; those of
// long thin ovals, rounded, lie in line only nearly and are cut up at length.
inline constexpr double kMostCircleSamples = 1e7;
inline constexpr double kMostOvalSamples = 1e6;

int SampleCount(double reach, int at_least, double at_most) {
  const double wanted = std::min(10 * reach, at_most);
  return wanted > at_least ? static_cast<int>(wanted) : at_least;  // also for what is no number
}

/// The overlap of a curved figure, sampled, with a polygon. A figure that vanishes in the single
/// precision of the samples has no area.
long SampledOverlap(ZorGeometryMeasure& measure, ZorPoint& centre, double a, double b, double angle,
                    int count, ZorPointArray& polygon, double* area) {
  ZorPointArray sampled;
  const long status = measure.SampleArc(centre, static_cast<float>(a), static_cast<float>(b),
                                        static_cast<float>(angle), 0.0F, 360.0F, count, &sampled);
  if (status != GM_OK) {
    *area = 0.0;
    return GM_OK;
  }
  return measure.PolygonsIntersection2(sampled, polygon, nullptr, area);
}

/// Crossings of a polygon's edges, the closing one (last vertex to first) first, cleaned.
/// `cross(start, end, &hits)` finds those of one edge; its status is not looked at.
template <typename Cross>
ZorPointArray EdgeCrossings(ZorGeometryMeasure& measure, ZorPointArray& polygon, Cross&& cross) {
  ZorPointArray found;
  ZorPointArray hits;
  ZorPoint* start = polygon.end() - 1;
  for (ZorPoint& end : polygon) {
    static_cast<void>(cross(*start, end, &hits));
    found.Append(hits);
    start = &end;
  }
  measure.FormatPointArray2(found);
  return found;
}

ZorPointArray Corners(const ZorPoint& centre, double width, double height, double angle_deg) {
  const auto corners =
      elementary::RectangleCorners(elementary::ShapeFrame(centre, angle_deg), width, height);
  return ZorPointArray(ZorPointView(corners.data(), corners.size()));
}

void Clear(ZorPointArray* points) {
  if (points != nullptr) points->Clear();
}

}  // namespace

long ZorGeometryMeasure::CircleRectangularIntersection(ZorPoint& c, double r, ZorPoint& centre,
                                                       double width, double height, double angle,
                                                       ZorPointArray* points, double* area) {
  Trace trace("CircleRectangularIntersection");
  const ZorPoint circle_centre = c;  // either may be a point of the list
  const ZorPoint rectangle_centre = centre;
  Clear(points);
  if (!IsPositive(r)) return InvalidArgument(2);
  if (!IsPositive(width)) return InvalidArgument(4);
  if (!IsPositive(height)) return InvalidArgument(5);
  if (!IsDegreeAngle(angle)) return InvalidArgument(6);
  // Deliberate: turned the other way than everywhere else; hosts give the angle accordingly.
  ZorPointArray corners =
      Corners(rectangle_centre, width, height, angle < 180 ? -angle : 180 - angle);
  ZorPoint p = circle_centre;
  if (points != nullptr) {
    ZorPointArray found =
        EdgeCrossings(*this, corners, [&](ZorPoint& start, ZorPoint& end, ZorPointArray* hits) {
          return LineSegmentCircleIntersection(start, end, p, r, hits);
        });
    points->Swap(found);
  }
  if (area != nullptr) {
    const long status = SampledOverlap(
        *this, p, r, r, 0.0, SampleCount(r, kRectangleSamples, kMostCircleSamples), corners, area);
    if (status != GM_OK) return status;
  }
  return trace.Done();
}

long ZorGeometryMeasure::OvalRectangularIntersection(ZorPoint& ovalCentre, double a, double b,
                                                     double ovalAngle, ZorPoint& centre,
                                                     double width, double height, double angle,
                                                     ZorPointArray* points, double* area) {
  Trace trace("OvalRectangularIntersection");
  ZorPoint oval_centre = ovalCentre;  // either may be a point of the list
  const ZorPoint rectangle_centre = centre;
  Clear(points);
  if (!IsPositive(a)) return InvalidArgument(2);
  if (!IsPositive(b)) return InvalidArgument(3);
  if (!IsDegreeAngle(ovalAngle)) return InvalidArgument(4);
  if (!IsPositive(width)) return InvalidArgument(6);
  if (!IsPositive(height)) return InvalidArgument(7);
  if (!IsDegreeAngle(angle)) return InvalidArgument(8);
  ZorPointArray corners =
      Corners(rectangle_centre, width, height, angle >= 180 ? angle + 180 : angle);
  if (points != nullptr) {
    // Deliberate: the line operations refuse an angle above 360, so an oval turned by more than 180
    // has no crossing points here, while its area below is that of the angle as given.
    const double raised = ovalAngle >= 180 ? ovalAngle + 180 : ovalAngle;
    ZorPointArray found =
        EdgeCrossings(*this, corners, [&](ZorPoint& start, ZorPoint& end, ZorPointArray* hits) {
          return LineSegmentOvalIntersection(start, end, oval_centre, a, b, raised, hits);
        });
    points->Swap(found);
  }
  if (area != nullptr) {
    const int count = SampleCount(std::max(a, b), kRectangleSamples, kMostOvalSamples);
    const long status = SampledOverlap(*this, oval_centre, a, b, ovalAngle, count, corners, area);
    if (status != GM_OK) return status;
  }
  return trace.Done();
}

long ZorGeometryMeasure::PolygonCircleIntersection(ZorPointArray& polygon, ZorPoint& c, double r,
                                                   ZorPointArray* points, double* area) {
  Trace trace("PolygonCircleIntersection");
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(r)) return InvalidArgument(3);
  ZorPointArray found;
  if (points != nullptr) {
    found.Assign(
        EdgeCrossings(*this, polygon, [&](ZorPoint& start, ZorPoint& end, ZorPointArray* hits) {
          return LineSegmentCircleIntersection(start, end, c, r, hits);
        }).View());
  }
  if (area != nullptr) {
    const long status = SampledOverlap(
        *this, c, r, r, 0.0, SampleCount(r, kPolygonSamples, kMostCircleSamples), polygon, area);
    if (status != GM_OK) return status;
  }
  if (points != nullptr) points->Swap(found);
  return trace.Done();
}

long ZorGeometryMeasure::PolygonOvalIntersection(ZorPointArray& polygon, ZorPoint& centre, double a,
                                                 double b, double angle, ZorPointArray* points,
                                                 double* area) {
  Trace trace("PolygonOvalIntersection");
  if (polygon.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (!IsPositive(a)) return InvalidArgument(3);
  if (!IsPositive(b)) return InvalidArgument(4);
  if (!IsDegreeAngle(angle)) return InvalidArgument(5);
  ZorPointArray found;
  if (points != nullptr) {
    found.Assign(
        EdgeCrossings(*this, polygon, [&](ZorPoint& start, ZorPoint& end, ZorPointArray* hits) {
          return LineSegmentOvalIntersection(start, end, centre, a, b, angle, hits);
        }).View());
  }
  if (area != nullptr) {
    const int count = SampleCount(std::max(a, b), kPolygonSamples, kMostOvalSamples);
    const long status = SampledOverlap(*this, centre, a, b, angle, count, polygon, area);
    if (status != GM_OK) return status;
  }
  if (points != nullptr) points->Swap(found);
  return trace.Done();
}
