#pragma once

#include <source_location>
#include <string_view>

#include "ZorStatus.h"
#include <ZorFastLoggerPrivate.h>

namespace zor::frame {

/// Call record of one operation: "start" where it is built, "<operation> end" where Done() is
/// returned. A path that leaves otherwise (a failure code, an exception) leaves only "start". A
/// record that fails is lost and changes nothing else.
class Trace {
 public:
  using Where = std::source_location;
  explicit Trace(std::string_view operation, Where at = Where::current()) : operation_(operation) {
    if (logger_.HasSink()) [[unlikely]]
      RecordStart(at);
  }
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;
  [[nodiscard]] long Done(Where at = Where::current()) {
    if (logger_.HasSink()) [[unlikely]]
      RecordEnd(at);
    return GM_OK;
  }

 private:
  // Out of line, so that an operation carries no more than the test of the flag.
  void RecordStart(Where at) const noexcept;
  void RecordEnd(Where at) const noexcept;

  ZORMV::ZorFastLoggerPrivate logger_;
  std::string_view operation_;  // a literal
};

/// Whether nested records are wanted: a faster way that skips inner calls may only run without.
[[nodiscard]] inline bool IsTracing() { return ZORMV::ZorFastLoggerPrivate::HasSink(); }

}  // namespace zor::frame
