#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::elementary::Distance;
using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::UntouchedPoint;

namespace {

struct Outcome {
  long status = -1;
  ZorPoint centre = UntouchedPoint();
  double radius = kUntouched;
};

template <typename Method, typename... Args>
Outcome Call(Method method, ZorPointArray points, Args... args) {
  Outcome out;
  out.status = (ZorGeometryMeasure().*method)(points, args..., &out.centre, &out.radius);
  return out;
}
Outcome Squares(const ZorPointArray& points, int iterations, double clip) {
  return Call(&ZorGeometryMeasure::LeastSqaureCircleFit, points, iterations, clip);
}
Outcome Absolute(const ZorPointArray& points, int iterations, double clip) {
  return Call(&ZorGeometryMeasure::LeastAbsoluteCircleFit, points, iterations, clip);
}
Outcome Plain(const ZorPointArray& points) { return Call(&ZorGeometryMeasure::FitCircle, points); }
Outcome Pairs(const ZorPointArray& points, const ZorVarArray& angles) {
  return Call(&ZorGeometryMeasure::PointAnglePairsCircleFit, points, angles);
}
Outcome Bisectors(const ZorPointArray& points) {
  return Call(&ZorGeometryMeasure::VerticalBisectorCircleFit, points);
}

ZorPointArray Arc(const ZorPoint& centre, double radius, int n) {
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    points.Append({centre.x + radius * std::cos(0.7 * i), centre.y + radius * std::sin(0.7 * i)});
  }
  return points;
}

std::pair<ZorPoint, double> CircleOfModel(const cv::Mat& c) {
  const ZorPoint m(-c.at<double>(0) / 2, -c.at<double>(1) / 2);
  return {m, std::sqrt(m.x * m.x + m.y * m.y - c.at<double>(2))};
}

/// The circle of the rotation that carries the first of three points to the second.
std::pair<ZorPoint, double> RotationOfThree(const std::vector<ZorPoint>& p, double turn_deg) {
  const double delta = turn_deg * 3.1415926 / 180, co = std::cos(delta), si = std::sin(delta);
  cv::Mat matrix, right, c;
  cv::Mat(cv::Matx22d(1 - co, si, -si, 1 - co)).convertTo(matrix, CV_32F);
  cv::Mat(cv::Vec2d(p[1].x - co * p[0].x + si * p[0].y, p[1].y - si * p[0].x - co * p[0].y))
      .convertTo(right, CV_32F);
  cv::solve(matrix, right, c, cv::DECOMP_SVD);
  const ZorPoint m(double(c.at<float>(0)), double(c.at<float>(1)));
  return {m, double(float((Distance(p[0], m) + Distance(p[1], m) + Distance(p[2], m)) / 3))};
}

double Misfit(const std::vector<ZorPoint>& points, const std::pair<ZorPoint, double>& circle) {
  double sum = 0;
  for (const ZorPoint& p : points) sum += std::fabs(Distance(p, circle.first) - circle.second);
  return sum;
}

}  // namespace

TEST(CircleFits, CheckTheirArgumentsInOrderAndFindTheCircle) {
  const ZorPointArray two = {{0, 0}, {1, 0}}, arc = Arc({300, 200}, 40, 12);
  for (const auto& fit : {Squares, Absolute}) {
    EXPECT_EQ(fit(two, 0, -1).status, GM_E_TOO_FEW_POINTS);
    EXPECT_EQ(fit(arc, 0, -1).status, GM_E_PARAM_2);
    EXPECT_EQ(fit(arc, 1, -1e-9).status, GM_E_PARAM_3);
    EXPECT_EQ(fit(arc, 1, -1).radius, kUntouched);
  }
  EXPECT_EQ(Plain(two).status, GM_E_TOO_FEW_POINTS);
  ZorPointArray dented = arc;
  for (const int i : {2, 7}) dented[i] = {300, 200};
  EXPECT_EQ(Plain(dented).radius, Squares(dented, 1, 2).radius);
  for (const Outcome& out : {Plain(arc), Squares(dented, 30, 30), Absolute(arc, 2, 2)}) {
    EXPECT_EQ(out.status, GM_OK);
    ExpectNear(out.centre, {300, 200}, 1e-7);
    EXPECT_NEAR(out.radius, 40, 1e-7);
  }
}

TEST(CircleFits, WriteWhatTheyReject) {
  const ZorPointArray line = {{0, 0}, {1, 1}, {2, 2}, {5, 5}};
  EXPECT_EQ(Plain(line).status, GM_E_PARAM_1);
  EXPECT_EQ(Squares(line, 1, 2).centre, ZorPoint(0, 0));
  // Too small a radius, except for two passes of least squares.
  const ZorPointArray tiny = {{1e-7, 0}, {0, 1e-7}, {-1e-7, 0}, {0, -1e-7}};
  EXPECT_EQ(Plain(tiny).status, GM_OK);
  EXPECT_EQ(Squares(tiny, 2, 1).status, GM_OK);
  for (const Outcome& out : {Squares(line, 1, 2), Squares(tiny, 1, 1), Absolute(tiny, 1, 1)}) {
    EXPECT_EQ(out.status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_NEAR(out.radius, 5e-8, 6e-8);
  }
}

TEST(CircleFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.6);
  for (int i = 0; i < 40; ++i) {
    ZorPointArray points = Arc({12, -7}, 15, 10 + i);
    for (ZorPoint& p : points) p = p + ZorPoint(noise(rng), noise(rng));
    points[3] = {12, -2};
    const double clip = 1.5 + 0.1 * (i % 9);
    zor::test::MatrixFit reference(points, clip, [](const ZorPoint& p) {
      return std::vector<double>{p.x, p.y, 1, -(p.x * p.x + p.y * p.y)};
    });
    reference.inner_passes = 10;
    reference.solve = cv::DECOMP_QR;
    reference.least_weights = 3;
    reference.errors = [&](const cv::Mat& c) {
      std::vector<double> errors;
      const auto [centre, r] = CircleOfModel(c);
      for (const ZorPoint& p : points) errors.push_back(std::fabs(Distance(p, centre) - r));
      return errors;
    };
    for (const int passes : {1, 2, 3, 6}) {
      for (const auto& fit : {Squares, Absolute}) {
        const auto [centre, radius] = CircleOfModel(reference.Run(fit == Absolute, passes));
        const Outcome out = fit(points, passes, clip);
        ExpectNear(out.centre, centre, 1e-9);
        EXPECT_NEAR(out.radius, radius, 1e-9) << "cloud " << i << ", " << passes << " passes";
      }
    }
    // Two weights are too few for another pass, three are not.
    std::vector<double> errors = reference.errors(reference.Run(false, 1));
    std::sort(errors.begin(), errors.end());
    const double first = Squares(points, 2, 0).radius;
    EXPECT_EQ(Squares(points, 3, (errors[1] + errors[2]) / 2).radius, first);
    EXPECT_NE(Squares(points, 3, (errors[2] + errors[3]) / 2).radius, first);
  }
}

TEST(LeastAbsoluteCircle, EqualSumDoesNotEndThePassAndZeroIsNoNumber) {
  // Every sum is exact, so the second step repeats the first one's sum (F = -0.5, radius 0.71). The
  // third reaches the shrinkage and F = 0, the fourth is worse: radius 0, which is rejected.
  ZorPointArray points = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
  for (int i = 0; i < 12; ++i) points.Append(ZorPoint(0, 0));
  EXPECT_EQ(Absolute(points, 1, 1).radius, 0);
  // Radii 1 and 2 and an exact mean: a residual of 0 beside larger ones is not a number.
  points = {{2, 0}, {-2, 0}, {0, 2}, {0, -2}, {0, 0}, {0, 0}, {0, 0}, {0, 0}};
  for (const double x : {-1.0, 1.0, -1.0, 1.0}) points.Append(ZorPointArray{{x, 1}, {x, -1}});
  EXPECT_TRUE(std::isnan(Absolute(points, 1, 1).radius));
}

TEST(LeastSquaresCircle, GoesRoundInItsLastBitsAsIfEveryPassWereMade) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 1);
  int rounds = 0;
  std::size_t known = 0;
  for (int cloud = 0; cloud < 8; ++cloud) {
    ZorPointArray points;
    for (int i = 0; i < 60; ++i) {
      points.Append({100 + 50 * std::cos(i) + noise(rng), 50 * std::sin(i) + noise(rng)});
    }
    // One pass leads from a circle to the next, wherever they stand in the sequence.
    using State = std::tuple<double, double, double>;
    const auto after = [&points](int passes) {
      const Outcome out = Squares(points, passes, 3);
      return State(out.centre.x, out.centre.y, out.radius);
    };
    std::map<State, State> next;
    State before = after(2);
    for (int passes = 3; passes < 200; ++passes) {
      const State circle = after(passes);
      EXPECT_EQ(next.emplace(before, circle).first->second, circle) << passes;
      rounds += passes > 150 && circle != before ? 1 : 0;
      before = circle;
    }
    known += next.count(after(2000000000));
  }
  EXPECT_GT(rounds, 0);  // or all came to rest
  EXPECT_GT(known, 0U);  // of the clouds that go round so soon
}

TEST(CircleFits, SurviveAnyPoints) {
  for (const double bad : {kNaN, kInfinity, -1e200}) {
    const ZorPointArray points = {{8, 5}, {5, 8}, {2, 5}, {5, bad}};
    EXPECT_EQ(Squares(points, 3, 1).status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_EQ(Absolute(points, 3, 1).status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_EQ(Bisectors(points).status, bad == -1e200 ? GM_OK : GM_E_PARAM_1);
    EXPECT_EQ(Pairs(points, {0.0, 1.0, bad, 3.0}).status, GM_OK);
  }
  const ZorPointArray same(std::vector<ZorPoint>(50000, ZorPoint(3, 4)));
  EXPECT_NO_THROW(Squares(same, 1000000000, 1));
}

TEST(PointAnglePairsCircle, TwoPoints) {
  const auto check = [](const ZorPointArray& points, const ZorVarArray& angles, long status,
                        const ZorPoint& centre, double radius) {
    const Outcome out = Pairs(points, angles);
    EXPECT_EQ(out.status, status) << zor::test::Show(points[0]);
    ExpectNear(out.centre, centre, 1e-4);
    EXPECT_NEAR(out.radius, radius, 1e-4);
    EXPECT_EQ(out.centre.x, std::round(out.centre.x * 1e4) / 1e4);
  };
  // Far enough for the five digits of pi to show: the hits of the two lines on x = 40000.
  const double y0 = 40000 * std::tan(45 * 3.14159 / 180);
  const double y1 = -40000 * std::tan(135 * 3.14159 / 180);
  const double r = (std::hypot(40000, y0) + std::hypot(40000, y1)) / 2;
  check({{0, 0}, {80000, 0}}, {45.0, 135.0}, GM_OK, {40000, (y0 + y1) / 2}, r);
  check({{2, 0}, {2, 8}}, {45.0, -45.0}, GM_OK, {6, 4}, 5.656854);
  check({{0, 0}, {4, 2}}, {0.0, 90.0}, GM_OK, {3.25, -1.5}, 3.75);
  check({{5, 5}, {5 + 9e-7, 5.1}}, {60.0, -60.0}, GM_OK, {5.0289, 5.05}, 0.057735);
  // Lines that do not meet: one with the bisector, both upright, both slanted.
  check({{0, 0}, {8, 0}}, {90.0, 45.0}, GM_E_FIT_FAILED, {0, 0}, 0);
  check({{2, 1}, {2, 7}}, {90.0, -270.0}, GM_E_FIT_FAILED, {0, 0}, 0);
  check({{0, 0}, {4, 2}}, {30.0, 30.0}, GM_E_FIT_FAILED, {0, 0}, 0);
  check({{5, 5}, {5 + 9e-7, 5}}, {1.0, 2.0}, GM_E_DEGENERATE_LINE, {0, 0}, 0);
  check({{5, 5}}, {1.0}, GM_E_PARAM_1, UntouchedPoint(), kUntouched);
  check({{5, 5}, {6, 6}}, {1.0}, GM_E_PARAM_2, UntouchedPoint(), kUntouched);
}

TEST(PointAnglePairsCircle, TakesTheBetterSenseOfEveryThree) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 90);
  for (int i = 0; i < 60; ++i) {
    std::vector<ZorPoint> three;
    ZorPointArray stage;
    ZorVarArray angles;
    for (int k = 0; k < 3 + i % 7; ++k) {
      angles.Append(1.8 * unit(rng));
      const double turn = (i % 2 == 0 ? 1 : -1) * angles[k].D() * 3.1415926 / 180;
      stage.Append({50 + 30 * std::cos(turn), 20 + 30 * std::sin(turn)});
      if (k < 3) three.emplace_back(unit(rng), unit(rng));
    }
    ExpectNear(Pairs(stage, angles).centre, {50, 20}, 0.02);
    const double turn = angles[1].D() - angles[0].D();
    const auto given = RotationOfThree(three, turn), negated = RotationOfThree(three, -turn);
    const auto& best = Misfit(three, negated) < Misfit(three, given) ? negated : given;
    const Outcome out = Pairs(ZorPointArray(three), {angles[0], angles[1], angles[2]});
    EXPECT_EQ(out.centre, best.first);
    EXPECT_EQ(out.radius, best.second);
  }
}

TEST(PointAnglePairsCircle, TakesTheBetterMeanOfRadiiInDoubleOrSinglePrecision) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 90);
  for (int i = 0; i < 40; ++i) {
    std::vector<ZorPoint> points(4);
    for (ZorPoint& p : points) p = {unit(rng), unit(rng)};
    const ZorVarArray angles = {unit(rng), unit(rng), unit(rng), unit(rng)};
    ZorPoint centre;
    double radii = 0;
    float single = 0;
    for (int without = 3; without >= 0; --without) {
      ZorPointArray three;
      ZorVarArray turns;
      for (int k = 0; k < 4; ++k) {
        if (k == without) continue;
        three.Append(points[std::size_t(k)]);
        turns.Append(angles[k]);
      }
      const Outcome out = Pairs(three, turns);
      centre = centre + out.centre;
      radii += out.radius;
      single += static_cast<float>(out.radius);
    }
    centre = {centre.x / 4, centre.y / 4};
    const double negated = double(single / 4);
    const bool is_negated = Misfit(points, {centre, negated}) < Misfit(points, {centre, radii / 4});
    const Outcome out = Pairs(ZorPointArray(points), angles);
    EXPECT_EQ(out.centre, centre);
    EXPECT_EQ(out.radius, is_negated ? negated : radii / 4);
  }
}

TEST(VerticalBisectorCircle, MeansOverAllPairsOfBisectors) {
  EXPECT_EQ(Bisectors({{0, 0}, {1, 1}}).status, GM_E_PARAM_1);
  EXPECT_EQ(Bisectors(Arc({9, 9}, 4, 1001)).status, GM_E_PARAM_1);
  EXPECT_EQ(Bisectors({{0, 0}, {1, 1}, {2, 2}}).status, GM_E_PARAM_1);          // parallel
  EXPECT_EQ(Bisectors({{0, 0}, {0, 0}, {1, 1}, {2, 0}}).status, GM_E_PARAM_1);  // no direction
  EXPECT_NEAR(Bisectors(Arc({30, 20}, 10, 1000)).radius, 10, 1e-6);
  // Chords along the axes, whose bisectors are level or upright.
  ExpectNear(Bisectors({{0, 0}, {4, 0}, {4, 2}}).centre, {2, 1}, 1e-12);
  ExpectNear(Bisectors({{4, 2}, {4, 0}, {0, 0}}).centre, {2, 1}, 1e-12);
  // Bisectors x = 2, x + y = 6 and y = 0: crossings (2, 4), (2, 0), (6, 0).
  ExpectNear(Bisectors({{0, 0}, {4, 0}, {6, 2}, {6, -2}}).centre, {10 / 3.0, 4 / 3.0}, 1e-12);
  // Negative coordinates of the centre move to the axis, and the radius with them.
  const Outcome moved = Bisectors({{-5, 5}, {-3, 3}, {-5, 1}, {-7, 3}});
  ExpectNear(moved.centre, {0, 3}, 1e-12);
  EXPECT_EQ(moved.centre.x, 0);
  EXPECT_NEAR(moved.radius, (2 * std::sqrt(29.0) + 3 + 7) / 4, 1e-12);
}
