#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

TEST(FittingOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorPointArray arc = {{5, 0}, {0, 5}, {-5, 0}, {0, -5}, {3, 4}}, two = {{0, 0}, {8, 0}}, curve,
                profile = {{0, 1}, {1, 3}, {2, 4}, {3, 2}, {4, 1}};
  ZorVarArray turns = {0.0, 90.0, 180.0, 270.0, 53.0}, angles = {45.0, 135.0}, v;
  ZorVar var;
  ZorPoint p, q;
  double r = 0, mean = 0, variance = 0;
  float a = 0, b = 0, turn = 0;
  std::vector<zor::test::OperationRow> rows;
  const auto add = [&](const std::string& name, const std::string& trace, auto call) {
    rows.push_back({name, trace, [call](bool wanted) {
                      return call([wanted](auto& out) { return wanted ? &out : nullptr; });
                    }});
  };
  const auto traced = [&](const std::string& name, auto call, const std::string& nested = "") {
    add(name, "+" + name + nested + " -" + name, call);
  };
  std::string distances, crossings;
  for (int i = 0; i < 5; ++i) distances += " +PointToOvalDistance -PointToOvalDistance";
  for (int i = 0; i < 3; ++i) crossings += " +LinesIntersection -LinesIntersection";

  add("FitLine", "", [&](auto o) { return m.FitLine(arc, 1, 2, o(p), o(q)); });
  add("LeastSqaureLineFit, one pass", "+LeastSqaureLineFit",
      [&](auto o) { return m.LeastSqaureLineFit(arc, 1, 2, o(p), o(q)); });
  traced("LeastSqaureLineFit",
         [&](auto o) { return dlg.LeastSqaureLineFit(arc, 2, 2, o(p), o(q)); });
  traced("LeastAbsoluteLineFit",
         [&](auto o) { return dlg.LeastAbsoluteLineFit(arc, 1, 2, o(p), o(q)); });
  add("SSETest", "", [&](auto o) { return m.SSETest(turns, o(var)); });
  add("FitCircle", "", [&](auto o) { return m.FitCircle(arc, o(p), o(r)); });
  add("LeastSqaureCircleFit, one pass", "+LeastSqaureCircleFit",
      [&](auto o) { return m.LeastSqaureCircleFit(arc, 1, 2, o(p), o(r)); });
  traced("LeastSqaureCircleFit",
         [&](auto o) { return dlg.LeastSqaureCircleFit(arc, 2, 2, o(p), o(r)); });
  traced("LeastAbsoluteCircleFit",
         [&](auto o) { return dlg.LeastAbsoluteCircleFit(arc, 1, 2, o(p), o(r)); });
  traced("PointAnglePairsCircleFit",
         [&](auto o) { return dlg.PointAnglePairsCircleFit(arc, turns, o(p), o(r)); });
  add("PointAnglePairsCircleFit, two points", "+PointAnglePairsCircleFit" + crossings,
      [&](auto o) { return m.PointAnglePairsCircleFit(two, angles, o(p), o(r)); });
  traced("VerticalBisectorCircleFit",
         [&](auto o) { return dlg.VerticalBisectorCircleFit(arc, o(p), o(r)); });
  add("FitEllipse", "", [&](auto o) { return m.FitEllipse(arc, o(p), o(a), o(b), o(turn)); });
  const auto ellipse = [&](int passes) {
    return [&, passes](auto o) {
      return dlg.LeastSqaureEllipseFit(arc, passes, 2, o(p), o(a), o(b), o(turn));
    };
  };
  add("LeastSqaureEllipseFit, one pass", "+LeastSqaureEllipseFit", ellipse(1));
  traced("LeastSqaureEllipseFit", ellipse(2), distances);
  traced("LeastAbsoluteEllipseFit",
         [&](auto o) { return dlg.LeastAbsoluteEllipseFit(arc, 1, 2, o(p), o(a), o(b), o(turn)); });
  traced("LeastSqaurePolynomialFit",
         [&](auto o) { return m.LeastSqaurePolynomialFit(profile, 2, 2, 1, o(v), o(curve)); });
  traced("LeastAbsolutePolynomialFit",
         [&](auto o) { return m.LeastAbsolutePolynomialFit(profile, 2, 2, 1, o(v), o(curve)); });
  add("SolveLinerEquationsPolynomialFit: 1 is success", "",
      [&](auto o) { return m.SolveLinerEquationsPolynomialFit(profile, 2, o(v), o(curve)) - 1; });
  add("GenPolynomialCurve", "",
      [&](auto o) { return m.GenPolynomialCurve(profile, 2, 2, 1, o(v), o(curve)); });
  traced("GenGaussianCurve",
         [&](auto o) { return m.GenGaussianCurve(profile, 2, 1, o(v), o(curve)); });
  traced("GenSinCurve", [&](auto o) { return m.GenSinCurve(profile, 2, 1, o(v), o(curve)); });
  traced("FitSinCurve", [&](auto o) { return m.FitSinCurve(profile, 0, o(v)); });
  add("FitCurve", "", [&](auto o) { return m.FitCurve(profile, 2, o(v)); });
  add("FitCurveInv", "", [&](auto o) { return m.FitCurveInv(profile, 1, o(v)); });
  add("FitGaussianCurve, closed form", "",
      [&](auto o) { return m.FitGaussianCurve(profile, o(r), o(mean), o(variance)); });
  traced("FitGaussianCurve", [&](auto o) { return m.FitGaussianCurve(profile, 0, o(v)); });
  traced("GenSplineCurve", [&](auto o) { return m.GenSplineCurve(profile, 0, 2, o(curve)); });
  traced("Point2DNormal", [&](auto o) { return m.Point2DNormal(profile, 2, o(curve)); });
  traced("DiscretePoint2DNormal",
         [&](auto o) { return m.DiscretePoint2DNormal(profile, o(curve)); });
  add("FitPlane", "", [&](auto) { return m.FitPlane(); });
  zor::test::CheckRows(rows);
}
