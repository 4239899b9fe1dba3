#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <oneapi/tbb/global_control.h>

#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

enum class Fit { kSquares, kAbsolute, kGenerator };

struct Fitter {
  ZorVarArray c;
  ZorPointArray curve;

  Fitter() {
    c.Append(7.0);
    curve.Append({7, 7});
  }
  long operator()(Fit fit, ZorPointArray points, int order, int passes, double clip) {
    ZORMV::ZorGeometryMeasureDlg dlg;
    return fit == Fit::kSquares
               ? dlg.LeastSqaurePolynomialFit(points, order, passes, clip, &c, &curve)
           : fit == Fit::kAbsolute
               ? dlg.LeastAbsolutePolynomialFit(points, order, passes, clip, &c, &curve)
               : ZorGeometryMeasure().GenPolynomialCurve(points, order, passes, clip, &c, &curve);
  }
};

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
      Fitter fitter;
      ASSERT_EQ(fitter(fit, points, order, passes, clip), GM_OK);
      const cv::Mat reference = ByMatrices(points, order, clip).Run(fit == Fit::kAbsolute, passes);
      ASSERT_EQ(fitter.c.Length(), order + 1);
      for (int j = 0; j <= order; ++j) {
        EXPECT_NEAR(fitter.c[j].D(), reference.at<double>(j), 1e-7) << j;
      }
    }
  }
}

TEST(PolynomialFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray one = {{1, 1}}, two = {{0, 0}, {1, 3}}, stacked = {{2, 1}, {2, 5}, {2, 3}},
                      far = {{0, 0}, {1e300, 1}}, infinite = {{0, 0}, {kInfinity, 1}, {2, 3}};
  ZorPointArray ten, points = far;
  for (int i = 0; i < 10; ++i) ten.Append({i * 7.0, i % 3 * 1.0});
  Fitter fit;
  EXPECT_EQ(fit(Fit::kSquares, one, 101, 0, -1), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(fit(Fit::kSquares, two, 101, 0, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kAbsolute, two, -1, 0, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kAbsolute, two, 0, 0, -1), GM_E_PARAM_3);
  EXPECT_EQ(fit(Fit::kSquares, two, 1, 1, -1e-9), GM_E_PARAM_4);
  EXPECT_EQ(fit(Fit::kSquares, stacked, 1, 1, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit(Fit::kSquares, far, 0, 1, 1), GM_E_PARAM_1);
  EXPECT_EQ(fit(Fit::kSquares, {{0, 0}, {33554432, 1}}, 0, 1, 1), GM_E_PARAM_1);
  EXPECT_EQ(fit(Fit::kGenerator, one, 0, -1, -1), GM_E_TOO_FEW_POINTS);
  EXPECT_EQ(fit(Fit::kGenerator, two, 0, 100, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kGenerator, two, 21, 100, -1), GM_E_PARAM_2);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 100, -1), GM_E_PARAM_3);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, -1, -1), GM_E_PARAM_3);
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 99, -1e-9), GM_E_PARAM_4);
  EXPECT_EQ(fit(Fit::kGenerator, infinite, 1, 2, 1), GM_E_FIT_FAILED);
  EXPECT_TRUE(fit.c == Fitter().c && fit.curve == Fitter().curve);
  // What is not a number is listed, with its code: an offset of 0, and orders that overflow.
  EXPECT_EQ(fit(Fit::kAbsolute, {{0, 0}, {1, 9}, {2, -9}}, 0, 1, 1), GM_E_FIT_FAILED);
  EXPECT_TRUE(fit.c.Length() == 1 && std::isnan(fit.c[0].D()));
  EXPECT_EQ(fit(Fit::kSquares, infinite, 1, 2, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit.c.Length(), 2);
  EXPECT_EQ(fit(Fit::kSquares, ten, 100, 3, 1), GM_E_FIT_FAILED);
  EXPECT_EQ(fit(Fit::kAbsolute, ten, 100, 3, 1), GM_E_FIT_FAILED);
  EXPECT_TRUE(fit.curve == Fitter().curve);
  EXPECT_EQ(ZorGeometryMeasure().LeastSqaurePolynomialFit(points, 0, 1, 1, &fit.c, nullptr), GM_OK);
  EXPECT_EQ(fit(Fit::kSquares, two, 1, 9, 0), GM_OK) << "the first pass stays";
  EXPECT_EQ(fit(Fit::kGenerator, two, 1, 9, kInfinity), GM_OK);
  EXPECT_EQ(fit(Fit::kAbsolute, stacked, 1, 9, kNaN), GM_OK);
  EXPECT_EQ(fit.c, ZorVarArray({0.0, 0.0})) << "singular";
}

TEST(PolynomialFits, SampleEveryHalfUnitDescendingOneStepShort) {
  struct Case {
    double first, last;
    int count;
    double start;
  };
  for (const Case& c :
       {Case{0, 10, 21, 0}, {10, 0, 19, 0}, {0.5, 0, 0, 0}, {-3.25, 1, 9, -3.25}, {2, 2, 1, 2}}) {
    Fitter fit;
    const ZorPointArray points = {{c.first, 1}, {5, 11}, {-5, -9}, {1, 3}, {c.last, 1}};
    ASSERT_EQ(fit(Fit::kSquares, points, 2, 1, 1), GM_OK);
    ASSERT_EQ(fit.curve.Length(), c.count) << c.first << " to " << c.last;
    for (int k = 0; k < c.count; ++k) {
      const double x = c.start + 0.5 * k;
      EXPECT_EQ(fit.curve[k], ZorPoint(x, (fit.c[2].D() * x + fit.c[1].D()) * x + fit.c[0].D()));
    }
  }
}

TEST(PolynomialFits, SampleTheSameBitsWithAnyNumberOfThreads) {
  const ZorPointArray points = {{0, 1}, {1, 3}, {7, 2}, {9, 4}, {30000, 2}};
  Fitter fits[2];
  for (const int threads : {1, 4}) {
    const tbb::global_control limit(tbb::global_control::max_allowed_parallelism,
                                    static_cast<std::size_t>(threads));
    ASSERT_EQ(fits[threads / 4](Fit::kSquares, points, 3, 1, 1), GM_OK);
  }
  EXPECT_EQ(fits[0].curve.Length(), 60001);
  EXPECT_TRUE(fits[0].curve == fits[1].curve);
}

TEST(GenPolynomialCurve, IsTheLeastSquaresFitWithAWholeClippingDistance) {
  std::mt19937_64 rng(20240607);
  const ZorPointArray points = Profile(rng, 40);
  for (const int passes : {0, 1, 4}) {
    Fitter generated, fitted;
    ASSERT_EQ(generated(Fit::kGenerator, points, 3, passes, 9.9), GM_OK);
    ASSERT_EQ(fitted(Fit::kSquares, points, 3, std::max(passes, 1), 9), GM_OK);
    EXPECT_EQ(generated.c, fitted.c) << passes;
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
