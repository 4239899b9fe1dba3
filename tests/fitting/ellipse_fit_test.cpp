#include <cmath>
#include <optional>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
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

template <typename Method, typename... Args>
Outcome Call(Method method, ZorPointArray points, Args... args) {
  Outcome out{};
  out.status =
      (ZorGeometryMeasure().*method)(points, args..., &out.centre, &out.a, &out.b, &out.angle);
  return out;
}
Outcome Whole(const ZorPointArray& points) { return Call(&ZorGeometryMeasure::FitEllipse, points); }
Outcome Squares(const ZorPointArray& points, int iterations, double clip) {
  return Call(&ZorGeometryMeasure::LeastSqaureEllipseFit, points, iterations, clip);
}
Outcome Absolute(const ZorPointArray& points, int iterations, double clip) {
  return Call(&ZorGeometryMeasure::LeastAbsoluteEllipseFit, points, iterations, clip);
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

TEST(EllipseFits, ClipByTheDistanceFromTheEllipse) {
  const ZorPointArray slot = Slot({20, 9}, 30, 17, 40, 60);
  ZorPointArray dented = slot;
  for (const int i : {3, 20, 41}) dented[i] = {1.4 * dented[i].x - 8, 1.4 * dented[i].y - 3.6};
  for (const auto& fit : {Squares, Absolute}) {
    const Outcome clipped = fit(dented, 12, 3), exact = fit(slot, 2, 3);
    ExpectNear(clipped.centre, exact.centre, 1e-5);
    EXPECT_NEAR(clipped.a, exact.a, 1e-5F);
    EXPECT_NEAR(clipped.b, exact.b, 1e-5F);
    // Clipping at 0 leaves no weights: the first pass stands.
    EXPECT_EQ(fit(dented, 9, 0), fit(dented, 2, 0));
    EXPECT_GT(std::fabs(fit(dented, 2, 0).a - exact.a), 0.01F);
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
                                   ZorPointArray(std::vector<ZorPoint>(6))};
  for (const ZorPoint& step : {ZorPoint(1, 2), {0, 1}, {1, 0}}) {  // all x 0, all y 0
    lists.emplace_back();
    for (int i = -4; i < 5; ++i) lists.back().Append({step.x * i, step.y * i});
  }
  for (const double bad : {kNaN, kInfinity, -kInfinity, -1e300, 1e30}) {
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
