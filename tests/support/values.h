#pragma once

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <ZorData.h>

namespace zor::test {

/// A value no operation computes: an output that still holds it was not written.
inline constexpr double kUntouched = -12345.678;

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

[[nodiscard]] inline ZorPoint UntouchedPoint() { return {kUntouched, kUntouched}; }
[[nodiscard]] inline bool IsUntouched(double value) { return value == kUntouched; }
[[nodiscard]] inline bool IsUntouched(const ZorPoint& p) { return p == UntouchedPoint(); }

[[nodiscard]] inline std::string Show(const ZorPoint& p) {
  return "(" + std::to_string(p.x) + ", " + std::to_string(p.y) + ")";
}

/// EXPECT_NEAR for both coordinates.
inline void ExpectNear(const ZorPoint& actual, const ZorPoint& expected, double tolerance) {
  EXPECT_NEAR(actual.x, expected.x, tolerance) << Show(actual) << " for " << Show(expected);
  EXPECT_NEAR(actual.y, expected.y, tolerance) << Show(actual) << " for " << Show(expected);
}

}  // namespace zor::test

/// How GoogleTest prints a point.
inline void PrintTo(const ZorPoint& p, std::ostream* os) { *os << zor::test::Show(p); }
