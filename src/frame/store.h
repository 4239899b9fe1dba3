#pragma once

namespace zor::frame {

/// Writes an output unless the host does not want it.
template <typename T>
inline void Store(T* out, const T& value) {
  if (out != nullptr) *out = value;
}

}  // namespace zor::frame
