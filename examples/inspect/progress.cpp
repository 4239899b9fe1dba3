#include "progress.h"

#include <iostream>
#include <utility>

namespace inspect {
namespace {

constexpr std::chrono::milliseconds kFirst(500);
constexpr std::chrono::milliseconds kBetween(100);

}  // namespace

Progress::Progress(std::string work, int steps)
    : work_(std::move(work)), steps_(steps), next_(Clock::now() + kFirst) {}

Progress::~Progress() {
  if (shown_) std::cerr << '\r' << std::string(work_.size() + 30, ' ') << '\r' << std::flush;
}

void Progress::Step() {
  ++done_;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kBetween;
  shown_ = true;
  std::cerr << '\r' << work_ << ": " << done_ << " of " << steps_ << std::flush;
}

}  // namespace inspect
