#include <atomic>
#include <cmath>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/settings.h"
#include "frame/trace.h"
#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorConfig.h>
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

using zor::test::kNaN;

namespace {

thread_local bool is_out_of_memory = false;

}  // namespace

// Out of line: a compiler that inlines one of them alone takes the pair for mismatched.
[[gnu::noinline]] void* operator new(std::size_t size) {
  void* memory = is_out_of_memory ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

TEST(Checks, BoundsAreInclusiveAsDocumentedAndLetNaNPass) {
  using namespace zor::frame;  // NOLINT: the predicates under test
  EXPECT_TRUE(IsDegenerate({0, 0}, {0.0003, 0.0004}));
  EXPECT_FALSE(IsDegenerate({0, 0}, {0.00051, 0}));
  EXPECT_FALSE(IsDegenerate({0, 0}, {kNaN, 0}));
  EXPECT_FALSE(IsPositive(0.0));
  EXPECT_TRUE(IsPositive(kNaN));
  EXPECT_TRUE(IsDegreeAngle(360.0) && IsDegreeAngle(0.0) && IsDegreeAngle(kNaN));
  EXPECT_FALSE(IsDegreeAngle(360.5) || IsDegreeAngle(-1e-9));
  EXPECT_TRUE(IsMode(4, 4) && IsMode(0, 4));
  EXPECT_FALSE(IsMode(5, 4) || IsMode(-1, 4));
  EXPECT_EQ(InvalidArgument(8), GM_E_PARAM_8);
}

TEST(Checks, SquaredBoundsAreTheRootTestsToTheLastBit) {
  using namespace zor::frame;  // NOLINT: the bounds under test
  EXPECT_LE(std::sqrt(kDegenerateSquared), kDegenerateLength);
  EXPECT_GT(std::sqrt(std::nextafter(kDegenerateSquared, 1.0)), kDegenerateLength);
  EXPECT_LE(std::sqrt(kCoincidentSquared), kCoincident);
  EXPECT_GT(std::sqrt(std::nextafter(kCoincidentSquared, 1.0)), kCoincident);
}

TEST(Trace, ExceptionAndFailureLeaveOnlyTheStart) {
  const zor::test::TraceCapture capture;
  EXPECT_EQ(zor::frame::CatchAs(7,
                                []() -> long {
                                  zor::frame::Trace trace("Throws");
                                  throw std::runtime_error("inside");
                                }),
            7);
  EXPECT_EQ(capture.Events(), "+Throws");
}

TEST(Trace, LosesRecordsForWantOfMemoryAndNothingElse) {
  const zor::test::TraceCapture capture;
  ZorPoint out;
  is_out_of_memory = true;
  const long status = ZorGeometryMeasure().LinesIntersection({0, 0}, {1, 0}, {2, -1}, {2, 1}, &out);
  is_out_of_memory = false;
  EXPECT_EQ(status, GM_OK);
  EXPECT_EQ(out, ZorPoint(2, 0));
  EXPECT_EQ(capture.Events(), "");
}

TEST(Trace, NamesTheLineOfTheCall) {
  const zor::test::TraceCapture capture;
  const int line = __LINE__ + 1;
  zor::frame::Trace trace("Here");
  EXPECT_EQ(trace.Done(), GM_OK);
  ASSERT_EQ(capture.Records().size(), 2U);
  EXPECT_EQ(capture.Records()[0].line, line);
  EXPECT_EQ(capture.Records()[1].line, line + 1);
}

TEST(Trace, HostThreadsMayMeasureAtOnce) {
  const zor::test::TraceCapture capture;
  std::atomic<int> failures = 0;
  std::vector<std::thread> hosts;
  for (int i = 0; i < 4; ++i) {
    hosts.emplace_back([&failures] {
      ZORMV::ZorGeometryMeasureDlg dlg;
      ZorPoint a(0, 0), b(1, 0), c(2, -1), d(2, 1), out;
      for (int k = 0; k < 200; ++k) {
        if (dlg.LinesIntersection(a, b, c, d, &out) != GM_OK || out != ZorPoint(2, 0)) ++failures;
      }
    });
  }
  for (std::thread& host : hosts) host.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(capture.Records().size(), 4U * 200U * 2U);
}

TEST(Settings, HoldWhatTheQueriesAnswer) {
  bool gpu = true;
  int efficiency = -1, parallelism = -1;
  const zor::frame::Settings& settings = zor::frame::LoadedSettings();
  EXPECT_EQ(ZORMV::ZorGetStaticGPU(&gpu), settings.gpu_status);
  EXPECT_EQ(ZORMV::ZorGetStaticEfficiency(&efficiency), settings.efficiency_status);
  EXPECT_EQ(ZORMV::ZorGetStaticTBB(&parallelism), settings.parallelism_status);
  EXPECT_EQ(gpu, settings.gpu);
  EXPECT_EQ(efficiency, settings.efficiency);
  EXPECT_EQ(parallelism, settings.parallelism);
}

TEST(ExportedClasses, CopyAndAssignAsHostsExpect) {
  ZorGeometryMeasure a, b;
  EXPECT_EQ(&(a = b), &a);
  ZORMV::ZorGeometryMeasureDlg dlg, other;
  EXPECT_EQ(&(dlg = other), &dlg);
  static_assert(std::is_empty_v<ZORMV::ZorGeometryMeasureDlg>);
}
