#include <cmath>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;

namespace {

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
