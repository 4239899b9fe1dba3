#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include "contour/offset_kernels.h"
#include "contour/outlines.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::kNaN;

namespace {

struct Figure {
  const char* what;
  std::vector<ZorPoint> points;
  std::function<double(const ZorPoint&)> depth;  // above 0 inside; a distance where it is near 0
  std::function<double(const ZorPoint&)> tolerance;  // of the depth that a point gets, exclusive
};

std::vector<Figure> Figures() {
  std::vector<ZorPoint> circle, ellipse;
  for (int i = 0; i < 360; ++i) {
    const double t = i * std::numbers::pi / 180;
    circle.emplace_back(2000 + 100 * std::cos(t), 1500 + 100 * std::sin(t));
    ellipse.emplace_back(100 * std::cos(t), 60 * std::sin(t));
  }
  const auto box = [](const ZorPoint& p, double w, double h) {
    return std::min({p.x, p.y, w - p.x, h - p.y});
  };
  const std::vector<ZorPoint> corners = {{0, 0}, {90, 0}, {90, 40}, {40, 40}, {40, 70}, {0, 70}};
  return {
      {"circle", circle, [](const ZorPoint& p) { return 100 - std::hypot(p.x - 2000, p.y - 1500); },
       [](const ZorPoint&) { return 0.01; }},
      {"ellipse", ellipse,
       [](const ZorPoint& p) {  // to first order: |curvature| / 2 * 5^2 is left
         const double q = p.x * p.x / 1e4 + p.y * p.y / 3600;
         return (1 - q) / (2 * std::hypot(p.x / 1e4, p.y / 3600));
       },
       [](const ZorPoint&) { return 0.36; }},
      {"L", zor::test::Outline(corners),
       [box](const ZorPoint& p) { return std::max(box(p, 90, 40), box(p, 40, 70)); },
       [corners](const ZorPoint& p) {  // around a corner no more than the right side
         const auto near = [&p](const ZorPoint& c) { return std::hypot(p.x - c.x, p.y - c.y) < 5; };
         return std::any_of(corners.begin(), corners.end(), near) ? 5 : 1e-9;
       }}};
}

// Offsets the closed contour from each of its points, in both directions.
void ForEveryStart(const std::vector<ZorPoint>& outline, double distance,
                   const std::function<void(const ZorPoint& p, const ZorPoint& moved)>& check) {
  for (std::size_t start = 0; start < 2 * outline.size(); ++start) {
    std::vector<ZorPoint> points = outline;
    if (start >= points.size()) std::reverse(points.begin(), points.end());
    std::rotate(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(start % points.size()),
                points.end());
    ZorContour contour(points), result = {{7, 7}};
    ASSERT_EQ(ZorGeometryMeasure().ContourScaling_Closed(contour, distance, &result), GM_OK);
    ASSERT_EQ(result.Length(), contour.Length());
    for (std::size_t i = 0; i < points.size(); ++i) check(points[i], result.View()[i]);
    ASSERT_FALSE(testing::Test::HasFailure()) << "start " << start << ", distance " << distance;
  }
}

// The normal of the middle of 11 points by the general least-squares solver.
ZorPoint SolvedNormal(const std::vector<ZorPoint>& w) {
  const bool flat = std::fabs(w[0].x - w[10].x) >= std::fabs(w[0].y - w[10].y);
  cv::Mat_<double> design(11, 3), target(11, 1), c;
  for (int k = 0; k < 11; ++k) {
    const ZorPoint d = w[static_cast<std::size_t>(k)] - w[5];
    const double u = flat ? d.x : d.y;
    design(k, 0) = u * u;
    design(k, 1) = u;
    design(k, 2) = 1;
    target(k) = flat ? d.y : d.x;
  }
  cv::solve(design, target, c, cv::DECOMP_SVD);
  const double s = c(1), length = std::sqrt(s * s + 1);
  return flat ? ZorPoint(-s / length, 1 / length) : ZorPoint(1 / length, -s / length);
}

}  // namespace

TEST(ContourScalingClosed, PositiveEndsOutsideFromEveryStartAndInBothDirections) {
  for (const Figure& figure : Figures()) {
    SCOPED_TRACE(figure.what);
    for (const double distance : {5.0, -5.0}) {
      ForEveryStart(figure.points, distance, [&](const ZorPoint& p, const ZorPoint& moved) {
        ASSERT_LT(std::fabs(figure.depth(moved) + distance), figure.tolerance(p));
      });
    }
  }
}

TEST(ContourScalingClosed, WiderThanTheSlotThatItStartsIn) {
  const std::vector<ZorPoint> u = zor::test::Outline(
      {{0, 0}, {40, 0}, {40, 60}, {22, 60}, {22, 18}, {18, 18}, {18, 60}, {0, 60}});
  for (const double distance : {5.0, -25.0}) {
    ForEveryStart(u, distance, [distance](const ZorPoint& p, const ZorPoint& moved) {
      if (p == ZorPoint(0, 30)) zor::test::ExpectNear(moved, {-distance, 30}, 1e-12);
    });
  }
}

TEST(ContourScalingClosed, ABurrDoesNotTurnTheOutline) {
  // As a traced picture has it: up and down again on the same pixels.
  for (int height = 1; height <= 4; ++height) {
    std::vector<ZorPoint> disc;
    for (int y = -height; y < 0; ++y) disc.emplace_back(0, y - 40);
    for (int i = 0; i < 240; ++i) {
      const double t = (i - 60) * std::numbers::pi / 120;
      disc.emplace_back(40 * std::cos(t), 40 * std::sin(t));
    }
    disc.emplace_back(0, -40);
    for (int y = -1; y > -height; --y) disc.emplace_back(0, y - 40);
    for (const double distance : {5.0, -5.0}) {
      ForEveryStart(disc, distance, [distance](const ZorPoint& p, const ZorPoint& moved) {
        if (p.y < 0) return;
        EXPECT_NEAR(std::hypot(moved.x, moved.y), 40 + distance, 0.01);
      });
    }
  }
}

TEST(ContourScaling3, SidesOfAnExactParabola) {
  // Of points on a parabola the fit is exact, so the normals are, at the shared end windows too.
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> gap(0.2, 2);
  for (const bool swapped : {false, true}) {
    for (const bool reversed : {false, true}) {
      std::vector<ZorPoint> points, normals;
      for (double u = -10; points.size() < 40; u += gap(rng)) {
        const double s = 0.02 * u + 0.1, length = std::sqrt(s * s + 1);
        const ZorPoint p(4000 + u, 3000 + 0.01 * u * u + 0.1 * u), n(-s / length, 1 / length);
        points.push_back(swapped ? ZorPoint(p.y, p.x) : p);
        normals.push_back(swapped ? ZorPoint(n.y, n.x) : n);
      }
      if (reversed) {
        std::reverse(points.begin(), points.end());
        std::reverse(normals.begin(), normals.end());
      }
      ZorContour contour(points);
      ASSERT_EQ(ZorGeometryMeasure().ContourScaling3(contour, 3, &contour), GM_OK);
      const double later = points[0].x > points[1].x ? -3 : 3;  // all but the first
      for (std::size_t i = 0; i < points.size(); ++i) {
        const double d = i == 0 ? 3 : later;
        zor::test::ExpectNear(contour.View()[i],
                              {points[i].x + d * normals[i].x, points[i].y + d * normals[i].y},
                              1e-9);
      }
    }
  }
}

TEST(ContourScaling3, EqualXKeepsTheSignAndNormalsFollowOneAnother) {
  std::vector<ZorPoint> hook;  // up, around and down again: the raw normals of x(y) change sides
  for (int i = 0; i < 30; ++i) hook.emplace_back(0, 30 - i);
  for (int i = 0; i <= 30; ++i) {
    const double t = i * std::numbers::pi / 30;
    hook.emplace_back(10 - 10 * std::cos(t), -10 * std::sin(t));
  }
  for (int i = 1; i < 30; ++i) hook.emplace_back(20, i);
  ZorContour contour(hook), result;
  ASSERT_EQ(ZorGeometryMeasure().ContourScaling3(contour, 2, &result), GM_OK);
  zor::test::ExpectNear(result.View()[0], {2, 30}, 1e-12);
  zor::test::ExpectNear(result.View()[45], {10, -8}, 0.02);
  zor::test::ExpectNear(result.View()[88], {18, 28}, 1e-12);
}

TEST(OffsetNormals, AreThoseOfTheLeastSquaresParabola) {
  std::mt19937_64 rng(20240608);
  std::uniform_real_distribution<double> step(-1, 2), drift(-1, 1);
  for (int round = 0; round < 30; ++round) {
    std::vector<ZorPoint> points = {{3900, 4000}};
    const ZorPoint along(drift(rng), drift(rng));
    while (points.size() < 12 + static_cast<std::size_t>(round)) {
      points.push_back(points.back() + ZorPoint(along.x + step(rng), along.y + step(rng)));
    }
    const std::size_t n = points.size();
    const std::vector<ZorPoint> closed = zor::contour::ClosedNormals(points),
                                open = zor::contour::OpenNormals(points);
    for (std::size_t i = 0; i < n; ++i) {
      std::vector<ZorPoint> window;
      for (std::size_t k = 0; k < 11; ++k) window.push_back(points[(i + n - 5 + k) % n]);
      zor::test::ExpectNear(closed[i], SolvedNormal(window), 1e-8);
      if (i >= 5 && i + 5 < n) zor::test::ExpectNear(open[i], closed[i], 1e-12);
    }
  }
}

TEST(OffsetNormals, WindowsWithoutAParabola) {
  const std::vector<ZorPoint> same(20, {5, 5});
  for (const ZorPoint& n : zor::contour::ClosedNormals(same)) EXPECT_EQ(n, ZorPoint(0, 1));
  std::vector<ZorPoint> spike;  // a pixel wide: the window at its tip has two different x
  for (int i = 0; i < 12; ++i) spike.emplace_back(0, 12 - i);
  for (int i = 0; i < 12; ++i) spike.emplace_back(1, 1 + i);
  EXPECT_EQ(zor::contour::OpenNormals(spike)[11], ZorPoint(0, 1));
  std::vector<ZorPoint> wild = Figures()[0].points;
  wild[100] = ZorPoint(kNaN, 0);
  ZorContour contour(wild), result;
  ASSERT_EQ(ZorGeometryMeasure().ContourScaling_Closed(contour, 5, &result), GM_OK);
  EXPECT_TRUE(std::isnan(result.View()[98].x));
  EXPECT_TRUE(std::isfinite(result.View()[200].x));
}

TEST(ContourScaling, CodesCopiesAndShortContours) {
  ZorGeometryMeasure m;
  using Offset = long (ZorGeometryMeasure::*)(ZorContour&, double, ZorContour*);
  for (const Offset offset :
       {&ZorGeometryMeasure::ContourScaling3, &ZorGeometryMeasure::ContourScaling_Closed}) {
    ZorContour none, two = {{0, 0}, {1, 0}}, result = two;
    EXPECT_EQ((m.*offset)(none, 0, &result), GM_E_EMPTY_CONTOUR);
    EXPECT_EQ((m.*offset)(two, 0, &result), GM_E_PARAM_1);
    EXPECT_EQ(result, two);
    ZorContour line = {{0, 0}, {1, 0}, {2, 0}};
    EXPECT_EQ((m.*offset)(line, -0.0, &result), GM_OK);
    EXPECT_EQ(result, line);
    EXPECT_EQ((m.*offset)(line, 3, &result), GM_OK);  // away from the mean, which is a point
    EXPECT_EQ(result.View()[0], ZorPoint(-3, 0));
    EXPECT_TRUE(std::isnan(result.View()[1].x));
    for (const int count : {14, 15}) {  // a square with its corners and sides; a triple at a corner
      std::vector<ZorPoint> points = zor::test::Outline({{0, 0}, {3, 0}, {3, 3}, {0, 3}});
      for (int i = 12; i < count; ++i) points.push_back(points[0] + ZorPoint(0, (count - i) * 0.1));
      ZorPointArray list(points);
      ZorPoint centre;
      ASSERT_EQ(m.PolygonWeightCenter(list, &centre), GM_OK);
      ZorContour contour(points);
      ASSERT_EQ((m.*offset)(contour, 2, &result), GM_OK);
      const ZorPoint ray = points[1] - centre, moved = result.View()[1] - points[1];
      const double sine = (ray.x * moved.y - ray.y * moved.x) / std::hypot(ray.x, ray.y) / 2;
      EXPECT_EQ(std::fabs(sine) < 1e-12, count == 14) << count;
      EXPECT_NEAR(std::hypot(moved.x, moved.y), 2, 1e-12);
    }
  }
}

TEST(ContourScaling, ScalesAboutTheCentreAndItsSiblingIsInert) {
  ZorGeometryMeasure m;
  ZorPoint centre(10, 20);
  ZorContour none, contour = {{10, 20}, {14, 18}}, result;
  EXPECT_EQ(m.ContourScaling(none, centre, 0, &result), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(m.ContourScaling(contour, centre, 0, &result), GM_E_PARAM_3);
  EXPECT_EQ(m.ContourScaling(contour, centre, 0.5, &result), GM_OK);
  EXPECT_EQ(result, (ZorContour{{10, 20}, {12, 19}}));
  EXPECT_EQ(m.ContourScaling2(none, centre, &result, 2), GM_OK);
  EXPECT_EQ(result, (ZorContour{{10, 20}, {12, 19}}));
}
