#include "distance/run_tree.h"

#include <cmath>
#include <utility>

#include "distance/spatial_order.h"
#include "elementary/point_kernels.h"

namespace zor::distance {
namespace {

using Run = RunTree::Run;

// Leaves of a list in spatial order are some 2 / sqrt(leaves) of the whole in size, those of one in
// random order nearly 1; a contour may wind about as much as this allows.
inline constexpr double kScatter = 3.0;

ZorPoint UnitNormal(const ZorPoint& along) {
  const double length = elementary::Norm(along);
  if (!(length > 0.0)) return {0.0, 0.0};
  return {-along.y / length, along.x / length};
}

/// Distance of p from a run's chord, a segment.
double OffChord(const Run& run, const ZorPoint& p) {
  const ZorPoint v = p - run.start;
  const ZorPoint w = p - run.end;
  const ZorPoint along(run.normal.y, -run.normal.x);  // 0 for a chord without direction
  if (elementary::Dot(v, along) <= 0.0) return elementary::Norm(v);
  if (elementary::Dot(w, along) >= 0.0) return elementary::Norm(w);
  return std::fabs(elementary::Dot(run.normal, v));
}

}  // namespace

RunTree::RunTree(std::span<const ZorPoint> points, Items items)
    : points_(points),
      size_(static_cast<std::uint32_t>(points.size()) - (items == Items::kSegments ? 1U : 0U)),
      end_offset_(items == Items::kSegments ? 1 : 0) {
  AddLeaves();
  if (IsScattered()) {
    Box whole = levels_[0][0].box;
    for (const Run& leaf : levels_[0]) whole.Add(leaf.box);
    order_ = SpatialOrder(points_.first(size_), whole);
    AddLeaves();
  }
  while (levels_.back().size() > 1) {
    const std::vector<Run>& below = levels_.back();
    std::vector<Run> next((below.size() + 1) / 2);
    for (std::size_t i = 0; i < next.size(); ++i) {
      next[i] = 2 * i + 1 < below.size() ? Join(below[2 * i], below[2 * i + 1]) : below[2 * i];
    }
    levels_.push_back(std::move(next));
  }
}

void RunTree::AddLeaves() {
  std::vector<Run> leaves((size_ + kLeafSize - 1) / kLeafSize);
  for (std::uint32_t k = 0; k < leaves.size(); ++k) {
    leaves[k] = BoundOf(k * kLeafSize, std::min((k + 1) * kLeafSize, size_));
  }
  levels_.clear();
  levels_.push_back(std::move(leaves));
}

bool RunTree::IsScattered() const {
  const std::vector<Run>& leaves = levels_[0];
  Box whole = leaves[0].box;
  double sum = 0.0;
  for (const Run& leaf : leaves) {
    whole.Add(leaf.box);
    sum += leaf.box.Extent();
  }
  return sum > kScatter * std::sqrt(static_cast<double>(leaves.size())) * whole.Extent();
}

Run RunTree::BoundOf(std::uint32_t begin, std::uint32_t end) const {
  const std::uint32_t first = Index(begin);
  Run run;
  run.start = Start(first);
  run.end = End(Index(end - 1));
  run.normal = UnitNormal(run.end - run.start);
  run.box = Box::Of(run.start);
  run.least_index = first;
  for (std::uint32_t k = begin; k < end; ++k) {
    const std::uint32_t index = Index(k);
    run.least_index = std::min(run.least_index, index);
    run.box.Add(Box::Of(Start(index)));
    run.reach = std::max(run.reach, OffChord(run, Start(index)));
    if (end_offset_ == 0) continue;
    run.box.Add(Box::Of(End(index)));
    run.reach = std::max(run.reach, OffChord(run, End(index)));
  }
  return run;
}

Run RunTree::Join(const Run& first, const Run& second) {
  Run run;
  run.start = first.start;
  run.end = second.end;
  run.normal = UnitNormal(run.end - run.start);
  run.box = first.box;
  run.box.Add(second.box);
  run.least_index = std::min(first.least_index, second.least_index);
  // All of a part is within its reach of its chord, and that is farthest from the new chord at the
  // end that they do not share.
  run.reach =
      std::max(first.reach + OffChord(run, first.end), second.reach + OffChord(run, second.start));
  return run;
}

Box RunTree::StepsOf(Ref ref) const {
  if (ref.level >= 0) return steps_[static_cast<std::size_t>(ref.level)][ref.k];
  const std::uint32_t index = Index(ref.k);
  return Box::Of(End(index) - Start(index));
}

void RunTree::AddSteps() {
  steps_.clear();
  for (int level = 0; level <= Root().level; ++level) {
    std::vector<Box> steps(RunCount(level));
    for (std::uint32_t k = 0; k < steps.size(); ++k) {
      const Parts parts = PartsOf({level, k});
      steps[k] = StepsOf({parts.level, parts.begin});
      for (std::uint32_t part = parts.begin + 1; part < parts.end; ++part) {
        steps[k].Add(StepsOf({parts.level, part}));
      }
    }
    steps_.push_back(std::move(steps));
  }
}

int RunTree::LevelOf(std::size_t count) const {
  int level = Root().level;
  while (level > 0 && RunCount(level) < count) --level;
  return level;
}

}  // namespace zor::distance
