#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::Want;

TEST(ContourOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorGeometryMeasureTools tools;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorContour contour = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  ZorPointArray points = {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, polygon, some = {{1, 1}}, convex;
  ZorContour in_line = {{0, 0}, {1, 0}, {3, 0}, {2, 0}}, result;
  ZorContour bent = {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 3},
                     {5, 3}, {6, 0}, {7, 0}, {8, 0}, {9, 0}};
  ZorContour band = {{0, 0}, {40, 0}, {40, 10}, {0, 10}};
  ZorContourArray parts;
  ZorVarArray values = {ZorVar(1), ZorVar(3), ZorVar(2)}, numbers;
  ZorLine line({0, 0}, {9, 1});
  ZorROIArray lines;
  double value = 0.0;
  ZorPoint centre(5, 5), found;
  zor::test::CheckRows({
      {"ContourScaling", "",
       [&](bool w) { return m.ContourScaling(contour, centre, 2, Want(w, result)); }},
      {"ContourScaling2", "",
       [&](bool w) { return m.ContourScaling2(contour, centre, Want(w, result), 2); }},
      {"ContourScaling3", "",
       [&](bool w) { return m.ContourScaling3(contour, 2, Want(w, result)); }},
      {"ContourScaling3, a short one in line", "+PointArrayCenter -PointArrayCenter",
       [&](bool w) { return m.ContourScaling3(in_line, 2, Want(w, result)); }},
      {"ContourScaling_Closed", "",
       [&](bool w) { return m.ContourScaling_Closed(contour, 2, Want(w, result)); }},
      {"FindConvexPoint", "+FindConvexPoint -FindConvexPoint",
       [&](bool w) { return m.FindConvexPoint(bent, 1, 0, Want(w, convex)); }},
      {"FindConvexPoint2", "+FindConvexPoint2 -FindConvexPoint2",
       [&](bool w) { return m.FindConvexPoint2(bent, 1, 0, Want(w, convex)); }},
      {"FindExtremeValue", "+FindExtremeValue -FindExtremeValue",
       [&](bool w) { return m.FindExtremeValue(values, 0, 1, true, Want(w, numbers)); }},
      {"Tools::PointTolineDistance", "+PointTolineDistance -PointTolineDistance",
       [&](bool w) { return tools.PointTolineDistance(centre, line, Want(w, value)); }},
      {"Tools::GetCurvature", "+GetCurvature -GetCurvature",
       [&](bool w) { return tools.GetCurvature(line.start, centre, line.end, Want(w, value)); }},
      {"Tools::GetCurvatures", "+GetCurvatures -GetCurvatures",
       [&](bool w) { return tools.GetCurvatures(bent, 2, false, Want(w, numbers)); }},
      {"Tools::FindConvexPoint", "+FindConvexPoint -FindConvexPoint",
       [&](bool w) { return tools.FindConvexPoint(some, line, Want(w, found), Want(w, value)); }},
      {"Tools::GetPolygon", "",
       [&](bool w) { return tools.GetPolygon(contour, 1, Want(w, polygon)); }},
      {"Tools::GetPolygon2", "",
       [&](bool w) { return tools.GetPolygon2(points, 1, 0, true, Want(w, polygon)); }},
      {"Dlg::FindPolygon", "+FindPolygon -FindPolygon",
       [&](bool w) { return dlg.FindPolygon(points, 1, 0, true, Want(w, polygon)); }},
      {"Dlg::ContourSearchLine",
       "+ContourSearchLine +Get_Search_Line_for_Contour -Get_Search_Line_for_Contour "
       "-ContourSearchLine",
       [&](bool w) { return dlg.ContourSearchLine(band, 5, Want(w, lines)); }},
      {"Dlg::FindDefectRegion", "+FindDefectRegion +LeastSqaureLineFit -FindDefectRegion",
       [&](bool w) { return dlg.FindDefectRegion(bent, 5, 0, 1, 1, Want(w, parts)); }},
  });
}
