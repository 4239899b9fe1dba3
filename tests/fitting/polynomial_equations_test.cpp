#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>

using zor::test::kInfinity;
using zor::test::kNaN;

TEST(SolveLinerEquationsPolynomialFit, GivesOneAndTheHighestPowerFirstOrPrintsAndGivesZero) {
  ZorVarArray c = {7.0};
  const auto solve = [&](ZorPointArray points, int order) {
    testing::internal::CaptureStderr();
    const long result =
        ZorGeometryMeasure().SolveLinerEquationsPolynomialFit(points, order, &c, nullptr);
    return std::pair(result, testing::internal::GetCapturedStderr());
  };
  const std::pair solved(1L, std::string());
  const std::pair singular(0L, std::string("Singular matrix in routine ludcmp\n"));
  const ZorPointArray at_zero = {{0, 1}, {0, 2}, {0, 3}};
  EXPECT_EQ(solve(at_zero, 1), singular);
  EXPECT_EQ(solve({}, 0), singular);
  EXPECT_EQ(solve({{kNaN, 1}, {1, 1}, {2, 3}}, 2), singular);
  EXPECT_EQ(solve(at_zero, std::numeric_limits<int>::max()), singular);
  EXPECT_EQ(c, ZorVarArray({7.0}));

  ZorPointArray points;  // x^3 - 4 x^2 + 2.5 x - 7
  for (double x = -2.5; x <= 3; x += 0.5) points.Append({x, ((x - 4) * x + 2.5) * x - 7});
  EXPECT_EQ(solve(points, 3), solved);
  ASSERT_EQ(c.Length(), 4);
  const double expected[] = {1, -4, 2.5, -7};
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(c[i].D(), expected[i], 1e-12);
  EXPECT_EQ(solve({{5, 7}, {5, 7}, {5, 7}}, 1), solved);
  EXPECT_NEAR(c[0].D() * 5 + c[1].D(), 7, 1e-12) << "one of the lines through (5, 7)";
  EXPECT_EQ(solve({{0, 1}, {5, 2}, {9, 6}}, -4), solved);
  EXPECT_EQ(c, ZorVarArray({3.0})) << "a negative order counts as 0";
  EXPECT_EQ(solve(points, 100), solved);
  EXPECT_EQ(solve({{kInfinity, 1}, {1, kInfinity}, {2, 3}}, 2), solved);
}
