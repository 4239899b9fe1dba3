#pragma once

namespace zor::elementary {

// Where a point lies with respect to a figure. Numbers on the interface: hosts and operations
// multiply distances by them.
inline constexpr int kInside = -1;
inline constexpr int kOnOutline = 0;  // within the tolerance of the operation
inline constexpr int kOutside = 1;

}  // namespace zor::elementary
