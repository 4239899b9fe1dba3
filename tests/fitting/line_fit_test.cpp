#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/huber_line.h"
#include "fitting/small_solve.h"
#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::fitting::Steepness;
using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::UntouchedPoint;

namespace {

enum class Fit { kLine0, kLine1, kNone, kSquares, kAbsolute };  // methods of FitLine first

long Call(Fit fit, ZorPointArray points, int iterations, double clip, ZorPoint* start,
          ZorPoint* end) {
  ZorGeometryMeasure m;
  if (fit == Fit::kSquares) return m.LeastSqaureLineFit(points, iterations, clip, start, end);
  if (fit == Fit::kAbsolute) return m.LeastAbsoluteLineFit(points, iterations, clip, start, end);
  return m.FitLine(points, static_cast<int>(fit), iterations, start, end);
}

ZorLine FitOf(Fit fit, const ZorPointArray& points, int iterations, double clip) {
  ZorLine line(UntouchedPoint(), UntouchedPoint());
  EXPECT_EQ(Call(fit, points, iterations, clip, &line.start, &line.end), GM_OK);
  return line;
}

ZorPointArray Exchanged(ZorPointArray points) {
  for (ZorPoint& p : points) p = {p.y, p.x};
  return points;
}

/// Points along y = 3 + x / 2 with noise as large as the shrinkage, and far outliers.
ZorPointArray NoisyLine(std::mt19937_64& rng, int n) {
  std::uniform_real_distribution<double> along(-40, 60);
  std::normal_distribution<double> noise(0, 5);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double x = along(rng);
    points.Append({x, 3 + x / 2 + (i % 9 == 4 ? 80 : noise(rng))});
  }
  return points;
}

}  // namespace

TEST(LineFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray one = {{1, 1}}, two = {{0, 0}, {5, 1}};
  ZorPoint p = UntouchedPoint();
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
    EXPECT_EQ(Call(fit, one, 0, -1, &p, &p), GM_E_TOO_FEW_POINTS);
    EXPECT_EQ(Call(fit, two, 0, -1, &p, &p), GM_E_PARAM_2);
    EXPECT_EQ(Call(fit, two, 1, -1e-9, &p, &p), GM_E_PARAM_3);
  }
  EXPECT_EQ(Call(Fit::kLine1, one, 1, 0, &p, &p), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(Call(Fit::kNone, two, 5, 0, &p, &p), GM_OK);
  EXPECT_EQ(p, UntouchedPoint());
}

TEST(LineFits, ExtentFitSpansTheCloudAndKeepsTwoPoints) {
  const ZorPointArray flat = {{4, 3}, {0, 1}, {8, 5}, {2, 2}};
  for (const Fit fit : {Fit::kLine0, Fit::kSquares}) {
    EXPECT_EQ(FitOf(fit, {{9, 1}, {2, 7}}, 1, 0), ZorLine({9, 1}, {2, 7}));
    const ZorLine line = FitOf(fit, flat, 1, 0), steep = FitOf(fit, Exchanged(flat), 1, 0);
    ExpectNear(line.start, {0, 1}, 1e-5);  // single precision
    ExpectNear(line.end, {8, 5}, 1e-5);
    ExpectNear(steep.start, {1, 0}, 1e-5);
    EXPECT_TRUE(line.end.x == 8 && steep.end.y == 8);
  }
}

TEST(LineFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  for (int i = 0; i < 60; ++i) {
    const ZorPointArray points = NoisyLine(rng, 12 + i);
    const double x0 = points[0].x, xn = points[points.Length() - 1].x, clip = 9 + i % 7;
    zor::test::MatrixFit reference(points, clip, [](const ZorPoint& p) {
      return std::vector<double>{1, p.x, p.y};
    });
    reference.restore_on_equal = true;
    const auto check = [&](Fit fit, int passes) {
      const ZorLine line = FitOf(fit, points, passes, clip);
      const cv::Mat c = reference.Run(fit != Fit::kSquares, passes);
      ExpectNear(line.start, {x0, c.at<double>(0) + c.at<double>(1) * x0}, 1e-9);
      ExpectNear(line.end, {xn, c.at<double>(0) + c.at<double>(1) * xn}, 1e-9);
    };
    SCOPED_TRACE(testing::Message() << "cloud " << i);
    check(Fit::kSquares, i % 10 == 9 ? 200 : 2 + i % 4);
    check(Fit::kAbsolute, 1 + i % 4);
    // One weight is too few for another pass, two are not.
    std::vector<double> errors = reference.errors(reference.Run(false, 1));
    std::sort(errors.begin(), errors.end());
    const ZorLine first = FitOf(Fit::kSquares, points, 2, 0);
    EXPECT_EQ(FitOf(Fit::kSquares, points, 3, (errors[0] + errors[1]) / 2), first);
    EXPECT_NE(FitOf(Fit::kSquares, points, 3, (errors[1] + errors[2]) / 2), first);
    reference.clip = [](std::vector<double> e) {
      std::sort(e.begin(), e.end());
      const double n = static_cast<double>(e.size());
      return e[std::size_t(n * 0.5)] > 0.5 ? e[std::size_t(n * 0.8)] : 0.5;
    };
    check(Fit::kLine1, 3);
  }
}

TEST(LineFits, TurnSteepOnlyWhenVertical) {
  const ZorPointArray vertical = {{7, 1}, {7, 4}, {7, 2}, {7, 9}};
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
    const ZorLine steep = FitOf(fit, vertical, 2, 1);
    ExpectNear(steep.start, {7, 1}, 1e-12);
    ExpectNear(steep.end, {7, 9}, 1e-12);
    EXPECT_EQ(FitOf(fit, {{0, 0}, {1, 57}, {2, 115}, {3, 171}}, 2, 9).end.x, 3) << "a degree off";
  }
  // Method 1 of FitLine never turns: its system is singular, and the line y = 0.
  EXPECT_EQ(FitOf(Fit::kLine1, vertical, 2, 0), ZorLine({7, 0}, {7.1, 0}));
}

TEST(LineFits, EvaluateAtTheFirstAndLastPointNudgedApart) {
  const ZorPointArray back = {{2, 5}, {6, 5}, {9, 5}, {2, 5}};
  EXPECT_EQ(FitOf(Fit::kSquares, back, 2, 1).end.x, 2.1);
  EXPECT_EQ(FitOf(Fit::kSquares, Exchanged(back), 2, 1).end.y, 2.1);
  EXPECT_EQ(FitOf(Fit::kLine1, back, 0, 0), ZorLine({2, 0}, {2.1, 0}));
}

TEST(LeastAbsoluteLine, EqualSumEndsThePassAndZeroResidualDoesNot) {
  // Every sum is exact, so the second step repeats the first one's sum. Going on would reach the
  // shrinkage in the third step and draw the line towards the majority.
  ZorPointArray points;
  for (const double x : {-1.0, 1.0}) {
    for (const double y : {1.5, -0.5, -0.5, -0.5}) points.Append({x, y});
  }
  EXPECT_EQ(FitOf(Fit::kLine1, points, 1, 0), ZorLine({-1, 0}, {1, 0}));
  // A residual of 0 in a step is no number afterwards, and no failure.
  points = {{-20, 4}, {-10, -4}, {0, 0}, {10, -4}, {20, 4}};
  EXPECT_TRUE(std::isnan(FitOf(Fit::kAbsolute, points, 1, 1).end.y));
}

TEST(LineFits, SurviveAnyPoints) {
  std::mt19937_64 rng(7);
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e308, 1e30}) {
    ZorPointArray points = NoisyLine(rng, 11);
    points[5].x = bad;
    for (const Fit fit : {Fit::kLine0, Fit::kLine1, Fit::kSquares, Fit::kAbsolute}) {
      FitOf(fit, points, 3, 2.0);
      FitOf(fit, Exchanged(points), 3, kNaN);
    }
  }
  const ZorPointArray same(std::vector<ZorPoint>(20000, ZorPoint(3, 4)));
  EXPECT_EQ(FitOf(Fit::kSquares, same, 1000000000, 2.0).start.x, 3);
}

TEST(SteepnessOfHuberLine, IsJudgedAsTheFitItselfDoes) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  std::normal_distribution<double> normal;
  std::array<int, 3> judged{};
  for (int i = 0; i < 8000; ++i) {
    const double tilt = std::array{0.0, 1e-6, 2e-6, 1e-4, 2.0}[rng() % 5] * unit(rng);
    const double noise = std::array{0.0, 0.0, 1e-9, 1e-6, 1e-3, 0.3}[rng() % 6];
    const double length = std::array{0.0, 10.0, 500.0, 3000.0}[rng() % 4];
    const double x0 = 4000 * unit(rng), outliers = std::array{0.0, 0.1, 0.4}[rng() % 3];
    std::vector<ZorPoint> points(2 + rng() % (i % 20 == 0 ? 499 : 40));
    for (ZorPoint& p : points) {
      const double along = length * unit(rng);
      p = {x0 + std::sin(tilt) * along + noise * normal(rng), 900 + std::cos(tilt) * along};
      if (unit(rng) < outliers) p = p + ZorPoint(50 * normal(rng), normal(rng));
      if (i % 3 == 0) p = {std::round(p.x), std::round(p.y)};
    }
    const auto line = zor::fitting::FitHuberLine(points);
    const bool is_steep = std::fabs(line.vy / line.vx) > 1e6F;
    const Steepness judgement = zor::fitting::JudgeSteepness(points);
    ++judged[static_cast<std::size_t>(judgement)];
    ASSERT_TRUE(judgement == Steepness::kDoubtful || (judgement == Steepness::kSteep) == is_steep)
        << "cloud " << i << ": tilt " << tilt << ", noise " << noise << ", x0 " << x0;
    ASSERT_EQ(zor::fitting::IsHuberLineSteep(points), is_steep);
  }
  for (const int count : judged) EXPECT_GT(count, 200);
}

TEST(SmallSolve, SingularLuKeepsFewUnknownsAndClearsMore) {
  using zor::fitting::Decomposition;
  for (const std::size_t n : {2U, 3U, 4U}) {
    std::vector<double> matrix(n * n, 1.0), right_side(n, 2.0), solution(n, 5.0);
    EXPECT_FALSE(zor::fitting::SolveSystem(matrix, right_side, solution, Decomposition::kLu));
    EXPECT_EQ(solution, std::vector<double>(n, n <= 3 ? 5.0 : 0.0)) << n;
    zor::fitting::Invert(matrix, matrix, Decomposition::kLu);
    EXPECT_EQ(matrix, std::vector<double>(n * n, 0.0));
  }
}
