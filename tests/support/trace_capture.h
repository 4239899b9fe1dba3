#pragma once

#include <mutex>
#include <string>
#include <vector>

#include <ZorFastLoggerPrivate.h>

namespace zor::test {

/// Collects the trace records of all threads while it lives; then tracing is off again.
class TraceCapture {
 public:
  TraceCapture();
  ~TraceCapture();
  TraceCapture(const TraceCapture&) = delete;
  TraceCapture& operator=(const TraceCapture&) = delete;

  [[nodiscard]] std::vector<ZORMV::ZorTraceRecord> Records() const;

  /// The records in short, blank between them: "+Name" is a "start" and "-Name" a "Name end" of the
  /// operation Name; a record that is neither, or of another class, is spelled out with a "?".
  [[nodiscard]] std::string Events() const;

  void Clear();

 private:
  mutable std::mutex mutex_;
  std::vector<ZORMV::ZorTraceRecord> records_;
};

}  // namespace zor::test
