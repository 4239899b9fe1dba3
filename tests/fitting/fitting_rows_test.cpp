#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::Want;

TEST(FittingOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray edge = {{0, 0}, {3, 1}, {6, 2}, {9, 3}};
  ZorPoint p, q;
  ZorVar value;
  zor::test::CheckRows({
      {"FitLine", "", [&](bool w) { return m.FitLine(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"LeastSqaureLineFit, one pass", "+LeastSqaureLineFit",
       [&](bool w) { return m.LeastSqaureLineFit(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"Dlg::LeastSqaureLineFit", "+LeastSqaureLineFit -LeastSqaureLineFit",
       [&](bool w) { return dlg.LeastSqaureLineFit(edge, 2, 2, Want(w, p), Want(w, q)); }},
      {"Dlg::LeastAbsoluteLineFit", "+LeastAbsoluteLineFit -LeastAbsoluteLineFit",
       [&](bool w) { return dlg.LeastAbsoluteLineFit(edge, 1, 2, Want(w, p), Want(w, q)); }},
      {"SSETest", "",
       [&](bool w) {
         return m.SSETest({1.0, 2.0}, Want(w, value));
       }},
  });
}
