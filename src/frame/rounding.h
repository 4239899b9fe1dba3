#pragma once

namespace zor::frame {

/// The value rounded to single precision, as a double. A named step wherever an operation works in
/// single precision on purpose.
[[nodiscard]] inline double RoundToFloat(double value) {
  return static_cast<double>(static_cast<float>(value));
}

}  // namespace zor::frame
