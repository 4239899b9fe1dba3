#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::Want;

TEST(ElementaryOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPoint a(0, 0), b(10, 0), p(3, 4), q(3, -4), out1, out2;
  ZorPointArray points, triangle{a, b, p};
  ZorROI roi, moved;
  roi.GenCircle(p, 2);
  double value = 0.0, angle = 30.0;
  zor::test::CheckRows({
      {"PointToPointDistance", "+PointToPointDistance -PointToPointDistance",
       [&](bool w) { return m.PointToPointDistance(a, p, Want(w, value)); }},
      {"MidPoint", "+MidPoint -MidPoint", [&](bool w) { return m.MidPoint(a, b, Want(w, out1)); }},
      {"MidPoint, returned", "", [&](bool) { return m.MidPoint(a, b) == ZorPoint(5, 0) ? 0 : 1; }},
      {"LinesIntersection", "+LinesIntersection -LinesIntersection",
       [&](bool w) { return m.LinesIntersection(a, b, p, q, Want(w, out1)); }},
      {"PerpendicularProjection",
       "+PerpendicularProjection +LinesIntersection -LinesIntersection -PerpendicularProjection",
       [&](bool w) { return m.PerpendicularProjection(p, a, b, Want(w, out1)); }},
      {"ParallerLine", "+ParallerLine +PointTolineDistance -PointTolineDistance -ParallerLine",
       [&](bool w) { return m.ParallerLine(p, a, b, Want(w, out1)); }},
      {"MidVertLine", "",
       [&](bool w) { return m.MidVertLine(a, p, Want(w, out1), Want(w, value)); }},
      {"Deg", "", [&](bool w) { return m.Deg(1, Want(w, value)); }},
      {"Rad", "", [&](bool w) { return m.Rad(1, Want(w, value)); }},
      {"PointPosition", "",
       [&](bool w) { return m.PointPosition(points, points, 0, Want(w, points)); }},
      {"AdjustPointArray", "",
       [&](bool w) { return m.AdjustPointArray(triangle, 1, Want(w, points)); }},
      {"TrianglePosition",
       "+PerpendicularProjection +LinesIntersection -LinesIntersection -PerpendicularProjection",
       [&](bool w) { return m.TrianglePosition(triangle, triangle, 0, Want(w, points)); }},
      {"TransformPoint", "", [&](bool) { return m.TransformPoint(p, a, 0) == p ? 0 : 1; }},
      {"FormatResult", "", [&](bool) { return m.FormatResult(p), 0; }},
      {"FormatPointArray", "", [&](bool) { return m.FormatPointArray(triangle), 0; }},
      {"FormatPointArray2", "", [&](bool) { return m.FormatPointArray2(triangle), 0; }},
      {"TransverseROI", "", [&](bool w) { return m.TransverseROI(roi, b, Want(w, moved)), 0; }},
      {"Tools::CalcVectorAngle", "",
       [&](bool) { return ZorGeometryMeasureTools().CalcVectorAngle(b) == 0 ? 0 : 1; }},
      {"BissectingLine, 3 points",
       "+AngleFrom3Point +AngleFromHorizontal +AngleFromHorizontal -AngleFrom3Point "
       "+AngleFromHorizontal +LinesIntersection -LinesIntersection",
       [&](bool w) { return m.BissectingLine(ZorPoint(9, 1), a, p, Want(w, out1)); }},
      {"BissectingLine, 4 points",
       "+BissectingLine2 +AngleFromHorizontal +AngleFromHorizontal +LinesIntersection "
       "-LinesIntersection -BissectingLine2",
       [&](bool w) { return m.BissectingLine(a, b, a, p, Want(w, out1), Want(w, out2)); }},
      {"BissectingLine2",
       "+BissectingLine2 +AngleFromHorizontal +AngleFromHorizontal +LinesIntersection "
       "-LinesIntersection -BissectingLine2",
       [&](bool w) { return m.BissectingLine2(a, b, a, p, Want(w, out1), Want(w, out2)); }},
      {"BissectingVector", "+BissectingVector -BissectingVector",
       [&](bool w) { return m.BissectingVector(b, p, Want(w, out1)); }},
      {"MidLine", "+MidLine -MidLine",
       [&](bool w) { return m.MidLine(a, b, p, Want(w, out1), Want(w, out2)); }},
      {"AngleFromHorizontal", "+AngleFromHorizontal",
       [&](bool w) { return m.AngleFromHorizontal(a, p, Want(w, value)); }},
      {"AngleFromVertical", "", [&](bool w) { return m.AngleFromVertical(a, p, Want(w, value)); }},
      {"AngleFrom3Point",
       "+AngleFrom3Point +AngleFromHorizontal +AngleFromHorizontal -AngleFrom3Point",
       [&](bool w) { return m.AngleFrom3Point(b, a, p, Want(w, value)); }},
      {"AngleFrom4Point", "+AngleFrom4Point -AngleFrom4Point",
       [&](bool w) { return m.AngleFrom4Point(a, b, a, p, Want(w, value)); }},
      {"IncludedAngle", "+IncludedAngle +AngleFrom4Point -AngleFrom4Point -IncludedAngle",
       [&](bool w) { return m.IncludedAngle(a, b, a, p, 0, Want(w, value)); }},
      {"SampleArc", "+SampleArc -SampleArc",
       [&](bool w) { return m.SampleArc(a, 2, 1, 0, 0, 90, 3, Want(w, points)); }},
      {"PointTolineDistance", "+PointTolineDistance -PointTolineDistance",
       [&](bool w) { return m.PointTolineDistance(p, a, b, Want(w, value)); }},
      {"Dlg::Perpendicular", "+Perpendicular -Perpendicular",
       [&](bool w) { return dlg.Perpendicular(a, b, p, Want(w, out1)); }},
      {"Dlg::RotateProjection", "+RotateProjection -RotateProjection",
       [&](bool w) { return dlg.RotateProjection(p, a, angle, Want(w, out1)); }},
      {"Dlg::BissectingLine, 3 points",
       "+BissectingLine +BissectingLine2 +AngleFromHorizontal +AngleFromHorizontal "
       "+LinesIntersection -LinesIntersection -BissectingLine2 -BissectingLine",
       [&](bool w) { return dlg.BissectingLine(b, a, p, Want(w, out1)); }},
      {"Dlg::BissectingLine, 4 points",
       "+BissectingLine2 +AngleFromHorizontal +AngleFromHorizontal +LinesIntersection "
       "-LinesIntersection -BissectingLine2",
       [&](bool w) { return dlg.BissectingLine(a, b, a, p, Want(w, out1), Want(w, out2)); }},
      {"Dlg::CircleArcSample", "+CircleArcSample +SampleArc -SampleArc -CircleArcSample",
       [&](bool w) { return dlg.CircleArcSample(a, 2, 0, 90, 3, Want(w, points)); }},
  });
}
