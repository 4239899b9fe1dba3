#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasureDlg.h>
#include <ZorGeometryMeasureTools.h>

using zor::test::Want;

TEST(ContourOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasureTools tools;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorContour contour = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  ZorPointArray points = {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, polygon;
  zor::test::CheckRows({
      {"Tools::GetPolygon", "",
       [&](bool w) { return tools.GetPolygon(contour, 1, Want(w, polygon)); }},
      {"Tools::GetPolygon2", "",
       [&](bool w) { return tools.GetPolygon2(points, 1, 0, true, Want(w, polygon)); }},
      {"Dlg::FindPolygon", "+FindPolygon -FindPolygon",
       [&](bool w) { return dlg.FindPolygon(points, 1, 0, true, Want(w, polygon)); }},
  });
}
