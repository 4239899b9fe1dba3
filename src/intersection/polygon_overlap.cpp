#include "intersection/polygon_overlap.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include "intersection/box_tree.h"
#include "intersection/compensated_sum.h"
#include "intersection/convex_overlap.h"
#include "intersection/ear_cut.h"

namespace zor::intersection {
namespace {

/// The vertices but those equal to the one before, cyclically: an edge without length hides which
/// way the outline turns there.
std::vector<ZorPoint> WithoutRepeats(std::span<const ZorPoint> outline) {
  std::vector<ZorPoint> vertices;
  vertices.reserve(outline.size());
  std::unique_copy(outline.begin(), outline.end(), std::back_inserter(vertices));
  while (vertices.size() > 1 && vertices.back() == vertices.front()) vertices.pop_back();
  return vertices;
}

/// A polygon as convex core and convex pieces.
struct Parts {
  explicit Parts(std::span<const ZorPoint> outline) {
    const OutlineTraits traits = TraitsOf(outline);
    if (traits.is_convex && !traits.has_repeats) {
      core_outline = outline;
      core.Add(outline, traits.low, traits.high);
      return;
    }
    std::vector<ZorPoint> distinct;
    if (traits.has_repeats) distinct = WithoutRepeats(outline);
    if (traits.has_repeats && TraitsOf(distinct).is_convex) {
      cut.core = std::move(distinct);
    } else {
      cut = CutEars(traits.has_repeats ? distinct : outline);
    }
    core_outline = cut.core;
    core.Add(core_outline);
    boxes.reserve(cut.pieces.size());
    for (const std::vector<ZorPoint>& piece : cut.pieces) {
      pieces.Add(piece);
      boxes.push_back(BoxOf(piece));
    }
  }

  CutPolygon cut;  // empty for an outline that is convex as it is
  std::span<const ZorPoint> core_outline;
  ConvexPieces core;
  ConvexPieces pieces;
  std::vector<PieceBox> boxes;  // of the pieces
};

/// Sum of the areas that the pieces of one polygon share with the core of the other.
class ConvexPolygonIntersectionArrayTbb {
 public:
  ConvexPolygonIntersectionArrayTbb(const Parts& parts, const Parts& other, const PieceBox& box,
                                    const PairWitness& witness)
      : parts_(&parts), other_(&other), box_(&box), witness_(&witness) {}
  ConvexPolygonIntersectionArrayTbb(const ConvexPolygonIntersectionArrayTbb& body, tbb::split)
      : parts_(body.parts_), other_(body.other_), box_(body.box_), witness_(body.witness_) {}

  void operator()(const tbb::blocked_range<std::size_t>& range) {
    const ConvexSides core = other_->core.Sides(0);
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      if (*witness_) (*witness_)(parts_->cut.pieces[i], other_->core_outline);
      if (!parts_->boxes[i].Meets(*box_)) continue;
      sum_.Add(parts_->cut.weights[i] * OverlapArea(parts_->pieces.Sides(i), core));
    }
  }
  void join(const ConvexPolygonIntersectionArrayTbb& body) { sum_.Add(body.sum_); }
  [[nodiscard]] const CompensatedSum& Sum() const { return sum_; }

 private:
  const Parts* parts_;
  const Parts* other_;
  const PieceBox* box_;  // of the other polygon
  const PairWitness* witness_;
  CompensatedSum sum_;
};

/// Sum of the areas that the pieces of two polygons share, every one with every one.
class ConvexPolygonIntersectionTbb {
 public:
  ConvexPolygonIntersectionTbb(const Parts& parts, const Parts& other, const BoxTree& tree,
                               const PairWitness& witness)
      : parts_(&parts), other_(&other), tree_(&tree), witness_(&witness) {}
  ConvexPolygonIntersectionTbb(const ConvexPolygonIntersectionTbb& body, tbb::split)
      : parts_(body.parts_), other_(body.other_), tree_(body.tree_), witness_(body.witness_) {}

  void operator()(const tbb::blocked_range<std::size_t>& range) {
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      const ConvexSides sides = parts_->pieces.Sides(i);
      if (*witness_) {
        for (const auto& piece : other_->cut.pieces) (*witness_)(parts_->cut.pieces[i], piece);
      }
      tree_->VisitMeeting(parts_->boxes[i], [&](std::size_t k) {
        sum_.Add(parts_->cut.weights[i] * other_->cut.weights[k] *
                 OverlapArea(sides, other_->pieces.Sides(k)));
      });
    }
  }
  void join(const ConvexPolygonIntersectionTbb& body) { sum_.Add(body.sum_); }
  [[nodiscard]] const CompensatedSum& Sum() const { return sum_; }

 private:
  const Parts* parts_;
  const Parts* other_;
  const BoxTree* tree_;
  const PairWitness* witness_;
  CompensatedSum sum_;
};

template <typename Body>
void AddReduced(Body body, std::size_t count, CompensatedSum& sum) {
  if (count == 0) return;
  tbb::task_group_context context;
  tbb::parallel_reduce(tbb::blocked_range<std::size_t>(0, count), body, tbb::auto_partitioner(),
                       context);
  sum.Add(body.Sum());
}

}  // namespace

double PolygonOverlapArea(std::span<const ZorPoint> p, std::span<const ZorPoint> q,
                          const PairWitness& witness) {
  const PieceBox p_box = BoxOf(p);
  const PieceBox q_box = BoxOf(q);
  if (!witness && !p_box.Meets(q_box)) return 0.0;
  const Parts p_parts(p);
  const Parts q_parts(q);
  const std::size_t p_count = p_parts.pieces.Count();
  const std::size_t q_count = q_parts.pieces.Count();
  if (witness) witness(p_parts.core_outline, q_parts.core_outline);
  CompensatedSum sum;
  sum.Add(OverlapArea(p_parts.core.Sides(0), q_parts.core.Sides(0)));
  AddReduced(ConvexPolygonIntersectionArrayTbb(p_parts, q_parts, q_box, witness), p_count, sum);
  AddReduced(ConvexPolygonIntersectionArrayTbb(q_parts, p_parts, p_box, witness), q_count, sum);
  if (p_count > 0 && q_count > 0) {
    const BoxTree tree(q_parts.boxes);
    AddReduced(ConvexPolygonIntersectionTbb(p_parts, q_parts, tree, witness), p_count, sum);
  }
  return sum.Value();
}

}  // namespace zor::intersection
