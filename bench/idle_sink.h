#pragma once

#include <benchmark/benchmark.h>

#include <ZorFastLoggerPrivate.h>

namespace zor::bench {

/// A sink that does nothing: what is left is the cost of making and handing over the records.
class IdleSink {
 public:
  IdleSink() {
    ZORMV::ZorFastLoggerPrivate::SetSink(
        [](const ZORMV::ZorTraceRecord& record) { benchmark::DoNotOptimize(record.line); });
  }
  ~IdleSink() { ZORMV::ZorFastLoggerPrivate::SetSink({}); }
  IdleSink(const IdleSink&) = delete;
  IdleSink& operator=(const IdleSink&) = delete;
};

}  // namespace zor::bench
