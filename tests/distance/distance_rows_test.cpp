#include <string>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace {

/// A row's call from one that takes `w`, which gives each output or, in its place, null.
template <class Call>
auto Of(Call call) {
  return [call](bool wanted) {
    return call([wanted](auto& out) { return zor::test::Want(wanted, out); });
  };
}

std::string Pair(const std::string& name, const std::string& nested = "") {
  return "+" + name + (nested.empty() ? "" : " " + nested) + " -" + name;
}

const std::string kCrossing = Pair("LinesIntersection");
const std::string kToLine = Pair("PointTolineDistance");
const std::string kFoot =
    Pair("PointToSegmentDistance", Pair("PerpendicularProjection", kCrossing) + " " + kToLine);
const std::string kEnd = Pair("PointToSegmentDistance");
const std::string kCrossEdge = Pair("LineToLineDistance", kCrossing);
const std::string kFeet = kFoot + " " + kFoot;
const std::string kLines = kToLine + " " + kToLine;
const std::string kFootEdge = Pair("LineToLineDistance", kFeet + " " + kEnd + " " + kEnd);
const std::string kMixedEdge =
    Pair("LineToLineDistance", kFoot + " " + kEnd + " " + kEnd + " " + kFoot);
const std::string kToPoint = Pair("PointToContourDistance");

}  // namespace

TEST(DistanceOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorPoint a(0, 0), b(10, 0), p(3, 4), q(3, -4), r(20, 4), c, d;
  ZorPointArray points{{3, 4}, {-3, 4}}, across{{1, 2}, {4, 2}, {1, -5}};
  double low = 0, high = 0;
  // What these measure depends on what is wanted, so their rows come in two.
  const auto all = [&](auto method, ZorPointArray& of) {
    return [&, method](bool) { return (m.*method)(of, a, b, &c, &low, &d, &high); };
  };
  const auto none = [&](auto method, ZorPointArray& of) {
    return [&, method](bool) { return (m.*method)(of, a, b, nullptr, nullptr, nullptr, nullptr); };
  };
  using M = ZorGeometryMeasure;
  const std::string vertices = Pair("PointsToSegmentDistance", kFeet + " " + kFoot);
  zor::test::CheckRows({
      {"PointTolineDistance", kToLine,
       Of([&](auto w) { return m.PointTolineDistance(p, a, b, w(low)); })},
      {"PointToSegmentDistance, foot", kFoot,
       Of([&](auto w) { return m.PointToSegmentDistance(p, a, b, 0, w(low), w(c)); })},
      {"PointToSegmentDistance, end", kEnd,
       Of([&](auto w) { return m.PointToSegmentDistance(r, a, b, 0, w(low), w(c)); })},
      {"SegmentToLineDistance", Pair("SegmentToLineDistance", kCrossing),
       Of([&](auto w) { return m.SegmentToLineDistance(p, q, a, b, 0, w(c), w(low)); })},
      {"LineToLineDistance, short form", Pair("LineToLineDistance"),
       Of([&](auto w) { return m.LineToLineDistance(p, r, a, b, 0, w(low)); })},
      {"LineToLineDistance, four ends", kMixedEdge,
       Of([&](auto w) { return m.LineToLineDistance(p, r, a, b, 0, w(low), w(c), w(d)); })},
      {"LineToLineDistance, touching", kCrossEdge,
       Of([&](auto w) { return m.LineToLineDistance(p, q, a, b, 0, w(low), w(c), w(d)); })},
      {"LineToLineDistance, lines",
       Pair("LineToLineDistance", Pair("PerpendicularProjection", kCrossing)),
       Of([&](auto w) { return m.LineToLineDistance(p, r, a, b, 4, w(low), w(c), w(d)); })},
      {"PointsToLineDistance", Pair("PointsToLineDistance", kLines),
       all(&M::PointsToLineDistance, points)},
      {"PointsToLineDistance, null", Pair("PointsToLineDistance"),
       none(&M::PointsToLineDistance, points)},
      {"PointsToLineDistance, maximum alone", Pair("PointsToLineDistance", kToLine),
       [&](bool) { return m.PointsToLineDistance(points, a, b, nullptr, nullptr, &d, &high); }},
      {"PointsToSegmentDistance", Pair("PointsToSegmentDistance", kFoot + " " + kEnd),
       all(&M::PointsToSegmentDistance, points)},
      {"PointsToSegmentDistance, null", Pair("PointsToSegmentDistance", kFoot + " " + kEnd),
       none(&M::PointsToSegmentDistance, points)},
      {"PolygonToLineDistance",
       Pair("PolygonToLineDistance", kLines + " " + kCrossing + " " + kLines),
       all(&M::PolygonToLineDistance, across)},
      {"PolygonToLineDistance, null", Pair("PolygonToLineDistance", kLines),
       none(&M::PolygonToLineDistance, across)},
      {"PolygonToLineDistance, minimum alone",
       Pair("PolygonToLineDistance", kLines + " " + kCrossing),
       [&](bool) { return m.PolygonToLineDistance(across, a, b, &c, &low, nullptr, nullptr); }},
      {"PolygonToSegmentDistance",
       Pair("PolygonToSegmentDistance",
            kCrossEdge + " " + kFootEdge + " " + kCrossEdge + " " + vertices),
       all(&M::PolygonToSegmentDistance, across)},
      {"PolygonToSegmentDistance, null", Pair("PolygonToSegmentDistance"),
       none(&M::PolygonToSegmentDistance, across)},
      {"PointToPolygonDistance", Pair("PointToPolygonDistance"),
       Of([&](auto w) { return m.PointToPolygonDistance(p, across, w(low), w(c)); })},
      {"LineSegmentToPolygonDistance", "", Of([&](auto w) {
         return m.LineSegmentToPolygonDistance(a, b, across, w(low), w(c), w(d), w(high), w(c),
                                               w(d));
       })},
  });
}

TEST(ContourDistances, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(0, 0), b(10, 0), p(3, 4), c, d;
  // The first segment of `x` lies below the one of `y`, the second sticks out.
  ZorContour x{{1, 5}, {4, 5}, {9, 4}}, y{{0, 20}, {8, 20}};
  ZorPointArray points{{3, 4}, {-3, 4}}, list_a, list_b;
  ZorVarArray list, indices_a, indices_b;
  double low = 0, high = 0;
  const auto pair_of = [&](auto& measure, int mode) {
    return Of([&, mode](auto w) {
      return measure.ContourToContourDistance(x, y, mode, w(c), w(d), w(low), w(c), w(d), w(high));
    });
  };
  const std::string pair = "ContourToContourDistance";
  const std::string over_points = Pair(pair, kToPoint + " " + kToPoint + " " + kToPoint);
  zor::test::CheckRows({
      {"PointToContourDistance", kToPoint,
       Of([&](auto w) { return m.PointToContourDistance(x, p, 1, w(c), w(low), w(d), w(high)); })},
      {"LineToContourDistance", Pair("LineToContourDistance"), Of([&](auto w) {
         return m.LineToContourDistance(x, a, b, w(list), w(c), w(low), w(d), w(high));
       })},
      {"ContourToLineSegmentDistance1", Pair("ContourToLineSegmentDistance1"), Of([&](auto w) {
         return m.ContourToLineSegmentDistance1(x, a, b, w(list), w(c), w(low), w(d), w(high));
       })},
      {"ContourToContourDistance, 0", over_points, pair_of(m, 0)},
      {"ContourToContourDistance, 1", over_points, pair_of(m, 1)},
      {"ContourToContourDistance, 2", Pair(pair, kFootEdge + " " + kMixedEdge), pair_of(m, 2)},
      {"ContourToContourDistance, distances alone", over_points,
       Of([&](auto w) { return m.ContourToContourDistance(x, y, w(low), w(high)); })},
      {"ContourToContourDistance2", Pair("ContourToContourDistance2"), Of([&](auto w) {
         return m.ContourToContourDistance2(x, y, 2, w(c), w(d), w(low), w(c), w(d), w(high));
       })},
      {"PointArrayToPointArrayDistance", Pair("PointArrayToPointArrayDistance"), Of([&](auto w) {
         return m.PointArrayToPointArrayDistance(points, points, 0, 9, 2, w(list), w(list_a),
                                                 w(indices_a), w(list_b), w(indices_b));
       })},
      {"Dlg::PointArrayToPointDistance", Pair("PointArrayToPointDistance", kToPoint),
       Of([&](auto w) {
         return dlg.PointArrayToPointDistance(points, p, w(c), w(low), w(d), w(high));
       })},
      {"Dlg::ContourToContourDistance, 0", Pair(pair, over_points), pair_of(dlg, 0)},
      {"Dlg::ContourToContourDistance, 4", Pair(pair), pair_of(dlg, 4)},
      {"Dlg::ContourToContourDistance, 5", Pair(pair), Of([&](auto w) {
         return dlg.ContourToContourDistance(x, x, 5, w(c), w(d), w(low), w(c), w(d), w(high));
       })},
      {"Dlg::PointArrayToContourDistance",
       Pair("PointArrayToContourDistance", Pair(pair, kToPoint + " " + kToPoint)), Of([&](auto w) {
         return dlg.PointArrayToContourDistance(points, x, w(c), w(d), w(low), w(c), w(d), w(high));
       })},
  });
}
