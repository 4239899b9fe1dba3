#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "zorfastloggerprivate_export.h"

namespace ZORMV {

/// One trace record: what an operation reports at its start and at its successful end.
struct ZorTraceRecord {
  std::string message;
  std::string className;
  std::string operation;
  int line = 0;
};

using ZorTraceSink = std::function<void(const ZorTraceRecord&)>;

/// The call trace of the system. Objects hold nothing; all of them write to the one sink of the
/// process. All members may be called from any thread at any time.
///
/// At load the environment variable ZOR_TRACE installs a sink that writes a line a record (time,
/// thread, class, operation, source line, message): `stderr`, or else the path of a file that is
/// appended to, created with its folders when missing. Each line is flushed, so that the trace of a
/// crash is complete. Unset, empty or not to be opened: no sink, and nothing is written anywhere.
class ZorFastLoggerPrivate {
 public:
  ZorFastLoggerPrivate() noexcept = default;
  ~ZorFastLoggerPrivate() = default;

  /// Hands a record to the sink, on the calling thread. Without a sink it does nothing.
  /// @retval 0  delivered, or there is no sink
  /// @retval 1  the sink threw (the exception is swallowed), or memory ran out
  ZORFASTLOGGERPRIVATE_EXPORT long Log(std::string_view message, std::string_view className,
                                       std::string_view operation, int line) const noexcept;

  /// Replaces the sink; an empty function removes it. Calls of the sink are not serialised: threads
  /// that log at once run it at once. Records under way on other threads may still reach the former
  /// sink shortly after this returns, so a sink must own what it writes to. A sink may call
  /// SetSink.
  ZORFASTLOGGERPRIVATE_EXPORT static void SetSink(ZorTraceSink sink);

  /// Whether a sink is installed: a test that lets callers build no message in vain.
  [[nodiscard]] static bool HasSink() noexcept { return has_sink_.load(std::memory_order_relaxed); }

 private:
  // Exported: HasSink is compiled into every library that traces and all must read the same flag.
  ZORFASTLOGGERPRIVATE_EXPORT static std::atomic<bool> has_sink_;
};

}  // namespace ZORMV
