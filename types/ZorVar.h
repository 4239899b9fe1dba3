#pragma once

/// A scalar made from a double, a float or an int and read back as a double. The value is kept as
/// the double it converts to, which holds every float and int exactly.
class ZorVar {
 public:
  constexpr ZorVar() noexcept = default;
  constexpr ZorVar(double value) noexcept : value_(value) {}  // NOLINT: implicit
  constexpr ZorVar(float value) noexcept
      : value_(static_cast<double>(value)) {}                                   // NOLINT: implicit
  constexpr ZorVar(int value) noexcept : value_(static_cast<double>(value)) {}  // NOLINT: implicit

  [[nodiscard]] constexpr double D() const noexcept { return value_; }

  friend constexpr bool operator==(const ZorVar& a, const ZorVar& b) noexcept {
    return a.value_ == b.value_;
  }
  friend constexpr bool operator!=(const ZorVar& a, const ZorVar& b) noexcept { return !(a == b); }

 private:
  double value_ = 0.0;
};
