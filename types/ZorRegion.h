#pragma once

#include <vector>

#include "zordata_export.h"

/// A set of pixels, run-length encoded: runs sorted by row, then column, disjoint and not adjacent.
class ZORDATA_EXPORT ZorRegion {
 public:
  /// The pixels `begin` to `end`, both included, of one row.
  struct Run {
    int row = 0;
    int begin = 0;
    int end = 0;

    friend bool operator==(const Run& a, const Run& b) {
      return a.row == b.row && a.begin == b.begin && a.end == b.end;
    }
  };

  ZorRegion() noexcept = default;
  /// Sorts the runs, joins those that overlap or touch within a row, and drops those with
  /// end < begin.
  explicit ZorRegion(std::vector<Run> runs);

  [[nodiscard]] const std::vector<Run>& Runs() const noexcept { return runs_; }
  [[nodiscard]] bool Empty() const noexcept { return runs_.empty(); }
  /// Number of pixels.
  [[nodiscard]] long long Area() const noexcept;

  friend bool operator==(const ZorRegion& a, const ZorRegion& b) { return a.runs_ == b.runs_; }
  friend bool operator!=(const ZorRegion& a, const ZorRegion& b) { return !(a == b); }

 private:
  std::vector<Run> runs_;
};
