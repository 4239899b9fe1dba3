#include "distance/parallel_search.h"

#include <cstddef>
#include <cstdint>

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include "distance/point_pair_search.h"

namespace zor::distance {
namespace {

inline constexpr std::size_t kRuns = 64;  // about as many are shared out
inline constexpr std::size_t kGrain = 8;  // runs a task: enough that its first bounds pay

/// The body of the reduction over the runs of one level. Distance and order of the pairs decide, so
/// that the result is the same however the runs are split.
class ZorCalcContourDistance {
 public:
  ZorCalcContourDistance(const RunTree& a, const RunTree& b, int level, Wanted wanted)
      : a_(a), b_(b), level_(level), wanted_(wanted), search_(a, b, wanted) {}
  ZorCalcContourDistance(ZorCalcContourDistance& other, tbb::split /*unused*/)
      : ZorCalcContourDistance(other.a_, other.b_, other.level_, other.wanted_) {}

  void operator()(const tbb::blocked_range<std::uint32_t>& runs) {
    for (std::uint32_t k = runs.begin(); k < runs.end(); ++k) search_.Visit({level_, k});
  }
  void join(const ZorCalcContourDistance& other) { search_.Offer(other.Best()); }
  [[nodiscard]] PairRange Best() const { return search_.Best(); }

 private:
  const RunTree& a_;
  const RunTree& b_;
  int level_;
  Wanted wanted_;
  PointPairSearch search_;
};

}  // namespace

PairRange ParallelSearch(const RunTree& a, const RunTree& b, Wanted wanted) {
  const int level = a.LevelOf(kRuns);
  ZorCalcContourDistance body(a, b, level, wanted);
  tbb::task_group_context context;
  const tbb::blocked_range<std::uint32_t> runs(0, a.RunCount(level), kGrain);
  tbb::parallel_reduce(runs, body, tbb::auto_partitioner(), context);
  return body.Best();
}

}  // namespace zor::distance
