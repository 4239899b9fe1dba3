#pragma once

#include <iosfwd>
#include <limits>
#include <string>

#include <ZorData.h>

namespace zor::test {

/// A value no operation computes: an output that still holds it was not written.
inline constexpr double kUntouched = -12345.678;

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

[[nodiscard]] inline ZorPoint UntouchedPoint() { return {kUntouched, kUntouched}; }
[[nodiscard]] inline bool IsUntouched(double value) { return value == kUntouched; }
[[nodiscard]] inline bool IsUntouched(const ZorPoint& p) { return p == UntouchedPoint(); }

[[nodiscard]] std::string Show(const ZorPoint& p);

/// EXPECT_NEAR for both coordinates.
void ExpectNear(const ZorPoint& actual, const ZorPoint& expected, double tolerance);

}  // namespace zor::test

/// How GoogleTest prints a point.
void PrintTo(const ZorPoint& p, std::ostream* os);
