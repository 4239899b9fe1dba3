#pragma once

#include "ZorPoint.h"

/// A line given by two points on it, or the segment between them, as the operation says.
struct ZorLine {
  ZorPoint start;
  ZorPoint end;

  constexpr ZorLine() noexcept = default;
  constexpr ZorLine(const ZorPoint& start_point, const ZorPoint& end_point) noexcept
      : start(start_point), end(end_point) {}
  constexpr ZorLine(const ZorLine&) noexcept = default;
  constexpr ZorLine& operator=(const ZorLine& other) noexcept {
    start = other.start;
    end = other.end;
    return *this;
  }

  friend constexpr bool operator==(const ZorLine& a, const ZorLine& b) noexcept {
    return a.start == b.start && a.end == b.end;
  }
  friend constexpr bool operator!=(const ZorLine& a, const ZorLine& b) noexcept {
    return !(a == b);
  }
};
