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
const std::string kProjection = Pair("PerpendicularProjection", kCrossing);
const std::string kCircle = Pair("PointToCircleDistance", Pair("PointToPointDistance"));
const std::string kOval = Pair("PointToOvalDistance");
const std::string kFoot = Pair("PointToSegmentDistance", kProjection + " " + kToLine);
const std::string kPolygon = Pair("PointToPolygonDistance");
const std::string kPast = kFoot + " " + kCircle;
const std::string kThrough =
    kFoot + " " + Pair("LineSegmentCircleIntersection", Pair("LineCircleIntersection"));
const std::string kTangents = kProjection + " " + kToLine + " " + kProjection + " " + kToLine;
const std::string kOvalPast = kTangents + " " + kOval + " " + kOval;

const std::string kPoint = Pair("PointToContourDistance");
const std::string kOutlines = Pair("ContourToContourDistance", kPoint + " " + kPoint);

}  // namespace

TEST(FigureDistanceOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(-9, 8), b(9, 8), p(-9, 1), q(9, 2), o(0, 0), c, d, e, f;
  ZorPointArray points{{3, 4}, {0, 0}};
  ZorContour contour({{-9, 8}, {9, 8}, {9, 8}}), ends({{-9, 8}, {9, 8}});
  ZorVarArray list;
  double low = 0, high = 0;
  // Calls with the outputs of a pair and its distance, twice, in either order.
  const auto points_first = [&](auto call) {
    return [&, call](bool w) {
      return call(Want(w, c), Want(w, d), Want(w, low), Want(w, e), Want(w, f), Want(w, high));
    };
  };
  const auto distance_first = [&](auto call) {
    return [&, call](bool w) {
      return call(Want(w, low), Want(w, c), Want(w, d), Want(w, high), Want(w, e), Want(w, f));
    };
  };
  zor::test::CheckRows({
      {"PointArrayToCircleDistance", Pair("PointArrayToCircleDistance", kCircle + " " + kCircle),
       points_first(
           [&](auto... out) { return m.PointArrayToCircleDistance(points, o, 5, out...); })},
      {"PointArrayToOvalDistance", Pair("PointArrayToOvalDistance", kOval + " " + kOval),
       points_first(
           [&](auto... out) { return m.PointArrayToOvalDistance(points, o, 5, 3, 10, out...); })},
      {"PointArrayToRectAngularDistance",
       Pair("PointArrayToRectAngularDistance", kPolygon + " " + kPolygon),
       points_first([&](auto... out) {
         return m.PointArrayToRectAngularDistance(points, o, 5, 3, 10, out...);
       })},
      {"LineSegmentToCircleDistance, short form", Pair("LineSegmentToCircleDistance", kPast),
       [&](bool w) {
         return m.LineSegmentToCircleDistance(a, b, o, 5, Want(w, low), Want(w, c), Want(w, d));
       }},
      {"LineSegmentToCircleDistance, past",
       Pair("LineSegmentToCircleDistance", kPast + " " + kCircle), distance_first([&](auto... out) {
         return m.LineSegmentToCircleDistance(a, b, o, 5, out...);
       })},
      {"LineSegmentToCircleDistance, through",
       Pair("LineSegmentToCircleDistance", kThrough + " " + kCircle),
       distance_first(
           [&](auto... out) { return m.LineSegmentToCircleDistance(p, q, o, 5, out...); })},
      {"FindOvalTangentPoint", "",
       [&](bool w) { return m.FindOvalTangentPoint(p, 5, 3, Want(w, c), Want(w, d)); }},
      {"LineToOvalDistance", Pair("LineToOvalDistance"), distance_first([&](auto... out) {
         return m.LineToOvalDistance(a, b, o, 5, 3, 10, out...);
       })},
      {"LineSegmentToOvalDistance, inert",
       Pair("LineSegmentOvalIntersection", Pair("LineOvalIntersection", kProjection)),
       [&](bool w) {
         return m.LineSegmentToOvalDistance(a, b, o, 5, 3, 10, Want(w, low), Want(w, c),
                                            Want(w, d));
       }},
      {"LineSegmentToOvalDistance, past", Pair("LineSegmentToOvalDistance", kOvalPast),
       distance_first(
           [&](auto... out) { return m.LineSegmentToOvalDistance(a, b, o, 5, 3, 10, out...); })},
      {"LineSegmentToOvalDistance2, through: the feet of both tangents",
       Pair("LineSegmentToOvalDistance2", kOvalPast + " " + kOval + " " + kOval),
       distance_first(
           [&](auto... out) { return m.LineSegmentToOvalDistance2(p, q, o, 5, 3, 10, out...); })},
      {"CircleToContourDistance",
       Pair("CircleToContourDistance", kCircle + " " + kCircle + " " +
                                           Pair("LineSegmentToCircleDistance", kPast) + " " +
                                           kCircle),
       points_first(
           [&](auto... out) { return m.CircleToContourDistance(contour, o, 5, &list, out...); })},
      {"OvalToContourDistance",
       Pair("OvalToContourDistance",
            kOval + " " + kOval + " " + Pair("LineSegmentToOvalDistance", kOvalPast) + " " + kOval),
       points_first([&](auto... out) {
         return m.OvalToContourDistance(contour, o, 5, 3, 10, nullptr, out...);
       })},
      {"Dlg::ContourToRectangularDistance", Pair("ContourToRectangularDistance", kOutlines),
       points_first([&](auto... out) {
         return dlg.ContourToRectangularDistance(ends, o, 5, 3, 10, out...);
       })},
  });
}
