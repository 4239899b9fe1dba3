#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace zor::image {

/// How far a window reaches from its middle, in cells.
struct WindowReach {
  int across = 0;
  int down = 0;
};

/// A picture whose values can be replaced by the smallest of the window around each, as far as the
/// picture reaches. A window of any length is two overlapping ones of the largest power of two,
/// which are built up by doubling: linear in the cells times the logarithm of the reach. It holds
/// the rows within reach above and below the picture too, but no columns beside it.
template <typename Value>
class WindowMinima {
 public:
  /// Filled with the largest value, which stands for nothing.
  WindowMinima(int width, int height, WindowReach reach)
      : width_(static_cast<std::size_t>(width)),
        height_(static_cast<std::size_t>(height)),
        across_(static_cast<std::size_t>(reach.across)),
        down_(static_cast<std::size_t>(reach.down)),
        cells_(width_ * (height_ + 2 * down_), kNothing) {}

  [[nodiscard]] Value* Row(int y) { return RowFromTop(static_cast<std::size_t>(y) + down_); }

  /// Once, when all values are in place; the minima are then in ResultRow.
  void Take() {
    std::vector<Value> line(width_ + 2 * across_);
    std::vector<Value> shorter(line.size());
    for (std::size_t y = down_; y < down_ + height_; ++y) {
      Value* row = RowFromTop(y);
      std::fill_n(line.data(), across_, kNothing);
      std::copy_n(row, width_, line.data() + across_);
      std::fill_n(line.data() + across_ + width_, across_, kNothing);
      ShiftWithin(2 * across_ + 1, [&, count = line.size()](std::size_t shift) mutable {
        count -= shift;
        TakeSmaller(line.data(), line.data() + shift, count, shorter.data());
        line.swap(shorter);
      });
      std::copy_n(line.data(), width_, row);
    }
    ShiftWithin(2 * down_ + 1, [&, count = height_ + 2 * down_](std::size_t shift) mutable {
      count -= shift;
      for (std::size_t y = 0; y < count; ++y) {  // a row further down still holds its old values
        TakeSmaller(RowFromTop(y + shift), width_, RowFromTop(y));
      }
    });
  }
  [[nodiscard]] const Value* ResultRow(int y) const {
    return cells_.data() + static_cast<std::size_t>(y) * width_;
  }

 private:
  static constexpr Value kNothing = std::numeric_limits<Value>::max();

  /// The shifts by which values, each time replaced by the smaller of two that far apart, become
  /// the smallest of `length`.
  template <typename Action>
  static void ShiftWithin(std::size_t length, Action&& shift_by) {
    std::size_t step = 1;
    for (; 2 * step <= length; step *= 2) shift_by(step);
    if (length > step) shift_by(length - step);
  }
  // Two functions and no references in their loops: values that are written where another pointer
  // may point keep a loop from the lanes.
  static void TakeSmaller(const Value* a, const Value* b, std::size_t count, Value* out) {
    for (std::size_t x = 0; x < count; ++x) out[x] = std::min(a[x], b[x]);
  }
  static void TakeSmaller(const Value* other, std::size_t count, Value* values) {
    for (std::size_t x = 0; x < count; ++x) values[x] = std::min(values[x], other[x]);
  }
  Value* RowFromTop(std::size_t y) { return cells_.data() + y * width_; }

  std::size_t width_;
  std::size_t height_;
  std::size_t across_;
  std::size_t down_;
  std::vector<Value> cells_;
};

}  // namespace zor::image
