#include "shape/form_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"
#include "shape/centre_kernels.h"
#include "shape/moment_kernels.h"

using zor::elementary::Distance;
using zor::frame::kPi;

namespace zor::shape {

double RateRatio(double value) { return NotNegative(1 - std::fabs(1 - value)); }

double Perimeter(std::span<const ZorPoint> polygon) {
  double length = Distance(polygon.front(), polygon.back());
  for (std::size_t i = 0; i + 1 < polygon.size(); ++i)
    length += Distance(polygon[i + 1], polygon[i]);
  return length;
}

double MeanSquaredRadialDeviation(std::span<const ZorPoint> points, const ZorPoint& centre,
                                  double radius) {
  double sum = 0.0;
  for (const ZorPoint& p : points) {
    const double deviation = Distance(p, centre) - radius;
    sum += deviation * deviation;
  }
  return sum / static_cast<double>(points.size());
}

double LargestRadius(std::span<const ZorPoint> points, const ZorPoint& centre) {
  double largest = Distance(points.front(), centre);
  for (const ZorPoint& p : points.subspan(1)) {
    const double radius = Distance(p, centre);
    if (radius > largest) largest = radius;
  }
  return largest;
}

double MomentEccentricity(std::span<const ZorPoint> points) {
  const ZorPoint mean = MeanPoint(points);
  double xx = 0.0;
  double yy = 0.0;
  double xy = 0.0;
  for (const ZorPoint& p : points) {
    const double x = p.x - mean.x;
    const double y = -(p.y - mean.y);
    xx += x * x;
    yy += y * y;
    xy += x * y;
  }
  const double n = static_cast<double>(points.size());
  const double a = xx / n;
  const double b = yy / n;
  const double c = xy / n;
  const double d = a - b;
  const double r = std::sqrt(4 * (c * c) + d * d);
  const double s = a + b;
  constexpr double kScale = 2 * std::numbers::sqrt2;
  const double length = kScale * std::sqrt(s + r);
  // By rounding the difference falls below 0 for points on a line.
  const double width = kScale * std::sqrt(NotNegative(s - r));
  const double focal = std::sqrt(length * length / 4 - width * width / 4);
  return 2 * focal / length;
}

CentralMoments CentralMomentsOf(std::span<const ZorPoint> polygon) {
  const double m00 = PolygonMoment(polygon, 0);
  const ZorPoint c(PolygonMoment(polygon, 10) / m00, PolygonMoment(polygon, 1) / m00);
  return {m00, c, PolygonMoment(polygon, 20) / m00 - c.x * c.x,
          PolygonMoment(polygon, 2) / m00 - c.y * c.y,
          PolygonMoment(polygon, 11) / m00 - c.x * c.y};
}

std::vector<ZorPoint> TurnedAbout(std::span<const ZorPoint> polygon, const ZorPoint& centre,
                                  double angle_deg) {
  const double angle_rad = angle_deg / -180 * kPi;
  const double cosine = std::cos(angle_rad);
  const double sine = std::sin(angle_rad);
  std::vector<ZorPoint> turned;
  turned.reserve(polygon.size());
  for (const ZorPoint& p : polygon) {
    const ZorPoint d = p - centre;
    turned.emplace_back(d.x * cosine + d.y * sine, d.y * cosine - d.x * sine);
  }
  return turned;
}

double RateAsRectangle(std::span<const ZorPoint> centred, double area) {
  const double ratio = 144 * PolygonMoment(centred, 22) / (area * area * area);
  return ratio >= 1 ? 1 / ratio : ratio;
}

RectangleSides SidesOf(const std::array<ZorPoint, 4>& corners) {
  const double first = Distance(corners[1], corners[0]);
  const double second = Distance(corners[2], corners[1]);
  if (first >= second) return {first, second, corners[0], corners[1]};
  return {second, first, corners[1], corners[2]};
}

}  // namespace zor::shape
