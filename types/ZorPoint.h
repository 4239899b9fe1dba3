#pragma once

/// A 2-D point in pixel coordinates (x to the right, y downwards), also used as a free vector and
/// as a pair of plain numbers. 16 bytes; cheap to copy and passed in registers.
struct ZorPoint {
  double x = 0.0;
  double y = 0.0;

  constexpr ZorPoint() noexcept = default;
  constexpr ZorPoint(double x_value, double y_value) noexcept : x(x_value), y(y_value) {}
  constexpr ZorPoint(const ZorPoint&) noexcept = default;

  // Deliberate: returns nothing, as hosts compiled against this interface expect; algorithms that
  // demand `T&` from an assignment (std::ranges::sort) therefore reject the type, std::sort does
  // not.
  constexpr void operator=(const ZorPoint& other) noexcept {
    x = other.x;
    y = other.y;
  }

  [[nodiscard]] constexpr ZorPoint operator+(const ZorPoint& other) const noexcept {
    return {x + other.x, y + other.y};
  }
  [[nodiscard]] constexpr ZorPoint operator-(const ZorPoint& other) const noexcept {
    return {x - other.x, y - other.y};
  }

  /// Exact comparison of both coordinates (-0.0 equals 0.0, NaN equals nothing).
  friend constexpr bool operator==(const ZorPoint& a, const ZorPoint& b) noexcept {
    return a.x == b.x && a.y == b.y;
  }
  friend constexpr bool operator!=(const ZorPoint& a, const ZorPoint& b) noexcept {
    return !(a == b);
  }
};
static_assert(sizeof(ZorPoint) == 16);
