#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::kInfinity;
using zor::test::kNaN;

namespace {

// Result, then what went to the standard error stream.
std::pair<long, std::string> Solve(ZorPointArray points, int order, ZorVarArray* coefficients) {
  ZorPointArray curve = {{7, 7}};
  testing::internal::CaptureStderr();
  const long result =
      ZorGeometryMeasure().SolveLinerEquationsPolynomialFit(points, order, coefficients, &curve);
  EXPECT_EQ(curve, ZorPointArray({{7, 7}}));
  return {result, testing::internal::GetCapturedStderr()};
}

}  // namespace

TEST(SolveLinerEquationsPolynomialFit, GivesTheHighestPowerFirstAndOneForSuccess) {
  ZorPointArray cubic;  // x^3 - 4 x^2 + 2.5 x - 7
  for (int i = -5; i <= 6; ++i)
    cubic.Append({i * 0.5, ((i * 0.5 - 4) * i * 0.5 + 2.5) * i * 0.5 - 7});
  ZorVarArray c = {1.0, 2.0};
  EXPECT_EQ(Solve(cubic, 3, &c), std::pair(1L, std::string()));
  ASSERT_EQ(c.Length(), 4);
  const double expected[] = {1, -4, 2.5, -7};
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(c[i].D(), expected[i], 1e-12);

  EXPECT_EQ(Solve({{0, 1}, {5, 2}, {9, 6}}, -4, &c).first, 1) << "a negative order counts as 0";
  EXPECT_EQ(c, ZorVarArray({3.0}));
  EXPECT_EQ(Solve({{5, 7}, {5, 7}, {5, 7}}, 1, &c).first, 1) << "one of the lines through (5, 7)";
  EXPECT_NEAR(c[0].D() * 5 + c[1].D(), 7, 1e-12);
}

TEST(SolveLinerEquationsPolynomialFit, SaysSingularAndGivesZeroWhereARowVanishes) {
  const std::pair<long, std::string> singular = {0, "Singular matrix in routine ludcmp\n"};
  const ZorPointArray at_zero = {{0, 1}, {0, 2}, {0, 3}};
  ZorVarArray c = {1.0, 2.0};
  EXPECT_EQ(Solve(at_zero, 1, &c), singular);
  EXPECT_EQ(Solve({}, 0, &c), singular);
  EXPECT_EQ(Solve({{kNaN, 1}, {1, 1}, {2, 3}}, 2, &c), singular);
  EXPECT_EQ(Solve(at_zero, std::numeric_limits<int>::max(), &c), singular);
  EXPECT_EQ(c, ZorVarArray({1.0, 2.0}));
}

TEST(SolveLinerEquationsPolynomialFit, ReturnsWhateverTheInput) {
  ZorPointArray ten;
  for (int i = 0; i < 10; ++i) ten.Append({i * 7.0, i % 3 * 1.0});
  ZorVarArray c;
  EXPECT_EQ(Solve(ten, 100, &c).first, 1);
  EXPECT_EQ(c.Length(), 101);
  EXPECT_EQ(Solve({{kInfinity, 1}, {1, kInfinity}, {2, 3}}, 2, &c).first, 1);
}
