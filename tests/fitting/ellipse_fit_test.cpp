#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include "matrix_fit.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::MatrixFit;
using zor::test::UntouchedPoint;

namespace {

struct Outcome {
  long status;
  ZorPoint centre = UntouchedPoint();
  float a = -1, b = -1, angle = -1;

  friend bool operator==(const Outcome& s, const Outcome& t) {
    return s.status == t.status && s.centre == t.centre && s.a == t.a && s.b == t.b &&
           s.angle == t.angle;
  }
};

Outcome Whole(ZorPointArray points) {
  Outcome out{};
  out.status = ZorGeometryMeasure().FitEllipse(points, &out.centre, &out.a, &out.b, &out.angle);
  return out;
}
Outcome Squares(ZorPointArray points, int iterations, double clip) {
  Outcome out{};
  out.status = ZorGeometryMeasure().LeastSqaureEllipseFit(points, iterations, clip, &out.centre,
                                                          &out.a, &out.b, &out.angle);
  return out;
}
Outcome Absolute(ZorPointArray points, int iterations, double clip) {
  Outcome out{};
  out.status = ZorGeometryMeasure().LeastAbsoluteEllipseFit(points, iterations, clip, &out.centre,
                                                            &out.a, &out.b, &out.angle);
  return out;
}

/// Points of an ellipse, its first axis turned counter-clockwise on the screen.
ZorPointArray Slot(const ZorPoint& centre, double a, double b, double angle_deg, int n) {
  const double alpha = angle_deg * 3.14159265358979 / 180;
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double u = a * std::cos(0.61 * i), v = b * std::sin(0.61 * i);
    points.Append(centre + ZorPoint(std::cos(alpha) * u + std::sin(alpha) * v,
                                    std::cos(alpha) * v - std::sin(alpha) * u));
  }
  return points;
}

Outcome EllipseOfConic(const cv::Mat& c, double sx, double sy) {
  const auto q = [&c](int i) { return c.at<double>(i); };
  const double A = 1 / (sx * sx * q(4)), B = q(0) / (sx * sy * q(4)), C = q(1) / (sy * sy * q(4)),
               D = q(2) / (sx * q(4)), E = q(3) / (sy * q(4)), den = 4 * A * C - B * B;
  Outcome out{};
  out.centre = {(E * B - 2 * C * D) / den, (D * B - 2 * A * E) / den};
  const double x = out.centre.x, y = out.centre.y, K = 2 * (A * x * x + C * y * y + B * x * y - 1),
               root = std::sqrt((A - C) * (A - C) + B * B),
               angle = std::atan2(B, A - C) * 0.5 / -3.141592653589793 * 180;
  out.a = static_cast<float>(std::sqrt(std::fabs(K / (A + C + root))));
  out.b = static_cast<float>(std::sqrt(std::fabs(K / (A + C - root))));
  out.angle = static_cast<float>(angle < 0 ? angle + 360 : angle);
  return out;
}

}  // namespace

TEST(EllipseFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray slot = Slot({5, 6}, 40, 20, 30, 9), four = Slot({5, 6}, 40, 20, 30, 4);
  for (const auto& fit : {Squares, Absolute}) {
    EXPECT_EQ(fit(four, 0, -1).status, GM_E_TOO_FEW_POINTS);
    EXPECT_EQ(fit(slot, 0, -1).status, GM_E_PARAM_2);
    EXPECT_EQ(fit(slot, 1, -1e-9).status, GM_E_PARAM_3);
    EXPECT_TRUE(IsUntouched(fit(slot, 1, -1).centre));
    EXPECT_EQ(fit(slot, 1, 0).status, GM_OK);
  }
  EXPECT_EQ(Whole(four).status, GM_E_TOO_FEW_POINTS);
}

TEST(DirectEllipse, TakesWholeOrFloatPointsAndReversesTheAngle) {
  ZorPointArray slot = Slot({0.5, -0.5}, 40.3, 20.7, 30, 25), whole;
  std::vector<cv::Point> whole_points;
  std::vector<cv::Point2f> float_points;
  for (const ZorPoint& p : slot) {
    whole_points.emplace_back(static_cast<int>(p.x), static_cast<int>(p.y));  // towards zero
    float_points.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  const auto check = [](const Outcome& out, const cv::RotatedRect& box) {
    EXPECT_EQ(out.status, GM_OK);
    ExpectNear(out.centre, {double(box.center.x), double(box.center.y)}, 0);
    EXPECT_EQ(out.a, box.size.width * 0.5F);
    EXPECT_EQ(out.b, box.size.height * 0.5F);
    EXPECT_EQ(out.angle, -box.angle);
  };
  check(Whole(slot), cv::fitEllipse(whole_points));
  check(Squares(slot, 1, 0), cv::fitEllipse(float_points));
}

TEST(EllipseFits, KeepTheAxesAsTheyCome) {
  struct Case {
    const char* what;
    ZorPoint centre;
    double a, b, angle;
  };
  for (const Case& c : {Case{"origin inside", {3, -4}, 40, 20, 30},
                        {"origin inside, angle turned into range", {3, -4}, 40, 20, 340},
                        {"origin outside: minor axis first", {90, 50}, 20, 40, 300},
                        {"nearly upright", {0, 0}, 40, 20, 271}}) {
    SCOPED_TRACE(c.what);
    const ZorPointArray slot = Slot(c.centre, c.a, c.b, c.angle, 30);
    for (const Outcome& out : {Squares(slot, 3, 2), Absolute(slot, 1, 2)}) {
      EXPECT_EQ(out.status, GM_OK);
      ExpectNear(out.centre, c.centre, 1e-6);
      EXPECT_NEAR(double(out.a), c.a, 1e-4);
      EXPECT_NEAR(double(out.b), c.b, 1e-4);
      EXPECT_NEAR(double(out.angle), c.angle, 1e-4);
    }
  }
}

TEST(EllipseFits, RoundTinyCentresToZero) {
  for (const Outcome& out : {Squares(Slot({9e-9, 5}, 4, 2, 0, 20), 2, 1),
                             Absolute(Slot({-9e-9, 5}, 4, 2, 0, 20), 1, 1)}) {
    EXPECT_EQ(out.centre.x, 0);
    EXPECT_NEAR(out.centre.y, 5, 1e-9);
  }
  EXPECT_NEAR(Squares(Slot({2e-8, 5}, 4, 2, 0, 20), 2, 1).centre.x, 2e-8, 1e-12);
}

TEST(EllipseFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.4);
  for (int i = 0; i < 20; ++i) {
    ZorPointArray points;
    for (const ZorPoint& p : Slot({i * 4.0, -6}, 30, 17, 9.0 * i, 12 + i)) {
      points.Append(p + ZorPoint(noise(rng), noise(rng)));
    }
    points[4] = {12, -2};
    double sx = 0, sy = 0;
    for (const ZorPoint& p : points) {
      sx = std::max(sx, std::fabs(p.x));
      sy = std::max(sy, std::fabs(p.y));
    }
    MatrixFit reference;
    reference.a = cv::Mat(points.Length(), 5, CV_64F);
    reference.b = cv::Mat(points.Length(), 1, CV_64F);
    for (int k = 0; k < points.Length(); ++k) {
      const double x = points[k].x / sx, y = points[k].y / sy;
      cv::Mat(cv::Mat_<double>({1, 5}, {x * y, y * y, x, y, 1})).copyTo(reference.a.row(k));
      reference.b.at<double>(k) = -x * x;
    }
    reference.inner_passes = 10;
    reference.solve = reference.inverse = cv::DECOMP_EIG;
    reference.least_weights = 5;
    const double clip = 1 + 0.2 * (i % 4);
    reference.clip = [clip](const std::vector<double>&) { return clip; };
    reference.errors = [&](const cv::Mat& c) {
      std::vector<double> errors;
      Outcome e = EllipseOfConic(c, sx, sy);
      for (ZorPoint& p : points) {
        double d = 0;
        ZorGeometryMeasure().PointToOvalDistance(p, e.centre, double(e.a), double(e.b),
                                                 double(e.angle), &d, nullptr);
        errors.push_back(std::fabs(d));
      }
      return errors;
    };
    for (const int passes : {1, 2, 4}) {
      for (const bool is_absolute : {false, true}) {
        if (passes == 1 && !is_absolute) continue;
        SCOPED_TRACE(testing::Message() << i << ", " << passes << " passes, " << is_absolute);
        const Outcome out =
            is_absolute ? Absolute(points, passes, clip) : Squares(points, passes, clip);
        const Outcome expected = EllipseOfConic(reference.Run(is_absolute, passes), sx, sy);
        ExpectNear(out.centre, expected.centre, 1e-4);  // the reference measures from floats
        EXPECT_NEAR(out.a, expected.a, 1e-4F);
        EXPECT_NEAR(out.b, expected.b, 1e-4F);
        EXPECT_NEAR(out.angle, expected.angle, 1e-3F);
      }
    }
    // Clipping at 0 leaves no weights: the first pass stands.
    EXPECT_EQ(Absolute(points, 5, 0), Absolute(points, 1, 0));
  }
}

TEST(EllipseFits, MeasureTheSameWithASink) {
  ZorPointArray points = Slot({20, 9}, 30, 17, 40, 21);
  points[3] = {25, 25};
  const Outcome squares = Squares(points, 4, 2), absolute = Absolute(points, 3, 2);
  const zor::test::TraceCapture capture;
  EXPECT_EQ(Squares(points, 4, 2), squares);
  EXPECT_EQ(capture.Records().size(), 2U + 3 * 2 * 21);
  EXPECT_EQ(Absolute(points, 3, 2), absolute);
  EXPECT_EQ(capture.Records().size(), 4U + 3 * 2 * 21 + 2 * 2 * 21);
}

TEST(EllipseFits, SurviveAnyPoints) {
  const ZorPointArray slot = Slot({20, 9}, 30, 17, 40, 11);
  std::vector<ZorPointArray> lists{ZorPointArray(std::vector<ZorPoint>(2000, ZorPoint(3, 4))),
                                   ZorPointArray(std::vector<ZorPoint>(6)), ZorPointArray()};
  for (int i = 0; i < 9; ++i) lists[2].Append(ZorPoint(i, 2 * i));
  for (const double bad : {kNaN, kInfinity, -1e300, 1e30}) {
    lists.push_back(slot);
    lists.back()[6].x = bad;
  }
  for (const ZorPointArray& points : lists) {
    for (const bool is_traced : {false, true}) {
      std::optional<zor::test::TraceCapture> capture;
      if (is_traced) capture.emplace();
      EXPECT_EQ(Whole(points).status, GM_OK);
      EXPECT_EQ(Squares(points, 1, 2).status, GM_OK);
      EXPECT_EQ(Squares(points, 4, 2).status, GM_OK);
      EXPECT_EQ(Absolute(points, 4, 2).status, GM_OK);
    }
  }
}
