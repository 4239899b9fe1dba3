#include <algorithm>
#include <functional>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include "elementary/polygon_kernels.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::TraceCapture;

namespace {

ZorPoint centre(10, 10);
ZorPointArray square{{0, 0}, {20, 0}, {20, 20}, {0, 20}};
ZorContour closed_square(square);
// Inside, on the outline, outside, and again inside the square, the circle, the oval and the
// rectangle below.
const ZorPointArray kCandidates{{10, 10}, {20, 10}, {30, 10}, {12, 11}};
const ZorPointArray kKept{{10, 10}, {20, 10}, {12, 11}};

struct Selection {
  std::string name;
  const char* relation;  // the traced operation that decides each point
  bool appends;
  std::function<long(ZorPointArray&, ZorPointArray*)> call;
};

/// Every selection of points, and of contours through lists.
std::vector<Selection> Selections() {
  using Dlg = ZORMV::ZorGeometryMeasureDlg;
  using List = ZorPointArray;
  std::vector<Selection> selections{
      {"PointArraySelectedByPolygon", "PointToPolygonPosRelation", true,
       [](List& in, List* out) {
         return ZorGeometryMeasure().PointArraySelectedByPolygon(in, square, out);
       }},
      {"PointArraySelectedByCircle", "PointToCirclePosRelation", false,
       [](List& in, List* out) {
         return ZorGeometryMeasure().PointArraySelectedByCircle(in, centre, 10, out);
       }},
      {"PointArraySelectedByOval", "PointToOvalPosRelation", false,
       [](List& in, List* out) {
         return Dlg().PointArraySelectedByOval(in, centre, 3, 10, 90, out);
       }},
      {"PointArraySelectedByRectangular", "PointToPolygonPosRelation", false,
       [](List& in, List* out) {
         return Dlg().PointArraySelectedByRectangular(in, centre, 4, 20, 90, out);
       }},
      {"PointArraySelectedByContours", "PointToPolygonPosRelation", false, [](List& in, List* out) {
         return Dlg().PointArraySelectedByContours(in, closed_square, out);
       }}};
  const auto contour_form = [&](std::string name, const char* relation, auto select) {
    selections.push_back({std::move(name), relation, false, [select](List& in, List* out) {
                            ZorContour contour(in), kept;
                            if (out == nullptr) return select(contour, nullptr);
                            kept.FromPointArray(*out);
                            const long status = select(contour, &kept);
                            kept.ToPointArray(out);
                            return status;
                          }});
  };
  contour_form("ContourSelectedByCircle", "PointToCirclePosRelation",
               [](ZorContour& in, ZorContour* out) {
                 return Dlg().ContourSelectedByCircle(in, centre, 10, out);
               });
  contour_form("ContourSelectedByOval", "PointToOvalPosRelation",
               [](ZorContour& in, ZorContour* out) {
                 return Dlg().ContourSelectedByOval(in, centre, 3, 10, 90, out);
               });
  contour_form("ContourSelectedByRectangular", "PointToPolygonPosRelation",
               [](ZorContour& in, ZorContour* out) {
                 return Dlg().ContourSelectedByRectangular(in, centre, 4, 20, 90, out);
               });
  contour_form("ContourSelectedByPolygon", "PointToPolygonPosRelation",
               [](ZorContour& in, ZorContour* out) {
                 return Dlg().ContourSelectedByPolygon(in, square, out);
               });
  contour_form("ContourSelectedByContour", "PointToPolygonPosRelation",
               [](ZorContour& in, ZorContour* out) {
                 return Dlg().ContourSelectedByContour(in, closed_square, out);
               });
  return selections;
}

ZorPointArray Scatter(int n, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> coordinate(-60, 60);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double x = coordinate(rng);
    points.Append({x, coordinate(rng)});
  }
  return points;
}

ZorPointArray Star(int n) {
  ZorPointArray star;
  for (int i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * i / n;
    const double r = i % 2 == 0 ? 50 : 30;
    star.Append({r * std::cos(t), r * std::sin(t)});
  }
  return star;
}

}  // namespace

TEST(Selections, KeepWhatIsNotOutsideAndTraceEachPoint) {
  for (const Selection& s : Selections()) {
    SCOPED_TRACE(s.name);
    for (const bool is_traced : {false, true}) {
      const TraceCapture capture;
      if (!is_traced) ZORMV::ZorFastLoggerPrivate::SetSink({});
      ZorPointArray in = kCandidates, out{{99, 99}};
      EXPECT_EQ(s.call(in, &out), GM_OK);
      ZorPointArray expected = s.appends ? ZorPointArray{{99, 99}} : ZorPointArray();
      expected.Append(kKept);
      EXPECT_EQ(out, expected);
      EXPECT_EQ(s.call(in, &in), GM_OK);  // into the list that is selected from
      EXPECT_EQ(in.Length(), s.appends ? 7 : 3);
    }
    ZorPointArray in = kCandidates, out;
    TraceCapture capture;
    EXPECT_EQ(s.call(in, &out), GM_OK);
    std::string expected = "+" + s.name;
    for (int i = 0; i < in.Length(); ++i) {
      expected += std::string(" +") + s.relation + " -" + s.relation;
    }
    EXPECT_EQ(capture.Events(), expected + " -" + s.name);
    // Without a list to fill there is nothing to do; contour forms decide every point all the same.
    capture.Clear();
    EXPECT_EQ(s.call(in, nullptr), GM_OK);
    const bool is_short = s.name.rfind("PointArray", 0) == 0;
    EXPECT_EQ(capture.Events(), (is_short ? "+" + s.name : expected) + " -" + s.name);
  }
}

TEST(Selections, ChecksInOrder) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray no_points, one{{10, 10}}, two{{10, 10}, {11, 11}}, three{{1, 1}, {2, 2}, {3, 1}};
  ZorPointArray out{{99, 99}};
  ZorContour none, short_region(three), contour(one), kept(out);
  struct Case {
    const char* what;
    long status;
    long expected;
  };
  for (const Case& c : {
           Case{"polygon: too few points", dlg.PointArraySelectedByPolygon(two, square, &out),
                GM_E_TOO_FEW_POINTS},
           {"polygon: too few vertices", dlg.PointArraySelectedByPolygon(three, two, &out),
            GM_E_TOO_FEW_POINTS},
           {"circle: no points", dlg.PointArraySelectedByCircle(no_points, centre, 0, &out),
            GM_E_TOO_FEW_POINTS},
           {"circle: radius", dlg.PointArraySelectedByCircle(one, centre, 0, &out), GM_E_PARAM_3},
           {"oval: no points", dlg.PointArraySelectedByOval(no_points, centre, 0, 0, -1, &out),
            GM_E_TOO_FEW_POINTS},
           {"oval: a", dlg.PointArraySelectedByOval(one, centre, 0, 0, -1, &out), GM_E_PARAM_3},
           {"oval: b", dlg.PointArraySelectedByOval(one, centre, 1, 0, -1, &out), GM_E_PARAM_4},
           {"oval: angle", dlg.PointArraySelectedByOval(one, centre, 1, 1, -1, &out), GM_E_PARAM_5},
           {"rectangle: no points",
            dlg.PointArraySelectedByRectangular(no_points, centre, 0, 0, -1, &out),
            GM_E_TOO_FEW_POINTS},
           {"rectangle: width", dlg.PointArraySelectedByRectangular(one, centre, 0, 0, -1, &out),
            GM_E_PARAM_3},
           {"rectangle: height", dlg.PointArraySelectedByRectangular(one, centre, 1, 0, -1, &out),
            GM_E_PARAM_4},
           {"rectangle: angle", dlg.PointArraySelectedByRectangular(one, centre, 1, 1, 361, &out),
            GM_E_PARAM_5},
           {"contours: no points", dlg.PointArraySelectedByContours(no_points, none, &out),
            GM_E_TOO_FEW_POINTS},
           {"contours: empty region", dlg.PointArraySelectedByContours(one, none, &out),
            GM_E_EMPTY_CONTOUR},
           {"contours: short region", dlg.PointArraySelectedByContours(one, short_region, &out),
            GM_E_PARAM_2},
           {"contour by circle: empty", dlg.ContourSelectedByCircle(none, centre, 0, &kept),
            GM_E_EMPTY_CONTOUR},
           {"contour by circle: radius", dlg.ContourSelectedByCircle(contour, centre, 0, &kept),
            GM_E_PARAM_3},
           {"contour by oval: empty", dlg.ContourSelectedByOval(none, centre, 0, 0, -1, &kept),
            GM_E_EMPTY_CONTOUR},
           {"contour by oval: b", dlg.ContourSelectedByOval(contour, centre, 1, 0, -1, &kept),
            GM_E_PARAM_4},
           {"contour by rectangle: empty",
            dlg.ContourSelectedByRectangular(none, centre, 0, 0, -1, &kept), GM_E_EMPTY_CONTOUR},
           {"contour by rectangle: angle",
            dlg.ContourSelectedByRectangular(contour, centre, 1, 1, -1, &kept), GM_E_PARAM_5},
           {"contour by polygon: empty", dlg.ContourSelectedByPolygon(none, two, &kept),
            GM_E_EMPTY_CONTOUR},
           {"contour by polygon: two vertices", dlg.ContourSelectedByPolygon(contour, two, &kept),
            GM_E_TOO_FEW_POINTS},
           {"contour by contour: empty", dlg.ContourSelectedByContour(none, none, &kept),
            GM_E_EMPTY_CONTOUR},
           {"contour by contour: short region",
            dlg.ContourSelectedByContour(contour, short_region, &kept), GM_E_EMPTY_CONTOUR},
           {"a single point will do", dlg.PointArraySelectedByCircle(one, centre, 1, nullptr),
            GM_OK},
       }) {
    EXPECT_EQ(c.status, c.expected) << c.what;
  }
  EXPECT_EQ(out, (ZorPointArray{{99, 99}}));
  EXPECT_EQ(kept.Length(), 1);
}

TEST(PointArraySelectedByPolygon, DoesNotDependOnThreads) {
  ZorPointArray points = Scatter(20000, 20240616), star = Star(60);
  ZorPointArray expected;
  for (const ZorPoint& p : points) {
    if (zor::elementary::PolygonRelation(p, star.View()) != 1) expected.Append(p);
  }
  EXPECT_GT(expected.Length(), 5000);
  for (const std::size_t threads : {1U, 4U}) {
    const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
    for (int repeat = 0; repeat < 5; ++repeat) {
      ZorPointArray selected;
      EXPECT_EQ(ZorGeometryMeasure().PointArraySelectedByPolygon(points, star, &selected), GM_OK);
      EXPECT_EQ(selected, expected) << threads << " threads";
    }
    const TraceCapture capture;  // every point's records, from whichever thread
    ZorPointArray selected;
    EXPECT_EQ(ZorGeometryMeasure().PointArraySelectedByPolygon(points, star, &selected), GM_OK);
    EXPECT_EQ(selected, expected) << threads << " threads, traced";
    EXPECT_EQ(capture.Records().size(), 2U * 20001U);
  }
}
