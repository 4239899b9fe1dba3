#pragma once

#include <gtest/gtest.h>

#include "support/values.h"

namespace zor::test {

/// What an operation reports of a figure: a point of what is measured, one of the figure, their
/// distance.
struct Found {
  double distance = kUntouched;
  ZorPoint own = UntouchedPoint();
  ZorPoint figure = UntouchedPoint();
};

struct MinMax {
  Found min;
  Found max;
  long status = 0;
};

/// The results of call(distance, own, figure, distance, own, figure).
template <typename Call>
[[nodiscard]] MinMax DistanceFirst(Call&& call) {
  MinMax r;
  r.status =
      call(&r.min.distance, &r.min.own, &r.min.figure, &r.max.distance, &r.max.own, &r.max.figure);
  return r;
}

/// The results of call(own, figure, distance, own, figure, distance).
template <typename Call>
[[nodiscard]] MinMax PointsFirst(Call&& call) {
  return DistanceFirst([&](auto d1, auto p1, auto q1, auto d2, auto p2, auto q2) {
    return call(p1, q1, d1, p2, q2, d2);
  });
}

inline void ExpectFound(const Found& found, const Found& expected, double tolerance) {
  EXPECT_NEAR(found.distance, expected.distance, tolerance);
  ExpectNear(found.own, expected.own, tolerance);
  ExpectNear(found.figure, expected.figure, tolerance);
}

}  // namespace zor::test
