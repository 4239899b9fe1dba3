#pragma once

namespace zor::frame {

/// What the configuration library answered when this library was loaded; never written again. The
/// statuses are kept and not judged: a failed query leaves its default.
struct Settings {
  bool gpu = false;
  long gpu_status = 0;
  int efficiency = 0;
  long efficiency_status = 0;
  int parallelism = 0;  // threads of the Gaussian solver; below 1: one per processor
  long parallelism_status = 0;
};

[[nodiscard]] const Settings& LoadedSettings();

}  // namespace zor::frame
