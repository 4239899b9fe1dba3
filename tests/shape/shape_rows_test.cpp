#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

TEST(ShapeOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray polygon = {{0, 0}, {10, 0}, {10, 4}, {0, 4}}, axes;
  ZorVarArray values;
  ZorPoint out1, out2;
  double value = 0.0;
  zor::test::CheckRows({
      {"Area", "", [&](bool w) { return m.Area(polygon, Want(w, value)); }},
      {"Area2", "", [&](bool w) { return m.Area2(polygon, Want(w, value)); }},
      {"PointArrayCenter", "+PointArrayCenter -PointArrayCenter",
       [&](bool w) { return m.PointArrayCenter(polygon, Want(w, out1)); }},
      {"PolygonCenter", "+PolygonCenter -PolygonCenter",
       [&](bool w) { return m.PolygonCenter(polygon, Want(w, out1)); }},
      {"PolygonWeightCenter", "",
       [&](bool w) { return m.PolygonWeightCenter(polygon, Want(w, out1)); }},
      {"CalcMoment", "", [&](bool w) { return m.CalcMoment(polygon, 22, Want(w, value)); }},
      {"FindMaxDistancePointPair", "",
       [&](bool w) { return m.FindMaxDistancePointPair(polygon, Want(w, out1), Want(w, out2)); }},
      {"Dlg::PolygonArea", "+PolygonArea -PolygonArea",
       [&](bool w) { return dlg.PolygonArea(polygon, Want(w, value)); }},
      {"Dlg::PolygonCenter", "+PolygonCenter -PolygonCenter",
       [&](bool w) { return dlg.PolygonCenter(polygon, Want(w, out1)); }},
      {"Dlg::PrincipalComponentAnalysis", "+PrincipalComponentAnalysis -PrincipalComponentAnalysis",
       [&](bool w) {
         return dlg.PrincipalComponentAnalysis(polygon, Want(w, values), Want(w, axes));
       }},
  });
}
