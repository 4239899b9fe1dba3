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
  ZorPointArray points = {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, polygon;
  ZorContour in_line = {{0, 0}, {1, 0}, {3, 0}, {2, 0}}, result;
  ZorContour bent = {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 3},
                     {5, 3}, {6, 0}, {7, 0}, {8, 0}, {9, 0}};
  ZorContourArray parts;
  ZorPoint centre(5, 5);
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
      {"Tools::GetPolygon", "",
       [&](bool w) { return tools.GetPolygon(contour, 1, Want(w, polygon)); }},
      {"Tools::GetPolygon2", "",
       [&](bool w) { return tools.GetPolygon2(points, 1, 0, true, Want(w, polygon)); }},
      {"Dlg::FindPolygon", "+FindPolygon -FindPolygon",
       [&](bool w) { return dlg.FindPolygon(points, 1, 0, true, Want(w, polygon)); }},
      {"Dlg::FindDefectRegion", "+FindDefectRegion +LeastSqaureLineFit -FindDefectRegion",
       [&](bool w) { return dlg.FindDefectRegion(bent, 5, 0, 1, 1, Want(w, parts)); }},
  });
}
