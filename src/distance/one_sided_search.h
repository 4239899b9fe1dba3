#pragma once

#include <cmath>
#include <cstdint>

#include "distance/box.h"
#include "distance/pair_search.h"
#include "distance/run_bounds.h"
#include "distance/run_tree.h"
#include "elementary/point_kernels.h"

namespace zor::distance {

/// Measures the items of one contour, one after the other, to the whole of another.
template <class Pairing>
class OneSidedSearch {
 public:
  OneSidedSearch(const Pairing& pairing, const RunTree& a, const RunTree& b)
      : pairing_(pairing), a_(a), b_(b) {
    Box whole = a.BoxOf(a.Root());
    whole.Add(b.BoxOf(b.Root()));
    scale_ = whole.Extent();
  }

  /// The item of b nearest to item i of a, the earliest on ties.
  [[nodiscard]] IndexedPair NearestTo(std::uint32_t i) {
    limit_ = {-1.0, 0, 0};
    WalkTo(i);
    Start(i);
    Descend(b_.Root());
    hint_ = best_.b;
    return best_;
  }

  /// The item of a whose nearest distance is the largest, the earliest on ties. Few items are
  /// measured to the end: most are seen at once to have something of b within the best so far.
  [[nodiscard]] IndexedPair FarthestNearest() {
    limit_ = {-1.0, 0, 0};
    const std::uint32_t count = a_.Size();
    // A first look at every so many items makes the bound good, so that the full walk breaks no
    // long series of records on its way up a slope.
    const auto stride = static_cast<std::uint32_t>(std::sqrt(static_cast<double>(count))) + 1;
    for (std::uint32_t i = 0; i < count; i += stride) Consider(i);
    for (std::uint32_t i = 0; i < count; ++i) Consider(i);
    return limit_;
  }

 private:
  static constexpr int kLongestWalk = 8;

  /// Moves the hint along b to a vertex that is near item i, and gives its squared distance.
  double WalkTo(std::uint32_t i) {
    const ZorPoint& p = a_.Start(i);
    const auto squared = [&](std::uint32_t j) {
      const ZorPoint v = b_.Start(j) - p;
      return elementary::Dot(v, v);
    };
    double here = squared(hint_);
    for (const bool is_forward : {true, false}) {
      for (int steps = 0; steps < kLongestWalk; ++steps) {
        if (is_forward ? hint_ + 1 >= b_.Size() : hint_ == 0) break;
        const std::uint32_t next = is_forward ? hint_ + 1 : hint_ - 1;
        const double there = squared(next);
        if (!(there < here)) break;
        here = there;
        hint_ = next;
      }
    }
    return here;
  }

  void Consider(std::uint32_t i) {
    if (WalkTo(i) < within_squared_) return;
    Start(i);
    if (!IsBeaten()) Descend(b_.Root());
    hint_ = best_.b;
    if (IsBeaten()) return;
    limit_ = best_;
    const double within = 2.0 * limit_.distance - pairing_.Reach(limit_.distance);
    within_squared_ = within > 0.0 ? within * within : 0.0;
  }

  void Start(std::uint32_t i) {
    box_ = Box::Of(a_.Start(i), a_.End(i));
    Take({pairing_.Distance(i, hint_), i, hint_});
    if (hint_ > 0) Compare(hint_ - 1);
  }

  void Take(const IndexedPair& pair) {
    best_ = pair;
    reach_ = pairing_.Reach(pair.distance);
    reach_squared_ = reach_ * reach_;
  }

  void Compare(std::uint32_t j) {
    if (pairing_.IsBeyond(best_.a, j, reach_squared_)) return;
    const double distance = pairing_.Distance(best_.a, j);
    if (distance < best_.distance || (distance == best_.distance && j < best_.b)) {
      Take({distance, best_.a, j});
    }
  }

  /// Whether the item cannot become the one that is farthest from b any more.
  [[nodiscard]] bool IsBeaten() const {
    return best_.distance < limit_.distance ||
           (best_.distance == limit_.distance && best_.a >= limit_.a);
  }

  void Descend(RunTree::Ref run) {
    if (IsBeaten() || IsSettled(run)) return;
    const RunTree::Parts parts = b_.PartsOf(run);
    if (parts.level < 0) {
      for (std::uint32_t k = parts.begin; k < parts.end; ++k) Compare(b_.Index(k));
      return;
    }
    RunTree::Ref first{parts.level, parts.begin};
    if (parts.end - parts.begin == 1) return Descend(first);
    RunTree::Ref second{parts.level, parts.begin + 1};
    if (SquaredGap(b_.BoxOf(second), box_) < SquaredGap(b_.BoxOf(first), box_)) {
      std::swap(first, second);
    }
    Descend(first);
    Descend(second);
  }

  [[nodiscard]] bool IsSettled(RunTree::Ref run) const {
    if (best_.distance == 0.0 && b_.LeastIndex(run) >= best_.b) return true;
    const RunTree::Run& bounds = b_.At(run);
    const ZorPoint& start = a_.Start(best_.a);
    const ZorPoint& end = a_.End(best_.a);
    if (SquaredGap(bounds.box, box_) <= reach_squared_ &&
        !IsCapsuleApart(bounds, start, end, reach_, scale_)) {
      return false;
    }
    if constexpr (!Pairing::kMayTouchAfar) return true;
    return !CanTouch(box_, Box::Of(end - start), bounds.box, b_.StepsOf(run));
  }

  Pairing pairing_;
  const RunTree& a_;
  const RunTree& b_;
  double scale_;
  std::uint32_t hint_ = 0;  // where in b the last item had its nearest
  IndexedPair best_;        // of the item under way
  double reach_ = 0.0;
  double reach_squared_ = 0.0;
  Box box_;            // of that item
  IndexedPair limit_;  // the farthest so far; a negative distance: none
  double within_squared_ = 0.0;
};

}  // namespace zor::distance
