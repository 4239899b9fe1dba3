#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zor::test {

/// One exported operation, called on good input.
struct OperationRow {
  std::string name;   // "LinesIntersection", "Dlg::Perpendicular"; overloads with their difference
  std::string trace;  // what a good call leaves, as TraceCapture::Events gives it; "" for none
  std::function<long(bool wanted)> call;  // outputs wanted, or all of them null
};

/// The output, or null when it is not wanted.
template <typename T>
[[nodiscard]] T* Want(bool wanted, T& out) {
  return wanted ? &out : nullptr;
}

/// Every row succeeds with its outputs wanted and with all of them null, leaves its records both
/// times, and none of its own without a sink.
void CheckRows(const std::vector<OperationRow>& rows);

}  // namespace zor::test
