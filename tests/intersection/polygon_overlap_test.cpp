#include "intersection/polygon_overlap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include "elementary/area_kernels.h"
#include "elementary/point_kernels.h"
#include "intersection/convex_overlap.h"
#include "intersection/ear_cut.h"
#include "support/values.h"

using zor::elementary::SignedArea;
using zor::elementary::TriangleCross;
using zor::intersection::CutEars;
using zor::intersection::PolygonOverlapArea;
using zor::intersection::TraitsOf;

namespace {

using Polygon = std::vector<ZorPoint>;

/// Sutherland and Hodgman: a convex polygon clipped by another of positive area.
double ClippedArea(Polygon subject, const Polygon& clip) {
  for (std::size_t i = 0; i < clip.size() && !subject.empty(); ++i) {
    const ZorPoint& a = clip[i];
    const ZorPoint& b = clip[(i + 1) % clip.size()];
    Polygon kept;
    for (std::size_t k = 0; k < subject.size(); ++k) {
      const ZorPoint& p = subject[k];
      const ZorPoint& q = subject[(k + 1) % subject.size()];
      const double sp = TriangleCross(a, b, p), sq = TriangleCross(a, b, q);
      if (sp >= 0) kept.push_back(p);
      if ((sp < 0) != (sq < 0)) {
        kept.emplace_back(p.x + (q.x - p.x) * sp / (sp - sq), p.y + (q.y - p.y) * sp / (sp - sq));
      }
    }
    subject = kept;
  }
  return SignedArea(subject);
}

/// Both polygons as fans of signed triangles about an outer point: exact for simple polygons.
double OverlapByFans(const Polygon& p, const Polygon& q) {
  const ZorPoint apex(-1.7, -2.3);
  const auto fan = [&](const Polygon& polygon) {
    std::vector<std::pair<double, Polygon>> triangles;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      Polygon t{apex, polygon[i], polygon[(i + 1) % polygon.size()]};
      const double sign = SignedArea(t) < 0 ? -1 : 1;
      if (sign < 0) std::swap(t[1], t[2]);
      triangles.emplace_back(sign, t);
    }
    return triangles;
  };
  double sum = 0;
  for (const auto& [p_sign, p_triangle] : fan(p)) {
    for (const auto& [q_sign, q_triangle] : fan(q)) {
      sum += p_sign * q_sign * ClippedArea(p_triangle, q_triangle);
    }
  }
  return std::fabs(sum);
}

Polygon Star(std::mt19937_64& rng, int count, double inner, ZorPoint centre) {
  std::uniform_real_distribution<double> unit(0, 1);
  Polygon polygon;
  const double turn = unit(rng);
  for (int i = 0; i < count; ++i) {
    const double r = 40 * (inner + (1 - inner) * unit(rng));
    const double t = 2 * std::numbers::pi * (i + 0.8 * unit(rng)) / count + turn;
    polygon.emplace_back(centre.x + r * std::cos(t), centre.y + r * std::sin(t));
  }
  return polygon;
}

/// Teeth down from a bar; on whole coordinates, so that edges of two combs coincide.
Polygon Comb(int teeth, ZorPoint corner) {
  Polygon polygon{corner, corner + ZorPoint(2 * teeth - 1, 0)};
  for (int i = teeth - 1; i >= 0; --i) {
    polygon.push_back(corner + ZorPoint(2 * i + 1, 10));
    polygon.push_back(corner + ZorPoint(2 * i, 10));
    if (i > 0) {
      polygon.push_back(corner + ZorPoint(2 * i, 2));
      polygon.push_back(corner + ZorPoint(2 * i - 1, 2));
    }
  }
  return polygon;
}

void CheckOverlap(Polygon p, Polygon q) {
  const double expected = OverlapByFans(p, q);
  const double scale = std::min(std::fabs(SignedArea(p)), std::fabs(SignedArea(q)));
  for (int turned = 0; turned < 4; ++turned) {
    EXPECT_NEAR(PolygonOverlapArea(p, q), expected, 1e-9 * scale) << "direction " << turned;
    Polygon& turning = turned % 2 == 0 ? p : q;
    std::reverse(turning.begin(), turning.end());
  }
  EXPECT_NEAR(PolygonOverlapArea(q, p), expected, 1e-9 * scale);
}

}  // namespace

TEST(PolygonOverlap, AgreesWithSignedFans) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 120; ++i) {
    SCOPED_TRACE(i);
    const int count = 3 + i % 30;
    const double inner = i % 3 == 0 ? 0.98 : 0.2;  // nearly convex, or jagged
    const Polygon p = Star(rng, count, inner, {60, 60});
    CheckOverlap(p, Star(rng, 3 + (i * 7) % 25, inner, {60 + 50 * unit(rng), 60 + 50 * unit(rng)}));
    CheckOverlap(p, p);
  }
}

TEST(PolygonOverlap, CountsCoincidentEdgesOnce) {
  for (const ZorPoint& shift : {ZorPoint(0, 0), ZorPoint(1, 0), ZorPoint(2, 3), ZorPoint(0.5, 9),
                                ZorPoint(0, 10), ZorPoint(30, 0), ZorPoint(-3, -1)}) {
    SCOPED_TRACE(zor::test::Show(shift));
    CheckOverlap(Comb(9, {10, 10}), Comb(9, ZorPoint(10, 10) + shift));
  }
  const Polygon square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  EXPECT_EQ(PolygonOverlapArea(square, {{{4, 0}, {8, 0}, {8, 4}, {4, 4}}}), 0.0);
  EXPECT_EQ(PolygonOverlapArea(square, {{{1, 1}, {3, 1}, {3, 3}, {1, 3}}}), 4.0);
  EXPECT_EQ(PolygonOverlapArea(square, {{{0, 0}, {2, 2}, {4, 4}}}), 0.0);
  // Straight angles and repeated vertices.
  EXPECT_EQ(PolygonOverlapArea(square, {{{2, 0}, {2, 0}, {4, 0}, {6, 0}, {6, 4}, {2, 4}, {2, 2}}}),
            8.0);
  // Repeated at a reflex vertex: an L, a dart, a C with one notch; from every start, also closed.
  const Polygon big{{-50, -50}, {50, -50}, {50, 50}, {-50, 50}};
  for (const auto& [figure, area] :
       {std::pair{Polygon{{5, 5}, {5, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 5}}, 75.0},
        {Polygon{{5, 8}, {10, 0}, {5, 20}, {0, 0}}, 60.0},
        {Polygon{{3, 3}, {3, 7}, {10, 7}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 3}}, 72.0}}) {
    for (std::size_t start = 0; start < figure.size(); ++start) {
      Polygon p = figure;
      std::rotate(p.begin(), p.begin() + static_cast<std::ptrdiff_t>(start), p.end());
      p.insert(p.begin() + 1, p[0]);
      EXPECT_EQ(PolygonOverlapArea(p, big), area);
      p.push_back(p[0]);
      EXPECT_EQ(PolygonOverlapArea(big, p), area);
    }
  }
  // A bridge to a hole, which the outline runs along twice.
  const Polygon ring{{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 4}, {3, 4},
                     {3, 6}, {6, 6}, {6, 3}, {3, 3}, {3, 4}, {0, 4}};
  EXPECT_NEAR(PolygonOverlapArea(ring, big), 72, 1e-12);
  const Polygon hair{{0, 0}, {10, 1e-310}, {10, 10}, {0, 10}};  // an edge of infinite slope
  EXPECT_EQ(PolygonOverlapArea(hair, big), 100);
}

TEST(PolygonOverlap, SurvivesVerticesInLineOnlyByRounding) {
  const Polygon p{{0, 0}, {1, 0}, {2, 1}, {5, 0}, {5, 1}, {3, 1}, {4, 5}},
      square{{-9, -9}, {9, -9}, {9, 9}, {-9, 9}};
  for (int i = 0; i < 3600; ++i) {
    const double c = std::cos(i * 0.001745), s = std::sin(i * 0.001745);
    Polygon turned;
    for (const ZorPoint& v : p) turned.emplace_back(c * v.x - s * v.y, s * v.x + c * v.y);
    ASSERT_NEAR(PolygonOverlapArea(turned, square), 7, 1e-9) << "turn " << i;
  }
  const Polygon spiked{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}, {2, 2}};  // of no width
  EXPECT_EQ(PolygonOverlapArea(spiked, square), 16);
  const Polygon slit{{5, 1}, {3, 2}, {4, 2}, {2, 2}, {2, 6}};  // level, straight back
  EXPECT_NEAR(PolygonOverlapArea(slit, square), 5.5, 1e-12);
  const Polygon whiskers{{3, 3}, {3, 2}, {3.2, 2.2}, {3, 2}, {4, 2}, {4, 3},
                         {5, 4}, {3, 4}, {2, 4},     {3, 4}, {2, 4}},
      triangle{{4, 2}, {3.8, 4.2}, {4.2, 3.2}};
  EXPECT_NEAR(PolygonOverlapArea(whiskers, triangle), 0.23382, 1e-5);
  const double x = 10000002.9608, y = -2999999.0128, w = 0.01;  // far from the origin
  const Polygon far{{x, y}, {x + w, y}, {x + w, y + w}, {x + w / 2, y + w / 2}, {x, y + w}};
  EXPECT_NEAR(PolygonOverlapArea(far, far), 0.75 * w * w, 1e-9);
}

TEST(PolygonOverlap, DoesNotDependOnThreads) {
  std::mt19937_64 rng(20240607);
  const Polygon p = Star(rng, 900, 0.3, {60, 60}), q = Star(rng, 800, 0.3, {75, 66});
  std::vector<double> areas;
  for (const std::size_t threads : {1U, 4U, 4U, 4U}) {
    const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
    for (int repeat = 0; repeat < 20; ++repeat) areas.push_back(PolygonOverlapArea(p, q));
  }
  for (const double area : areas) ASSERT_EQ(area, areas[0]);
}

TEST(CutEars, GivesAConvexCoreAndEarsOfTheWholeArea) {
  std::mt19937_64 rng(20240607);
  for (int i = 0; i < 60; ++i) {
    Polygon polygon = i % 6 == 0 ? Comb(3 + i, {0, 0}) : Star(rng, 4 + 5 * i, 0.2, {60, 60});
    if (i % 2 == 0) std::reverse(polygon.begin(), polygon.end());
    const auto cut = CutEars(polygon);
    EXPECT_TRUE(cut.core.size() < 3 || TraitsOf(cut.core).is_convex);
    double area = std::fabs(SignedArea(cut.core));
    for (const Polygon& piece : cut.pieces) {
      EXPECT_TRUE(TraitsOf(piece).is_convex);
      area += std::fabs(SignedArea(piece));
    }
    EXPECT_NEAR(area, std::fabs(SignedArea(polygon)), 1e-9 * area) << i;
  }
}

TEST(PolygonOverlap, SurvivesWhatIsNoPolygon) {
  using zor::test::kInfinity;
  using zor::test::kNaN;
  const Polygon square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  for (const Polygon& odd :
       {Polygon{{kNaN, 0}, {1, 1}, {2, 0}, {1, -5}}, Polygon(500, {2, 2}),
        Polygon{{0, 0}, {kInfinity, 1}, {2, kNaN}, {-kInfinity, 5}, {1, 1}},
        Polygon{{0, 0}, {4, 4}, {4, 0}, {0, 4}, {2, -3}}, Polygon(1000, {kNaN, kNaN})}) {
    static_cast<void>(PolygonOverlapArea(odd, square));
    static_cast<void>(PolygonOverlapArea(square, odd));
    static_cast<void>(PolygonOverlapArea(odd, odd));
  }
  EXPECT_FALSE(
      TraitsOf(Polygon{{0, -5}, {3, 4}, {-5, -1.5}, {5, -1.5}, {-3, 4}}).is_convex);  // a pentagram
}
