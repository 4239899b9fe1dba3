#pragma once

#include <cstddef>

#include "ZorPoint.h"

/// A read-only window on consecutive points that it does not own: what std::span<const ZorPoint> is
/// to C++20, for hosts compiled as C++17 (and it converts to that span). Valid while the list it
/// was taken from lives and is not changed.
class ZorPointView {
 public:
  using value_type = ZorPoint;
  using const_iterator = const ZorPoint*;
  using iterator = const_iterator;

  constexpr ZorPointView() noexcept = default;
  constexpr explicit ZorPointView(const ZorPoint* first, std::size_t count) noexcept
      : first_(first), count_(count) {}

  [[nodiscard]] constexpr const ZorPoint* data() const noexcept { return first_; }
  [[nodiscard]] constexpr std::size_t size() const noexcept { return count_; }
  [[nodiscard]] constexpr bool empty() const noexcept { return count_ == 0; }
  [[nodiscard]] constexpr const ZorPoint* begin() const noexcept { return first_; }
  [[nodiscard]] constexpr const ZorPoint* end() const noexcept { return first_ + count_; }
  /// Not checked and not cyclic.
  [[nodiscard]] constexpr const ZorPoint& operator[](std::size_t i) const noexcept {
    return first_[i];
  }
  [[nodiscard]] constexpr const ZorPoint& front() const noexcept { return first_[0]; }
  [[nodiscard]] constexpr const ZorPoint& back() const noexcept { return first_[count_ - 1]; }

 private:
  const ZorPoint* first_ = nullptr;
  std::size_t count_ = 0;
};
