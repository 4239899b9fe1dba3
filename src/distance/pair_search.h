#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

#include "distance/box.h"
#include "distance/indexed_pair.h"
#include "distance/run_bounds.h"
#include "distance/run_tree.h"

namespace zor::distance {

/// The nearest pair of two trees: the smallest computed distance, the earliest pair of equals. Runs
/// are paired off by their bounds, the nearer ones first, and split until items meet.
template <class Pairing>
class NearestPairSearch {
 public:
  using Ref = RunTree::Ref;

  NearestPairSearch(const Pairing& pairing, const RunTree& a, const RunTree& b)
      : pairing_(pairing), a_(a), b_(b) {
    Box whole = a.BoxOf(a.Root());
    whole.Add(b.BoxOf(b.Root()));
    scale_ = whole.Extent();
    Take({pairing_.Distance(0, 0), 0, 0});
  }

  [[nodiscard]] const IndexedPair& Best() const { return best_; }

  void Offer(const IndexedPair& pair) {
    if (pair.distance > best_.distance) return;
    if (pair.distance < best_.distance || IsEarlier(pair.a, pair.b, best_)) Take(pair);
  }

  /// Offers the nearest pair of two runs or items, if it can replace the best one.
  void Visit(Ref a, Ref b) {
    const Box box_a = a_.BoxOf(a);
    const Box box_b = b_.BoxOf(b);
    if (IsSettled(a, box_a, b, box_b)) return;
    const double extent_a = box_a.Extent();
    const double extent_b = box_b.Extent();
    // The items of a run without extent are all the same: its first one stands for them.
    const bool is_a_one = a.level < 0 || extent_a == 0.0;
    const bool is_b_one = b.level < 0 || extent_b == 0.0;
    if (is_a_one && is_b_one) return Compare(a_.LeastIndex(a), b_.LeastIndex(b));
    if (a.level == 0 && b.level == 0 && IsAlike(extent_a, extent_b)) return VisitItems(a, b, box_b);
    if (is_b_one || (!is_a_one && IsFirstToSplit(a, box_a, box_b))) {
      VisitParts(a_, a, box_b, [&](Ref part) { Visit(part, b); });
    } else {
      VisitParts(b_, b, box_a, [&](Ref part) { Visit(a, part); });
    }
  }

 private:
  // Leaves this much alike are compared item by item; else the larger one is split first, which
  // keeps a small contour from being compared with all of a large one around it.
  static constexpr double kAlike = 8.0;

  static bool IsAlike(double extent_a, double extent_b) {
    return extent_a <= kAlike * extent_b && extent_b <= kAlike * extent_a;
  }

  void Take(const IndexedPair& pair) {
    best_ = pair;
    reach_ = pairing_.Reach(pair.distance);
    reach_squared_ = reach_ * reach_;
  }

  void Compare(std::uint32_t i, std::uint32_t j) {
    if (!pairing_.IsBeyond(i, j, reach_squared_)) Offer({pairing_.Distance(i, j), i, j});
  }

  [[nodiscard]] bool IsSettled(Ref a, const Box& box_a, Ref b, const Box& box_b) const {
    if (best_.distance == 0.0 && !IsEarlier(a_.LeastIndex(a), b_.LeastIndex(b), best_)) return true;
    if (!IsApart(a, box_a, b, box_b)) return false;
    if constexpr (!Pairing::kMayTouchAfar) return true;
    return !CanTouch(box_a, a_.StepsOf(a), box_b, b_.StepsOf(b));
  }

  [[nodiscard]] bool IsApart(Ref a, const Box& box_a, Ref b, const Box& box_b) const {
    if (SquaredGap(box_a, box_b) > reach_squared_) return true;
    if (a.level < 0 && b.level < 0) return false;
    if (a.level < 0) {
      const std::uint32_t i = a_.Index(a.k);
      return IsCapsuleApart(b_.At(b), a_.Start(i), a_.End(i), reach_, scale_);
    }
    if (b.level < 0) {
      const std::uint32_t j = b_.Index(b.k);
      return IsCapsuleApart(a_.At(a), b_.Start(j), b_.End(j), reach_, scale_);
    }
    return AreCapsulesApart(a_.At(a), b_.At(b), reach_, scale_);
  }

  [[nodiscard]] bool IsFirstToSplit(Ref a, const Box& box_a, const Box& box_b) const {
    if constexpr (Pairing::kMayTouchAfar) {
      // Runs apart are kept because they may line up. Where directions scatter that is told by
      // those of single segments of one contour, not by places.
      if (SquaredGap(box_a, box_b) > reach_squared_) {
        const Box steps = a_.StepsOf(a);
        Box whole = box_a;
        whole.Add(box_b);
        const double places = (box_a.Extent() + box_b.Extent()) * Largest(steps);
        if (steps.Extent() * whole.Extent() > places) return true;
      }
    }
    return box_a.Extent() >= box_b.Extent();
  }

  /// Two runs in the order of their gaps, the items of a leaf in their own.
  template <class VisitPart>
  static void VisitParts(const RunTree& tree, Ref run, const Box& other, const VisitPart& visit) {
    const RunTree::Parts parts = tree.PartsOf(run);
    if (parts.level >= 0 && parts.end - parts.begin == 2) {
      const Ref first{parts.level, parts.begin};
      const Ref second{parts.level, parts.begin + 1};
      const bool is_second_nearer =
          SquaredGap(tree.BoxOf(second), other) < SquaredGap(tree.BoxOf(first), other);
      visit(is_second_nearer ? second : first);
      visit(is_second_nearer ? first : second);
      return;
    }
    for (std::uint32_t k = parts.begin; k < parts.end; ++k) visit({parts.level, k});
  }

  void VisitItems(Ref a, Ref b, const Box& box_b) {
    const RunTree::Parts items_a = a_.PartsOf(a);
    const RunTree::Parts items_b = b_.PartsOf(b);
    for (std::uint32_t k = items_a.begin; k < items_a.end; ++k) {
      const Ref item{-1, k};
      if (IsSettled(item, a_.BoxOf(item), b, box_b)) continue;
      const std::uint32_t i = a_.Index(k);
      for (std::uint32_t l = items_b.begin; l < items_b.end; ++l) Compare(i, b_.Index(l));
    }
  }

  Pairing pairing_;
  const RunTree& a_;
  const RunTree& b_;
  double scale_;
  IndexedPair best_;
  double reach_ = 0.0;
  double reach_squared_ = 0.0;
};

}  // namespace zor::distance
