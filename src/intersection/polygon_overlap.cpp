#include "intersection/polygon_overlap.h"

#include <cstddef>
#include <vector>

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include "intersection/box_tree.h"
#include "intersection/compensated_sum.h"
#include "intersection/convex_overlap.h"
#include "intersection/ear_cut.h"

namespace zor::intersection {
namespace {

/// A polygon as convex core and convex pieces.
struct Parts {
  explicit Parts(std::span<const ZorPoint> polygon) {
    if (IsConvex(polygon)) {
      core.Add(polygon);
      return;
    }
    const CutPolygon cut = CutEars(polygon);
    core.Add(cut.core);
    for (const std::vector<ZorPoint>& piece : cut.pieces) {
      pieces.Add(piece);
      boxes.push_back(BoxOf(piece));
    }
  }

  ConvexPieces core;
  ConvexPieces pieces;
  std::vector<PieceBox> boxes;  // of the pieces
};

/// Sum of the areas that the pieces of a list share with one convex polygon.
class ConvexPolygonIntersectionArrayTbb {
 public:
  ConvexPolygonIntersectionArrayTbb(const Parts& parts, const ConvexSides& core,
                                    const PieceBox& box)
      : parts_(&parts), core_(core), box_(box) {}
  ConvexPolygonIntersectionArrayTbb(const ConvexPolygonIntersectionArrayTbb& other, tbb::split)
      : parts_(other.parts_), core_(other.core_), box_(other.box_) {}

  void operator()(const tbb::blocked_range<std::size_t>& range) {
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      if (parts_->boxes[i].Meets(box_)) sum_.Add(OverlapArea(parts_->pieces.Sides(i), core_));
    }
  }
  void join(const ConvexPolygonIntersectionArrayTbb& other) { sum_.Add(other.sum_); }
  [[nodiscard]] const CompensatedSum& Sum() const { return sum_; }

 private:
  const Parts* parts_;
  ConvexSides core_;
  PieceBox box_;
  CompensatedSum sum_;
};

/// Sum of the areas that the pieces of two lists share, every one with every one.
class ConvexPolygonIntersectionTbb {
 public:
  ConvexPolygonIntersectionTbb(const Parts& parts, const Parts& others, const BoxTree& tree)
      : parts_(&parts), others_(&others), tree_(&tree) {}
  ConvexPolygonIntersectionTbb(const ConvexPolygonIntersectionTbb& other, tbb::split)
      : parts_(other.parts_), others_(other.others_), tree_(other.tree_) {}

  void operator()(const tbb::blocked_range<std::size_t>& range) {
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      const ConvexSides sides = parts_->pieces.Sides(i);
      tree_->VisitMeeting(parts_->boxes[i], [&](std::size_t k) {
        sum_.Add(OverlapArea(sides, others_->pieces.Sides(k)));
      });
    }
  }
  void join(const ConvexPolygonIntersectionTbb& other) { sum_.Add(other.sum_); }
  [[nodiscard]] const CompensatedSum& Sum() const { return sum_; }

 private:
  const Parts* parts_;
  const Parts* others_;
  const BoxTree* tree_;
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

double PolygonOverlapArea(std::span<const ZorPoint> p, std::span<const ZorPoint> q) {
  const PieceBox p_box = BoxOf(p);
  const PieceBox q_box = BoxOf(q);
  if (!p_box.Meets(q_box)) return 0.0;
  const Parts p_parts(p);
  const Parts q_parts(q);
  const ConvexSides p_core = p_parts.core.Sides(0);
  const ConvexSides q_core = q_parts.core.Sides(0);
  const std::size_t p_count = p_parts.pieces.Count();
  const std::size_t q_count = q_parts.pieces.Count();
  CompensatedSum sum;
  sum.Add(OverlapArea(p_core, q_core));
  AddReduced(ConvexPolygonIntersectionArrayTbb(p_parts, q_core, q_box), p_count, sum);
  AddReduced(ConvexPolygonIntersectionArrayTbb(q_parts, p_core, p_box), q_count, sum);
  if (p_count > 0 && q_count > 0) {
    const BoxTree tree(q_parts.boxes);
    AddReduced(ConvexPolygonIntersectionTbb(p_parts, q_parts, tree), p_count, sum);
  }
  return sum.Value();
}

}  // namespace zor::intersection
