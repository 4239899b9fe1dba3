#pragma once

#include "distance/box.h"
#include "distance/run_tree.h"

namespace zor::distance {

/// Relative; far above the rounding of a capsule's bound (some 1e-15), far below what it tells
/// apart.
inline constexpr double kCapsuleSlack = 1e-12;

/// Whether a point lies more than `reach` from the capsule of a run. `scale` is a bound on all
/// coordinate differences.
[[nodiscard]] bool IsCapsuleApart(const RunTree::Run& run, const ZorPoint& p, double reach,
                                  double scale);

/// Whether a segment does.
[[nodiscard]] bool IsCapsuleApart(const RunTree::Run& run, const ZorPoint& start,
                                  const ZorPoint& end, double reach, double scale);

/// Whether the capsules of two runs lie more than `reach` apart.
[[nodiscard]] bool AreCapsulesApart(const RunTree::Run& a, const RunTree::Run& b, double reach,
                                    double scale);

/// An upper bound of the distance of a point in one run and a point in the other.
[[nodiscard]] double CapsuleSpan(const RunTree::Run& a, const RunTree::Run& b);

/// Whether a segment in box a with a direction in steps_a and one in box b with a direction in
/// steps_b can touch by the loose test of SegmentsTouch. False only when, of one of the two, both
/// ends lie clearly on one side of the other's line: the areas are a - b crossed with a direction.
[[nodiscard]] bool CanTouch(const Box& a, const Box& steps_a, const Box& b, const Box& steps_b);

}  // namespace zor::distance
