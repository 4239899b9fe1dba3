#include "region_kernels.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zor::convert {
namespace {

using Run = ZorRegion::Run;

constexpr unsigned char kOn = 255;

bool EndsBefore(const Run& a, const Run& b) {
  return a.row != b.row ? a.row < b.row : a.end < b.begin;
}

}  // namespace

ZorRegion Subtract(const ZorRegion& region, const ZorRegion& removed) {
  std::vector<Run> rest;
  rest.reserve(region.Runs().size());
  auto cut = removed.Runs().begin();
  const auto cuts_end = removed.Runs().end();
  for (Run run : region.Runs()) {
    while (cut != cuts_end && EndsBefore(*cut, run)) ++cut;
    bool is_left = true;
    while (is_left && cut != cuts_end && cut->row == run.row && cut->begin <= run.end) {
      if (cut->begin > run.begin) rest.push_back({run.row, run.begin, cut->begin - 1});
      is_left = cut->end < run.end;
      if (is_left) run.begin = (cut++)->end + 1;  // else the cut may reach into the next run
    }
    if (is_left) rest.push_back(run);
  }
  return ZorRegion(std::move(rest));
}

PixelBox BoundingBox(const ZorRegion& region) {
  const std::vector<Run>& runs = region.Runs();  // sorted by row
  long long left = runs.front().begin;
  long long right = runs.front().end;
  for (const Run& run : runs) {
    left = std::min<long long>(left, run.begin);
    right = std::max<long long>(right, run.end);
  }
  const long long top = runs.front().row;
  return {left, top, right - left + 1, runs.back().row - top + 1};
}

ZorImage Paint(const ZorRegion& region, const PixelBox& box) {
  ZorImage image(static_cast<int>(box.width), static_cast<int>(box.height));
  for (const Run& run : region.Runs()) {
    const long long y = run.row - box.top;
    const long long begin = std::max(run.begin - box.left, 0LL);
    const long long end = std::min(run.end - box.left + 1, box.width);
    if (y < 0 || y >= box.height || begin >= end) continue;
    std::fill_n(image.Row(static_cast<int>(y)) + begin, end - begin, kOn);
  }
  return image;
}

}  // namespace zor::convert
