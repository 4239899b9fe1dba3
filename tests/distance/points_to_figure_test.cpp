#include <cmath>
#include <random>
#include <utility>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::UntouchedPoint;

namespace {

struct Found {
  double distance = kUntouched;
  ZorPoint own = UntouchedPoint(), figure = UntouchedPoint();
};

struct MinMax {
  Found min, max;
  long status = 0;
};

struct Figure {
  double a = 0, b = 0, angle = 0;
};

ZorPoint Centre() { return {10, 20}; }

MinMax ToCircle(ZorPointArray points, const Figure& f) {
  MinMax r;
  ZorPoint centre = Centre();
  r.status = ZORMV::ZorGeometryMeasureDlg().PointArrayToCircleDistance(
      points, centre, f.a, &r.min.own, &r.min.figure, &r.min.distance, &r.max.own, &r.max.figure,
      &r.max.distance);
  return r;
}

MinMax ToOval(ZorPointArray points, const Figure& f) {
  MinMax r;
  ZorPoint centre = Centre();
  r.status = ZORMV::ZorGeometryMeasureDlg().PointArrayToOvalDistance(
      points, centre, f.a, f.b, f.angle, &r.min.own, &r.min.figure, &r.min.distance, &r.max.own,
      &r.max.figure, &r.max.distance);
  return r;
}

MinMax ToRectangle(ZorPointArray points, const Figure& f) {
  MinMax r;
  ZorPoint centre = Centre();
  r.status = ZORMV::ZorGeometryMeasureDlg().PointArrayToRectAngularDistance(
      points, centre, f.a, f.b, f.angle, &r.min.own, &r.min.figure, &r.min.distance, &r.max.own,
      &r.max.figure, &r.max.distance);
  return r;
}

void ExpectFound(const Found& found, const Found& expected) {
  EXPECT_NEAR(found.distance, expected.distance, 1e-7);  // ten-digit pi
  ExpectNear(found.own - Centre(), expected.own, 0);
  ExpectNear(found.figure - Centre(), expected.figure, 1e-7);
}

}  // namespace

TEST(PointArrayToFigure, CodesInTheOrderOfTheArguments) {
  struct Case {
    const char* what;
    MinMax (*measure)(ZorPointArray, const Figure&);
    int points;
    Figure figure;
    long status;
  };
  for (const Case& c : {
           Case{"circle, no point", ToCircle, 0, {0, 0, 0}, GM_E_TOO_FEW_POINTS},
           Case{"circle, radius", ToCircle, 1, {0, 0, 0}, GM_E_PARAM_3},
           Case{"oval, no point", ToOval, 0, {0, 0, 361}, GM_E_TOO_FEW_POINTS},
           Case{"oval, first axis", ToOval, 1, {0, 0, 361}, GM_E_PARAM_3},
           Case{"oval, second axis", ToOval, 1, {1, -1, 361}, GM_E_PARAM_4},
           Case{"oval, angle", ToOval, 1, {1, 1, 360.000001}, GM_E_PARAM_5},
           Case{"oval, angle 360", ToOval, 1, {1, 1, 360}, GM_OK},
           Case{"rectangle, no point", ToRectangle, 0, {0, 0, 361}, GM_E_TOO_FEW_POINTS},
           Case{"rectangle, width", ToRectangle, 1, {0, 0, 361}, GM_E_PARAM_3},
           Case{"rectangle, height", ToRectangle, 1, {1, 0, 361}, GM_E_PARAM_4},
           Case{"rectangle, angle", ToRectangle, 1, {1, 1, -1}, GM_E_PARAM_5},
       }) {
    SCOPED_TRACE(c.what);
    const MinMax r = c.measure(c.points == 0 ? ZorPointArray() : ZorPointArray{{1, 2}}, c.figure);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(IsUntouched(r.min.distance) && IsUntouched(r.max.figure), c.status != GM_OK);
  }
}

TEST(PointArrayToFigure, SignedExtremesWithTheEarliestPoint) {
  const ZorPoint c = Centre();
  const ZorPointArray points{c + ZorPoint(3, 0), c, c + ZorPoint(-3, 0),
                             c + ZorPoint(7, 0), c, c + ZorPoint(-7, 0)};
  const MinMax circle = ToCircle(points, {5, 0, 0});
  ExpectFound(circle.min, {-5, {0, 0}, {0, 5}});
  ExpectFound(circle.max, {2, {7, 0}, {5, 0}});
  const MinMax oval = ToOval(points, {2, 5, 90});
  ExpectFound(oval.min, {-2, {0, 0}, {0, -2}});
  ExpectFound(oval.max, {2, {7, 0}, {5, 0}});
  const MinMax rectangle = ToRectangle(points, {10, 4, 0});
  ExpectFound(rectangle.min, {-2, {3, 0}, {5, 0}});  // as far from three edges: the closing one
  ExpectFound(rectangle.max, {2, {7, 0}, {5, 0}});
  const MinMax lone = ToCircle({c + ZorPoint(0, -6)}, {5, 0, 0});
  ExpectFound(lone.min, {1, {0, -6}, {0, -5}});
  ExpectFound(lone.max, {1, {0, -6}, {0, -5}});
}

TEST(PointArrayToFigure, AgreesWithTheFormsForOnePoint) {
  std::mt19937_64 rng(5);
  std::uniform_real_distribution<double> coordinate(-40, 60);
  ZorGeometryMeasure m;
  ZorPoint centre = Centre();
  for (const int count : {1, 2, 17, 256, 600}) {  // around the blocks in which ovals are measured
    ZorPointArray points;
    Found low, high;
    for (int i = 0; i < count; ++i) {
      points.Append(ZorPoint(std::round(coordinate(rng)), std::round(coordinate(rng))));
      Found f;
      f.own = points[i];
      EXPECT_EQ(m.PointToOvalDistance(f.own, centre, 12, 30, 25, &f.distance, &f.figure), GM_OK);
      if (i == 0 || f.distance < low.distance) low = f;
      if (i == 0 || f.distance > high.distance) high = f;
    }
    const MinMax r = ToOval(points, {12, 30, 25});
    for (const auto& [found, expected] : {std::pair(r.min, low), std::pair(r.max, high)}) {
      EXPECT_EQ(found.distance, expected.distance);
      EXPECT_EQ(found.own, expected.own);
      EXPECT_EQ(found.figure, expected.figure);
    }
  }
  EXPECT_TRUE(std::isnan(ToOval({{kNaN, 1}, {1, 1}}, {12, 30, 25}).min.distance));
}
