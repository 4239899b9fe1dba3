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
const std::string kPast = kFoot + " " + kCircle;
const std::string kThrough =
    kFoot + " " + Pair("LineSegmentCircleIntersection", Pair("LineCircleIntersection"));
const std::string kTangents = kProjection + " " + kToLine + " " + kProjection + " " + kToLine;
const std::string kOvalPast = kTangents + " " + kOval + " " + kOval;

}  // namespace

TEST(FigureDistanceOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorPoint a(-9, 8), b(9, 8), p(-9, 1), q(9, 2), centre(0, 0), c, d, e, f;
  ZorPointArray points{{3, 4}, {0, 0}};
  ZorContour contour({{-9, 8}, {9, 8}, {9, 8}});
  ZorVarArray list;
  double low = 0, high = 0;
  zor::test::CheckRows({
      {"PointArrayToCircleDistance", Pair("PointArrayToCircleDistance", kCircle + " " + kCircle),
       [&](bool w) {
         return m.PointArrayToCircleDistance(points, centre, 5, Want(w, c), Want(w, d),
                                             Want(w, low), Want(w, e), Want(w, f), Want(w, high));
       }},
      {"PointArrayToOvalDistance", Pair("PointArrayToOvalDistance", kOval + " " + kOval),
       [&](bool w) {
         return m.PointArrayToOvalDistance(points, centre, 5, 3, 10, Want(w, c), Want(w, d),
                                           Want(w, low), Want(w, e), Want(w, f), Want(w, high));
       }},
      {"PointArrayToRectAngularDistance",
       Pair("PointArrayToRectAngularDistance",
            Pair("PointToPolygonDistance") + " " + Pair("PointToPolygonDistance")),
       [&](bool w) {
         return m.PointArrayToRectAngularDistance(points, centre, 5, 3, 10, Want(w, c), Want(w, d),
                                                  Want(w, low), Want(w, e), Want(w, f),
                                                  Want(w, high));
       }},
      {"LineSegmentToCircleDistance, short form", Pair("LineSegmentToCircleDistance", kPast),
       [&](bool w) {
         return m.LineSegmentToCircleDistance(a, b, centre, 5, Want(w, low), Want(w, c),
                                              Want(w, d));
       }},
      {"LineSegmentToCircleDistance, past",
       Pair("LineSegmentToCircleDistance", kPast + " " + kCircle),
       [&](bool w) {
         return m.LineSegmentToCircleDistance(a, b, centre, 5, Want(w, low), Want(w, c), Want(w, d),
                                              Want(w, high), Want(w, e), Want(w, f));
       }},
      {"LineSegmentToCircleDistance, through",
       Pair("LineSegmentToCircleDistance", kThrough + " " + kCircle),
       [&](bool w) {
         return m.LineSegmentToCircleDistance(p, q, centre, 5, Want(w, low), Want(w, c), Want(w, d),
                                              Want(w, high), Want(w, e), Want(w, f));
       }},
      {"FindOvalTangentPoint", "",
       [&](bool w) { return m.FindOvalTangentPoint(p, 5, 3, Want(w, c), Want(w, d)); }},
      {"LineToOvalDistance", Pair("LineToOvalDistance"),
       [&](bool w) {
         return m.LineToOvalDistance(a, b, centre, 5, 3, 10, Want(w, low), Want(w, c), Want(w, d),
                                     Want(w, high), Want(w, e), Want(w, f));
       }},
      {"LineSegmentToOvalDistance, inert",
       Pair("LineSegmentOvalIntersection", Pair("LineOvalIntersection", kProjection)),
       [&](bool w) {
         return m.LineSegmentToOvalDistance(a, b, centre, 5, 3, 10, Want(w, low), Want(w, c),
                                            Want(w, d));
       }},
      {"LineSegmentToOvalDistance, past", Pair("LineSegmentToOvalDistance", kOvalPast),
       [&](bool w) {
         return m.LineSegmentToOvalDistance(a, b, centre, 5, 3, 10, Want(w, low), Want(w, c),
                                            Want(w, d), Want(w, high), Want(w, e), Want(w, f));
       }},
      {"LineSegmentToOvalDistance2, through: the feet of both tangents",
       Pair("LineSegmentToOvalDistance2", kOvalPast + " " + kOval + " " + kOval),
       [&](bool w) {
         return m.LineSegmentToOvalDistance2(p, q, centre, 5, 3, 10, Want(w, low), Want(w, c),
                                             Want(w, d), Want(w, high), Want(w, e), Want(w, f));
       }},
      {"CircleToContourDistance",
       Pair("CircleToContourDistance", kCircle + " " + kCircle + " " +
                                           Pair("LineSegmentToCircleDistance", kPast) + " " +
                                           kCircle),
       [&](bool w) {
         return m.CircleToContourDistance(contour, centre, 5, Want(w, list), Want(w, c), Want(w, d),
                                          Want(w, low), Want(w, e), Want(w, f), Want(w, high));
       }},
      {"OvalToContourDistance",
       Pair("OvalToContourDistance",
            kOval + " " + kOval + " " + Pair("LineSegmentToOvalDistance", kOvalPast) + " " + kOval),
       [&](bool w) {
         return m.OvalToContourDistance(contour, centre, 5, 3, 10, Want(w, list), Want(w, c),
                                        Want(w, d), Want(w, low), Want(w, e), Want(w, f),
                                        Want(w, high));
       }},
  });
}
