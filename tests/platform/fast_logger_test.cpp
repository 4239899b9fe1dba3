#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include <ZorFastLoggerPrivate.h>

namespace {

using ZORMV::ZorFastLoggerPrivate;

long Log(const char* message) { return ZorFastLoggerPrivate().Log(message, "Class", "Op", 42); }

TEST(FastLogger, SinkMayThrowLogAndRemoveItself) {
  ZorFastLoggerPrivate::SetSink(
      [](const ZORMV::ZorTraceRecord&) { throw std::runtime_error("sink"); });
  EXPECT_NE(Log("start"), 0);
  const auto heard = std::make_shared<std::string>();
  ZorFastLoggerPrivate::SetSink([heard](const ZORMV::ZorTraceRecord& r) {
    ZorFastLoggerPrivate::SetSink({});
    EXPECT_EQ(Log("unheard"), 0);
    *heard += r.message + ' ' + r.className + ' ' + r.operation + ' ' + std::to_string(r.line);
  });
  EXPECT_EQ(Log("start"), 0);
  EXPECT_FALSE(ZorFastLoggerPrivate::HasSink());
  EXPECT_EQ(*heard, "start Class Op 42");
  EXPECT_EQ(heard.use_count(), 1) << "the removed sink is still alive";
}

TEST(FastLogger, NoRecordIsLostWhileSinksChange) {
  constexpr int kCalls = 5000;
  std::atomic<int> count{0};
  const auto sink = [&count](const ZORMV::ZorTraceRecord&) { ++count; };
  const auto log_often = [&] {
    for (int i = 0; i < kCalls; ++i) {
      if (i % 10 == 0) ZorFastLoggerPrivate::SetSink(sink);
      Log("start");
    }
  };
  std::thread other(log_often);
  log_often();
  other.join();
  ZorFastLoggerPrivate::SetSink({});
  EXPECT_EQ(count, 2 * kCalls);
}

// The variable is read at load: each case runs in a fresh process, which the death test starts.
TEST(FastLoggerDeathTest, VariableInstallsTheTextSinkAtLoad) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto log_and_exit = [] {
    Log("{}");                                            // text, not a format
    std::_Exit(ZorFastLoggerPrivate::HasSink() ? 1 : 0);  // flushes nothing
  };
  const std::string path = ::testing::TempDir() + "zor_trace/trace.txt";
  const auto expect = [&](const char* destination, int has_sink, const char* error_output) {
    setenv("ZOR_TRACE", destination, 1);
    EXPECT_EXIT(log_and_exit(), ::testing::ExitedWithCode(has_sink), error_output) << destination;
  };
  expect("", 0, "^$");
  expect("/dev/null/no", 0, "^$");
  expect("stderr", 1, "\\] Class.Op:42 \\{\\}\n");
  expect(path.c_str(), 1, "^$");
  unsetenv("ZOR_TRACE");
  std::ifstream file(path);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  EXPECT_NE(text.find("] Class.Op:42 {}\n"), std::string::npos) << text;
  std::filesystem::remove_all(std::filesystem::path(path).parent_path());
}

}  // namespace
