#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "figure_results.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::elementary::Distance;
using zor::test::DistanceFirst;
using zor::test::Found;
using zor::test::IsUntouched;
using zor::test::MinMax;
using zor::test::PointsFirst;
using zor::test::Show;

namespace {

// The quarter turn that swaps the axes is 3e-10 short with the ten-digit pi; ovals up to 160 wide.
constexpr double kPixels = 1e-7;
constexpr int kSteps = 500;

struct Oval {
  ZorPoint centre;
  double a, b, angle;

  [[nodiscard]] ZorPoint Local(const ZorPoint& p) const {
    const double t = angle * 3.141592653 / 180;
    const ZorPoint d = p - centre;
    return {std::cos(t) * d.x - std::sin(t) * d.y, std::sin(t) * d.x + std::cos(t) * d.y};
  }
  [[nodiscard]] double Equation(const ZorPoint& p) const {
    const ZorPoint q = Local(p);
    return std::pow(q.x / a, 2) + std::pow(q.y / b, 2) - 1;
  }
  /// Signed, by bisection for the multiplier t of the normal: the nearest point is
  /// (a^2 u / (t + a^2), b^2 v / (t + b^2)).
  [[nodiscard]] double DistanceOf(const ZorPoint& p) const {
    const ZorPoint q = Local(p);
    const double u = std::fabs(q.x) + 1e-12, v = std::fabs(q.y) + 1e-12, m = std::min(a, b);
    double low = -m * m, high = (a + b) * (u + v) + 1;
    for (int i = 0; i < 60; ++i) {
      const double t = (low + high) / 2;
      const double f = std::pow(a * u / (t + a * a), 2) + std::pow(b * v / (t + b * b), 2) - 1;
      (f > 0 ? low : high) = t;
    }
    const double x = a * a * u / (low + a * a), y = b * b * v / (low + b * b);
    return std::copysign(std::hypot(x - u, y - v), Equation(p));
  }
  /// Least and greatest signed distance over points spread from p to q.
  [[nodiscard]] std::pair<double, double> Sampled(const ZorPoint& p, const ZorPoint& q) const {
    double low = DistanceOf(p), high = low;
    for (int i = 1; i <= kSteps; ++i) {
      const double t = static_cast<double>(i) / kSteps;
      const double d = DistanceOf({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
      low = std::min(low, d);
      high = std::max(high, d);
    }
    return {low, high};
  }
};

/// The point lies on line pq, the figure's on the outline, and they are as far apart as is said.
void ExpectConsistent(const Found& f, const ZorPoint& p, const ZorPoint& q, const Oval& oval) {
  EXPECT_NEAR(Distance(f.own, f.figure), std::fabs(f.distance), kPixels);
  EXPECT_NEAR(oval.Equation(f.figure), 0, 1e-8);
  const ZorPoint u = q - p, v = f.own - p;
  EXPECT_NEAR((u.x * v.y - u.y * v.x) / Distance(p, q), 0, kPixels);
}

}  // namespace

TEST(SegmentToFigure, AgreesWithDenseSampling) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1), side(-1, 1);
  int kinds[3] = {0, 0, 0};
  for (int i = 0; i < 400; ++i) {
    const double a = 20 + 60 * unit(rng), ratio = i % 4 == 0 ? 1 : 0.5 + 1.5 * unit(rng);
    Oval oval{{500 * unit(rng), 500 * unit(rng)}, a, a * ratio, 360 * unit(rng)};
    const double reach = i % 3 == 0 ? std::min(oval.a, oval.b) * 0.7 : 120;
    ZorPoint p = oval.centre + ZorPoint(reach * side(rng), reach * side(rng));
    ZorPoint q = oval.centre + ZorPoint(reach * side(rng), reach * side(rng));
    SCOPED_TRACE(Show(p) + Show(q) + Show(oval.centre) + Show({oval.a, oval.b}) +
                 std::to_string(oval.angle));
    const auto [low, high] = oval.Sampled(p, q);
    const bool meets = low < 0 && high > 0;
    ++kinds[meets ? 0 : low > 0 ? 1 : 2];
    const double half_step = Distance(p, q) / kSteps / 2 + kPixels;

    ZorGeometryMeasure m;
    const bool is_circle = ratio == 1;
    const MinMax segment = DistanceFirst([&](auto... out) {
      return is_circle ? m.LineSegmentToCircleDistance(p, q, oval.centre, oval.a, out...)
                       : m.LineSegmentToOvalDistance2(p, q, oval.centre, oval.a, oval.b, oval.angle,
                                                      out...);
    });
    const double nearest = meets ? 0 : std::min(std::fabs(low), std::fabs(high));
    const double farthest = std::max(std::fabs(low), std::fabs(high));
    EXPECT_NEAR(segment.min.distance, nearest, half_step);
    EXPECT_LE(segment.min.distance, nearest + kPixels);
    EXPECT_NEAR(segment.max.distance, farthest, half_step);
    EXPECT_GE(segment.max.distance, farthest - kPixels);

    ZorContour contour({p, p, q});
    ZorVarArray list{1.0};
    const MinMax along = PointsFirst([&](auto... out) {
      return is_circle ? m.CircleToContourDistance(contour, oval.centre, oval.a, &list, out...)
                       : m.OvalToContourDistance(contour, oval.centre, oval.a, oval.b, oval.angle,
                                                 &list, out...);
    });
    EXPECT_NEAR(along.min.distance, meets ? 0 : low, half_step);
    EXPECT_NEAR(along.max.distance, high, kPixels);
    ASSERT_EQ(list.Length(), 3);
    EXPECT_NEAR(list[0].D(), oval.DistanceOf(p), kPixels);
    EXPECT_NEAR(list[2].D(), oval.DistanceOf(q), kPixels);

    const ZorPoint far((q.x - p.x) * 400 / Distance(p, q), (q.y - p.y) * 400 / Distance(p, q));
    const double from_line = std::max(oval.Sampled(p - far, p + far).first, 0.0);
    const MinMax line = DistanceFirst([&](auto... out) {
      return m.LineToOvalDistance(p, q, oval.centre, oval.a, oval.b, oval.angle, out...);
    });
    EXPECT_NEAR(line.min.distance, from_line, 0.8);  // half a step
    EXPECT_LE(line.min.distance, from_line + kPixels);
    EXPECT_TRUE(IsUntouched(line.max.distance) && IsUntouched(line.max.own));

    for (const Found& f : {segment.min, segment.max, along.min, along.max, line.min}) {
      ExpectConsistent(f, p, q, oval);
    }
    for (const Found& f : {segment.min, segment.max, along.min, along.max}) {
      EXPECT_NEAR(Distance(p, f.own) + Distance(f.own, q), Distance(p, q), kPixels);
    }
  }
  EXPECT_GT(*std::min_element(kinds, kinds + 3), 50);
}
