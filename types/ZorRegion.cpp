#include "ZorRegion.h"

#include <algorithm>
#include <tuple>
#include <utility>

ZorRegion::ZorRegion(std::vector<Run> runs) : runs_(std::move(runs)) {
  runs_.erase(
      std::remove_if(runs_.begin(), runs_.end(), [](const Run& r) { return r.end < r.begin; }),
      runs_.end());
  std::sort(runs_.begin(), runs_.end(), [](const Run& a, const Run& b) {
    return std::tie(a.row, a.begin) < std::tie(b.row, b.begin);
  });
  std::size_t kept = 0;
  for (const Run& run : runs_) {
    Run* last = kept > 0 ? &runs_[kept - 1] : nullptr;
    const bool touches = last != nullptr && last->row == run.row &&
                         static_cast<long long>(run.begin) <= static_cast<long long>(last->end) + 1;
    if (touches) {
      last->end = std::max(last->end, run.end);
    } else {
      runs_[kept++] = run;
    }
  }
  runs_.resize(kept);
}

long long ZorRegion::Area() const noexcept {
  long long area = 0;
  for (const Run& run : runs_) area += static_cast<long long>(run.end) - run.begin + 1;
  return area;
}
