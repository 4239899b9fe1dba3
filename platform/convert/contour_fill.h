#pragma once

#include <cstddef>
#include <vector>

#include <ZorPointView.h>
#include <ZorRegion.h>

namespace zor::convert {

/// Collects the pixel runs of closed contours, one contour at a time, reusing its buffers.
class ContourFill {
 public:
  /// Adds the pixels whose centres lie on the contour or inside it (even-odd). False, with nothing
  /// added, when a coordinate is not usable or the crossings of all contours become too many; both
  /// are known before anything is allocated.
  [[nodiscard]] bool Add(ZorPointView contour);

  /// The union of all that was added; leaves the object empty.
  [[nodiscard]] ZorRegion TakeRegion();

 private:
  void CollectCrossings(ZorPointView contour, int first_row, int row_count);
  void AddInside(int first_row, int row_count);
  void AddOutline(ZorPointView contour);

  std::vector<ZorRegion::Run> runs_;
  std::vector<std::size_t> row_ends_;  // per row: the end of its crossings
  std::vector<double> crossings_;      // x of the crossings, row after row
  long long crossing_count_ = 0;       // over all contours
};

}  // namespace zor::convert
