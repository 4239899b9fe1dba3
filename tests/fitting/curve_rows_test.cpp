#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>

using zor::test::Want;

TEST(CurveOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorPointArray profile = {{0, 1}, {1, 3}, {2, 4}, {3, 2}, {4, 1}}, curve;
  ZorVarArray values;
  double amplitude = 0.0, mean = 0.0, variance = 0.0;
  zor::test::CheckRows({
      {"LeastSqaurePolynomialFit", "+LeastSqaurePolynomialFit -LeastSqaurePolynomialFit",
       [&](bool w) {
         return m.LeastSqaurePolynomialFit(profile, 2, 2, 1, Want(w, values), Want(w, curve));
       }},
      {"LeastAbsolutePolynomialFit", "+LeastAbsolutePolynomialFit -LeastAbsolutePolynomialFit",
       [&](bool w) {
         return m.LeastAbsolutePolynomialFit(profile, 2, 2, 1, Want(w, values), Want(w, curve));
       }},
      {"GenPolynomialCurve", "",
       [&](bool w) {
         return m.GenPolynomialCurve(profile, 2, 2, 1, Want(w, values), Want(w, curve));
       }},
      {"GenGaussianCurve", "+GenGaussianCurve -GenGaussianCurve",
       [&](bool w) { return m.GenGaussianCurve(profile, 2, 1, Want(w, values), Want(w, curve)); }},
      {"GenSinCurve", "+GenSinCurve -GenSinCurve",
       [&](bool w) { return m.GenSinCurve(profile, 2, 1, Want(w, values), Want(w, curve)); }},
      {"FitSinCurve", "+FitSinCurve -FitSinCurve",
       [&](bool w) { return m.FitSinCurve(profile, 0, Want(w, values)); }},
      {"FitCurve", "", [&](bool w) { return m.FitCurve(profile, 2, Want(w, values)); }},
      {"FitCurveInv", "", [&](bool w) { return m.FitCurveInv(profile, 1, Want(w, values)); }},
      {"Point2DNormal", "+Point2DNormal -Point2DNormal",
       [&](bool w) { return m.Point2DNormal(profile, 2, Want(w, curve)); }},
      {"DiscretePoint2DNormal", "+DiscretePoint2DNormal -DiscretePoint2DNormal",
       [&](bool w) { return m.DiscretePoint2DNormal(profile, Want(w, curve)); }},
      {"FitPlane", "", [&](bool) { return m.FitPlane(); }},
      {"FitGaussianCurve, closed form", "",
       [&](bool w) {
         return m.FitGaussianCurve(profile, Want(w, amplitude), Want(w, mean), Want(w, variance));
       }},
      {"FitGaussianCurve, solver", "+FitGaussianCurve -FitGaussianCurve",
       [&](bool w) { return m.FitGaussianCurve(profile, 0, Want(w, values)); }},
      {"SolveLinerEquationsPolynomialFit: 1 is success", "",
       [&](bool w) {
         return 1 - m.SolveLinerEquationsPolynomialFit(profile, 2, Want(w, values), Want(w, curve));
       }},
      {"GenSplineCurve", "+GenSplineCurve -GenSplineCurve",
       [&](bool w) { return m.GenSplineCurve(profile, 0, 2, Want(w, curve)); }},
  });
}
