#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fitting/huber_line.h"
#include "fitting/small_solve.h"
#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::fitting::Steepness;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::MatrixFit;
using zor::test::UntouchedPoint;

namespace {

enum class Fit { kLine0, kLine1, kSquares, kAbsolute };

long Call(Fit fit, ZorPointArray points, int iterations, double clip, ZorPoint* start,
          ZorPoint* end) {
  ZorGeometryMeasure m;
  if (fit == Fit::kSquares) return m.LeastSqaureLineFit(points, iterations, clip, start, end);
  if (fit == Fit::kAbsolute) return m.LeastAbsoluteLineFit(points, iterations, clip, start, end);
  return m.FitLine(points, fit == Fit::kLine0 ? 0 : 1, iterations, start, end);
}

ZorLine FitOf(Fit fit, const ZorPointArray& points, int iterations, double clip) {
  ZorLine line(UntouchedPoint(), UntouchedPoint());
  EXPECT_EQ(Call(fit, points, iterations, clip, &line.start, &line.end), GM_OK);
  return line;
}

ZorPointArray Exchanged(const ZorPointArray& points) {
  ZorPointArray exchanged;
  for (const ZorPoint& p : points) exchanged.Append({p.y, p.x});
  return exchanged;
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
    EXPECT_EQ(Call(fit, two, 2, 0, nullptr, nullptr), GM_OK);
    EXPECT_EQ(Call(fit, two, 2, kNaN, nullptr, nullptr), GM_OK);
  }
  EXPECT_EQ(Call(Fit::kLine1, one, 1, 0, &p, &p), GM_E_TOO_FEW_POINTS);
  ZorPointArray points = two;
  EXPECT_EQ(ZorGeometryMeasure().FitLine(points, 2, 5, &p, &p), GM_OK);
  EXPECT_TRUE(IsUntouched(p));
}

TEST(LineFits, ExtentFitSpansTheCloudAndKeepsTwoPoints) {
  const ZorPointArray flat = {{4, 3}, {0, 1}, {8, 5}, {2, 2}};
  for (const Fit fit : {Fit::kLine0, Fit::kSquares}) {
    EXPECT_EQ(FitOf(fit, {{9, 1}, {2, 7}}, 1, 0), ZorLine({9, 1}, {2, 7}));
    const ZorLine line = FitOf(fit, flat, 1, 0);
    ExpectNear(line.start, {0, 1}, 1e-5);  // single precision
    ExpectNear(line.end, {8, 5}, 1e-5);
    EXPECT_EQ(line.end.x, 8);
    const ZorLine steep = FitOf(fit, Exchanged(flat), 1, 0);
    ExpectNear(steep.start, {1, 0}, 1e-5);
    EXPECT_EQ(steep.end.y, 8);
  }
}

TEST(LineFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  for (int i = 0; i < 60; ++i) {
    const ZorPointArray points = NoisyLine(rng, 12 + i);
    const double x0 = points[0].x, xn = points[points.Length() - 1].x;
    const double clip = 9 + i % 7;
    MatrixFit reference(points, clip, [](const ZorPoint& p) {
      return std::vector<double>{1, p.x, p.y};
    });
    reference.restore_on_equal = true;
    const auto check = [&](const ZorLine& line, const cv::Mat& c) {
      const double c0 = c.at<double>(0), c1 = c.at<double>(1);
      ExpectNear(line.start, {x0, c0 + c1 * x0}, 1e-9);
      ExpectNear(line.end, {xn, c0 + c1 * xn}, 1e-9);
    };
    const int passes = i % 10 == 9 ? 200 : 2 + i % 4;
    SCOPED_TRACE(testing::Message() << "cloud " << i << ", " << passes << " passes");
    check(FitOf(Fit::kSquares, points, passes, clip), reference.Run(false, passes));
    check(FitOf(Fit::kAbsolute, points, 1, clip), reference.Run(true, 1));
    check(FitOf(Fit::kAbsolute, points, 2 + i % 3, clip), reference.Run(true, 2 + i % 3));
    // One weight is too few for another pass, two are not.
    std::vector<double> errors = reference.errors(reference.Run(false, 1));
    std::sort(errors.begin(), errors.end());
    const ZorLine first = FitOf(Fit::kSquares, points, 2, 0);
    EXPECT_EQ(FitOf(Fit::kSquares, points, 3, (errors[0] + errors[1]) / 2), first);
    EXPECT_NE(FitOf(Fit::kSquares, points, 3, (errors[1] + errors[2]) / 2), first);
    reference.clip = [](std::vector<double> e) {
      std::sort(e.begin(), e.end());
      const double n = static_cast<double>(e.size());
      return e[static_cast<std::size_t>(n * 0.5)] > 0.5 ? e[static_cast<std::size_t>(n * 0.8)]
                                                        : 0.5;
    };
    check(FitOf(Fit::kLine1, points, 3, 0), reference.Run(true, 3));
  }
}

TEST(LineFits, TurnSteepOnlyWhenVertical) {
  const ZorPointArray vertical = {{7, 1}, {7, 4}, {7, 2}, {7, 9}};
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
    const ZorLine steep = FitOf(fit, vertical, 2, 1);
    ExpectNear(steep.start, {7, 1}, 1e-12);
    ExpectNear(steep.end, {7, 9}, 1e-12);
    // One degree off vertical is far from steep: the start keeps the x of the first point.
    const ZorLine line = FitOf(fit, {{0, 0}, {1, 57}, {2, 115}, {3, 171}}, 2, 9);
    EXPECT_EQ(line.start.x, 0);
    EXPECT_EQ(line.end.x, 3);
  }
  // Method 1 of FitLine never turns: its system is singular, and the line y = 0.
  EXPECT_EQ(FitOf(Fit::kLine1, vertical, 2, 0), ZorLine({7, 0}, {7.1, 0}));
}

TEST(LineFits, EvaluateAtTheFirstAndLastPoint) {
  const ZorPointArray back = {{2, 5}, {6, 5}, {9, 5}, {2, 5}};
  EXPECT_EQ(FitOf(Fit::kSquares, back, 2, 1).end.x, 2.1);
  EXPECT_EQ(FitOf(Fit::kSquares, Exchanged({{2, 5}, {6, 5}, {9, 5}, {2, 5}}), 2, 1).end.y, 2.1);
  EXPECT_EQ(FitOf(Fit::kLine1, back, 0, 0), ZorLine({2, 0}, {2.1, 0}));
}

TEST(LineFits, EndWithThePassesDoneOnceWeightsAreGone) {
  const ZorPointArray points = {{0, 0}, {1, 2}, {2, 1}, {3, 9}};
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
    SCOPED_TRACE(static_cast<int>(fit));
    const ZorLine first = FitOf(fit, points, 2, 0.0);
    EXPECT_EQ(first, FitOf(fit, points, 9, kNaN));
    EXPECT_EQ(first.start.x, 0);
  }
  EXPECT_NEAR(FitOf(Fit::kSquares, points, 5, 0.0).end.y, 6.9, 1e-12);  // -0.9 + 2.6 x
}

TEST(LeastAbsoluteLine, EqualSumEndsThePass) {
  // Every sum is exact, so the second step repeats the first one's sum. Going on would reach the
  // shrinkage in the third step and draw the line towards the majority.
  ZorPointArray points;
  for (const double x : {-1.0, 1.0}) {
    for (const double y : {1.5, -0.5, -0.5, -0.5}) points.Append({x, y});
  }
  EXPECT_EQ(FitOf(Fit::kLine1, points, 1, 0), ZorLine({-1, 0}, {1, 0}));
}

TEST(LeastAbsoluteLine, ZeroResidualIsNoNumberAndNoFailure) {
  const ZorLine line =
      FitOf(Fit::kAbsolute, {{-20, 4}, {-10, -4}, {0, 0}, {10, -4}, {20, 4}}, 1, 1);
  EXPECT_TRUE(std::isnan(line.start.y) && std::isnan(line.end.y));
}

TEST(LineFits, SurviveAnyPoints) {
  std::mt19937_64 rng(7);
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e308, 1e30}) {
    for (const int at : {0, 5, 10}) {
      ZorPointArray points = NoisyLine(rng, 11);
      points[at].x = bad;
      for (const Fit fit : {Fit::kLine0, Fit::kLine1, Fit::kSquares, Fit::kAbsolute}) {
        FitOf(fit, points, 3, 2.0);
        FitOf(fit, Exchanged(points), 3, 2.0);
      }
    }
  }
  const ZorPointArray same(std::vector<ZorPoint>(20000, ZorPoint(3, 4)));
  EXPECT_EQ(FitOf(Fit::kSquares, same, 1000000000, 2.0).start.x, 3);
}

TEST(SteepnessOfHuberLine, IsJudgedAsTheFitItselfDoes) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  std::normal_distribution<double> normal;
  const auto pick = [&rng](const auto& values) { return values[rng() % values.size()]; };
  std::array<int, 3> judged{};
  for (int i = 0; i < 8000; ++i) {
    const int n = 2 + static_cast<int>(rng() % (i % 20 == 0 ? 499 : 40));
    const double tilt = pick(std::array{0.0, 5e-7, 1e-6, 2e-6, 1e-4, 0.1, 1.0}) * 2 * unit(rng);
    const double noise = pick(std::array{0.0, 0.0, 1e-9, 1e-6, 1e-3, 0.3});
    const double length = pick(std::array{0.0, 10.0, 500.0, 3000.0});
    const double outliers = pick(std::array{0.0, 0.1, 0.4});
    const double x0 = pick(std::array{0.0, 80.0, 4000.0}) * unit(rng);
    std::vector<ZorPoint> points;
    for (int k = 0; k < n; ++k) {
      const double along = length * (i % 2 == 0 ? double(k) / n : unit(rng));
      ZorPoint p(x0 + std::sin(tilt) * along + noise * normal(rng), 900 + std::cos(tilt) * along);
      if (unit(rng) < outliers) p = p + ZorPoint(50 * normal(rng), normal(rng));
      points.push_back(i % 3 == 0 ? ZorPoint(std::round(p.x), std::round(p.y)) : p);
    }
    const auto line = zor::fitting::FitHuberLine(points);
    const bool is_steep = std::fabs(line.vy / line.vx) > 1e6F;
    const Steepness judgement = zor::fitting::JudgeSteepness(points);
    ++judged[static_cast<std::size_t>(judgement)];
    ASSERT_TRUE(judgement == Steepness::kDoubtful || (judgement == Steepness::kSteep) == is_steep)
        << "cloud " << i << ": n " << n << " tilt " << tilt << " noise " << noise << " x0 " << x0;
    ASSERT_EQ(zor::fitting::IsHuberLineSteep(points), is_steep);
  }
  for (const int count : judged) EXPECT_GT(count, 200);
}

TEST(SteepnessOfHuberLine, IsBeyondDoubtForOrdinaryEdges) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.2);
  for (int degrees = -88; degrees <= 89; degrees += 3) {  // from horizontal
    const double angle = degrees * 0.017453;
    std::vector<ZorPoint> points;
    for (int k = 0; k < 200; ++k) {
      const double across = rng() % 10 == 7 ? 25.0 : noise(rng);
      points.emplace_back(900 + std::cos(angle) * k - std::sin(angle) * across,
                          700 + std::sin(angle) * k + std::cos(angle) * across);
    }
    EXPECT_EQ(zor::fitting::JudgeSteepness(points), Steepness::kNotSteep) << degrees;
  }
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

TEST(SmallSolve, FewEquationsAgreeWithTheSolver) {
  using zor::fitting::Decomposition;
  std::mt19937_64 rng(5);
  std::normal_distribution<double> any(0, 1000);
  for (int i = 0; i < 2000; ++i) {
    const bool is_lu = i % 2 == 0;  // two unknowns by LU bit for bit, three by QR
    const int n = is_lu ? 2 : 3;
    cv::Mat m(n, n, CV_64F), b(n, 1, CV_64F), theirs;
    for (cv::Mat* values : {&m, &b}) {
      for (double& value : cv::Mat_<double>(*values)) value = any(rng);
    }
    if (std::fabs(cv::determinant(m)) < 1e3) continue;
    std::vector<double> matrix(m.reshape(1, 1)), right_side(b.reshape(1, 1)), ours(right_side);
    cv::solve(m, b, theirs, is_lu ? cv::DECOMP_LU : cv::DECOMP_QR);
    ASSERT_TRUE(zor::fitting::SolveSystem(matrix, right_side, ours,
                                          is_lu ? Decomposition::kLu : Decomposition::kQr));
    for (int j = 0; j < n; ++j) {
      const double expected = theirs.at<double>(j);
      ASSERT_NEAR(ours[std::size_t(j)], expected, is_lu ? 0 : 1e-7 * (1 + std::fabs(expected)));
    }
  }
  std::array<double, 9> singular{1, 2, 3, 2, 4, 6, 1, 1, 1};
  std::array<double, 3> b{1, 2, 3}, x{5, 5, 5};
  EXPECT_FALSE(zor::fitting::SolveSystem(singular, b, x, Decomposition::kQr));
  EXPECT_EQ(x, (std::array<double, 3>{}));
}
