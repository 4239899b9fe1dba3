#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shape/point_sets.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::kUntouched;

namespace {

constexpr double kPi = 3.14159265358979;

/// What the operation gives for the points; mode -1 stands for none.
double Measured(const char* operation, ZorPointArray points, int mode = -1) {
  ZorGeometryMeasure m;
  double value = kUntouched;
  const std::string name = operation;
  EXPECT_EQ(name == "Roundness"        ? m.Roundness(points, mode, &value)
            : name == "Straightness"   ? m.Straightness(points, mode, &value)
            : name == "Rectangularity" ? m.Rectangularity(points, &value)
                                       : m.Rectangularity2(points, &value),
            GM_OK);
  return value;
}

/// The outline of a square about the origin, ten points a side.
ZorPointArray SquareOutline(double side) {
  ZorPointArray points;
  const ZorPoint corner[5] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}, {-1, -1}};
  for (int i = 0; i < 40; ++i) {
    const ZorPoint &a = corner[i / 10], &b = corner[i / 10 + 1];
    const double t = i % 10 / 10.0;
    points.Append(ZorPoint(side / 2 * (a.x + t * (b.x - a.x)), side / 2 * (a.y + t * (b.y - a.y))));
  }
  return points;
}

}  // namespace

TEST(FormMeasures, CheckCountsAndModes) {
  ZorGeometryMeasure m;
  ZorPointArray nine(std::vector<ZorPoint>(9, ZorPoint(1, 2))), ten = SquareOutline(2), three;
  three.Assign({{0, 0}, {4, 0}, {4, 4}});
  double value = kUntouched;
  EXPECT_EQ(m.Roundness(nine, 7, &value), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.Straightness(nine, 7, &value), GM_E_TOO_FEW_POINTS);
  for (const int mode : {4, -1}) EXPECT_EQ(m.Roundness(ten, mode, &value), GM_E_PARAM_2);
  for (const int mode : {2, -1}) EXPECT_EQ(m.Straightness(ten, mode, &value), GM_E_PARAM_2);
  EXPECT_EQ(m.Rectangularity(three, &value), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.Rectangularity2(three, &value), GM_E_TOO_FEW_POINTS);
  EXPECT_TRUE(zor::test::IsUntouched(value));
}

TEST(Roundness, OfCircleSquareAndLine) {
  ZorPointArray circle(zor::test::EllipsePoints(360, 100, 100)), square = SquareOutline(2000), line;
  for (int i = 0; i < 12; ++i) line.Append(ZorPoint(i, 2 * i));
  for (int mode = 0; mode < 4; ++mode) {
    SCOPED_TRACE(mode);
    EXPECT_LE(Measured("Roundness", circle, mode), 1.0);
    EXPECT_GT(Measured("Roundness", circle, mode), 0.98);
  }
  // The fitted circle of the square's ten points a side has R^2 = mean of |p|^2 = (1 + 0.34) 1e6;
  // the corners' circle 2e6.
  double deviation = 0.0;
  for (const ZorPoint& p : square) {
    deviation += std::pow(std::hypot(p.x, p.y) - std::sqrt(1.34e6), 2) / 40;
  }
  EXPECT_NEAR(Measured("Roundness", square, 0), kPi / 4, 1e-9);
  EXPECT_NEAR(Measured("Roundness", square, 1), 1 - std::sqrt(deviation / 1.34e6), 1e-9);
  EXPECT_NEAR(Measured("Roundness", square, 2), 4 / (1.34 * kPi), 1e-9);
  EXPECT_NEAR(Measured("Roundness", square, 3), 4 / (2 * kPi), 1e-9);
  EXPECT_EQ(Measured("Roundness", line, 0), 0.0);
  EXPECT_EQ(Measured("Roundness", line, 1), 0.0) << "no circle fits";
}

TEST(Straightness, EccentricityAndBandWidth) {
  // On an ellipse with the axes a > b the second moments are as a^2 and b^2.
  const ZorPointArray ellipse(zor::test::EllipsePoints(720, 50, 30));
  EXPECT_NEAR(Measured("Straightness", ellipse, 0), 0.8, 1e-9);
  EXPECT_NEAR(Measured("Straightness", SquareOutline(7), 0), 0.0, 1e-7);
  ZorPointArray line, rows;
  for (int i = -20; i <= 20; ++i) line.Append(ZorPoint(0.3 * i + 7, 0.4 * i - 2));
  EXPECT_NEAR(Measured("Straightness", line, 0), 1.0, 1e-9);
  EXPECT_NEAR(Measured("Straightness", line, 1), 0.0, 1e-5) << "the fit is in single precision";
  // Two rows: no point is near the fitted line, whose distance is not part of the band.
  ZorGeometryMeasure m;
  for (int i = 0; i < 20; ++i) rows.Append(ZorPoint(i, i % 4 < 2 ? 1.0 : -1.0));
  ZorPoint start, end;
  double distance = 0, least = 1e9, most = 0;
  EXPECT_EQ(m.LeastSqaureLineFit(rows, 1, 1.0, &start, &end), GM_OK);
  for (const ZorPoint& p : rows) {
    EXPECT_EQ(m.PointTolineDistance(p, start, end, &distance), GM_OK);
    least = std::min(least, distance);
    most = std::max(most, distance);
  }
  ASSERT_GT(least, 0.05);
  EXPECT_DOUBLE_EQ(Measured("Straightness", rows, 1), most - least);
  EXPECT_TRUE(std::isnan(
      Measured("Straightness", ZorPointArray(std::vector<ZorPoint>(10, ZorPoint(1, 2))), 0)));
}

TEST(Rectangularity, OfRectanglesAndTriangles) {
  EXPECT_NEAR(Measured("Rectangularity", {{2, 3}, {32, 3}, {32, 13}, {2, 13}}), 1.0, 1e-6);
  EXPECT_NEAR(Measured("Rectangularity", {{0, 0}, {30, 40}, {-10, 70}, {-40, 30}}), 1.0, 1e-6)
      << "turned";
  EXPECT_NEAR(Measured("Rectangularity", {{0, 0}, {20, 0}, {40, 0}, {0, 30}}), 0.5, 1e-6);
  EXPECT_NEAR(Measured("Rectangularity", {{0.9, 0.9}, {10, 0.9}, {10, 10}, {0.9, 10}}),
              100 / (9.1 * 9.1), 1e-6)
      << "cut to whole pixels, not limited";
}

TEST(Rectangularity2, ReachesOneOnlyAlongTheAxes) {
  const ZorPointArray rectangle = {{10, 20}, {40, 20}, {40, 30}, {10, 30}};
  EXPECT_NEAR(Measured("Rectangularity2", rectangle), 1.0, 1e-7);
  EXPECT_NEAR(Measured("Rectangularity2", {{10, 20}, {20, 20}, {20, 50}, {10, 50}}), 1.0, 1e-7)
      << "upright";
  EXPECT_EQ(Measured("Rectangularity2", {{10, 30}, {40, 30}, {40, 20}, {10, 20}}), 0.0)
      << "the other way";
  EXPECT_EQ(Measured("Rectangularity2", {{0, 0}, {1, 1}, {2, 2}, {3, 3}}), 0.0);
  // Turned by t the rectangle 2a by 2b is turned on to 2t; there the mean of x^2 y^2 is
  // c^2 s^2 (a^4 + b^4) / 5 + ((c^2 - s^2)^2 - 2 c^2 s^2) a^2 b^2 / 9.
  for (const double t : {0.1, 0.4}) {
    const double a2 = 225, b2 = 25, c = std::cos(2 * t), s = std::sin(2 * t), cs = c * c * s * s;
    const double mean =
        cs * (a2 * a2 + b2 * b2) / 5 + (std::pow(c * c - s * s, 2) - 2 * cs) * a2 * b2 / 9;
    const double r = 144 * mean / (16 * a2 * b2);
    ZorPointArray turned;
    for (const ZorPoint& p : rectangle) {
      turned.Append(
          ZorPoint(p.x * std::cos(t) - p.y * std::sin(t), p.x * std::sin(t) + p.y * std::cos(t)));
    }
    EXPECT_NEAR(Measured("Rectangularity2", turned), r >= 1 ? 1 / r : r, 1e-7) << t;
  }
}
