#include <cmath>
#include <numbers>

#include "ZorGeometryMeasure.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"
#include "intersection/circle_pair_kernels.h"
#include "intersection/ellipse_pair_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Store;
using zor::frame::Trace;
using zor::intersection::CirclePair;
using zor::intersection::CirclePairCase;
using zor::intersection::Ellipse;
using zor::intersection::EllipsePair;
namespace intersection = zor::intersection;

namespace {

inline constexpr double kNoOverlap = 1e-6;   // square pixels, exclusive
inline constexpr double kSameRadius = 1e-5;  // pixels, inclusive

double SineOfDegrees(double angle_deg) { return std::sin(angle_deg / 180 * zor::frame::kPi); }

/// Area of the lens of two crossing circles, by the angles that the crossings subtend.
double LensArea(ZorGeometryMeasure& measure, const ZorPoint& c1, double r1, const ZorPoint& c2,
                double r2, const CirclePair& pair) {
  ZorPoint first = pair.first, second = pair.second, centre1 = c1, centre2 = c2;
  double turn1 = 0.0, turn2 = 0.0, gamma1 = 0.0, gamma2 = 0.0;
  static_cast<void>(measure.AngleFrom4Point(centre1, first, centre1, second, &turn1));
  static_cast<void>(measure.AngleFrom4Point(centre2, first, centre2, second, &turn2));
  static_cast<void>(measure.IncludedAngle(centre1, first, centre1, second, 0, &gamma1));
  static_cast<void>(measure.IncludedAngle(centre2, first, centre2, second, 0, &gamma2));
  const bool is_chord_between = SineOfDegrees(turn1) * SineOfDegrees(turn2) < 0;
  if (is_chord_between) {
    return intersection::MinorSegment(r1, gamma1) + intersection::MinorSegment(r2, gamma2);
  }
  // Both centres on one side of the chord: of the smaller circle the larger piece is common.
  return r2 > r1 ? intersection::MajorSegment(r1, gamma1) + intersection::MinorSegment(r2, gamma2)
                 : intersection::MajorSegment(r2, gamma2) + intersection::MinorSegment(r1, gamma1);
}

ZorPointArray PointsOf(const CirclePair& pair) {
  switch (pair.which) {
    case CirclePairCase::kTouchOutside:
    case CirclePairCase::kTouchInside:
      return {pair.first};
    case CirclePairCase::kCrossing:
      return {pair.first, pair.second};
    default:
      return {};
  }
}

ZorPointArray CleanedPoints(ZorGeometryMeasure& measure, const EllipsePair& pair) {
  ZorPointArray points(pair.Points());
  measure.FormatPointArray2(points);
  return points;
}

}  // namespace

long ZorGeometryMeasure::CircleToCircleIntersection(ZorPoint& c1, double r1, ZorPoint& c2,
                                                    double r2, ZorPointArray* points,
                                                    double* area) {
  Trace trace("CircleToCircleIntersection");
  if (!IsPositive(r1)) return InvalidArgument(2);
  if (!IsPositive(r2)) return InvalidArgument(4);
  const CirclePair pair = intersection::MeetCircles(c1, r1, c2, r2);
  switch (pair.which) {
    case CirclePairCase::kConcentric:
      // Deliberate: the area is written before coincident circles are refused.
      Store(area, intersection::SmallerDisc(r1, r2));
      if (std::fabs(r1 - r2) <= kSameRadius) return GM_E_NO_INTERSECTION;
      break;
    case CirclePairCase::kApart:
    case CirclePairCase::kTouchOutside:
      Store(area, 0.0);
      break;
    case CirclePairCase::kInside:
    case CirclePairCase::kTouchInside:
      Store(area, intersection::SmallerDisc(r1, r2));
      break;
    case CirclePairCase::kCrossing:
      if (area != nullptr) *area = LensArea(*this, c1, r1, c2, r2, pair);
      break;
  }
  if (points != nullptr) points->Assign(PointsOf(pair).View());
  return trace.Done();
}

long ZorGeometryMeasure::OvalsIntersection(ZorPoint& c1, double a1, double b1, double angle1,
                                           ZorPoint& c2, double a2, double b2, double angle2,
                                           ZorPointArray* points, double* area) {
  Trace trace("OvalsIntersection");
  if (!IsPositive(a1)) return InvalidArgument(2);
  if (!IsPositive(b1)) return InvalidArgument(3);
  if (!IsDegreeAngle(angle1)) return InvalidArgument(4);
  if (!IsPositive(a2)) return InvalidArgument(6);
  if (!IsPositive(b2)) return InvalidArgument(7);
  if (!IsDegreeAngle(angle2)) return InvalidArgument(8);
  const Ellipse first = intersection::NormalisedEllipse(c1, a1, b1, angle1);
  const Ellipse second = intersection::NormalisedEllipse(c2, a2, b2, angle2);
  if (intersection::AreSameEllipse(first, second)) return GM_E_NO_INTERSECTION;
  if (points == nullptr && area == nullptr) return trace.Done();
  const EllipsePair pair(first, second);
  const double overlap = pair.OverlapArea();
  Store(area, overlap);
  if (points != nullptr) {
    ZorPointArray found = CleanedPoints(*this, pair);
    // Deliberate: ovals that merely touch report no points, unlike a circle and an oval.
    if (overlap < kNoOverlap) found.Clear();
    points->Swap(found);
  }
  return trace.Done();
}

long ZorGeometryMeasure::CircleOvalIntersection(ZorPoint& c, double r, ZorPoint& centre, double a,
                                                double b, double angle, ZorPointArray* points,
                                                double* area) {
  Trace trace("CircleOvalIntersection");
  if (!IsPositive(r)) return InvalidArgument(2);
  if (!IsPositive(a)) return InvalidArgument(4);
  if (!IsPositive(b)) return InvalidArgument(5);
  if (!IsDegreeAngle(angle)) return InvalidArgument(6);
  const Ellipse circle = intersection::NormalisedEllipse(c, r, r, 0.0);
  const Ellipse oval = intersection::NormalisedEllipse(centre, a, b, angle);
  if (intersection::AreSameEllipse(circle, oval)) return GM_E_NO_INTERSECTION;
  if (points == nullptr && area == nullptr) return trace.Done();
  const EllipsePair pair(circle, oval);
  if (points != nullptr) {
    ZorPointArray found = CleanedPoints(*this, pair);
    points->Swap(found);
  }
  if (area != nullptr) *area = pair.OverlapArea();
  return trace.Done();
}
