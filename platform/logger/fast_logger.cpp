#include <cstdlib>
#include <utility>

#include "ZorFastLoggerPrivate.h"
#include "common/callback_slot.h"
#include "text_sink.h"

namespace ZORMV {
namespace {

using Slot = zor::platform::CallbackSlot<const ZorTraceRecord&>;

// Never destroyed: other libraries may still trace from their destructors while the process ends.
Slot& SinkSlot() {
  static Slot* const slot = new Slot;
  return *slot;
}

void InstallSinkFromEnvironment() {
  const char* destination = std::getenv("ZOR_TRACE");
  if (destination == nullptr || *destination == '\0') return;
  ZorFastLoggerPrivate::SetSink(zor::logger::MakeTextSink(destination));
}

[[maybe_unused]] const bool kSinkInstalledAtLoad = (InstallSinkFromEnvironment(), true);

}  // namespace

std::atomic<bool> ZorFastLoggerPrivate::has_sink_{false};

long ZorFastLoggerPrivate::Log(std::string_view message, std::string_view className,
                               std::string_view operation, int line) const noexcept {
  if (!HasSink()) return 0;
  try {
    SinkSlot().Call({std::string(message), std::string(className), std::string(operation), line});
    return 0;
  } catch (...) {  // whatever a sink throws: tracing must not change what an operation does
    return 1;
  }
}

void ZorFastLoggerPrivate::SetSink(ZorTraceSink sink) {
  SinkSlot().Set(std::move(sink), has_sink_);
}

}  // namespace ZORMV
