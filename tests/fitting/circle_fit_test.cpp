#include <array>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/point_kernels.h"
#include "matrix_fit.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::elementary::Distance;
using zor::test::ExpectNear;
using zor::test::IsUntouched;
using zor::test::kInfinity;
using zor::test::kNaN;
using zor::test::kUntouched;
using zor::test::MatrixFit;
using zor::test::UntouchedPoint;

namespace {

struct Outcome {
  long status;
  ZorPoint centre = UntouchedPoint();
  double radius = kUntouched;

  [[nodiscard]] bool IsWritten() const { return !IsUntouched(centre) && !IsUntouched(radius); }
};

Outcome Plain(ZorPointArray points) {
  Outcome out{};
  out.status = ZorGeometryMeasure().FitCircle(points, &out.centre, &out.radius);
  return out;
}
Outcome Squares(ZorPointArray points, int iterations, double clip) {
  Outcome out{};
  out.status =
      ZorGeometryMeasure().LeastSqaureCircleFit(points, iterations, clip, &out.centre, &out.radius);
  return out;
}
Outcome Absolute(ZorPointArray points, int iterations, double clip) {
  Outcome out{};
  out.status = ZorGeometryMeasure().LeastAbsoluteCircleFit(points, iterations, clip, &out.centre,
                                                           &out.radius);
  return out;
}
Outcome Pairs(ZorPointArray points, ZorVarArray angles) {
  Outcome out{};
  out.status =
      ZorGeometryMeasure().PointAnglePairsCircleFit(points, angles, &out.centre, &out.radius);
  return out;
}
Outcome Bisectors(ZorPointArray points) {
  Outcome out{};
  out.status = ZorGeometryMeasure().VerticalBisectorCircleFit(points, &out.centre, &out.radius);
  return out;
}

ZorPointArray Arc(const ZorPoint& centre, double radius, int n) {
  ZorPointArray points;
  for (int i = 0; i < n; ++i) {
    points.Append({centre.x + radius * std::cos(0.7 * i), centre.y + radius * std::sin(0.7 * i)});
  }
  return points;
}

MatrixFit CircleByMatrices(const ZorPointArray& points, double clip) {
  MatrixFit fit;
  fit.a = cv::Mat::ones(points.Length(), 3, CV_64F);
  fit.b = cv::Mat(points.Length(), 1, CV_64F);
  for (int i = 0; i < points.Length(); ++i) {
    const ZorPoint p = points[i];
    fit.a.at<double>(i, 0) = p.x;
    fit.a.at<double>(i, 1) = p.y;
    fit.b.at<double>(i) = -(p.x * p.x + p.y * p.y);
  }
  fit.inner_passes = 10;
  fit.solve = cv::DECOMP_QR;
  fit.least_weights = 3;
  fit.clip = [clip](const std::vector<double>&) { return clip; };
  fit.errors = [points](const cv::Mat& c) {
    const ZorPoint centre(-c.at<double>(0) / 2, -c.at<double>(1) / 2);
    const double r = std::sqrt(centre.x * centre.x + centre.y * centre.y - c.at<double>(2));
    std::vector<double> errors;
    for (const ZorPoint& p : points) errors.push_back(std::fabs(Distance(p, centre) - r));
    return errors;
  };
  return fit;
}

/// One triple or a whole set: the sum of the distances from the circle.
double Misfit(const std::vector<ZorPoint>& points, const ZorPoint& centre, double radius) {
  double sum = 0;
  for (const ZorPoint& p : points) sum += std::fabs(Distance(p, centre) - radius);
  return sum;
}

/// The circle of three points as it stands, with both senses tried for every call.
std::pair<ZorPoint, float> RotationOfThree(const std::vector<ZorPoint>& p,
                                           const std::vector<double>& t) {
  std::array<std::pair<ZorPoint, float>, 2> senses;
  std::array<double, 2> misfits{};
  for (const std::size_t sense : {0U, 1U}) {
    const double sign = sense == 0 ? 1 : -1;
    const double delta = (sign * t[1] - sign * t[0]) * 3.1415926 / 180;
    const double co = std::cos(delta), si = std::sin(delta);
    const cv::Mat matrix = cv::Mat(cv::Mat_<double>({2, 2}, {1 - co, si, -si, 1 - co}));
    const cv::Mat right = cv::Mat(cv::Mat_<double>(
        {2, 1}, {p[1].x - co * p[0].x + si * p[0].y, p[1].y - si * p[0].x - co * p[0].y}));
    cv::Mat matrix_f, right_f, centre_f;
    matrix.convertTo(matrix_f, CV_32F);
    right.convertTo(right_f, CV_32F);
    cv::solve(matrix_f, right_f, centre_f, cv::DECOMP_SVD);
    const ZorPoint centre(double(centre_f.at<float>(0)), double(centre_f.at<float>(1)));
    double sum = 0;
    for (const ZorPoint& q : p) sum += Distance(q, centre);
    const float radius = float(sum / double(p.size()));
    senses[sense] = {centre, radius};
    misfits[sense] = Misfit(p, centre, double(radius));
  }
  return misfits[1] < misfits[0] ? senses[1] : senses[0];
}

}  // namespace

TEST(CircleFits, CheckTheirArgumentsInOrder) {
  const ZorPointArray two = {{0, 0}, {1, 0}}, arc = Arc({9, 9}, 5, 7);
  for (const auto& fit : {Squares, Absolute}) {
    EXPECT_EQ(fit(two, 0, -1).status, GM_E_TOO_FEW_POINTS);
    EXPECT_EQ(fit(arc, 0, -1).status, GM_E_PARAM_2);
    EXPECT_EQ(fit(arc, 1, -1e-9).status, GM_E_PARAM_3);
    EXPECT_FALSE(fit(arc, 1, -1).IsWritten());
    EXPECT_EQ(fit(arc, 1, 0).status, GM_OK);
  }
  EXPECT_EQ(Plain(two).status, GM_E_TOO_FEW_POINTS);
}

TEST(CircleFits, FindTheCircle) {
  const ZorPointArray arc = Arc({300, 200}, 40, 12);
  ZorPointArray dented = arc;
  for (const int i : {2, 7}) dented[i] = {300, 200};
  EXPECT_EQ(Plain(dented).radius, Squares(dented, 1, 2).radius);
  for (const Outcome& out :
       {Plain(arc), Squares(arc, 1, 2), Squares(dented, 30, 30), Absolute(arc, 2, 2)}) {
    EXPECT_EQ(out.status, GM_OK);
    ExpectNear(out.centre, {300, 200}, 1e-7);
    EXPECT_NEAR(out.radius, 40, 1e-7);
  }
}

TEST(CircleFits, RejectWhatIsNoCircle) {
  const ZorPointArray line = {{0, 0}, {1, 1}, {2, 2}, {5, 5}};
  EXPECT_EQ(Plain(line).status, GM_E_PARAM_1);
  EXPECT_EQ(Squares(line, 1, 2).status, GM_E_CIRCLE_FIT_FAILED);
  EXPECT_FALSE(Squares(line, 1, 2).IsWritten());
  // Too small a radius: written and rejected, except by two passes of least squares.
  const ZorPointArray tiny = {{1e-7, 0}, {0, 1e-7}, {-1e-7, 0}, {0, -1e-7}};
  EXPECT_EQ(Plain(tiny).status, GM_OK);
  EXPECT_EQ(Squares(tiny, 2, 1).status, GM_OK);
  for (const Outcome& out : {Squares(tiny, 1, 1), Absolute(tiny, 1, 1)}) {
    EXPECT_EQ(out.status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_NEAR(out.radius, 1e-7, 1e-12);
  }
  // An exact fit of the mean leaves a residual of 0 beside larger ones: not a number.
  const ZorPointArray exact = {{1, 1}, {1, -1},  {-1, 1}, {-1, -1}, {2, 0}, {-2, 0},
                               {0, 2}, {0, -2},  {0, 0},  {0, 0},   {0, 0}, {0, 0},
                               {1, 1}, {-1, -1}, {1, -1}, {-1, 1}};
  const Outcome nan = Absolute(exact, 1, 1);
  EXPECT_EQ(nan.status, GM_E_CIRCLE_FIT_FAILED);
  EXPECT_TRUE(std::isnan(nan.radius));
}

TEST(CircleFits, AgreeWithWholeMatrices) {
  std::mt19937_64 rng(20240607);
  std::normal_distribution<double> noise(0, 0.6);
  for (int i = 0; i < 40; ++i) {
    ZorPointArray points;
    for (const ZorPoint& p : Arc({12, -7}, 15, 10 + i)) {
      points.Append(p + ZorPoint(noise(rng), noise(rng)));
    }
    points[3] = {12, -2};
    const MatrixFit reference = CircleByMatrices(points, 1.5 + 0.1 * (i % 9));
    const double clip = reference.clip({});
    for (const int passes : {1, 2, 3, 6}) {
      SCOPED_TRACE(testing::Message() << "cloud " << i << ", " << passes << " passes");
      for (const bool is_absolute : {false, true}) {
        const cv::Mat c = reference.Run(is_absolute, passes);
        const Outcome out =
            is_absolute ? Absolute(points, passes, clip) : Squares(points, passes, clip);
        ExpectNear(out.centre, {-c.at<double>(0) / 2, -c.at<double>(1) / 2}, 1e-9);
        EXPECT_NEAR(
            out.radius,
            std::sqrt(out.centre.x * out.centre.x + out.centre.y * out.centre.y - c.at<double>(2)),
            1e-9);
      }
    }
    // A single pass of least squares is the closed form, which solves the same equations.
    EXPECT_NEAR(Plain(points).radius, Squares(points, 2, 0).radius, 1e-9);
  }
}

TEST(LeastAbsoluteCircle, EqualSumDoesNotEndThePass) {
  // Every sum is exact, so the second step repeats the first one's sum (F = -0.5, radius 0.71). The
  // third reaches the shrinkage and F = 0, the fourth is worse: radius 0, which is rejected.
  ZorPointArray points = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
  for (int i = 0; i < 12; ++i) points.Append(ZorPoint(0, 0));
  const Outcome out = Absolute(points, 1, 1);
  EXPECT_EQ(out.radius, 0);
  EXPECT_EQ(out.status, GM_E_CIRCLE_FIT_FAILED);
}

TEST(CircleFits, SurviveAnyPoints) {
  for (const double bad : {kNaN, kInfinity, -1e200}) {
    ZorPointArray points = Arc({5, 5}, 3, 9);
    points[4].y = bad;
    EXPECT_EQ(Squares(points, 3, 1).status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_EQ(Absolute(points, 3, 1).status, GM_E_CIRCLE_FIT_FAILED);
    EXPECT_EQ(Bisectors(points).status, bad == -1e200 ? GM_OK : GM_E_PARAM_1);
    EXPECT_EQ(Pairs(points, {0.0, 1.0, 2.0, 3.0, bad, 5.0, 6.0, 7.0, 8.0}).status, GM_OK);
  }
  const ZorPointArray same(std::vector<ZorPoint>(50000, ZorPoint(3, 4)));
  EXPECT_EQ(Plain(same).status, GM_E_PARAM_1);
  EXPECT_NO_THROW(Squares(same, 1000000000, 1));
  EXPECT_NO_THROW(Absolute(same, 3, 1));
}

TEST(PointAnglePairsCircle, TwoPoints) {
  struct Case {
    const char* what;
    ZorPointArray points;
    ZorVarArray angles;
    long status;
    ZorPoint centre;
    double radius;
  };
  for (const Case& c : {
           Case{"level points, angles towards the bisector",
                {{0, 0}, {8, 0}},
                {45.0, 135.0},
                GM_OK,
                {4, 4},
                std::sqrt(32.0)},
           {"upright angle and upright bisector meet nowhere",
            {{0, 0}, {8, 0}},
            {90.0, 45.0},
            GM_E_FIT_FAILED,
            {},
            0},
           {"upright angles of a column", {{2, 1}, {2, 7}}, {90.0, -270.0}, GM_E_FIT_FAILED, {}, 0},
           {"column", {{2, 0}, {2, 8}}, {45.0, -45.0}, GM_OK, {6, 4}, std::sqrt(32.0)},
           {"slanted", {{0, 0}, {4, 2}}, {0.0, 90.0}, GM_OK, {3.25, -1.5}, 3.75},
           {"parallel lines", {{0, 0}, {4, 2}}, {30.0, 30.0}, GM_E_FIT_FAILED, {}, 0},
           {"one point", {{5, 5}, {5 + 9e-7, 5 - 9e-7}}, {1.0, 2.0}, GM_E_DEGENERATE_LINE, {}, 0},
           {"apart in one coordinate",
            {{5, 5}, {5 + 9e-7, 5.1}},
            {60.0, -60.0},
            GM_OK,
            {5.0289, 5.05},
            0.057735},
           {"a single point", {{5, 5}}, {1.0}, GM_E_PARAM_1, {}, 0},
           {"an angle too few", {{5, 5}, {6, 6}}, {1.0}, GM_E_PARAM_2, {}, 0},
       }) {
    SCOPED_TRACE(c.what);
    const Outcome out = Pairs(c.points, c.angles);
    EXPECT_EQ(out.status, c.status);
    EXPECT_EQ(out.IsWritten(), c.status == GM_OK);
    if (c.status != GM_OK) continue;
    ExpectNear(out.centre, c.centre, 1e-4);
    EXPECT_NEAR(out.radius, c.radius, 1e-4);
    EXPECT_EQ(out.centre.x, std::round(out.centre.x * 1e4) / 1e4);
  }
}

TEST(PointAnglePairsCircle, AgreesWithEveryTripleInBothSenses) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 60; ++i) {
    const bool is_stage = i % 2 == 0;  // points turned about a centre, or any
    std::vector<ZorPoint> points;
    std::vector<double> angles;
    const double sense = i % 4 == 0 ? 1 : -1;
    for (int k = 0; k < 3 + i % 7; ++k) {
      const double t = 160 * unit(rng);
      angles.push_back(t);
      const double a = sense * t * 3.1415926 / 180;
      points.push_back(is_stage ? ZorPoint(50 + 30 * std::cos(a), 20 + 30 * std::sin(a))
                                : ZorPoint(90 * unit(rng), 90 * unit(rng)));
    }
    std::array<ZorPoint, 2> centres;
    std::array<double, 2> radii{};
    float single = 0;
    int count = 0;
    for (const std::size_t negated : {0U, 1U}) {
      count = 0;
      for (std::size_t a = 0; a < points.size(); ++a) {
        for (std::size_t b = a + 1; b < points.size(); ++b) {
          for (std::size_t c = b + 1; c < points.size(); ++c, ++count) {
            const double sign = negated == 0 ? 1 : -1;
            const auto [centre, radius] =
                RotationOfThree({points[a], points[b], points[c]},
                                {sign * angles[a], sign * angles[b], sign * angles[c]});
            centres[negated] = centres[negated] + centre;
            radii[0] += negated == 0 ? double(radius) : 0;
            single += negated == 1 ? radius : 0;
          }
        }
      }
      centres[negated] = {centres[negated].x / count, centres[negated].y / count};
    }
    radii = {radii[0] / count, double(single / float(count))};
    const std::size_t chosen =
        Misfit(points, centres[1], radii[1]) < Misfit(points, centres[0], radii[0]) ? 1 : 0;
    ZorVarArray vars;
    for (const double t : angles) vars.Append(t);
    const Outcome out = Pairs(ZorPointArray(points), vars);
    EXPECT_EQ(out.status, GM_OK);
    EXPECT_EQ(out.centre, centres[chosen]);
    EXPECT_EQ(out.radius, radii[chosen]);
    if (is_stage) ExpectNear(out.centre, {50, 20}, 0.02);
  }
}

TEST(VerticalBisectorCircle, MeansOverAllPairsOfBisectors) {
  EXPECT_EQ(Bisectors({{0, 0}, {1, 1}}).status, GM_E_PARAM_1);
  EXPECT_EQ(Bisectors(Arc({9, 9}, 4, 1001)).status, GM_E_PARAM_1);
  EXPECT_EQ(Bisectors({{0, 0}, {1, 1}, {2, 2}}).status, GM_E_PARAM_1);          // parallel
  EXPECT_EQ(Bisectors({{0, 0}, {0, 0}, {1, 1}, {2, 0}}).status, GM_E_PARAM_1);  // no direction
  const Outcome exact = Bisectors(Arc({30, 20}, 10, 1000));
  ExpectNear(exact.centre, {30, 20}, 1e-6);
  EXPECT_NEAR(exact.radius, 10, 1e-6);
  // Chords along the axes, whose bisectors are level or upright.
  ExpectNear(Bisectors({{0, 0}, {4, 0}, {4, 2}}).centre, {2, 1}, 1e-12);
  ExpectNear(Bisectors({{4, 2}, {4, 0}, {0, 0}}).centre, {2, 1}, 1e-12);
  // Bisectors x = 2, x + y = 6 and y = 0: crossings (2, 4), (2, 0), (6, 0).
  ExpectNear(Bisectors({{0, 0}, {4, 0}, {6, 2}, {6, -2}}).centre, {10 / 3.0, 4 / 3.0}, 1e-12);
}

TEST(VerticalBisectorCircle, NegativeCentresMoveToTheAxis) {
  const Outcome out = Bisectors({{-5, 5}, {-3, 3}, {-5, 1}, {-7, 3}});
  EXPECT_EQ(out.status, GM_OK);
  ExpectNear(out.centre, {0, 3}, 1e-12);
  EXPECT_EQ(out.centre.x, 0);
  EXPECT_NEAR(out.radius, (2 * std::sqrt(29.0) + 3 + 7) / 4, 1e-12);
}
