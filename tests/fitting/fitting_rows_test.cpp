#include <string>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using Facade = ZORMV::ZorGeometryMeasureDlg;
using zor::test::Want;

TEST(FittingOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  Facade dlg;
  ZorPointArray edge = {{0, 0}, {3, 1}, {6, 2}, {9, 3}};
  ZorPoint p, q;
  ZorVar value;
  ZorPointArray arc = {{5, 0}, {0, 5}, {-5, 0}, {0, -5}, {3, 4}}, two = {{0, 0}, {8, 0}};
  ZorVarArray turns = {0.0, 90.0, 180.0, 270.0, 53.0}, angles = {45.0, 135.0};
  double radius = 0.0;
  float a = 0, b = 0, turn = 0;
  const auto ellipse = [&](bool w, auto& object, auto method, auto... settings) {
    return (object.*method)(arc, settings..., Want(w, p), Want(w, a), Want(w, b), Want(w, turn));
  };
  std::string five_distances;
  for (int i = 0; i < 5; ++i) five_distances += " +PointToOvalDistance -PointToOvalDistance";
  zor::test::CheckRows({
      {"FitLine", "", [&](bool w) { return m.FitLine(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"LeastSqaureLineFit, one pass", "+LeastSqaureLineFit",
       [&](bool w) { return m.LeastSqaureLineFit(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"Dlg::LeastSqaureLineFit", "+LeastSqaureLineFit -LeastSqaureLineFit",
       [&](bool w) { return dlg.LeastSqaureLineFit(edge, 2, 2, Want(w, p), Want(w, q)); }},
      {"Dlg::LeastAbsoluteLineFit", "+LeastAbsoluteLineFit -LeastAbsoluteLineFit",
       [&](bool w) { return dlg.LeastAbsoluteLineFit(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"FitCircle", "", [&](bool w) { return m.FitCircle(arc, Want(w, p), Want(w, radius)); }},
      {"LeastSqaureCircleFit, one pass", "+LeastSqaureCircleFit",
       [&](bool w) { return m.LeastSqaureCircleFit(arc, 1, 2, Want(w, p), Want(w, radius)); }},
      {"Dlg::LeastSqaureCircleFit", "+LeastSqaureCircleFit -LeastSqaureCircleFit",
       [&](bool w) { return dlg.LeastSqaureCircleFit(arc, 2, 2, Want(w, p), Want(w, radius)); }},
      {"Dlg::LeastAbsoluteCircleFit", "+LeastAbsoluteCircleFit -LeastAbsoluteCircleFit",
       [&](bool w) { return dlg.LeastAbsoluteCircleFit(arc, 1, 2, Want(w, p), Want(w, radius)); }},
      {"Dlg::PointAnglePairsCircleFit", "+PointAnglePairsCircleFit -PointAnglePairsCircleFit",
       [&](bool w) {
         return dlg.PointAnglePairsCircleFit(arc, turns, Want(w, p), Want(w, radius));
       }},
      {"PointAnglePairsCircleFit, two points",
       "+PointAnglePairsCircleFit +LinesIntersection -LinesIntersection +LinesIntersection "
       "-LinesIntersection +LinesIntersection -LinesIntersection",
       [&](bool w) {
         return m.PointAnglePairsCircleFit(two, angles, Want(w, p), Want(w, radius));
       }},
      {"Dlg::VerticalBisectorCircleFit", "+VerticalBisectorCircleFit -VerticalBisectorCircleFit",
       [&](bool w) { return dlg.VerticalBisectorCircleFit(arc, Want(w, p), Want(w, radius)); }},
      {"FitEllipse", "", [&](bool w) { return ellipse(w, m, &ZorGeometryMeasure::FitEllipse); }},
      {"LeastSqaureEllipseFit, one pass", "+LeastSqaureEllipseFit",
       [&](bool w) { return ellipse(w, dlg, &Facade::LeastSqaureEllipseFit, 1, 2.0); }},
      {"Dlg::LeastSqaureEllipseFit",
       "+LeastSqaureEllipseFit" + five_distances + " -LeastSqaureEllipseFit",
       [&](bool w) { return ellipse(w, dlg, &Facade::LeastSqaureEllipseFit, 2, 2.0); }},
      {"Dlg::LeastAbsoluteEllipseFit", "+LeastAbsoluteEllipseFit -LeastAbsoluteEllipseFit",
       [&](bool w) { return ellipse(w, dlg, &Facade::LeastAbsoluteEllipseFit, 1, 2.0); }},
      {"SSETest", "",
       [&](bool w) {
         return m.SSETest({1.0, 2.0}, Want(w, value));
       }},
  });
}
