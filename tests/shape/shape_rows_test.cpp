#include <string>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

namespace {

std::string Repeated(int count, const std::string& part) {
  std::string all;
  for (int i = 0; i < count; ++i) all += part;
  return all;
}

}  // namespace

TEST(ShapeOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray polygon = {{0, 0}, {10, 0}, {10, 4}, {0, 4}}, axes, many;
  for (int i = 0; i < 10; ++i) many.Append(ZorPoint(i, i * (9 - i)));
  ZorVarArray values;
  ZorPoint out1, out2;
  double value = 0.0, length = 0.0, width = 0.0, angle = 0.0, radius = 5.0;
  const std::string rectangle =
      "+MinAreaRectangularity +MidPoint -MidPoint +AngleFromHorizontal -MinAreaRectangularity";
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
      {"Roundness, mode 1", "", [&](bool w) { return m.Roundness(many, 1, Want(w, value)); }},
      {"Roundness, mode 3", "+PolygonCenter -PolygonCenter",
       [&](bool w) { return m.Roundness(many, 3, Want(w, value)); }},
      {"Straightness, mode 0", "", [&](bool w) { return m.Straightness(many, 0, Want(w, value)); }},
      {"Straightness, mode 1",
       "+LeastSqaureLineFit" + Repeated(10, " +PointTolineDistance -PointTolineDistance"),
       [&](bool w) { return m.Straightness(many, 1, Want(w, value)); }},
      {"Rectangularity", "", [&](bool w) { return m.Rectangularity(polygon, Want(w, value)); }},
      {"Rectangularity2", rectangle,
       [&](bool w) { return m.Rectangularity2(polygon, Want(w, value)); }},
      {"Dlg::MinAreaRectangularity", rectangle,
       [&](bool w) {
         return dlg.MinAreaRectangularity(polygon, Want(w, out1), Want(w, length), Want(w, width),
                                          Want(w, angle));
       }},
      {"Dlg::CircleExternalRectangle",
       "+CircleExternalRectangle " + rectangle + " -CircleExternalRectangle",
       [&](bool w) {
         return dlg.CircleExternalRectangle(out2, radius, Want(w, out1), Want(w, length),
                                            Want(w, width), Want(w, angle));
       }},
      {"Dlg::EllipseExternalRectangle",
       "+EllipseExternalRectangle " + rectangle + " -EllipseExternalRectangle",
       [&](bool w) {
         return dlg.EllipseExternalRectangle(out2, 4, 2, 1, Want(w, out1), Want(w, length),
                                             Want(w, width), Want(w, angle));
       }},
      {"Dlg::PolygonExternalRectangle", "+PolygonExternalRectangle -PolygonExternalRectangle",
       [&](bool w) {
         return dlg.PolygonExternalRectangle(polygon, Want(w, out1), Want(w, width),
                                             Want(w, length));
       }},
      {"Dlg::ExternalCircle", "+ExternalCircle -ExternalCircle",
       [&](bool w) { return dlg.ExternalCircle(polygon, Want(w, out1), Want(w, value)); }},
      {"Dlg::IncisionCircle", "+IncisionCircle -IncisionCircle",
       [&](bool w) { return dlg.IncisionCircle(polygon, Want(w, out1), Want(w, value)); }},
  });
}
