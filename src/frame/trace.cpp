#include "frame/trace.h"

#include <string>

namespace zor::frame {

namespace {

// Deliberate: one class name for all, the facade's own operations included; readers of traces
// filter by it.
constexpr std::string_view kClassName = "ZorGeometryMeasure";

}  // namespace

void Trace::RecordStart(Where at) const noexcept {
  logger_.Log("start", kClassName, operation_, static_cast<int>(at.line()));
}

void Trace::RecordEnd(Where at) const noexcept {
  try {
    logger_.Log(std::string(operation_) + " end", kClassName, operation_,
                static_cast<int>(at.line()));
  } catch (...) {  // no memory for the message: tracing must not change what an operation does
  }
}

}  // namespace zor::frame
