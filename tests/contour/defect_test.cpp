#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "contour/anchor_kernels.h"
#include "contour/outlines.h"
#include "contour/side_verdict.h"
#include "fitting/huber_line.h"
#include "fitting/line_fit_kernels.h"
#include "fitting/ransac_kernels.h"
#include "support/values.h"
#include <ZorDebugger.h>
#include <ZorFindDefectRegion.h>
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

using Runs = std::vector<std::pair<int, int>>;

struct Bump {
  int first;
  int count;
  double height;
};

// Points a pixel apart along the x axis.
ZorPointArray Edge(int length, const std::vector<Bump>& bumps) {
  ZorPointArray points;
  for (int i = 0; i < length; ++i) points.Append({static_cast<double>(i), 0});
  for (const Bump& bump : bumps) {
    for (int i = 0; i < bump.count; ++i) points[bump.first + i].y = bump.height;
  }
  return points;
}

}  // namespace

TEST(FindDefectRegion, RunsOfAStraightEdge) {
  struct Case {
    const char* what;
    std::vector<Bump> bumps;
    Runs runs;
  };
  for (const Case& c : {Case{"none", {}, {}},
                        {"one", {{90, 20, 5}}, {{90, 19}}},
                        {"either side", {{40, 12, -3}, {120, 20, 3}}, {{120, 19}, {40, 11}}},
                        {"a short one does not hide the long one behind it",
                         {{30, 5, 4}, {120, 20, 4}},
                         {{120, 19}}},
                        {"as long as asked", {{30, 11, 4}}, {{30, 10}}},
                        {"one too short", {{30, 10, 4}}, {}}}) {
    SCOPED_TRACE(c.what);
    ZorPointArray points = Edge(200, c.bumps);
    Runs runs = {{7, 7}}, expected = runs;
    expected.insert(expected.end(), c.runs.begin(), c.runs.end());
    EXPECT_EQ(ZorFindDefectRegion().Find(points, 10, 2, 0, 10, runs), GM_OK);
    EXPECT_EQ(runs, expected);

    ZorContour contour(points);
    const ZorContourArray before = {contour};
    ZorContourArray defects = before;
    const long status =
        ZORMV::ZorGeometryMeasureDlg().FindDefectRegion(contour, 10, 0, 2, 10, &defects);
    EXPECT_EQ(status, c.runs.empty() ? GM_E_PARAM_1 : GM_OK);
    if (c.runs.empty()) {
      EXPECT_EQ(defects, before);
      continue;
    }
    ASSERT_EQ(defects.Length(), static_cast<int>(c.runs.size()));
    for (int k = 0; k < defects.Length(); ++k) {
      const auto& [start, length] = c.runs[static_cast<std::size_t>(k)];
      EXPECT_EQ(defects[k].Length(), length);
      EXPECT_EQ(defects[k].View()[0], points[start]);
    }
  }
}

TEST(FindDefectRegion, ExaminesTheSidesBetweenVerticesOnly) {
  // A nick in the middle of every side. The outline starts inside the upper side, behind its nick.
  std::vector<ZorPoint> outline = zor::test::Outline(
      {{70, 0},   {100, 0}, {100, 40}, {97, 40},  {97, 60}, {100, 60}, {100, 100},
       {60, 100}, {60, 97}, {40, 97},  {40, 100}, {0, 100}, {0, 60},   {3, 60},
       {3, 40},   {0, 40},  {0, 0},    {40, 0},   {40, 3},  {60, 3},   {60, 0}});
  ZorPointArray points(outline);
  Runs runs;
  ZorFindDefectRegion().Find(points, 5, 2.5, 0, 15, runs);
  ASSERT_EQ(runs.size(), 4U);  // an open outline: its ends are vertices too
  const ZorPoint nicks[] = {{97, 40}, {60, 97}, {3, 60}, {40, 3}};  // where each begins
  for (std::size_t k = 0; k < 4; ++k) zor::test::ExpectNear(points[runs[k].first], nicks[k], 4);

  ZorContour contour(outline);
  ZorPointArray polygon;
  ZorGeometryMeasureTools().GetPolygon(contour, 5, &polygon);
  ASSERT_EQ(polygon.Length(), 4);
  Runs closed;
  EXPECT_EQ(ZorFindDefectRegion(contour).Find(5, 2.5, kNaN, 15, closed), GM_OK);
  // Between its four vertices there are three sides, of which the one across the start of the list
  // runs backwards; where the list of vertices starts is the reduction's choice.
  const ZorPoint first = polygon[0];
  EXPECT_EQ(closed.size(), first == ZorPoint(100, 0) ? 3U : 2U);
  for (const auto& run : closed) EXPECT_NE(std::find(runs.begin(), runs.end(), run), runs.end());
  EXPECT_EQ(ZorFindDefectRegion().Find(5, 2, 0, 15, closed), GM_OK);  // no contour
}

TEST(FindDefectRegion, NothingToFindIsNoTrouble) {
  ZorFindDefectRegion finder;
  Runs runs;
  ZorPointArray edge = Edge(200, {{90, 20, 5}}), none, wild = edge, far = edge,
                same(std::vector<ZorPoint>(500, {3, 3}));
  wild[0] = ZorPoint(kNaN, kInfinity);
  for (ZorPoint& p : far) p = p + ZorPoint(30000.3, 30000.3);  // lost in single precision
  EXPECT_EQ(finder.Find(none, 10, 2, 0, 10, runs), GM_OK);
  EXPECT_EQ(finder.Find(edge, 10, 2, 1, 10, runs), GM_OK);  // a single anchor
  EXPECT_EQ(finder.Find(edge, -1, 2, 0, 10, runs), GM_OK);
  EXPECT_EQ(finder.Find(wild, 10, 2, 0, 10, runs), GM_OK);
  EXPECT_EQ(finder.Find(far, 10, 2, 0, 10, runs), GM_OK);
  EXPECT_EQ(finder.Find(same, 10, 2, 0, 1, runs), GM_OK);
  EXPECT_TRUE(runs.empty());
}

TEST(FindDefectRegion, TellsTheDebuggerWhatItCounts) {
  std::vector<std::wstring> texts;
  ZORMV::ZorCaptureDebugOutput([&](std::wstring_view text) { texts.emplace_back(text); });
  ZorPointArray edge = Edge(200, {});
  Runs runs;
  ZorFindDefectRegion().Find(edge, 10, 2, 0, 10, runs);
  ZORMV::ZorCaptureDebugOutput({});
  EXPECT_EQ(texts, (std::vector<std::wstring>{L"temp_polygonSize  2 \n", L"len  200 \n",
                                              L"indexSize  2 \n"}));
}

TEST(FindDefectRegion, CodesInOrder) {
  struct Case {
    const char* what;
    int points;
    double tolerance;
    int count;
    double distance;
    int min_length;
    long status;
  };
  for (const Case& c : {Case{"empty", 0, 0, -1, 0, 0, GM_E_EMPTY_CONTOUR},
                        {"three points", 3, 0, -1, 0, 0, GM_E_PARAM_1},
                        {"tolerance", 4, 0, -1, 0, 0, GM_E_PARAM_2},
                        {"count", 4, 1, -1, 0, 0, GM_E_PARAM_3},
                        {"distance", 4, 1, 0, 0, 0, GM_E_PARAM_4},
                        {"length", 4, 1, 0, 1, 0, GM_E_PARAM_5},
                        {"nothing found", 4, 1, 0, 1, 1, GM_E_PARAM_1}}) {
    SCOPED_TRACE(c.what);
    ZorContour contour(Edge(c.points, {}));
    EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().FindDefectRegion(contour, c.tolerance, c.count,
                                                              c.distance, c.min_length, nullptr),
              c.status);
  }
}

TEST(ToolsFindDefectRegion, IsInert) {
  ZorGeometryMeasureTools tools;
  ZorContour ten(Edge(10, {{2, 5, 9}})), eleven(Edge(11, {{2, 5, 9}}));
  Runs runs;
  EXPECT_EQ(tools.FindDefectRegion(ten, 5, 2, 0, 1, runs), -1);
  EXPECT_EQ(tools.FindDefectRegion(eleven, 5, 2, 0, 1, runs), 0);
  EXPECT_TRUE(runs.empty());
}

TEST(FindAnchors, FirstPointWithinReachOfEachVertex) {
  std::mt19937_64 rng(20240607);
  std::uniform_int_distribution<int> place(0, 30), offset(-13, 13);
  for (int round = 0; round < 40; ++round) {
    // Crowded places, with offsets on both sides of the reach; some coordinates beyond all cells.
    const double spread = round % 4 == 3 ? 1e17 : 0.002 * (1 + round % 4);
    const auto point = [&] {
      return ZorPoint(1000 + spread * place(rng) + 1e-4 * offset(rng), 2000 + 1e-4 * offset(rng));
    };
    std::vector<ZorPoint> points(300), vertices(60);
    std::generate(points.begin(), points.end(), point);
    std::generate(vertices.begin(), vertices.end(), point);
    vertices[5] = ZorPoint(kNaN, kInfinity);
    points[5] = vertices[5];
    std::vector<std::size_t> expected;
    for (const ZorPoint& v : vertices) {
      const auto match = std::find_if(points.begin(), points.end(), [&v](const ZorPoint& p) {
        return std::sqrt((p.x - v.x) * (p.x - v.x) + (p.y - v.y) * (p.y - v.y)) < 0.001;
      });
      if (match != points.end())
        expected.push_back(static_cast<std::size_t>(match - points.begin()));
    }
    EXPECT_EQ(zor::contour::FindAnchors(vertices, points), expected);
  }
}

namespace {

// A side of noisy points in any direction with up to two bumps; some of few points, some beyond the
// bounds of what single precision resolves well.
std::vector<ZorPoint> NoisySide(std::mt19937_64& rng) {
  const auto draw = [&rng](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(rng);
  };
  std::normal_distribution<double> noise(0, draw(0, 0.4));
  const double turn = draw(0, 7), step = draw(0.05, 2), corner = draw(-5000, 5000);
  const int count = static_cast<int>(std::exp(draw(0, 7)));
  std::vector<ZorPoint> side;
  for (int i = 0; i < count; ++i) side.emplace_back(i * step, noise(rng));
  for (int bump = 0; bump < 2; ++bump) {
    const int first = static_cast<int>(draw(0, count));
    const double height = draw(-6, 6);
    for (int i = first; i < std::min(count, first + count / 12); ++i) {
      side[static_cast<std::size_t>(i)].y += height;
    }
  }
  for (ZorPoint& p : side) {
    p = ZorPoint(corner + p.x * std::cos(turn) - p.y * std::sin(turn),
                 2000 + p.x * std::sin(turn) + p.y * std::cos(turn));
  }
  return side;
}

}  // namespace

TEST(LineOfSameVerdict, PartsThePointsAsTheFittedLineDoes) {
  std::mt19937_64 rng(20240609);
  int told = 0, with_runs = 0;
  for (int round = 0; round < 1500; ++round) {
    const std::vector<ZorPoint> side = NoisySide(rng);
    const auto line = zor::contour::LineOfSameVerdict(side, 2);
    if (!line) continue;
    ++told;
    Runs runs, expected;
    zor::fitting::CollectFarRuns(*line, 2, side, runs);
    zor::fitting::CollectFarRuns(zor::fitting::FitExtentLine(side), 2, side, expected);
    ASSERT_EQ(runs, expected) << "round " << round;
    if (!runs.empty()) ++with_runs;
  }
  EXPECT_GT(told, 200);  // or nothing was tested
  EXPECT_GT(with_runs, 50);
}

TEST(LineOfSameVerdict, DistanceSumOfTheFitKeepsItsBound) {
  std::mt19937_64 rng(20240610);
  for (int round = 0; round < 300; ++round) {
    const std::vector<ZorPoint> side = NoisySide(rng);
    if (side.size() < 3) continue;
    const zor::fitting::HuberLine line = zor::fitting::FitHuberLine(side);
    const double vx = static_cast<double>(line.vx), vy = static_cast<double>(line.vy);
    const ZorPoint on(static_cast<double>(line.x0), static_cast<double>(line.y0));
    double sum = 0;
    for (const ZorPoint& p : side) {
      sum += std::fabs(vy * (p.x - on.x) - vx * (p.y - on.y));
    }
    EXPECT_LE(sum, zor::fitting::DistanceSumBound(side, 14000, 10000)) << "round " << round;
  }
}
