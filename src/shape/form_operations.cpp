#include <array>
#include <cmath>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "elementary/area_kernels.h"
#include "elementary/line_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"
#include "shape/form_kernels.h"
#include "shape/min_rectangle_kernels.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::IsTracing;
using zor::frame::kPi;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;
namespace shape = zor::shape;

namespace {

// Square pixels, inclusive: no polygon to rate.
constexpr double kVanishingArea = 1e-5;

// Square pixels: below this the second moments of a polygon do not tell its orientation.
constexpr double kNoOrientation = 1e-5;

/// Width of the band of distances from the line: the largest less the smallest.
double BandWidth(ZorGeometryMeasure& measure, const ZorPointArray& points, const ZorPoint& start,
                 const ZorPoint& end) {
  const bool is_line = !IsDegenerate(start, end);
  const auto distance_of = [&](const ZorPoint& p) {
    double distance = 0.0;
    if (IsTracing()) {  // for its record
      static_cast<void>(measure.PointTolineDistance(p, start, end, &distance));
    } else if (is_line) {
      distance = elementary::PointToLine(p, start, end);
    }
    return distance;
  };
  double least = 0.0;
  double most = 0.0;
  bool is_first = true;
  for (const ZorPoint& p : points) {
    const double distance = distance_of(p);
    if (is_first || distance < least) least = distance;
    if (is_first || distance > most) most = distance;
    is_first = false;
  }
  return most - least;
}

}  // namespace

long ZorGeometryMeasure::Roundness(ZorPointArray& points, int mode, double* roundness) {
  if (points.Length() < 10) return GM_E_TOO_FEW_POINTS;
  if (!IsMode(mode, 3)) return InvalidArgument(2);
  const double area = mode == 1 ? 0.0 : std::fabs(elementary::SignedArea(points.View()));
  ZorPoint centre;
  double radius = 0.0;  // stays where no circle fits
  if (mode == 1 || mode == 2) static_cast<void>(FitCircle(points, &centre, &radius));
  switch (mode) {
    case 0: {
      const double perimeter = shape::Perimeter(points.View());
      Store(roundness, shape::RateRatio(area / (perimeter * perimeter) * 4 * kPi));
      break;
    }
    case 1: {
      const double m = shape::MeanSquaredRadialDeviation(points.View(), centre, radius);
      Store(roundness, shape::NotNegative(1 - std::sqrt(m / (radius * radius))));
      break;
    }
    case 2:
      Store(roundness, shape::RateRatio(area / (radius * radius * kPi)));
      break;
    default: {
      static_cast<void>(PolygonCenter(points, &centre));  // checked: 10 points
      const double largest = shape::LargestRadius(points.View(), centre);
      Store(roundness, shape::RateRatio(area / (largest * largest * kPi)));
    }
  }
  return GM_OK;
}

long ZorGeometryMeasure::Straightness(ZorPointArray& points, int mode, double* straightness) {
  if (points.Length() < 10) return GM_E_TOO_FEW_POINTS;
  if (!IsMode(mode, 1)) return InvalidArgument(2);
  if (mode == 0) {
    Store(straightness, shape::MomentEccentricity(points.View()));
    return GM_OK;
  }
  ZorPoint start;
  ZorPoint end;
  static_cast<void>(LeastSqaureLineFit(points, 1, 1.0, &start, &end));  // checked: 10 points
  // Deliberate: the width of the band of distances, not the largest distance from the line; hosts
  // compare it with the widths that they specify.
  Store(straightness, BandWidth(*this, points, start, end));
  return GM_OK;
}

long ZorGeometryMeasure::Rectangularity(ZorPointArray& points, double* rectangularity) {
  if (points.Length() < 4) return GM_E_TOO_FEW_POINTS;
  const shape::RectangleSides sides = shape::SidesOf(shape::MinAreaRectangle(points.View()));
  double area = 0.0;
  static_cast<void>(Area(points, &area));  // checked: 4 points
  // Deliberate: not limited to 1, which the polygon of whole pixels can exceed.
  Store(rectangularity, area / (sides.length * sides.width));
  return GM_OK;
}

long ZorGeometryMeasure::Rectangularity2(ZorPointArray& points, double* rectangularity) {
  if (points.Length() < 4) return GM_E_TOO_FEW_POINTS;
  const shape::CentralMoments moments = shape::CentralMomentsOf(points.View());
  if (moments.area <= kVanishingArea) {
    Store(rectangularity, 0.0);
    return GM_OK;
  }
  const double y = 2 * moments.mu11;
  const double x = moments.mu20 - moments.mu02;
  double angle_deg = 0.0;
  if (std::fabs(y) >= kNoOrientation && std::fabs(x) >= kNoOrientation) {
    angle_deg = std::atan2(y, x) * 0.5 * 180 / kPi;
  } else {
    static_cast<void>(MinAreaRectangularity(points, nullptr, nullptr, nullptr, &angle_deg));
  }
  // Deliberate: the turn has the sign that the formula gives it, which on the branch of the moments
  // doubles the tilt of a rectangle instead of undoing it. Thresholds of hosts are set to that.
  const std::vector<ZorPoint> turned =
      shape::TurnedAbout(points.View(), moments.centroid, angle_deg);
  Store(rectangularity, shape::RateAsRectangle(turned, moments.area));
  return GM_OK;
}

long ZorGeometryMeasure::MinAreaRectangularity(ZorPointArray& points, ZorPoint* centre,
                                               double* length, double* width, double* angle) {
  Trace trace("MinAreaRectangularity");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  const std::array<ZorPoint, 4> corners = shape::MinAreaRectangle(points.View());
  const shape::RectangleSides sides = shape::SidesOf(corners);
  ZorPoint middle;
  static_cast<void>(MidPoint(corners[0], corners[2], &middle));
  double angle_deg = 0.0;  // stays for points that all coincide: they have no direction
  static_cast<void>(AngleFromHorizontal(sides.start, sides.end, &angle_deg));
  Store(centre, middle);
  Store(length, sides.length);
  Store(width, sides.width);
  Store(angle, angle_deg >= 180 ? angle_deg - 180 : angle_deg);
  return trace.Done();
}
