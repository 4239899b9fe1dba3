#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

/// What FormatPointArray2 does, by the letter: from the last point down, against all before it.
ZorPointArray RemovedOneByOne(ZorPointArray points) {
  for (int i = points.Length() - 1; i >= 1; --i) {
    for (int j = i - 1; j >= 0; --j) {
      const ZorPoint d = points[i] - points[j];
      if (std::sqrt(d.x * d.x + d.y * d.y) <= 1.0) {
        points.Remove(i);
        break;
      }
    }
  }
  return points;
}

}  // namespace

TEST(Rotation, TheTwoRotationsTurnInOppositeSenses) {
  ZorPoint p(1, 0), centre(0, 0), out;
  ExpectNear(ZorGeometryMeasure().TransformPoint(p, centre, 90), {0, -1}, 1e-9);
  double angle = 90;
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().RotateProjection(p, centre, angle, &out), GM_OK);
  ExpectNear(out, {0, 1}, 1e-15);
  ZorPoint q(7, 5), pivot(2, 3);
  ExpectNear(ZorGeometryMeasure().TransformPoint(q, pivot, 90), {4, -2}, 1e-8);
}

TEST(Degrees, UseTheTenDigitPiBothWays) {
  double degrees = 0, radians = 0;
  ZorGeometryMeasure m;
  m.Deg(3.141592653, &degrees);
  m.Rad(180, &radians);
  EXPECT_EQ(degrees, 180.0);
  EXPECT_EQ(radians, 3.141592653);
}

TEST(FormatResult, ClearsNegativeZerosOnly) {
  ZorPoint p(-0.0, -3);
  ZorGeometryMeasure().FormatResult(p);
  EXPECT_FALSE(std::signbit(p.x));
  EXPECT_EQ(p.y, -3);
}

TEST(FormatPointArray, RemovesNeighboursThenTheLastNearTheFirst) {
  struct Case {
    const char* what;
    ZorPointArray in, out;
  };
  const std::vector<Case> cases = {
      {"empty", {}, {}},
      {"a single point stays", {{5, 5}}, {{5, 5}}},
      {"two coincident points leave nothing", {{0, 0}, {0, 0}}, {}},
      {"bound included", {{0, 0}, {1e-5, 0}, {3, 0}}, {{0, 0}, {3, 0}}},
      {"just apart", {{0, 0}, {1.1e-5, 0}, {3, 0}}, {{0, 0}, {1.1e-5, 0}, {3, 0}}},
      {"compared with the given predecessor, removed or not",
       {{0, 0}, {0.8e-5, 0}, {1.6e-5, 0}, {3, 0}},
       {{0, 0}, {3, 0}}},
      {"closed", {{0, 0}, {3, 0}, {3, 3}, {0, 1e-6}}, {{0, 0}, {3, 0}, {3, 3}}},
      {"not a number is near nothing", {{kNaN, 0}, {kNaN, 0}}, {{kNaN, 0}, {kNaN, 0}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ZorPointArray points(c.in);
    ZorGeometryMeasure().FormatPointArray(points);
    ASSERT_EQ(points.Length(), c.out.Length());
    if (!std::isnan(c.in[0].x)) {
      EXPECT_EQ(points, c.out);
    }
  }
}

TEST(FormatPointArray2, ComparesWithEarlierPointsEvenRemovedOnes) {
  ZorPointArray points{{0, 0}, {0.5, 0}, {3, 0}};
  ZorGeometryMeasure().FormatPointArray2(points);
  EXPECT_EQ(points, (ZorPointArray{{0, 0}, {3, 0}}));
  ZorPointArray chain{
      {0, 0}, {1, 0}, {2, 0}, {3.5, 0}};  // the second falls, and still fells the third
  ZorGeometryMeasure().FormatPointArray2(chain);
  EXPECT_EQ(chain, (ZorPointArray{{0, 0}, {3.5, 0}}));
}

TEST(FormatPointArray2, AgreesWithRemovingOneByOne) {
  std::mt19937_64 rng(20240607);
  const double steps[] = {0.7, 1.0, 0.25, 0.001};
  for (int round = 0; round < 40; ++round) {
    const double step = steps[round % 4];  // on a lattice, so that distances of exactly 1 abound
    const double origin = round % 3 == 0 ? 4000 : round % 3 == 1 ? -10 : 1e9 - 4;
    std::uniform_int_distribution<int> cell(0, round % 5 == 0 ? 5000 : 24);
    ZorPointArray points;
    for (int i = 0; i < 300; ++i) {
      points.Append(ZorPoint(origin + cell(rng) * step, origin + cell(rng) * step));
    }
    if (round % 2 == 0) points[17] = ZorPoint(kInfinity, 3);
    for (const int i : {3, 30, 31}) {
      if (round % 7 == 0) points[i] = ZorPoint(1e12, i < 31 ? 0.5 : -1e300);
    }
    const ZorPointArray expected = RemovedOneByOne(points);
    ZorGeometryMeasure().FormatPointArray2(points);
    ASSERT_EQ(points, expected) << "round " << round;
  }
}

TEST(AdjustPointArray, AppendsTheSequenceFromStart) {
  ZorPointArray in{{0, 0}, {1, 0}, {2, 0}, {3, 0}};
  const ZorPoint kept(9, 9);
  for (const int start : {0, 1, 4, -1, 2147483647}) {
    ZorPointArray out{kept};
    EXPECT_EQ(ZorGeometryMeasure().AdjustPointArray(in, start, &out), GM_OK);
    ASSERT_EQ(out.Length(), 5) << start;
    EXPECT_EQ(out[0], kept);
    const int first = ((start % 4) + 4) % 4;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(out[i + 1], in[first + i]) << start;
  }
  ZorGeometryMeasure().AdjustPointArray(in, 2, &in);  // into itself
  EXPECT_EQ(in, (ZorPointArray{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {2, 0}, {3, 0}, {0, 0}, {1, 0}}));
}

TEST(TrianglePosition, CarriesTheThirdVertexAndMirrorsIt) {
  ZorPointArray triangle{{0, 0}, {4, 0}, {1, 2}};
  ZorPointArray down{{10, 10}, {10, 20}};  // +x turned onto +y
  ZorPointArray out{{7, 7}};
  EXPECT_EQ(ZorGeometryMeasure().TrianglePosition(triangle, down, 5, &out), GM_OK);
  ASSERT_EQ(out.Length(), 3);
  ExpectNear(out[1], {8, 11}, 1e-12);
  ExpectNear(out[2], {12, 11}, 1e-12);
  ZorPointArray nothing;
  EXPECT_EQ(ZorGeometryMeasure().TrianglePosition(nothing, nothing, 0, &out), GM_OK);
  EXPECT_TRUE(std::isnan(out[3].x));
  for (const double length : {0.002, 0.0004}) {  // no foot: mirrored in the origin
    ZorPointArray tiny{{10, 10}, {10, 10 + length}}, mirrored;
    EXPECT_EQ(ZorGeometryMeasure().TrianglePosition(triangle, tiny, 0, &mirrored), GM_OK);
    ExpectNear(mirrored[0], {8, 11}, 1e-9);
    EXPECT_EQ(mirrored[1], ZorPoint() - mirrored[0]);
  }
}

TEST(PointPosition, LeavesTheOutputAlone) {
  ZorPointArray first{{1, 2}}, second{{3, 4}}, out{{7, 7}};
  EXPECT_EQ(ZorGeometryMeasure().PointPosition(first, second, 1, &out), GM_OK);
  EXPECT_EQ(out, (ZorPointArray{{7, 7}}));
}

TEST(TransverseROI, MovesARectangleInPlaceAndOthersIntoTheOutput) {
  ZorGeometryMeasure m;
  ZorPoint offset(10, -2), centre;
  double first = 0, second = 0, third = 0;
  ZorROI in, out;
  in.GenCircle({1, 2}, 3);
  m.TransverseROI(in, offset, &out);
  ASSERT_TRUE(out.GetCircle(&centre, &first));
  EXPECT_EQ(centre, ZorPoint(11, 0));
  EXPECT_EQ(first, 3);

  in.GenRect2({1, 2}, 3, 4, 5);
  m.TransverseROI(in, offset, &out);
  EXPECT_EQ(out.ROIType(), ZorROICircle);
  ASSERT_TRUE(in.GetRect2(&centre, &first, &second, &third));
  EXPECT_EQ(centre, ZorPoint(11, 0));
  EXPECT_EQ(ZorPoint(second, third), ZorPoint(4, 5));

  in.GenEllipse({1, 2}, 3, 4, 5);
  m.TransverseROI(in, offset, &out);
  ASSERT_TRUE(out.GetEllipse(&centre, &first, &second, &third));
  EXPECT_EQ(centre, ZorPoint(11, 0));
  EXPECT_EQ(ZorPoint(first, third), ZorPoint(3, 5));

  in.GenPolygon({{0, 0}, {1, 1}});
  m.TransverseROI(in, offset, &out);
  ZorPointArray vertices;
  ASSERT_TRUE(out.GetPolygon(&vertices));
  EXPECT_EQ(vertices, (ZorPointArray{{10, -2}, {11, -1}}));

  in.GenLine({0, 0}, {1, 1});
  m.TransverseROI(in, offset, &out);
  EXPECT_EQ(out.ROIType(), ZorROIPolygon);
  m.TransverseROI(in, offset, nullptr);
}
