#include <string>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

namespace {

std::string Pair(const std::string& name, const std::string& nested = "") {
  return "+" + name + (nested.empty() ? "" : " " + nested) + " -" + name;
}

const std::string kCrossing = Pair("LinesIntersection");
const std::string kToLine = Pair("PointTolineDistance");
const std::string kFoot =
    Pair("PointToSegmentDistance", Pair("PerpendicularProjection", kCrossing) + " " + kToLine);
const std::string kEnd = Pair("PointToSegmentDistance");
const std::string kCrossEdge = Pair("LineToLineDistance", kCrossing);
const std::string kFootEdge =
    Pair("LineToLineDistance", kFoot + " " + kFoot + " " + kEnd + " " + kEnd);

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
  zor::test::CheckRows({
      {"PointTolineDistance", kToLine,
       [&](bool w) { return m.PointTolineDistance(p, a, b, Want(w, low)); }},
      {"PointToSegmentDistance, foot", kFoot,
       [&](bool w) { return m.PointToSegmentDistance(p, a, b, 0, Want(w, low), Want(w, c)); }},
      {"PointToSegmentDistance, end", kEnd,
       [&](bool w) { return m.PointToSegmentDistance(r, a, b, 0, Want(w, low), Want(w, c)); }},
      {"SegmentToLineDistance", Pair("SegmentToLineDistance", kCrossing),
       [&](bool w) { return m.SegmentToLineDistance(p, q, a, b, 0, Want(w, c), Want(w, low)); }},
      {"LineToLineDistance, short form", Pair("LineToLineDistance"),
       [&](bool w) { return m.LineToLineDistance(p, r, a, b, 0, Want(w, low)); }},
      {"LineToLineDistance, four ends",
       Pair("LineToLineDistance", kFoot + " " + kEnd + " " + kEnd + " " + kFoot),
       [&](bool w) {
         return m.LineToLineDistance(p, r, a, b, 0, Want(w, low), Want(w, c), Want(w, d));
       }},
      {"LineToLineDistance, touching", Pair("LineToLineDistance", kCrossing),
       [&](bool w) {
         return m.LineToLineDistance(p, q, a, b, 0, Want(w, low), Want(w, c), Want(w, d));
       }},
      {"LineToLineDistance, lines",
       Pair("LineToLineDistance", Pair("PerpendicularProjection", kCrossing)),
       [&](bool w) {
         return m.LineToLineDistance(p, r, a, b, 4, Want(w, low), Want(w, c), Want(w, d));
       }},
      {"PointsToLineDistance", Pair("PointsToLineDistance", kToLine + " " + kToLine),
       all(&ZorGeometryMeasure::PointsToLineDistance, points)},
      {"PointsToLineDistance, null", Pair("PointsToLineDistance"),
       none(&ZorGeometryMeasure::PointsToLineDistance, points)},
      {"PointsToLineDistance, maximum alone", Pair("PointsToLineDistance", kToLine),
       [&](bool) { return m.PointsToLineDistance(points, a, b, nullptr, nullptr, &d, &high); }},
      {"PointsToSegmentDistance", Pair("PointsToSegmentDistance", kFoot + " " + kEnd),
       all(&ZorGeometryMeasure::PointsToSegmentDistance, points)},
      {"PointsToSegmentDistance, null", Pair("PointsToSegmentDistance", kFoot + " " + kEnd),
       none(&ZorGeometryMeasure::PointsToSegmentDistance, points)},
      {"PolygonToLineDistance",
       Pair("PolygonToLineDistance",
            kToLine + " " + kToLine + " " + kCrossing + " " + kToLine + " " + kToLine),
       all(&ZorGeometryMeasure::PolygonToLineDistance, across)},
      {"PolygonToLineDistance, null", Pair("PolygonToLineDistance", kToLine + " " + kToLine),
       none(&ZorGeometryMeasure::PolygonToLineDistance, across)},
      {"PolygonToLineDistance, minimum alone",
       Pair("PolygonToLineDistance", kToLine + " " + kToLine + " " + kCrossing),
       [&](bool) { return m.PolygonToLineDistance(across, a, b, &c, &low, nullptr, nullptr); }},
      {"PolygonToSegmentDistance",
       Pair("PolygonToSegmentDistance",
            kCrossEdge + " " + kFootEdge + " " + kCrossEdge + " " +
                Pair("PointsToSegmentDistance", kFoot + " " + kFoot + " " + kFoot)),
       all(&ZorGeometryMeasure::PolygonToSegmentDistance, across)},
      {"PolygonToSegmentDistance, null", Pair("PolygonToSegmentDistance"),
       none(&ZorGeometryMeasure::PolygonToSegmentDistance, across)},
      {"PointToPolygonDistance", Pair("PointToPolygonDistance"),
       [&](bool w) { return m.PointToPolygonDistance(p, across, Want(w, low), Want(w, c)); }},
      {"PointToOvalDistance", Pair("PointToOvalDistance"),
       [&](bool w) { return m.PointToOvalDistance(p, a, 5, 2, 30, Want(w, low), Want(w, c)); }},
      {"LineSegmentToPolygonDistance", "",
       [&](bool w) {
         return m.LineSegmentToPolygonDistance(a, b, across, Want(w, low), Want(w, c), Want(w, d),
                                               Want(w, high), Want(w, c), Want(w, d));
       }},
  });
}
