#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// With 0 neighbours the discrete form.
ZorPointArray Normals(ZorPointArray points, int neighbours) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray normals = {{7, 7}};
  EXPECT_EQ(neighbours == 0 ? dlg.DiscretePoint2DNormal(points, &normals)
                            : dlg.Point2DNormal(points, neighbours, &normals),
            GM_OK);
  EXPECT_EQ(normals.Length(), points.Length());
  return normals;
}

}  // namespace

TEST(PointNormals, OfAnArcPointToItsCentreWhicheverWayItLies) {
  for (const double first : {0.0, 1.0, 1.5707963267948966, 3.0, 4.5}) {
    ZorPointArray arc;
    for (int i = 0; i <= 40; ++i) {
      arc.Append({100 * std::cos(first + i * 0.05) + 3000, 100 * std::sin(first + i * 0.05) - 7});
    }
    const ZorPointArray chords = Normals(arc, 0), fitted = Normals(arc, 3);
    for (int i = 0; i <= 40; ++i) {
      const ZorPoint inwards((3000 - arc[i].x) / 100, (-7 - arc[i].y) / 100);
      ExpectNear(fitted[i], inwards, i < 3 || i > 37 ? 5e-3 : 1e-5);  // one-sided at the ends
      ExpectNear(chords[i], inwards, i % 40 == 0 ? 0.026 : 1e-12);
    }
  }
}

TEST(PointNormals, KeepTheSideOfTravelWhereTheWindowTurnsFarAndInNoise) {
  const auto expect_side = [](const ZorPointArray& points, int neighbours, const auto& travel) {
    const ZorPointArray normals = Normals(points, neighbours);
    for (int i = 0; i < points.Length(); ++i) {
      const ZorPoint ahead = travel(i);
      EXPECT_GT(ahead.x * normals[i].y - ahead.y * normals[i].x, 0) << neighbours << ' ' << i;
    }
  };
  ZorPointArray circle, circles, wave, rough;
  for (int i = 0; i < 400; ++i) {
    for (ZorPointArray* turns : {&circle, &circles}) {
      if (i >= (turns == &circle ? 24 : 120)) continue;
      turns->Append({std::cos(i * kTurn / 24), std::sin(i * kTurn / 24)});
    }
    wave.Append({i * 0.15, 20 * std::sin(i * 0.05)});
    rough.Append({i * 0.1 + (i % 3 - 1) * 0.5, i % 7 * 0.1});
  }
  for (const int neighbours : {20, 40, 100}) {
    const auto along_circle = [](int i) {
      return ZorPoint(-std::sin(i * kTurn / 24), std::cos(i * kTurn / 24));
    };
    expect_side(circles, neighbours, along_circle);
    expect_side(circle, neighbours, along_circle);
    expect_side(wave, neighbours, [](int i) { return ZorPoint(3, 20 * std::cos(i * 0.05)); });
    expect_side(rough, neighbours, [](int) { return ZorPoint(1, 0); });
  }
}

TEST(PointNormals, PassOverRepeatedPointsAndReturnOnHairpins) {
  const ZorPointArray chords = Normals({{0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 2}, {2, 2}}, 0);
  const double r = std::sqrt(0.5);
  const ZorPoint expected[] = {{0, 1}, {0, 1}, {-r, r}, {-r, r}, {-1, 0}, {-1, 0}};
  for (int i = 0; i < 6; ++i) ExpectNear(chords[i], expected[i], 1e-15);
  ExpectNear(Normals({{0, 0}, {3, 0}, {0, 0}}, 0)[1], {0, 1}, 0);
  ExpectNear(Normals({{0, 5}, {0, 3}, {0, 1}}, 1)[1], {1, 0}, 0);
  ZorGeometryMeasure m;
  ZorPointArray one = {{1, 1}}, same = {{1, 1}, {1, 1}}, out = {{7, 7}};
  EXPECT_EQ(m.Point2DNormal(one, 0, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.Point2DNormal(same, 0, &out), GM_E_PARAM_2);
  EXPECT_EQ(m.Point2DNormal(same, 101, &out), GM_E_PARAM_2);
  EXPECT_EQ(m.Point2DNormal(same, 100, &out), GM_E_PARAM_1);
  EXPECT_EQ(m.DiscretePoint2DNormal(one, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(m.DiscretePoint2DNormal(same, &out), GM_E_PARAM_1);
  EXPECT_EQ(out, ZorPointArray({{7, 7}}));
}
