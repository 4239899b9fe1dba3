#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/polygon_kernels.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kNaN;
using zor::test::Show;

namespace {

constexpr int kNotWritten = 77;

/// The relation by the sum of the angles under which the edges are seen: shares no code with the
/// ray. For points clear of the outline of a simple polygon.
int RelationByAngles(const ZorPoint& p, const std::vector<ZorPoint>& polygon) {
  double sum = 0.0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const ZorPoint u = polygon[i] - p;
    const ZorPoint v = polygon[(i + 1) % polygon.size()] - p;
    sum += std::atan2(u.x * v.y - u.y * v.x, u.x * v.x + u.y * v.y);
  }
  return std::fabs(sum) > std::numbers::pi ? -1 : 1;
}

/// A star of n spikes of random length about (2000, 2000).
std::vector<ZorPoint> Star(int n, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> reach(200, 1900);
  std::vector<ZorPoint> star;
  for (int i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * i / n;
    const double r = reach(rng);
    star.emplace_back(2000 + r * std::cos(t), 2000 + r * std::sin(t));
  }
  return star;
}

}  // namespace

TEST(PointToPolygonPosRelation, FollowsTheOutlineRules) {
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  ZorPointArray diamond{{0, 5}, {5, 0}, {10, 5}, {5, 10}};
  ZorPointArray notch{{0, 0}, {4, 4}, {8, 0}, {8, 8}, {0, 8}};  // its tip points down
  struct Case {
    const char* what;
    ZorPointArray* polygon;
    ZorPoint p;
    int code;
  };
  for (Case c : {
           Case{"inside", &square, {5, 5}, -1},
           {"outside", &square, {11, 5}, 1},
           {"beside an upright edge, in reach", &square, {9.9999901, 5}, 0},
           {"beside an upright edge, out of reach", &square, {9.9999899, 5}, -1},
           {"outside an upright edge, in reach", &square, {-0.99e-5, 5}, 0},
           {"above a horizontal edge, in reach", &square, {5, -0.99e-5}, 0},
           {"below a horizontal edge, out of reach", &square, {5, 10.0000101}, 1},
           {"past the end of a horizontal edge", &square, {-1, 10}, 1},
           {"lower corner", &square, {10, 10}, 0},
           {"beside a lower corner", &square, {10.000001, 10}, 1},
           {"across a slanted edge, within reach along x", &diamond, {2.500009, 2.5}, 0},
           {"lowest vertex", &diamond, {5, 10}, 0},
           {"just below the lowest vertex", &diamond, {5, 10.000001}, 1},
           {"topmost vertex", &diamond, {5, 0}, 0},
           {"level with two vertices, inside", &diamond, {1, 5}, -1},
           {"level with two vertices, outside", &diamond, {-1, 5}, 1},
           {"level with a tip, inside", &notch, {1, 4}, -1},
           {"level with a tip, outside", &notch, {-1, 4}, 1},
           {"on the tip", &notch, {4, 4}, 0},
           {"negative zero scan line", &square, {5, -0.0}, 0},
           {"not a number", &square, {kNaN, 5}, 1},
       }) {
    SCOPED_TRACE(c.what);
    int code = kNotWritten;
    EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation(c.p, *c.polygon, &code), GM_OK);
    EXPECT_EQ(code, c.code);
    EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation(c.p, *c.polygon), c.code);
  }
  ZorPointArray none, pair{{0, 0}, {10, 0}};
  ZorPoint p(5, 0);
  int code = kNotWritten;
  EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation(p, pair, &code), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(code, kNotWritten);
  EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation(p, none), 1);
  EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation(p, pair), 0);
}

TEST(PointToPolygonPosRelation2, ReachesAPixelFromTheEdges) {
  ZorPointArray square{{0, 0}, {20, 0}, {20, 20}, {0, 20}}, none;
  // A vertex given twice is an edge without a distance, and does no harm.
  ZorPointArray twice{{0, 0}, {0, 0}, {20, 0}, {20, 20}, {20, 20}, {0, 20}};
  struct Case {
    ZorPoint p;
    double angle;
    int code;
  };
  std::vector<Case> cases{{{10, 10}, 65, -1},    {{30, 10}, 65, 1},   {{18.91, 10}, 65, 0},
                          {{10, -1.1}, 65, 1},   {{10, -1.2}, 45, 0}, {{21, 21}, 90, 0},
                          {{10, -1.4143}, 90, 1}};
  for (const double bound : {20, 160, 35, 55, 80, 100, 125, 145}) {  // none of them included
    cases.push_back({{10, 18.8}, bound, -1});
  }
  for (const double wide : {19.9, -65.0, 160.1, 36.0, 99.0, 126.0, 225.0, 180.0, 425.0}) {
    cases.push_back({{10, 18.8}, wide, 0});  // less 180 once: 425 is above 160
  }
  for (Case c : cases) {
    SCOPED_TRACE(Show(c.p) + ", " + std::to_string(c.angle));
    int code = kNotWritten;
    EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation2(c.p, square, c.angle, &code), 0);
    EXPECT_EQ(code, c.code);
    EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation2(c.p, c.angle, twice), c.code);
    const zor::test::TraceCapture capture;
    EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation2(c.p, c.angle, twice), c.code);
  }
  int code = kNotWritten;
  ZorPoint p(5, 5);
  EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation2(p, none, 0, &code),
            GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(code, kNotWritten);
  EXPECT_EQ(ZorGeometryMeasure().PointToPolygonPosRelation2(p, 0, none), 1);
}

TEST(PolygonRelation, AgreesWithTheAnglesSeen) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> coordinate(0, 4000);
  for (const int n : {3, 8, 9, 10, 17, 100}) {  // around the size of a block
    const std::vector<ZorPoint> star = Star(n, rng);
    for (int i = 0; i < 200; ++i) {
      const ZorPoint p(coordinate(rng), coordinate(rng));
      EXPECT_EQ(zor::elementary::PolygonRelation(p, star), RelationByAngles(p, star))
          << n << " vertices, " << Show(p);
    }
    // Every vertex, and every scan line through one, seen from far left and from far right.
    for (const ZorPoint& v : star) {
      std::vector<ZorPoint> moved;  // the vertex at the origin: scan lines at either zero
      for (const ZorPoint& q : star) moved.push_back(q - v);
      EXPECT_EQ(zor::elementary::PolygonRelation({0, 0}, moved), 0) << n << ", " << Show(v);
      for (const double zero : {0.0, -0.0}) {
        EXPECT_EQ(zor::elementary::PolygonRelation({-4001, zero}, moved), 1) << n << Show(v);
        EXPECT_EQ(zor::elementary::PolygonRelation({4001, zero}, moved), 1) << n << Show(v);
      }
    }
  }
}

namespace {

/// The code that a relation stores, or the status with which it stores none.
template <typename Object, typename Method, typename... Arguments>
long CodeOrStatus(Object object, Method method, ZorPoint p, Arguments... arguments) {
  int code = kNotWritten;
  const long status = (object.*method)(p, arguments..., &code);
  EXPECT_EQ(code == kNotWritten, status != GM_OK);
  return status == GM_OK ? code : status;
}

}  // namespace

TEST(FigurePosRelations, ReachAndChecks) {
  const ZorPoint c(10, 20);
  const auto circle = [&](double dx, double radius) {
    return CodeOrStatus(ZorGeometryMeasure(), &ZorGeometryMeasure::PointToCirclePosRelation,
                        c + ZorPoint(dx, 0), c, radius);
  };
  EXPECT_EQ(circle(5 + 0.9e-5, 5), 0);
  EXPECT_EQ(circle(5 - 0.9e-5, 5), 0);
  EXPECT_EQ(circle(5 + 1.1e-5, 5), 1);
  EXPECT_EQ(circle(5 - 1.1e-5, 5), -1);
  EXPECT_EQ(circle(5, 0), GM_E_PARAM_3);

  const auto oval = [&](double dx, double dy, double a, double b, double angle) {
    return CodeOrStatus(ZorGeometryMeasure(), &ZorGeometryMeasure::PointToOvalPosRelation,
                        c + ZorPoint(dx, dy), c, a, b, angle);
  };
  EXPECT_EQ(oval(8, -8, 20, 5, 45), -1);  // the long axis points up to the right
  EXPECT_EQ(oval(8, 8, 20, 5, 45), 1);
  EXPECT_EQ(oval(8, 8, 5, 20, 45), -1);
  EXPECT_EQ(oval(20 * (1 + 0.49e-5), 0, 20, 5, 0), 0);  // the equation grows twice as fast
  EXPECT_EQ(oval(20 * (1 + 0.51e-5), 0, 20, 5, 360), 1);
  for (double dx = -6; dx <= 6; dx += 0.75) EXPECT_EQ(oval(dx, 3, 2, 5, 0), oval(dx, 3, 5, 2, 90));
  EXPECT_EQ(oval(0, 0, 0, 0, 361), GM_E_PARAM_3);
  EXPECT_EQ(oval(0, 0, 1, 0, 361), GM_E_PARAM_4);
  EXPECT_EQ(oval(0, 0, 1, 1, 361), GM_E_PARAM_5);
  EXPECT_EQ(oval(0, 0, 1, 1, -0.1), GM_E_PARAM_5);

  const auto rectangle = [&](double dx, double dy, double width, double height, double angle) {
    using Dlg = ZORMV::ZorGeometryMeasureDlg;
    return CodeOrStatus(Dlg(), &Dlg::PointToRectangularPos, c + ZorPoint(dx, dy), c, width, height,
                        angle);
  };
  EXPECT_EQ(rectangle(12, -12, 40, 10, 45), -1);  // up to the right
  EXPECT_EQ(rectangle(12, 12, 40, 10, 45), 1);
  EXPECT_EQ(rectangle(12, -12, 40, 10, 225), -1);
  EXPECT_EQ(rectangle(20, 0, 40, 10, 180), 0);
  EXPECT_EQ(rectangle(0, 0, 0, 0, 400), GM_E_PARAM_3);
  EXPECT_EQ(rectangle(0, 0, 1, 0, 400), GM_E_PARAM_4);
  EXPECT_EQ(rectangle(0, 0, 1, 1, 400), GM_E_PARAM_5);
}

TEST(RectAngularToPolygon, OrdersTheCorners) {
  ZorPoint centre(0, 0);
  ZorPointArray corners;
  const ZorPointArray level{{2, 1}, {-2, 1}, {-2, -1}, {2, -1}};
  for (const double angle : {0.0, 180.0}) {
    EXPECT_EQ(ZorGeometryMeasure().RectAngularToPolygon(centre, 4, 2, angle, &corners), GM_OK);
    EXPECT_EQ(corners, level);
  }
  EXPECT_EQ(ZorGeometryMeasure().RectAngularToPolygon(centre, 4, 2, 90, &corners), GM_OK);
  zor::test::ExpectNear(corners[0], {1, -2}, 1e-8);
}
