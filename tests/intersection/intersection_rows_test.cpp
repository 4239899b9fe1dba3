#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

TEST(IntersectionOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(0, 0), b(10, 0), p(3, 4), q(3, -4), out;
  ZorPointArray square{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, points;
  int code = 0;
  double value = 0;
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
}
