#include "frame/settings.h"

#include <opencv2/core/mat.hpp>

#include <ZorConfig.h>

namespace zor::frame {
namespace {

// Deliberate: an empty matrix that nothing reads. It makes the matrix library initialise before the
// first call and stay until this library is unloaded, and comes before the queries below.
const cv::Mat kGlobalMatrix;

Settings Load() {
  Settings settings;
  settings.gpu_status = ZORMV::ZorGetStaticGPU(&settings.gpu);
  settings.efficiency_status = ZORMV::ZorGetStaticEfficiency(&settings.efficiency);
  settings.parallelism_status = ZORMV::ZorGetStaticTBB(&settings.parallelism);
  return settings;
}

const Settings kSettings = Load();

}  // namespace

const Settings& LoadedSettings() { return kSettings; }

}  // namespace zor::frame
