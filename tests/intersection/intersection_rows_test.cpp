#include <vector>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include "support/trace_capture.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

TEST(IntersectionOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(0, 0), b(10, 0), p(3, 4), q(3, -4), beside(10, 10.5), out;
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, points;
  ZorContour contour(square);
  std::vector<ZorPoint> starts;
  std::vector<int> indices;
  double value = 0.0;
  int code = 0;
  zor::test::CheckRows({
      {"PointOnSegment", "", [&](bool) { return m.PointOnSegment(p, a, b) ? 0 : 1; }},
      {"LineSegmentsIntersection", "+LinesIntersection -LinesIntersection",
       [&](bool w) {
         return m.LineSegmentsIntersection(a, b, p, q, Want(w, out), nullptr) ? 0 : 1;
       }},
      {"LineSegmentToLineIntersection", "+LinesIntersection -LinesIntersection",
       [&](bool w) {
         return m.LineSegmentToLineIntersection(a, b, p, q, Want(w, out), nullptr) ? 0 : 1;
       }},
      {"LineCircleIntersection", "+LineCircleIntersection -LineCircleIntersection",
       [&](bool w) { return m.LineCircleIntersection(a, p, a, 4, Want(w, points)); }},
      {"LineOvalIntersection",
       "+LineOvalIntersection +PerpendicularProjection +LinesIntersection -LinesIntersection "
       "-PerpendicularProjection -LineOvalIntersection",
       [&](bool w) { return m.LineOvalIntersection(a, p, a, 4, 2, 30, Want(w, points)); }},
      {"LineSegmentCircleIntersection",
       "+LineSegmentCircleIntersection +LineCircleIntersection -LineCircleIntersection "
       "-LineSegmentCircleIntersection",
       [&](bool w) { return m.LineSegmentCircleIntersection(a, p, a, 4, Want(w, points)); }},
      {"LineSegmentOvalIntersection",
       "+LineSegmentOvalIntersection +LineOvalIntersection +PerpendicularProjection "
       "+LinesIntersection -LinesIntersection -PerpendicularProjection -LineOvalIntersection "
       "-LineSegmentOvalIntersection",
       [&](bool w) { return m.LineSegmentOvalIntersection(a, p, a, 4, 2, 30, Want(w, points)); }},
      {"TangentFromPointToCircle",
       "+TangentFromPointToCircle +PointToCircleDistance +PointToPointDistance "
       "-PointToPointDistance -PointToCircleDistance -TangentFromPointToCircle",
       [&](bool w) { return m.TangentFromPointToCircle(p, a, 4, Want(w, points)); }},
      {"PointToCircleDistance",
       "+PointToCircleDistance +PointToPointDistance -PointToPointDistance "
       "-PointToCircleDistance",
       [&](bool w) { return m.PointToCircleDistance(p, a, 4, Want(w, value), Want(w, out)); }},
      {"LineSegmentPolygonIntersection",  // the closing edge is parallel to the segment
       "+LinesIntersection +LinesIntersection -LinesIntersection +LinesIntersection "
       "+LinesIntersection -LinesIntersection",
       [&](bool w) { return m.LineSegmentPolygonIntersection(p, q, square, Want(w, points)); }},
      {"LineContourIntersection",
       "+LineContourIntersection +LinesIntersection -LinesIntersection +LinesIntersection "
       "-LinesIntersection -LineContourIntersection",
       [&](bool w) { return m.LineContourIntersection(p, q, contour, Want(w, points)); }},
      {"LineContourIntersection, 8 arguments",
       "+LinesIntersection -LinesIntersection +LinesIntersection -LinesIntersection",
       [&](bool w) {
         return m.LineContourIntersection(p, q, contour, Want(w, points), Want(w, starts),
                                          Want(w, starts), Want(w, indices), Want(w, indices));
       }},
      {"RectAngularToPolygon", "",
       [&](bool w) { return m.RectAngularToPolygon(a, 4, 2, 30, Want(w, points)); }},
      {"PointToCirclePosRelation", "+PointToCirclePosRelation -PointToCirclePosRelation",
       [&](bool w) { return m.PointToCirclePosRelation(p, a, 5, Want(w, code)); }},
      {"PointToOvalPosRelation", "+PointToOvalPosRelation -PointToOvalPosRelation",
       [&](bool w) { return m.PointToOvalPosRelation(p, a, 5, 3, 30, Want(w, code)); }},
      {"PointToPolygonPosRelation", "+PointToPolygonPosRelation -PointToPolygonPosRelation",
       [&](bool w) { return m.PointToPolygonPosRelation(p, square, Want(w, code)); }},
      {"PointToPolygonPosRelation, returned", "",
       [&](bool) { return m.PointToPolygonPosRelation(p, square) + 1; }},
      {"PointToPolygonPosRelation2",  // the first edge is far, the second in reach
       "+PointToSegmentDistance +PerpendicularProjection +LinesIntersection -LinesIntersection "
       "-PerpendicularProjection +PointTolineDistance -PointTolineDistance "
       "-PointToSegmentDistance +PointToSegmentDistance -PointToSegmentDistance",
       [&](bool w) { return m.PointToPolygonPosRelation2(beside, square, 65, Want(w, code)); }},
      {"PointToPolygonPosRelation2, returned", "+PointToSegmentDistance -PointToSegmentDistance",
       [&](bool) { return m.PointToPolygonPosRelation2(a, 65, square); }},
      {"Dlg::PointToRectangularPos",
       "+PointToRectangularPos +PointToPolygonPosRelation -PointToPolygonPosRelation "
       "-PointToRectangularPos",
       [&](bool w) { return dlg.PointToRectangularPos(p, a, 4, 2, 30, Want(w, code)); }},
      {"CircleToCircleIntersection", "+CircleToCircleIntersection -CircleToCircleIntersection",
       [&](bool w) {
         return m.CircleToCircleIntersection(a, 1, b, 2, Want(w, points), Want(w, value));
       }},
      {"OvalsIntersection", "+OvalsIntersection -OvalsIntersection",
       [&](bool w) {
         return m.OvalsIntersection(a, 3, 2, 0, b, 3, 2, 0, Want(w, points), Want(w, value));
       }},
      {"CircleOvalIntersection", "+CircleOvalIntersection -CircleOvalIntersection",
       [&](bool w) {
         return m.CircleOvalIntersection(a, 3, b, 3, 2, 0, Want(w, points), Want(w, value));
       }},
  });
  // A null output ends this one before its edges are looked at.
  zor::test::TraceCapture capture;
  EXPECT_EQ(m.LineRectangularIntersection(a, p, a, 4, 2, 30, nullptr), GM_OK);
  EXPECT_EQ(capture.Events(), "+LineRectangularIntersection -LineRectangularIntersection");
  capture.Clear();
  EXPECT_EQ(m.LineRectangularIntersection(a, p, a, 4, 2, 30, &points), GM_OK);
  EXPECT_EQ(capture.Events(),
            "+LineRectangularIntersection +LinesIntersection -LinesIntersection "
            "+LinesIntersection -LinesIntersection +LinesIntersection -LinesIntersection "
            "+LinesIntersection -LinesIntersection -LineRectangularIntersection");
}
