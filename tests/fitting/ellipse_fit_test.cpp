#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::ExpectNear;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::UntouchedPoint;

namespace {

struct Outcome {
  long status = -1;
  ZorPoint centre = UntouchedPoint();
  float a = -1, b = -1, angle = -1;

  bool operator==(const Outcome& t) const {
    return centre == t.centre && a == t.a && b == t.b && angle == t.angle;
  }
};

template <typename Method, typename... Args>
Outcome Call(Method method, ZorPointArray points, Args... args) {
  Outcome out;
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
  const double co = std::cos(angle_deg * 0.017453292519943295);
  const double si = std::sin(angle_deg * 0.017453292519943295);
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    const double u = a * std::cos(0.61 * i), v = b * std::sin(0.61 * i);
    points.Append(centre + ZorPoint(co * u + si * v, co * v - si * u));
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
    EXPECT_EQ(fit(slot, 1, -1), Outcome());
  }
  EXPECT_EQ(Whole(four).status, GM_E_TOO_FEW_POINTS);
}

TEST(DirectEllipse, TakesWholeOrFloatPointsAndReversesTheAngle) {
  const ZorPointArray slot = Slot({0.5, -0.5}, 40.3, 20.7, 30, 25);
  std::vector<cv::Point> whole;
  std::vector<cv::Point2f> floats;
  for (const ZorPoint& p : slot) {
    whole.emplace_back(static_cast<int>(p.x), static_cast<int>(p.y));  // towards zero
    floats.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
  }
  const auto outcome = [](const cv::RotatedRect& box) {
    return Outcome{0,
                   {double(box.center.x), double(box.center.y)},
                   box.size.width * 0.5F,
                   box.size.height * 0.5F,
                   -box.angle};
  };
  EXPECT_EQ(Whole(slot), outcome(cv::fitEllipse(whole)));
  EXPECT_EQ(Squares(slot, 1, 0), outcome(cv::fitEllipse(floats)));
}

TEST(EllipseFits, KeepTheAxesAsTheyComeAndRoundTinyCentresToZero) {
  const auto check = [](const ZorPoint& centre, double a, double b, double angle) {
    const ZorPointArray slot = Slot(centre, a, b, angle, 30);
    for (const Outcome& out : {Squares(slot, 3, 2), Absolute(slot, 1, 2)}) {
      EXPECT_EQ(out.status, GM_OK);
      ExpectNear(out.centre, centre, 1e-6);
      EXPECT_EQ(out.centre.x == 0, std::fabs(centre.x) < 1e-8);
      EXPECT_NEAR(double(out.a), a, 1e-4);
      EXPECT_NEAR(double(out.b), b, 1e-4);
      EXPECT_NEAR(double(out.angle), angle, 1e-4);
    }
  };
  check({3, -4}, 40, 20, 30);
  check({3, -4}, 40, 20, 340);   // turned into the range
  check({90, 50}, 20, 40, 300);  // the origin is outside: minor axis first
  check({9e-9, -9e-9}, 40, 20, 271);
  EXPECT_NEAR(Squares(Slot({2e-8, 5}, 4, 2, 0, 20), 2, 1).centre.x, 2e-8, 1e-12);
}

TEST(EllipseFits, ClipByTheTracedDistanceFromTheEllipse) {
  const ZorPointArray slot = Slot({20, 9}, 30, 17, 40, 60);
  ZorPointArray dented = slot;
  for (const int i : {3, 20, 41}) dented[i] = {1.4 * dented[i].x - 8, 1.4 * dented[i].y - 3.6};
  for (const auto& fit : {Squares, Absolute}) {
    const Outcome clipped = fit(dented, 12, 3), exact = fit(slot, 2, 3), four = fit(dented, 4, 3);
    ExpectNear(clipped.centre, exact.centre, 1e-5);
    EXPECT_NEAR(clipped.a, exact.a, 1e-5F);
    EXPECT_NEAR(clipped.b, exact.b, 1e-5F);
    EXPECT_EQ(fit(dented, 9, 0), fit(dented, 2, 0)) << "no weights left: the first pass stands";
    const zor::test::TraceCapture capture;
    EXPECT_EQ(fit(dented, 4, 3), four) << "measured another way";
    EXPECT_EQ(capture.Records().size(), 2U + 3 * 2 * 60);
  }
}

TEST(EllipseFits, EndWithFewerThanFiveWeights) {
  ZorPointArray points = Slot({2, 1}, 30, 17, 40, 30);
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 1.5);
  for (ZorPoint& p : points) p = p + ZorPoint(noise(rng), noise(rng));
  Outcome first = Squares(points, 2, 0);
  std::vector<double> errors;
  for (ZorPoint& p : points) {
    errors.push_back(0);
    ZorGeometryMeasure().PointToOvalDistance(p, first.centre, double(first.a), double(first.b),
                                             double(first.angle), &errors.back(), nullptr);
  }
  for (double& error : errors) error = std::fabs(error);  // negative inside
  std::sort(errors.begin(), errors.end());
  EXPECT_EQ(Squares(points, 3, (errors[3] + errors[4]) / 2), first);
  EXPECT_FALSE(Squares(points, 3, (errors[4] + errors[5]) / 2) == first);
}

TEST(EllipseFits, SurviveAnyPoints) {
  std::vector<ZorPointArray> lists{ZorPointArray(std::vector<ZorPoint>(2000, ZorPoint(3, 4))),
                                   ZorPointArray(std::vector<ZorPoint>(6))};
  for (const ZorPoint& step : {ZorPoint(1, 2), {0, 1}, {1, 0}}) {  // all x 0, all y 0
    lists.emplace_back();
    for (int i = -4; i < 5; ++i) lists.back().Append({step.x * i, step.y * i});
  }
  for (const double bad : {kNaN, kInfinity, -kInfinity, -1e300, 1e30}) {
    lists.push_back(Slot({20, 9}, 30, 17, 40, 11));
    lists.back()[6].x = bad;
  }
  for (const ZorPointArray& points : lists) {
    const Outcome plain[] = {Squares(points, 4, 2), Absolute(points, 4, 2)};
    const zor::test::TraceCapture capture;  // measured another way
    for (const Outcome& out : {plain[0], plain[1], Whole(points), Squares(points, 1, 2),
                               Squares(points, 4, 2), Absolute(points, 4, 2)}) {
      EXPECT_EQ(out.status, GM_OK);
    }
  }
}
