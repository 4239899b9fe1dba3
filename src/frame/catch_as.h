#pragma once

namespace zor::frame {

/// Runs `body` (returning a status) and turns any exception that leaves it into `code`.
template <typename Body>
[[nodiscard]] long CatchAs(long code, Body&& body) {
  try {
    return body();
  } catch (...) {
    return code;
  }
}

}  // namespace zor::frame
