#include "support/trace_capture.h"

namespace zor::test {
namespace {

std::string InShort(const ZORMV::ZorTraceRecord& record) {
  const bool is_ours = record.className == "ZorGeometryMeasure" && record.line > 0;
  if (is_ours && record.message == "start") return "+" + record.operation;
  if (is_ours && record.message == record.operation + " end") return "-" + record.operation;
  return "?" + record.className + "." + record.operation + ":" + record.message;
}

}  // namespace

TraceCapture::TraceCapture() {
  ZORMV::ZorFastLoggerPrivate::SetSink([this](const ZORMV::ZorTraceRecord& record) {
    const std::lock_guard<std::mutex> lock(mutex_);
    records_.push_back(record);
  });
}

TraceCapture::~TraceCapture() { ZORMV::ZorFastLoggerPrivate::SetSink({}); }

std::vector<ZORMV::ZorTraceRecord> TraceCapture::Records() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return records_;
}

std::string TraceCapture::Events() const {
  std::string events;
  for (const ZORMV::ZorTraceRecord& record : Records()) {
    if (!events.empty()) events += ' ';
    events += InShort(record);
  }
  return events;
}

void TraceCapture::Clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  records_.clear();
}

}  // namespace zor::test
