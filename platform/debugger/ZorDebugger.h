#pragma once

#include <functional>
#include <string_view>

#include "zordebugger_export.h"

#if defined(_WIN32)
extern "C" __declspec(dllimport) void __stdcall OutputDebugStringW(const wchar_t* text);
#else
/// Stands in for the system function of this name where there is none: hands the text to the
/// capture function; without one the text goes nowhere. Null is ignored. From any thread; never
/// throws.
extern "C" ZORDEBUGGER_EXPORT void OutputDebugStringW(const wchar_t* text);
#endif

namespace ZORMV {

using ZorDebugCapture = std::function<void(std::wstring_view)>;

/// Replaces the function that receives the debugger output, run on the thread that prints, by
/// several threads at once if several print; an empty function ends the capture. It may call this
/// function itself; what it throws is swallowed.
/// Returns false, without effect, on Windows, where the output belongs to the attached debugger.
ZORDEBUGGER_EXPORT bool ZorCaptureDebugOutput(ZorDebugCapture capture);

}  // namespace ZORMV
