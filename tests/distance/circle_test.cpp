#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::elementary::Distance;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::Show;
using zor::test::UntouchedPoint;

namespace {

constexpr double kRounding = 1e-9;
constexpr double kCrossing = 1e-7;  // the coordinates' squares cancel in the discriminant

struct Found {
  double distance = kUntouched;
  ZorPoint own = UntouchedPoint(), figure = UntouchedPoint();
};

struct MinMax {
  Found min, max;
  long status = 0;
};

MinMax MeasureSegment(ZorPoint p, ZorPoint q, ZorPoint centre, double radius) {
  MinMax r;
  r.status = ZORMV::ZorGeometryMeasureDlg().LineSegmentToCircleDistance(
      p, q, centre, radius, &r.min.distance, &r.min.own, &r.min.figure, &r.max.distance, &r.max.own,
      &r.max.figure);
  return r;
}

MinMax MeasureContour(const std::vector<ZorPoint>& points, double radius,
                      ZorVarArray* list = nullptr) {
  ZorContour contour(points);
  ZorPoint centre(0, 0);
  MinMax r;
  r.status = ZorGeometryMeasure().CircleToContourDistance(
      contour, centre, radius, list, &r.min.own, &r.min.figure, &r.min.distance, &r.max.own,
      &r.max.figure, &r.max.distance);
  return r;
}

void ExpectFound(const Found& found, const Found& expected) {
  EXPECT_NEAR(found.distance, expected.distance, kRounding);
  ExpectNear(found.own, expected.own, kRounding);
  ExpectNear(found.figure, expected.figure, kRounding);
}

}  // namespace

TEST(LineSegmentToCircle, ReportsSegmentPointThenCirclePoint) {
  struct Case {
    const char* what;
    ZorPoint p, q;
    Found min, max;
  };
  const double low = 4.999995, far = std::hypot(12, low);
  for (const Case& c : {
           Case{"past it",
                {-3, 8},
                {9, 8},
                {3, {0, 8}, {0, 5}},
                {std::sqrt(145.0) - 5, {9, 8}, {45 / std::sqrt(145.0), 40 / std::sqrt(145.0)}}},
           Case{"beyond it, towards the centre",
                {12, 0},
                {7, 0},
                {2, {7, 0}, {5, 0}},
                {7, {12, 0}, {5, 0}}},
           Case{"touching at the foot, farthest at the start on a tie",
                {-12, 5},
                {12, 5},
                {0, {0, 5}, {0, 5}},
                {8, {-12, 5}, {-60.0 / 13, 25.0 / 13}}},
           Case{"dipping in by a hair, still touching at the foot",
                {-12, low},
                {0.5, low},
                {5 - low, {0, low}, {0, 5}},
                {far - 5, {-12, low}, {-60 / far, 5 * low / far}}},
           Case{"through it: the crossing with the larger x",
                {-9, 3},
                {9, 3},
                {0, {4, 3}, {4, 3}},
                {std::sqrt(90.0) - 5, {-9, 3}, {-45 / std::sqrt(90.0), 15 / std::sqrt(90.0)}}},
           Case{"upright through it: the crossing with the larger y",
                {3, 9},
                {3, -9},
                {0, {3, 4}, {3, 4}},
                {std::sqrt(90.0) - 5, {3, 9}, {15 / std::sqrt(90.0), 45 / std::sqrt(90.0)}}},
           Case{"into it, deepest at the foot",
                {-1, 0},
                {6, 0},
                {0, {5, 0}, {5, 0}},
                {5, {0, 0}, {0, 5}}},
           Case{"within it, nearest at the end on a tie",
                {-3, 1},
                {3, 1},
                {5 - std::sqrt(10.0), {3, 1}, {15 / std::sqrt(10.0), 5 / std::sqrt(10.0)}},
                {4, {0, 1}, {0, 5}}},
           Case{"within it, the foot at the start",
                {1, 0},
                {3, 0},
                {2, {3, 0}, {5, 0}},
                {4, {1, 0}, {5, 0}}},
       }) {
    SCOPED_TRACE(c.what);
    const MinMax r = MeasureSegment(c.p, c.q, {0, 0}, 5);
    EXPECT_EQ(r.status, GM_OK);
    ExpectFound(r.min, c.min);
    ExpectFound(r.max, c.max);
    ZorPoint p = c.p, q = c.q, centre(0, 0);
    Found f;
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentToCircleDistance(p, q, centre, 5, &f.distance, &f.own,
                                                               &f.figure),
              GM_OK);
    ExpectFound(f, r.min);
  }
}

TEST(LineSegmentToCircle, ChecksTheSegmentThenTheFourthArgument) {
  struct Case {
    ZorPoint end;
    double radius;
    long status;
  };
  for (Case c : {Case{{0.0005, 0}, 0, GM_E_DEGENERATE_LINE},
                 {{1, 0}, 0, GM_E_PARAM_4},
                 {{1, 0}, -1, GM_E_PARAM_4},
                 {{0.00051, 0}, 1e-9, GM_OK}}) {
    ZorPoint start(0, 0), centre(5, 5);
    const MinMax r = MeasureSegment(start, c.end, centre, c.radius);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(IsUntouched(r.min.distance) && IsUntouched(r.max.figure), c.status != GM_OK);
    EXPECT_EQ(ZorGeometryMeasure().LineSegmentToCircleDistance(start, c.end, centre, c.radius,
                                                               nullptr, nullptr, nullptr),
              c.status);
  }
}

TEST(LineSegmentToCircle, AgreesWithDenseSampling) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(-30, 30), radius(1, 30);
  for (int i = 0; i < 300; ++i) {
    const ZorPoint centre(2000, 3000);
    const ZorPoint p = centre + ZorPoint(coordinate(rng), coordinate(rng));
    const ZorPoint q = centre + ZorPoint(coordinate(rng), coordinate(rng));
    const double r = radius(rng);
    double low = 1e9, high = -1e9;
    for (int k = 0; k <= 1000; ++k) {
      const double t = k / 1000.0;
      const ZorPoint s(p.x + t * (q.x - p.x), p.y + t * (q.y - p.y));
      low = std::min(low, std::fabs(Distance(s, centre) - r));
      high = std::max(high, std::fabs(Distance(s, centre) - r));
    }
    const MinMax found = MeasureSegment(p, q, centre, r);
    const std::string what = Show(p) + Show(q) + std::to_string(r);
    const double half_step = Distance(p, q) / 2000;
    EXPECT_LE(found.min.distance, low + kRounding) << what;
    EXPECT_NEAR(found.min.distance, low, half_step + kRounding) << what;
    EXPECT_GE(found.max.distance, high - kRounding) << what;
    EXPECT_NEAR(found.max.distance, high, half_step + kRounding) << what;
    for (const Found& f : {found.min, found.max}) {
      EXPECT_NEAR(Distance(f.own, f.figure), f.distance, kRounding) << what;
      EXPECT_NEAR(Distance(f.figure, centre), r, kCrossing) << what;
      EXPECT_NEAR(Distance(p, f.own) + Distance(f.own, q), Distance(p, q), kCrossing) << what;
    }
  }
}

TEST(CircleToContour, MeasuresAlongThePolylineAndListsTheVertices) {
  struct Case {
    const char* what;
    std::vector<ZorPoint> points;
    Found min, max;
  };
  const double s = std::sqrt(0.5) * 5;
  for (const Case& c : {
           Case{"past it",
                {{-6, 8}, {6, 8}, {6, 20}},
                {3, {0, 8}, {0, 5}},
                {std::sqrt(436.0) - 5, {6, 20}, {30 / std::sqrt(436.0), 100 / std::sqrt(436.0)}}},
           Case{"the start of two equal segments",
                {{-6, 7}, {6, 7}, {6, -7}, {-6, -7}},
                {1, {6, 0}, {5, 0}},
                {std::sqrt(85.0) - 5, {-6, 7}, {-30 / std::sqrt(85.0), 35 / std::sqrt(85.0)}}},
           Case{
               "into it and no deeper", {{0, 9}, {0, 2}}, {0, {0, 5}, {0, 5}}, {4, {0, 9}, {0, 5}}},
           Case{"into it and on",
                {{0, 9}, {0, 2}, {3, 2}},
                {-3, {0, 2}, {0, 5}},
                {4, {0, 9}, {0, 5}}},
           Case{"all around within it",
                {{-2, -2}, {2, -2}, {2, 2}},
                {-3, {0, -2}, {0, -5}},
                {std::sqrt(8.0) - 5, {-2, -2}, {-s, -s}}},
           Case{"through the centre",
                {{-1, 0}, {1, 0}},
                {-5, {0, 0}, {0, 5}},
                {-4, {-1, 0}, {-5, 0}}},
           Case{"a chord", {{4, 3}, {-4, 3}}, {0, {4, 3}, {4, 3}}, {0, {4, 3}, {4, 3}}},
           Case{"a chord shorter by a hair",
                {{3.999995, 3}, {-3.999995, 3}},
                {0, {3.999995, 3}, {3.9999982, 3.0000024}},
                {-4e-6, {3.999995, 3}, {3.9999982, 3.0000024}}},
           Case{"a chord shorter by more",
                {{3.9999, 3}, {-3.9999, 3}},
                {-2, {0, 3}, {0, 5}},
                {-8e-5, {3.9999, 3}, {3.999964, 3.000048}}},
           Case{"repeated points",
                {{0, 2}, {0, 2}, {0, 9}, {0, 9}},
                {0, {0, 5}, {0, 5}},
                {4, {0, 9}, {0, 5}}},
           Case{"nothing but repeated points",
                {{0, 2}, {0, 2}},
                {-3, {0, 2}, {0, 5}},
                {-3, {0, 2}, {0, 5}}},
           Case{"one point", {{0, 0}}, {-5, {0, 0}, {0, 5}}, {-5, {0, 0}, {0, 5}}},
       }) {
    SCOPED_TRACE(c.what);
    ZorVarArray list{1.0};
    const MinMax r = MeasureContour(c.points, 5, &list);
    EXPECT_EQ(r.status, GM_OK);
    ExpectFound(r.min, c.min);
    ExpectFound(r.max, c.max);
    ASSERT_EQ(static_cast<std::size_t>(list.Length()), c.points.size());
    for (std::size_t i = 0; i < c.points.size(); ++i) {
      EXPECT_NEAR(list[static_cast<int>(i)].D(), Distance(c.points[i], {0, 0}) - 5, kRounding);
    }
  }
  ZorVarArray list{1.0};
  EXPECT_EQ(MeasureContour({}, 0, &list).status, GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(MeasureContour({{1, 1}}, 0, &list).status, GM_E_PARAM_3);
  EXPECT_EQ(list.Length(), 1);
  EXPECT_TRUE(std::isnan(MeasureContour({{kNaN, 1}, {2, kNaN}, {1, 1}}, 5, &list).max.distance));
}
