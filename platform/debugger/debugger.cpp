#include "ZorDebugger.h"

#if defined(_WIN32)

bool ZORMV::ZorCaptureDebugOutput(ZorDebugCapture) { return false; }

#else

#include <atomic>
#include <utility>

#include "common/callback_slot.h"

namespace {

using Slot = zor::platform::CallbackSlot<std::wstring_view>;

std::atomic<bool> is_capturing{false};

// Never destroyed: destructors of other libraries may still print while the process ends.
Slot& CaptureSlot() {
  static Slot* const slot = new Slot;
  return *slot;
}

}  // namespace

void OutputDebugStringW(const wchar_t* text) {
  if (text == nullptr || !is_capturing.load(std::memory_order_relaxed)) return;
  try {
    CaptureSlot().Call(text);
  } catch (...) {  // the system's function does not throw, so its callers are not prepared for it
    return;
  }
}

bool ZORMV::ZorCaptureDebugOutput(ZorDebugCapture capture) {
  CaptureSlot().Set(std::move(capture), is_capturing);
  return true;
}

#endif
