#include <array>
#include <cmath>

#include "ZorGeometryMeasure.h"
#include "elementary/point_kernels.h"
#include "elementary/segment_distance_kernels.h"
#include "elementary/segment_kernels.h"
#include "elementary/shape_frame.h"
#include "frame/checks.h"
#include "frame/trace.h"
#include "intersection/line_shape_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Trace;
using zor::intersection::FewPoints;
namespace elementary = zor::elementary;
namespace intersection = zor::intersection;

namespace {

// Deliberate: the rectangle's lines may be shorter than any other operation's.
inline constexpr double kRectangleDegenerateLength = 1e-5;  // pixels, inclusive
inline constexpr double kVerticalSegment = 1e-6;            // of the ends' x, exclusive

/// Last step of every operation here. After a failure there are no points: those operations that
/// call this then as well leave an empty list, as their descriptions say. The inputs may be points
/// of the very list, so nothing is cleared earlier.
void Replace(ZorPointArray* out, ZorPointView points) {
  if (out != nullptr) out->Assign(points);
}

FewPoints<2> ThoseBetween(ZorPointView candidates, const ZorPoint& p1, const ZorPoint& p2) {
  FewPoints<2> kept;
  for (const ZorPoint& p : candidates) {
    if (elementary::IsBetween(p, p1, p2)) kept.Append(p);
  }
  return kept;
}

long TracedCircleCrossings(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& centre,
                           double radius, FewPoints<2>* points) {
  Trace trace("LineCircleIntersection");
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  if (!IsPositive(radius)) return InvalidArgument(4);
  *points = intersection::CircleCrossings(p1, p2, centre, radius);
  return trace.Done();
}

long TracedOvalCrossings(ZorGeometryMeasure& measure, const ZorPoint& p1, const ZorPoint& p2,
                         const ZorPoint& centre, double a, double b, double angle,
                         FewPoints<2>* points) {
  Trace trace("LineOvalIntersection");
  if (IsDegenerate(p1, p2)) return GM_E_DEGENERATE_LINE;
  if (!IsPositive(a)) return InvalidArgument(4);
  if (!IsPositive(b)) return InvalidArgument(5);
  if (!IsDegreeAngle(angle)) return InvalidArgument(6);
  // The projection leaves the foot as it is on a line that is too short for it; p1 serves as well.
  ZorPoint foot = p1;
  static_cast<void>(measure.PerpendicularProjection(centre, p1, p2, &foot));
  *points = intersection::OvalCrossings(p1, p2, foot, intersection::MakeOval(centre, a, b, angle));
  return trace.Done();
}

}  // namespace

long ZorGeometryMeasure::LineCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                double radius, ZorPointArray* points) {
  FewPoints<2> crossings;
  const long status = TracedCircleCrossings(p1, p2, centre, radius, &crossings);
  Replace(points, crossings.View());
  return status;
}

long ZorGeometryMeasure::LineOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                              double a, double b, double angle,
                                              ZorPointArray* points) {
  FewPoints<2> crossings;
  const long status = TracedOvalCrossings(*this, p1, p2, centre, a, b, angle, &crossings);
  if (status == GM_OK) Replace(points, crossings.View());
  return status;
}

long ZorGeometryMeasure::LineRectangularIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                     double width, double height, double angle,
                                                     ZorPointArray* points) {
  Trace trace("LineRectangularIntersection");
  if (elementary::Distance(p1, p2) <= kRectangleDegenerateLength) return GM_E_DEGENERATE_LINE;
  if (!IsPositive(width)) return InvalidArgument(4);
  if (!IsPositive(height)) return InvalidArgument(5);
  if (!IsDegreeAngle(angle)) return InvalidArgument(6);
  if (points == nullptr) return trace.Done();

  const elementary::ShapeFrame frame(centre, elementary::ReduceByHalfTurn(angle));
  std::array<ZorPoint, 4> corners = elementary::RectangleCorners(frame, width, height);
  FewPoints<4> kept;
  ZorPoint* start = &corners.back();
  for (ZorPoint& end : corners) {
    ZorPoint hit;
    if (LineSegmentToLineIntersection(*start, end, p1, p2, &hit, nullptr)) {
      const ZorPointView hits = kept.View();
      if (hits.empty() || !elementary::Coincide(hit, hits.back())) kept.Append(hit);
    }
    start = &end;
  }
  const ZorPointView hits = kept.View();
  if (hits.size() >= 2 && elementary::Coincide(hits.front(), hits.back())) kept.RemoveLast();
  Replace(points, kept.View());
  return trace.Done();
}

long ZorGeometryMeasure::LineSegmentCircleIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                       double radius, ZorPointArray* points) {
  Trace trace("LineSegmentCircleIntersection");
  FewPoints<2> candidates;
  long status = GM_OK;
  if (std::fabs(p1.x - p2.x) < kVerticalSegment) {
    // Deliberate: neither length nor radius is checked here; a negative radius has no points.
    candidates = intersection::VerticalCircleCrossings(p1.x, centre, radius);
  } else {
    status = TracedCircleCrossings(p1, p2, centre, radius, &candidates);
  }
  Replace(points, ThoseBetween(candidates.View(), p1, p2).View());
  return status == GM_OK ? trace.Done() : status;
}

long ZorGeometryMeasure::LineSegmentOvalIntersection(ZorPoint& p1, ZorPoint& p2, ZorPoint& centre,
                                                     double a, double b, double angle,
                                                     ZorPointArray* points) {
  Trace trace("LineSegmentOvalIntersection");
  FewPoints<2> candidates;
  const long status = TracedOvalCrossings(*this, p1, p2, centre, a, b, angle, &candidates);
  Replace(points, ThoseBetween(candidates.View(), p1, p2).View());
  return status == GM_OK ? trace.Done() : status;
}

long ZorGeometryMeasure::TangentFromPointToCircle(ZorPoint& point, ZorPoint& centre, double radius,
                                                  ZorPointArray* points) {
  Trace trace("TangentFromPointToCircle");
  if (!IsPositive(radius)) return InvalidArgument(3);
  double distance = 0.0;
  const long status = PointToCircleDistance(point, centre, radius, &distance, nullptr);
  if (status != GM_OK) return status;
  if (distance < 0) {
    Replace(points, ZorPointView());
  } else if (distance == 0) {
    Replace(points, ZorPointView(&point, 1));
  } else {
    const auto tangents = intersection::TangentPoints(point, centre, radius);
    Replace(points, ZorPointView(tangents.data(), tangents.size()));
  }
  return trace.Done();
}
