#include <string>

#include <gtest/gtest.h>

#include <ZorDebugger.h>

TEST(DebugOutput, ReachesTheCaptureOnlyAndNeverThrows) {
  OutputDebugStringW(L"lost");
  std::wstring captured;
  ZORMV::ZorCaptureDebugOutput([&](std::wstring_view text) {
    captured += text;
    if (captured.size() > 3) ZORMV::ZorCaptureDebugOutput({});  // no lock is held here
    throw 1;
  });
  for (const wchar_t* text : {L"len", static_cast<const wchar_t*>(nullptr), L"\u00df", L"lost"}) {
    OutputDebugStringW(text);
  }
  EXPECT_EQ(captured, L"len\u00df");
}
