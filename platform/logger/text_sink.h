#pragma once

#include <string>

#include "ZorFastLoggerPrivate.h"

namespace zor::logger {

/// A sink that writes a flushed line a record to the standard error ("stderr") or appends it to the
/// file of that path; empty when the file cannot be opened.
[[nodiscard]] ZORMV::ZorTraceSink MakeTextSink(const std::string& destination);

}  // namespace zor::logger
