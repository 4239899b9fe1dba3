#include <functional>
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
// Inside, on the outline, outside, and again inside the square, the circle, the oval and the
// rectangle below.
const ZorPointArray kCandidates{{10, 10}, {20, 10}, {30, 10}, {12, 11}};
const ZorPointArray kKept{{10, 10}, {20, 10}, {12, 11}};

struct Selection {
  std::string name;
  std::string relation;  // the traced operation that decides each point
  bool appends;
  std::function<long(ZorPointArray&, ZorPointArray*)> call;
};

using Dlg = ZORMV::ZorGeometryMeasureDlg;

template <typename Method, typename... Region>
Selection OfPoints(std::string name, std::string relation, Method method, Region... region) {
  const bool appends = name == "PointArraySelectedByPolygon";
  return {name, relation, appends, [=](ZorPointArray& in, ZorPointArray* out) mutable {
            return (Dlg().*method)(in, region..., out);
          }};
}

/// A selection of a contour, by way of lists.
template <typename Method, typename... Region>
Selection OfContour(std::string name, std::string relation, Method method, Region... region) {
  return {name, relation, false, [=](ZorPointArray& in, ZorPointArray* out) mutable {
            ZorContour contour(in), kept;
            if (out == nullptr) return (Dlg().*method)(contour, region..., nullptr);
            kept.FromPointArray(*out);
            const long status = (Dlg().*method)(contour, region..., &kept);
            kept.ToPointArray(out);
            return status;
          }};
}

std::vector<Selection> Selections() {
  const std::string circle = "PointToCirclePosRelation", oval = "PointToOvalPosRelation";
  const std::string polygon = "PointToPolygonPosRelation";
  const ZorContour outline(square);
  return {
      OfPoints("PointArraySelectedByPolygon", polygon, &Dlg::PointArraySelectedByPolygon, square),
      OfPoints("PointArraySelectedByCircle", circle, &Dlg::PointArraySelectedByCircle, centre, 10.),
      OfPoints("PointArraySelectedByOval", oval, &Dlg::PointArraySelectedByOval, centre, 3., 10.,
               90.),
      OfPoints("PointArraySelectedByRectangular", polygon, &Dlg::PointArraySelectedByRectangular,
               centre, 4., 20., 90.),
      OfPoints("PointArraySelectedByContours", polygon, &Dlg::PointArraySelectedByContours,
               outline),
      OfContour("ContourSelectedByCircle", circle, &Dlg::ContourSelectedByCircle, centre, 10.),
      OfContour("ContourSelectedByOval", oval, &Dlg::ContourSelectedByOval, centre, 3., 10., 90.),
      OfContour("ContourSelectedByRectangular", polygon, &Dlg::ContourSelectedByRectangular, centre,
                4., 20., 90.),
      OfContour("ContourSelectedByPolygon", polygon, &Dlg::ContourSelectedByPolygon, square),
      OfContour("ContourSelectedByContour", polygon, &Dlg::ContourSelectedByContour, outline),
  };
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
  Dlg dlg;
  ZorPoint& c = centre;
  ZorPointArray no_points, one{{10, 10}}, two{{10, 10}, {11, 11}}, three{{1, 1}, {2, 2}, {3, 1}};
  ZorPointArray out{{99, 99}};
  ZorContour none, point(one), short_region(three), kept(out);
  EXPECT_EQ(dlg.PointArraySelectedByPolygon(two, square, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByPolygon(three, two, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByCircle(no_points, c, 0, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByCircle(one, c, 0, &out), GM_E_PARAM_3);
  EXPECT_EQ(dlg.PointArraySelectedByCircle(one, c, 1, nullptr), GM_OK);
  EXPECT_EQ(dlg.PointArraySelectedByOval(no_points, c, 0, 0, -1, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByOval(one, c, 0, 0, -1, &out), GM_E_PARAM_3);
  EXPECT_EQ(dlg.PointArraySelectedByOval(one, c, 1, 0, -1, &out), GM_E_PARAM_4);
  EXPECT_EQ(dlg.PointArraySelectedByOval(one, c, 1, 1, -1, &out), GM_E_PARAM_5);
  EXPECT_EQ(dlg.PointArraySelectedByRectangular(no_points, c, 0, 0, 0, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByRectangular(one, c, 0, 0, 361, &out), GM_E_PARAM_3);
  EXPECT_EQ(dlg.PointArraySelectedByRectangular(one, c, 1, 0, 361, &out), GM_E_PARAM_4);
  EXPECT_EQ(dlg.PointArraySelectedByRectangular(one, c, 1, 1, 361, &out), GM_E_PARAM_5);
  EXPECT_EQ(dlg.PointArraySelectedByContours(no_points, none, &out), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.PointArraySelectedByContours(one, none, &out), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.PointArraySelectedByContours(one, short_region, &out), GM_E_PARAM_2);
  EXPECT_EQ(dlg.ContourSelectedByCircle(none, c, 0, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSelectedByCircle(point, c, 0, &kept), GM_E_PARAM_3);
  EXPECT_EQ(dlg.ContourSelectedByOval(none, c, 0, 0, -1, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSelectedByOval(point, c, 1, 0, -1, &kept), GM_E_PARAM_4);
  EXPECT_EQ(dlg.ContourSelectedByRectangular(none, c, 0, 0, -1, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSelectedByRectangular(point, c, 1, 1, -1, &kept), GM_E_PARAM_5);
  EXPECT_EQ(dlg.ContourSelectedByPolygon(none, two, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSelectedByPolygon(point, two, &kept), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(dlg.ContourSelectedByContour(none, none, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSelectedByContour(point, short_region, &kept), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(out, (ZorPointArray{{99, 99}}));
  EXPECT_EQ(kept.Length(), 1);
}

TEST(PointArraySelectedByPolygon, DoesNotDependOnThreads) {
  std::mt19937_64 rng(20240616);
  std::uniform_real_distribution<double> coordinate(-60, 60);
  ZorPointArray points, dart{{-50, -50}, {0, 10}, {50, -50}, {0, 50}}, expected;
  for (int i = 0; i < 20000; ++i) {
    const double x = coordinate(rng);
    points.Append({x, coordinate(rng)});
    const bool is_kept = zor::elementary::PolygonRelation(points[i], dart.View()) != 1;
    if (is_kept) expected.Append(points[i]);
  }
  EXPECT_GT(expected.Length(), 2000);
  for (const std::size_t threads : {1U, 4U}) {
    const tbb::global_control control(tbb::global_control::max_allowed_parallelism, threads);
    for (int repeat = 0; repeat < 5; ++repeat) {
      ZorPointArray selected;
      EXPECT_EQ(ZorGeometryMeasure().PointArraySelectedByPolygon(points, dart, &selected), GM_OK);
      EXPECT_EQ(selected, expected) << threads << " threads";
    }
    const TraceCapture capture;  // every point's records, from whichever thread
    ZorPointArray selected;
    EXPECT_EQ(ZorGeometryMeasure().PointArraySelectedByPolygon(points, dart, &selected), GM_OK);
    EXPECT_EQ(selected, expected) << threads << " threads, traced";
    EXPECT_EQ(capture.Records().size(), 2U * 20001U);
  }
}
