#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "figure_results.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using Dlg = ZORMV::ZorGeometryMeasureDlg;
using zor::test::DistanceFirst;
using zor::test::ExpectFound;
using zor::test::ExpectNear;
using zor::test::Found;
using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::MinMax;
using zor::test::PointsFirst;

namespace {

constexpr double kRounding = 1e-9;
constexpr double kTenDigitPi = 1e-7;

/// A list or contour to a figure about the origin.
template <typename Method, typename List, typename... Figure>
MinMax Measure(Method method, List list, Figure... figure) {
  ZorPoint centre(0, 0);
  return PointsFirst([&](auto... out) { return (Dlg().*method)(list, centre, figure..., out...); });
}

template <typename Method, typename... Figure>
MinMax MeasureSegment(Method method, ZorPoint p, ZorPoint q, Figure... figure) {
  ZorPoint centre(0, 0);
  return DistanceFirst(
      [&](auto... out) { return (Dlg().*method)(p, q, centre, figure..., out...); });
}

MinMax ToLine(ZorPoint p, ZorPoint q, double a, double b, double angle) {
  ZorPoint centre(0, 0);
  return DistanceFirst([&](auto... out) {
    return ZorGeometryMeasure().LineToOvalDistance(p, q, centre, a, b, angle, out...);
  });
}

/// The status; a failure has written nothing.
long Code(const MinMax& r) {
  EXPECT_EQ(IsUntouched(r.min.distance) && IsUntouched(r.min.figure), r.status != GM_OK);
  return r.status;
}

struct Row {
  const char* what;
  std::vector<ZorPoint> points;
  Found min, max;
};

}  // namespace

TEST(FigureDistances, CodesInTheOrderOfTheirChecks) {
  const ZorPointArray none, one{{1, 2}};
  const auto circle = &Dlg::PointArrayToCircleDistance;
  EXPECT_EQ(Code(Measure(circle, none, 0.0)), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(Code(Measure(circle, one, 0.0)), GM_E_PARAM_3);
  const auto oval = &Dlg::PointArrayToOvalDistance;
  EXPECT_EQ(Code(Measure(oval, none, 0.0, 0.0, 361.0)), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(Code(Measure(oval, one, 0.0, 0.0, 361.0)), GM_E_PARAM_3);
  EXPECT_EQ(Code(Measure(oval, one, 1.0, 0.0, 361.0)), GM_E_PARAM_4);
  EXPECT_EQ(Code(Measure(oval, one, 1.0, 1.0, 360.000001)), GM_E_PARAM_5);
  EXPECT_EQ(Code(Measure(oval, one, 1.0, 1.0, 360.0)), GM_OK);
  const auto rectangle = &Dlg::PointArrayToRectAngularDistance;
  EXPECT_EQ(Code(Measure(rectangle, none, 0.0, 0.0, 361.0)), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(Code(Measure(rectangle, one, 0.0, 0.0, 361.0)), GM_E_PARAM_3);
  EXPECT_EQ(Code(Measure(rectangle, one, 1.0, 0.0, 361.0)), GM_E_PARAM_4);
  EXPECT_EQ(Code(Measure(rectangle, one, 1.0, 1.0, -1.0)), GM_E_PARAM_5);

  const ZorContour empty, point({{1, 2}});
  EXPECT_EQ(Code(Measure(&Dlg::ContourToCircleDistance, empty, 0.0)), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(Code(Measure(&Dlg::ContourToCircleDistance, point, 0.0)), GM_E_PARAM_3);
  EXPECT_EQ(Code(Measure(&Dlg::ContourToOvalDistance, empty, 0.0, 0.0, 361.0)), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(Code(Measure(&Dlg::ContourToOvalDistance, point, 1.0, 0.0, 361.0)), GM_E_PARAM_4);
  const auto outline = &Dlg::ContourToRectangularDistance;
  EXPECT_EQ(Code(Measure(outline, empty, 0.0, 0.0, 361.0)), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(Code(Measure(outline, point, 0.0, 0.0, 361.0)), GM_E_PARAM_3);
  EXPECT_EQ(Code(Measure(outline, point, 1.0, 1.0, 361.0)), GM_E_PARAM_5);

  const ZorPoint o(0, 0), near(0.0005, 0), p(0.00051, 0);
  EXPECT_EQ(Code(MeasureSegment(&Dlg::LineSegmentToCircleDistance, o, near, 0.0)),
            GM_E_DEGENERATE_LINE);
  EXPECT_EQ(Code(MeasureSegment(&Dlg::LineSegmentToCircleDistance, o, p, 0.0)), GM_E_PARAM_4);
  const auto segment = &Dlg::LineSegmentToOvalDistance;
  EXPECT_EQ(Code(MeasureSegment(segment, o, near, 0.0, 0.0, 361.0)), GM_E_DEGENERATE_LINE);
  EXPECT_EQ(Code(MeasureSegment(segment, o, p, 0.0, 0.0, 361.0)), GM_E_PARAM_3);
  EXPECT_EQ(Code(MeasureSegment(segment, o, p, 1.0, 0.0, 361.0)), GM_E_PARAM_4);
  EXPECT_EQ(Code(MeasureSegment(segment, o, p, 1.0, 1.0, 361.0)), GM_E_PARAM_5);
  EXPECT_EQ(Code(MeasureSegment(segment, o, p, 1.0, 1.0, 360.0)), GM_OK);
  EXPECT_EQ(Code(ToLine(o, o, 0.0, 0.0, 360.000001)), GM_E_PARAM_6);
  EXPECT_EQ(Code(ToLine(o, o, 0.0, 0.0, 360.0)), GM_E_PARAM_4);
  EXPECT_EQ(Code(ToLine(o, o, 1.0, 0.0, 360.0)), GM_E_PARAM_5);
}

TEST(LineSegmentToOval, TheShortFormIsInert) {
  ZorPoint p(0, 0), own(1, 2);
  double distance = kUntouched;
  EXPECT_EQ(
      ZorGeometryMeasure().LineSegmentToOvalDistance(p, p, p, 0, 0, 361, &distance, &own, &own),
      GM_OK);
  EXPECT_TRUE(IsUntouched(distance) && own == ZorPoint(1, 2));
}

TEST(LineSegmentToCircle, TouchesAndTies) {
  const double low = 4.999995, far = std::hypot(12, low), root = std::sqrt(10.0);
  const Row rows[] = {
      {"dipping in by a hair: touching at the foot",
       {{-12, low}, {0.5, low}},
       {5 - low, {0, low}, {0, 5}},
       {far - 5, {-12, low}, {-60 / far, 5 * low / far}}},
      {"upright through it: the larger y",
       {{0, -9}, {0, 9}},
       {0, {0, 5}, {0, 5}},
       {5, {0, 0}, {0, 5}}},
      {"within it, nearest at the end on a tie",
       {{-3, 1}, {3, 1}},
       {5 - root, {3, 1}, {15 / root, 5 / root}},
       {4, {0, 1}, {0, 5}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    ZorPoint p = row.points[0], q = row.points[1], centre(0, 0);
    const MinMax r = MeasureSegment(&Dlg::LineSegmentToCircleDistance, p, q, 5.0);
    ExpectFound(r.min, row.min, kRounding);
    ExpectFound(r.max, row.max, kRounding);
    Found f;
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentToCircleDistance(p, q, centre, 5, &f.distance, &f.own,
                                                               &f.figure),
              GM_OK);
    ExpectFound(f, r.min, 0);
  }
}

TEST(ContourToCircle, CountsSegmentsWithTheirSignAndCrossingsWithZero) {
  const Row rows[] = {
      {"the first of equal segments", {{-6, 6}, {6, 6}, {6, -6}}, {1, {0, 6}, {0, 5}}, {}},
      {"into it and no deeper", {{0, 9}, {0, 2}}, {0, {0, 5}, {0, 5}}, {4, {0, 9}, {0, 5}}},
      {"into it and on", {{0, 9}, {0, 2}, {3, 2}}, {-3, {0, 2}, {0, 5}}, {4, {0, 9}, {0, 5}}},
      {"past the centre", {{-1, 0}, {1, 0}}, {-5, {0, 0}, {0, 5}}, {-4, {-1, 0}, {-5, 0}}},
      {"a chord", {{4, 3}, {-4, 3}}, {0, {4, 3}, {4, 3}}, {0, {4, 3}, {4, 3}}},
      {"short of a chord by a hair",
       {{3.999995, 3}, {-3.999995, 3}},
       {0, {3.999995, 3}, {3.9999982, 3.0000024}},
       {}},
      {"short of a chord", {{3.9999, 3}, {-3.9999, 3}}, {-2, {0, 3}, {0, 5}}, {}},
      {"repeated points", {{0, 2}, {0, 2}, {0, 9}}, {0, {0, 5}, {0, 5}}, {}},
      {"nothing but repeated points", {{0, 2}, {0, 2}}, {-3, {0, 2}, {0, 5}}, {}},
      {"steps too short for a direction",
       {{7, 0}, {6.9997, 0}, {6.9994, 0}, {6.9991, 0}},
       {1.9994, {6.9994, 0}, {5, 0}},
       {2, {7, 0}, {5, 0}}},
      {"a point that is no number",
       {{100, 0}, {101, 0}, {kNaN, 0}, {103, 0}},
       {95, {100, 0}, {5, 0}},
       {98, {103, 0}, {5, 0}}},
      {"one point", {{0, 0}}, {-5, {0, 0}, {0, 5}}, {-5, {0, 0}, {0, 5}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const MinMax r = Measure(&Dlg::ContourToCircleDistance, ZorContour(row.points), 5.0);
    ExpectFound(r.min, row.min, kRounding);
    if (!IsUntouched(row.max.distance)) ExpectFound(r.max, row.max, kRounding);
    if (row.points[0].x < 7) continue;
    const MinMax o = Measure(&Dlg::ContourToOvalDistance, ZorContour(row.points), 5.0, 5.0, 0.0);
    ExpectFound(o.min, row.min, kTenDigitPi);
  }
  const ZorContour broken({{kNaN, 1}, {2, kNaN}, {1, 1}});
  EXPECT_TRUE(std::isnan(Measure(&Dlg::ContourToCircleDistance, broken, 5.0).max.distance));
  EXPECT_EQ(Measure(&Dlg::ContourToOvalDistance, broken, 5.0, 3.0, 1.0).status, GM_OK);
}

TEST(LineToOval, CasesOfTheEquation) {
  struct Case {
    const char* what;
    ZorPoint p, q;
    double a, b, angle;
    Found min;
  };
  const double half = std::sqrt(0.5), low = 5.000009, high = 5.000011;
  const Case cases[] = {
      {"level, touching", {1, 4}, {9, 4}, 5, 4, 0, {0, {0, 4}, {0, 4}}},
      {"level, through", {-9, 0}, {9, 0}, 5, 4, 0, {0, {5, 0}, {5, 0}}},
      {"upright, past", {-7, 3}, {-7, 4}, 5, 4, 0, {2, {-7, 0}, {-5, 0}}},
      {"upright, touching", {low, 3}, {low, 4}, 5, 4, 0, {0, {low, 0}, {low, 0}}},
      {"upright, past it", {high, 3}, {high, 4}, 5, 4, 0, {1.1e-5, {high, 0}, {5, 0}}},
      {"upright, through", {3, -9}, {3, 9}, 5, 4, 0, {0, {3, 3.2}, {3, 3.2}}},
      {"touched from afar", {-9, 0.06}, {9, 0.06}, 0.05, 0.04, 0, {0, {0, 0.06}, {0, 0.06}}},
      {"not so far", {-9, 0.4}, {9, 0.4}, 0.1, 0.1, 0, {0.3, {0, 0.4}, {0, 0.1}}},
      {"as good as upright", {0, 9}, {1e-5, 0}, 5, 4, 0, {0, {0, 4}, {0, 4}}},
      {"two equal points", {7, 0}, {7, 0}, 5, 4, 0, {2, {7, 0}, {5, 0}}},
      {"turned", {0, -10}, {-10, 0}, 5, 4, 45, {10 * half - 4, {-5, -5}, {-4 * half, -4 * half}}},
      {"swapped", {0, -10}, {-10, 0}, 4, 5, 315, {10 * half - 4, {-5, -5}, {-4 * half, -4 * half}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ExpectFound(ToLine(c.p, c.q, c.a, c.b, c.angle).min, c.min, kTenDigitPi);
  }
  EXPECT_LT(ToLine({0, 9}, {1.1e-5, 0}, 5, 4, 0).min.own.y, -3.9);  // no longer upright
}

TEST(FindOvalTangentPoint, GivesEachBranchItsOrder) {
  const double shallow = std::sqrt(15.25), steep = std::sqrt(27.25), level = std::sqrt(34.0);
  for (auto [direction, first] :
       {std::pair(ZorPoint(-7, 0), ZorPoint(0, 3)), std::pair(ZorPoint(0, 7), ZorPoint(5, 0)),
        std::pair(ZorPoint(1, 1), ZorPoint(-25 / level, 9 / level)),
        std::pair(ZorPoint(2, -1), ZorPoint(12.5 / shallow, 9 / shallow)),
        std::pair(ZorPoint(-1, 2), ZorPoint(25 / steep, 4.5 / steep))}) {
    ZorPoint t1, t2;
    EXPECT_EQ(ZorGeometryMeasure().FindOvalTangentPoint(direction, 5, 3, &t1, &t2), GM_OK);
    ExpectNear(t1, first, kRounding);
    EXPECT_EQ(t2, ZorPoint(-t1.x, -t1.y));
  }
}

TEST(PointArrayToFigure, SignedExtremesWithTheEarliestPoint) {
  const ZorPointArray points{{3, 0}, {0, 0}, {-3, 0}, {7, 0}, {0, 0}, {-7, 0}};
  const MinMax circle = Measure(&Dlg::PointArrayToCircleDistance, points, 5.0);
  ExpectFound(circle.min, {-5, {0, 0}, {0, 5}}, 0);
  ExpectFound(circle.max, {2, {7, 0}, {5, 0}}, 0);
  const MinMax oval = Measure(&Dlg::PointArrayToOvalDistance, points, 2.0, 5.0, 90.0);
  ExpectFound(oval.min, {-2, {0, 0}, {0, -2}}, kTenDigitPi);
  ExpectFound(oval.max, {2, {7, 0}, {5, 0}}, kTenDigitPi);
  const MinMax rectangle = Measure(&Dlg::PointArrayToRectAngularDistance, points, 10.0, 4.0, 0.0);
  ExpectFound(rectangle.min, {-2, {3, 0}, {5, 0}}, 0);  // as far from three edges
  ExpectFound(rectangle.max, {2, {7, 0}, {5, 0}}, 0);
}

TEST(PointArrayToOval, AgreesWithTheFormForOnePoint) {
  std::mt19937_64 rng(5);
  std::uniform_real_distribution<double> coordinate(-40, 60);
  for (const int count : {1, 17, 256, 600}) {  // around the blocks of points
    ZorPointArray points;
    Found low, high;
    for (int i = 0; i < count; ++i) {
      points.Append(ZorPoint(std::round(coordinate(rng)), std::round(coordinate(rng))));
      Found f;
      f.own = points[i];
      ZorPoint centre(0, 0);
      static_cast<void>(ZorGeometryMeasure().PointToOvalDistance(f.own, centre, 12, 30, 25,
                                                                 &f.distance, &f.figure));
      if (i == 0 || f.distance < low.distance) low = f;
      if (i == 0 || f.distance > high.distance) high = f;
    }
    const MinMax r = Measure(&Dlg::PointArrayToOvalDistance, points, 12.0, 30.0, 25.0);
    ExpectFound(r.min, low, 0);
    ExpectFound(r.max, high, 0);
  }
}

TEST(ContourToRectangular, MeasuresAlongThePolylineToAllFourSides) {
  const Row rows[] = {
      {"beside the closing side", {{8, 1}, {9, 0}}, {3, {8, 1}, {5, 1}}, {4, {9, 0}, {5, 0}}},
      {"a corner below a segment",
       {{1, 8}, {12, -3}},
       {std::sqrt(2.0), {6, 3}, {5, 2}},
       {std::sqrt(50.0), {12, -3}, {5, -2}}},
      {"through it, first on the way", {{9, 1}, {-9, 1}}, {0, {5, 1}, {5, 1}}, {4, {9, 1}, {5, 1}}},
      {"within it", {{-1, 0}, {1, 1}}, {1, {1, 1}, {1, 2}}, {2, {-1, 0}, {-1, 2}}},
      {"in line with a side", {{8, 2}, {9, 2}}, {3, {8, 2}, {5, 2}}, {4, {9, 2}, {5, 2}}},
      {"one point, repeated", {{7, 0}, {7, 0}}, {2, {7, 0}, {5, 0}}, {2, {7, 0}, {5, 0}}},
      {"one point", {{0, -6}}, {4, {0, -6}, {0, -2}}, {4, {0, -6}, {0, -2}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const MinMax r =
        Measure(&Dlg::ContourToRectangularDistance, ZorContour(row.points), 10.0, 4.0, 180.0);
    ExpectFound(r.min, row.min, kRounding);
    ExpectFound(r.max, row.max, kRounding);
  }
}
