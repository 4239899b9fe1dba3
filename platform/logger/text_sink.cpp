#include "text_sink.h"

#include <memory>
#include <utility>

#include <spdlog/logger.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

namespace zor::logger {

ZORMV::ZorTraceSink MakeTextSink(const std::string& destination) {
  try {
    spdlog::sink_ptr output;
    if (destination == "stderr") {
      output = std::make_shared<spdlog::sinks::stderr_sink_mt>();
    } else {
      output = std::make_shared<spdlog::sinks::basic_file_sink_mt>(destination);
    }
    // Not in spdlog's registry: a host that uses spdlog itself must not meet our logger there.
    auto lines = std::make_shared<spdlog::logger>("ZOR_TRACE", std::move(output));
    lines->set_pattern("%Y-%m-%d %H:%M:%S.%f [%t] %v");
    lines->flush_on(spdlog::level::trace);
    // The default handler reports a full disk on the console.
    lines->set_error_handler([](const std::string&) {});
    return [lines = std::move(lines)](const ZORMV::ZorTraceRecord& record) {
      lines->info("{}.{}:{} {}", record.className, record.operation, record.line, record.message);
    };
  } catch (...) {
    return {};
  }
}

}  // namespace zor::logger
