#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <oneapi/tbb/global_control.h>

#include "fitting/polynomial_kernels.h"
#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

enum class Fit { kSquares, kAbsolute, kGenerator };

long Call(Fit fit, ZorPointArray points, int order, int passes, double clip, ZorVarArray* c,
          ZorPointArray* curve) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  if (fit == Fit::kSquares) {
    return dlg.LeastSqaurePolynomialFit(points, order, passes, clip, c, curve);
  }
  if (fit == Fit::kAbsolute) {
    return dlg.LeastAbsolutePolynomialFit(points, order, passes, clip, c, curve);
  }
  return ZorGeometryMeasure().GenPolynomialCurve(points, order, passes, clip, c, curve);
}

// y = 3 - x + x^2 / 2 and x^3 / 4 of noise and outliers, x in [-2, 3].
ZorPointArray Profile(std::mt19937_64& rng, int n) {
  std::uniform_real_distribution<double> along(-2, 3);
  std::normal_distribution<double> noise(0, 4);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double x = along(rng);
    points.Append({x, 3 - x + x * x / 2 + x * x * x / 4 + (i % 9 == 4 ? 40 : noise(rng))});
  }
  return points;
}

zor::test::MatrixFit ByMatrices(const ZorPointArray& points, int order, double clip) {
  zor::test::MatrixFit fit;
  fit.a = cv::Mat::ones(points.Length(), order + 1, CV_64F);
  fit.b = cv::Mat(points.Length(), 1, CV_64F);
  fit.least_weights = order + 1;
  for (int i = 0; i < points.Length(); ++i) {
    for (int j = 1; j <= order; ++j) {
      fit.a.at<double>(i, j) = fit.a.at<double>(i, j - 1) * points[i].x;
    }
    fit.b.at<double>(i) = points[i].y;
  }
  fit.errors = [a = fit.a, b = fit.b](const cv::Mat& c) {
    return std::vector<double>(cv::Mat(cv::abs(a * c - b)));
  };
  fit.clip = [clip](const std::vector<double>&) { return clip; };
  return fit;
}

}  // namespace

TEST(PolynomialFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  for (int i = 0; i < 80; ++i) {
    const int order = i % 7, passes = i % 10 == 9 ? 60 : 1 + i % 4;
    const ZorPointArray points = Profile(rng, 20 + i);
    SCOPED_TRACE(testing::Message() << "profile " << i << ", order " << order);
    for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
      const double clip = 8 + i % 5;
      ZorVarArray c = {7.0};
      ASSERT_EQ(Call(fit, points, order, passes, clip, &c, nullptr), GM_OK);
      const cv::Mat reference = ByMatrices(points, order, clip).Run(fit == Fit::kAbsolute, passes);
      ASSERT_EQ(c.Length(), order + 1);
      for (int j = 0; j <= order; ++j) EXPECT_NEAR(c[j].D(), reference.at<double>(j), 1e-7) << j;
    }
  }
}

TEST(PolynomialFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray one = {{1, 1}}, two = {{0, 0}, {1, 3}}, stacked = {{2, 1}, {2, 5}, {2, 3}};
  struct Case {
    const char* what;
    Fit fit;
    ZorPointArray points;
    int order, passes;
    double clip;
    long status;
  };
  for (const Case& c : {
           Case{"one point", Fit::kSquares, one, 101, 0, -1, GM_E_TOO_FEW_POINTS},
           {"order above", Fit::kSquares, two, 101, 0, -1, GM_E_PARAM_2},
           {"order below", Fit::kAbsolute, two, -1, 0, -1, GM_E_PARAM_2},
           {"no pass", Fit::kAbsolute, two, 0, 0, -1, GM_E_PARAM_3},
           {"negative clip", Fit::kSquares, two, 1, 1, -1e-9, GM_E_PARAM_4},
           {"clip 0: the first pass stays", Fit::kSquares, two, 1, 9, 0, GM_OK},
           {"clip not a number", Fit::kAbsolute, two, 1, 9, kNaN, GM_OK},
           {"one x, squares", Fit::kSquares, stacked, 1, 1, 1, GM_E_FIT_FAILED},
           {"one x, absolute: zeros", Fit::kAbsolute, stacked, 1, 1, 1, GM_OK},
           {"an offset of 0", Fit::kAbsolute, {{0, 0}, {1, 9}, {2, -9}}, 0, 1, 1, GM_E_FIT_FAILED},
           {"not finite",
            Fit::kSquares,
            {{0, 0}, {kInfinity, 1}, {2, 3}},
            1,
            2,
            1,
            GM_E_FIT_FAILED},
           {"too long a curve", Fit::kSquares, {{0, 0}, {1e300, 1}}, 0, 1, 1, GM_E_PARAM_1},
           {"longest curve", Fit::kSquares, {{0, 0}, {33554432, 1}}, 0, 1, 1, GM_E_PARAM_1},
           {"generator, one point", Fit::kGenerator, one, 0, -1, -1, GM_E_TOO_FEW_POINTS},
           {"generator, order below", Fit::kGenerator, two, 0, 100, -1, GM_E_PARAM_2},
           {"generator, order above", Fit::kGenerator, two, 21, 100, -1, GM_E_PARAM_2},
           {"generator, setting above", Fit::kGenerator, two, 1, 100, -1, GM_E_PARAM_3},
           {"generator, setting below", Fit::kGenerator, two, 1, -1, -1, GM_E_PARAM_3},
           {"generator, negative clip", Fit::kGenerator, two, 1, 99, -1e-9, GM_E_PARAM_4},
           {"generator, infinite clip", Fit::kGenerator, two, 1, 0, kInfinity, GM_OK},
       }) {
    SCOPED_TRACE(c.what);
    const ZorVarArray before = {7.0};
    const ZorPointArray curve_before = {{7, 7}};
    ZorVarArray coefficients = before;
    ZorPointArray curve = curve_before;
    EXPECT_EQ(Call(c.fit, c.points, c.order, c.passes, c.clip, &coefficients, &curve), c.status);
    EXPECT_EQ(coefficients == before, c.status != GM_OK);
    EXPECT_EQ(curve == curve_before, c.status != GM_OK);
  }
  EXPECT_EQ(Call(Fit::kSquares, {{0, 0}, {1e300, 1}}, 0, 1, 1, nullptr, nullptr), GM_OK);
}

TEST(PolynomialFits, SampleEveryHalfUnitDescendingOneStepShort) {
  struct Case {
    double first, last;
    int count;
    double start;
  };
  for (const Case& c : {Case{0, 10, 21, 0},
                        {10, 0, 19, 0},
                        {0, 0.3, 1, 0},
                        {0.5, 0, 0, 0},
                        {-3.25, 1, 9, -3.25},
                        {4, -1.2, 9, -1.2},
                        {2, 2, 1, 2}}) {
    SCOPED_TRACE(testing::Message() << c.first << " to " << c.last);
    ZorVarArray v;
    ZorPointArray curve = {{7, 7}};
    ASSERT_EQ(Call(Fit::kSquares, {{c.first, 1}, {5, 11}, {-5, -9}, {1, 3}, {c.last, 1}}, 2, 1, 1,
                   &v, &curve),
              GM_OK);
    ASSERT_EQ(curve.Length(), c.count);
    for (int k = 0; k < c.count; ++k) {
      const double x = c.start + 0.5 * k;
      EXPECT_EQ(curve[k], ZorPoint(x, (v[2].D() * x + v[1].D()) * x + v[0].D()));
    }
  }
}

TEST(PolynomialFits, GiveTheSameBitsForAnyNumberOfThreads) {
  std::mt19937_64 rng(20240607);
  ZorPointArray points = Profile(rng, 50);
  points.Append({30000, 2});
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute, Fit::kGenerator}) {
    ZorPointArray curves[2];
    for (const int threads : {1, 4}) {
      const tbb::global_control limit(tbb::global_control::max_allowed_parallelism,
                                      static_cast<std::size_t>(threads));
      ASSERT_EQ(Call(fit, points, 3, 2, 1e6, nullptr, &curves[threads / 4]), GM_OK);
    }
    EXPECT_GT(curves[0].Length(), 50000);
    EXPECT_TRUE(curves[0] == curves[1]);
  }
}

TEST(PolynomialFits, ReturnWhateverTheInput) {
  ZorPointArray ten, same;
  for (int i = 0; i < 10; ++i) ten.Append({i * 7.0, i % 3 * 1.0});
  for (int i = 0; i < 100000; ++i) same.Append({1234.5, 67.25});
  for (const Fit fit : {Fit::kSquares, Fit::kAbsolute}) {
    EXPECT_EQ(Call(fit, ten, 100, 3, 1, nullptr, nullptr), GM_E_FIT_FAILED);
    EXPECT_EQ(Call(fit, same, 3, 5, 1, nullptr, nullptr) % GM_E_FIT_FAILED, GM_OK);
    EXPECT_EQ(Call(fit, {{0, 0}, {1, kNaN}, {2, 1}}, 2, 5, 1, nullptr, nullptr), GM_E_FIT_FAILED);
  }
}

TEST(GenPolynomialCurve, IsTheLeastSquaresFitWithAWholeClippingDistance) {
  std::mt19937_64 rng(20240607);
  const ZorPointArray points = Profile(rng, 40);
  ZorVarArray generated, fitted;
  for (const int passes : {0, 1, 4}) {
    ASSERT_EQ(Call(Fit::kGenerator, points, 3, passes, 9.9, &generated, nullptr), GM_OK);
    ASSERT_EQ(Call(Fit::kSquares, points, 3, std::max(passes, 1), 9, &fitted, nullptr), GM_OK);
    EXPECT_EQ(generated, fitted) << passes;
  }
}

TEST(FitPlane, DrawsThirtyNumbers) {
  std::srand(7);
  for (int i = 0; i < 30; ++i) static_cast<void>(std::rand());
  const int expected = std::rand();
  std::srand(7);
  EXPECT_EQ(ZorGeometryMeasure().FitPlane(), GM_OK);
  EXPECT_EQ(std::rand(), expected);
}
