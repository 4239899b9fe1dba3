#pragma once

#include "ZorPoint.h"

namespace zor::distance {

/// f(q) = A q.x + B q.y + K of the line through two points: 0 on the line, of opposite signs on its
/// two sides, and hypot(A, B) times the distance.
struct LineFunction {
  double a = 0.0;
  double b = 0.0;
  double k = 0.0;

  LineFunction(const ZorPoint& start, const ZorPoint& end)
      : a(start.y - end.y), b(end.x - start.x), k(start.x * end.y - end.x * start.y) {}

  [[nodiscard]] double operator()(const ZorPoint& q) const { return a * q.x + b * q.y + k; }
};

}  // namespace zor::distance
