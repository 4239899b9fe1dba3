#pragma once

#include "ZorPoint.h"
#include "frame/tolerances.h"

// The predicates behind the argument checks, so that a bound, its inclusiveness and its answer to a
// NaN are decided once. Each is written so that a NaN passes the check: the outcome is then a NaN
// result, not a code.

namespace zor::frame {

/// The code that names the n-th argument (from 1) of an operation.
[[nodiscard]] constexpr long InvalidArgument(int n) { return 11200000L + n; }

/// The two points define no line: at most kDegenerateLength apart, inclusive.
[[nodiscard]] inline bool IsDegenerate(const ZorPoint& a, const ZorPoint& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  // The square root rounds correctly and so is monotone: this is sqrt(...) <= kDegenerateLength to
  // the last bit, without the root.
  return dx * dx + dy * dy <= kDegenerateSquared;
}

/// Radius, semi-axis, extent: strictly positive.
template <typename Real>
[[nodiscard]] constexpr bool IsPositive(Real value) {
  return !(value <= Real(0));
}

/// Angle argument in degrees: 0 to 360, both included.
template <typename Real>
[[nodiscard]] constexpr bool IsDegreeAngle(Real angle_deg) {
  return !(angle_deg < Real(0) || angle_deg > Real(360));
}

/// Mode argument: 0 to last. Compared unsigned, so that a negative mode fails like one too large.
[[nodiscard]] constexpr bool IsMode(int mode, unsigned last) {
  return static_cast<unsigned>(mode) <= last;
}

}  // namespace zor::frame
