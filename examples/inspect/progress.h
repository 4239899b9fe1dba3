#pragma once

#include <chrono>
#include <string>

namespace inspect {

/// A line on the standard error stream that says how far long work has come. Silent for work that
/// takes less than half a second; gone when the work is done.
class Progress {
 public:
  Progress(std::string work, int steps);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();
  void Step();

 private:
  using Clock = std::chrono::steady_clock;
  std::string work_;
  int steps_;
  int done_ = 0;
  bool shown_ = false;
  Clock::time_point next_;
};

}  // namespace inspect
