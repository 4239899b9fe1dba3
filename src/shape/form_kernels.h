#pragma once

#include <array>
#include <span>
#include <vector>

#include "ZorPoint.h"

// What the form measures are made of: ratings in [0, 1] with 1 for the ideal form, and lengths.

namespace zor::shape {

/// The value, 0 when it is negative; not a number stays so.
[[nodiscard]] inline double NotNegative(double value) { return value < 0 ? 0.0 : value; }

/// 1 - |1 - value|, 0 when that is negative: how near a ratio is to 1.
[[nodiscard]] double RateRatio(double value);

/// Length of the closed outline: the closing edge first, then the edges in order.
[[nodiscard]] double Perimeter(std::span<const ZorPoint> polygon);

/// Mean of (|p - centre| - radius)^2.
[[nodiscard]] double MeanSquaredRadialDeviation(std::span<const ZorPoint> points,
                                                const ZorPoint& centre, double radius);

/// Largest distance of a point from the centre.
[[nodiscard]] double LargestRadius(std::span<const ZorPoint> points, const ZorPoint& centre);

/// Eccentricity of the ellipse that has the point set's second moments: 0 for a set that is as wide
/// as it is long, 1 for points on a line, not a number for points that all coincide.
[[nodiscard]] double MomentEccentricity(std::span<const ZorPoint> points);

/// Area, centroid and central second moments of a polygon, each divided by the area.
struct CentralMoments {
  double area;
  ZorPoint centroid;
  double mu20;
  double mu02;
  double mu11;
};

[[nodiscard]] CentralMoments CentralMomentsOf(std::span<const ZorPoint> polygon);

/// The vertices relative to the centre, turned by angle_deg.
[[nodiscard]] std::vector<ZorPoint> TurnedAbout(std::span<const ZorPoint> polygon,
                                                const ZorPoint& centre, double angle_deg);

/// 144 m22 / area^3, or its inverse when that is above 1: 1 for a rectangle along the axes about
/// the origin, whose m22 is (w h)^3 / 144. The area may be that of the polygon before it was
/// turned.
[[nodiscard]] double RateAsRectangle(std::span<const ZorPoint> centred, double area);

/// Length and width of a rectangle, and the side that is the longer (the first, if equal).
struct RectangleSides {
  double length;
  double width;
  ZorPoint start;
  ZorPoint end;
};

[[nodiscard]] RectangleSides SidesOf(const std::array<ZorPoint, 4>& corners);

}  // namespace zor::shape
