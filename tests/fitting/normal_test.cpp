#include <cmath>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;

namespace {

ZorPointArray ParabolaNormals(ZorPointArray points, int neighbours) {
  ZorPointArray normals = {{7, 7}};
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().Point2DNormal(points, neighbours, &normals), GM_OK);
  return normals;
}

ZorPointArray ChordNormals(ZorPointArray points) {
  ZorPointArray normals = {{7, 7}};
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().DiscretePoint2DNormal(points, &normals), GM_OK);
  return normals;
}

}  // namespace

TEST(PointNormals, OfAParabolaAreExactAndTurnWithIt) {
  for (const double turn : {0.0, 1.0, 1.5707963267948966, 3.0, -2.0}) {
    const double c = std::cos(turn), s = std::sin(turn);
    const auto turned = [&](double x, double y) { return ZorPoint(x * c - y * s, x * s + y * c); };
    ZorPointArray points;
    for (int i = -10; i <= 10; ++i) {
      points.Append(turned(i, 0.02 * i * i) + ZorPoint(3000, -500));
    }
    const ZorPointArray chords = ChordNormals(points), fitted = ParabolaNormals(points, 1);
    for (int i = -9; i <= 9; ++i) {
      const double length = std::sqrt(1 + 0.0016 * i * i);
      ExpectNear(chords[i + 10], turned(-0.04 * i / length, 1 / length), 1e-12);
      ExpectNear(fitted[i + 10], turned(-0.04 * i / length, 1 / length), 4e-4);
    }
    EXPECT_EQ(fitted.Length(), 21);
  }
}

TEST(PointNormals, OfACirclePointAlongItsRadiusAlsoAtTheEnds) {
  ZorPointArray arc;
  for (int i = 0; i <= 40; ++i) {
    arc.Append({100 * std::cos(i * 0.05) + 7, 100 * std::sin(i * 0.05) + 9});
  }
  const ZorPointArray normals = ParabolaNormals(arc, 3);
  for (int i = 0; i <= 40; ++i) {
    ExpectNear(normals[i], {-std::cos(i * 0.05), -std::sin(i * 0.05)},
               i < 3 || i > 37 ? 5e-3 : 1e-5);
  }
  ExpectNear(ChordNormals(arc)[0], {-std::cos(0.025), -std::sin(0.025)}, 1e-12);
}

TEST(PointNormals, PassOverRepeatedPointsAndReturnOnHairpins) {
  const ZorPointArray repeated = {{0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 2}, {2, 2}};
  const double r = std::sqrt(0.5);
  const ZorPointArray expected = {{0, 1}, {0, 1}, {-r, r}, {-r, r}, {-1, 0}, {-1, 0}};
  const ZorPointArray chords = ChordNormals(repeated);
  ASSERT_EQ(chords.Length(), 6);
  for (int i = 0; i < 6; ++i) ExpectNear(chords[i], expected[i], 1e-15);
  ExpectNear(ChordNormals({{0, 0}, {3, 0}, {0, 0}})[1], {0, 1}, 0);
  for (const ZorPoint& n : ParabolaNormals({{0, 0}, {3, 0}}, 100)) ExpectNear(n, {0, 1}, 0);
  for (const ZorPoint& n : ParabolaNormals({{0, 5}, {0, 3}, {0, 1}}, 1)) ExpectNear(n, {1, 0}, 0);
}

TEST(PointNormals, CheckTheirArgumentsInOrder) {
  ZorGeometryMeasure m;
  ZorPointArray one = {{1, 1}}, same = {{1, 1}, {1, 1}}, two = {{1, 1}, {2, 1}}, out = {{7, 7}};
  EXPECT_EQ(m.Point2DNormal(one, 0, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.Point2DNormal(same, 0, &out), GM_E_PARAM_2);
  EXPECT_EQ(m.Point2DNormal(two, 101, &out), GM_E_PARAM_2);
  EXPECT_EQ(m.Point2DNormal(same, 100, &out), GM_E_PARAM_1);
  EXPECT_EQ(m.DiscretePoint2DNormal(one, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.DiscretePoint2DNormal(same, &out), GM_E_PARAM_1);
  EXPECT_EQ(out, ZorPointArray({{7, 7}}));
}
