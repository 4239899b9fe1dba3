#include "fitting/curve_sampling.h"

#include <cmath>

#include <oneapi/tbb/blocked_range.h>
#include <oneapi/tbb/parallel_for.h>
#include <oneapi/tbb/partitioner.h>
#include <oneapi/tbb/task_group.h>

#include "fitting/curve_limits.h"

namespace zor::fitting {
namespace {

constexpr std::size_t kGrain = 1;

}  // namespace

std::optional<HalfUnitSteps> HalfUnitStepsBetween(double first_x, double last_x) {
  const double count = std::fabs(2 * (last_x - first_x) + 1);
  const bool is_listable = count < static_cast<double>(kMaxCurvePoints + 1);
  if (!is_listable) return std::nullopt;
  return HalfUnitSteps{last_x >= first_x ? first_x : last_x, static_cast<std::size_t>(count)};
}

void ForEachBlock(std::size_t count, const std::function<void(std::size_t, std::size_t)>& body) {
  tbb::task_group_context context;
  tbb::parallel_for(
      tbb::blocked_range<std::size_t>(0, count, kGrain),
      [&](const tbb::blocked_range<std::size_t>& range) { body(range.begin(), range.end()); },
      tbb::auto_partitioner(), context);
}

}  // namespace zor::fitting
