#include <cstddef>
#include <span>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureTools.h"
#include "elementary/area_kernels.h"
#include "elementary/edge_index.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "intersection/polygon_overlap.h"

using zor::frame::IsTracing;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;
namespace intersection = zor::intersection;

namespace {

/// Crossings of the edges of p with those of q: the closing edge of p, from its first vertex to its
/// last, then the edges in order. `each_twice` repeats the nested records of all but the first.
std::vector<ZorPoint> EdgeCrossings(ZorGeometryMeasure& measure, ZorPointArray& p, ZorPointArray& q,
                                    bool each_twice) {
  std::vector<ZorPoint> crossings;
  const int count = p.Length();
  if (count < 1 || q.Length() < 3) return crossings;
  if (!IsTracing()) {
    for (const auto& crossing :
         elementary::CrossOutlines(elementary::EdgeIndex(p.View()), elementary::EdgeIndex(q.View()),
                                   elementary::ClosingEdge::kFirstToLast)) {
      crossings.push_back(crossing.point);
    }
    return crossings;
  }
  ZorPointArray hits;
  static_cast<void>(measure.LineSegmentPolygonIntersection(p[0], p[count - 1], q, &hits));
  crossings.insert(crossings.end(), hits.begin(), hits.end());
  for (int i = 0; i + 1 < count; ++i) {
    for (int time = 0; time < (each_twice ? 2 : 1); ++time) {
      static_cast<void>(measure.LineSegmentPolygonIntersection(p[i], p[i + 1], q, &hits));
    }
    crossings.insert(crossings.end(), hits.begin(), hits.end());
  }
  return crossings;
}

/// Crossings of the last edge of p that is not the closing one.
ZorPointArray LastEdgeCrossings(const ZorPointArray& p, const ZorPointArray& q) {
  std::vector<ZorPoint> crossings;
  const int count = p.Length();
  if (count >= 2 && q.Length() >= 3) {
    elementary::AppendSegmentCrossings(p[count - 2], p[count - 1], q.View(), crossings);
  }
  return ZorPointArray(std::move(crossings));
}

ZorPointArray AsArray(std::span<const ZorPoint> points) {
  return ZorPointArray(ZorPointView(points.data(), points.size()));
}

}  // namespace

long ZorGeometryMeasure::PolygonsIntersection(ZorPointArray& p, ZorPointArray& q,
                                              ZorPointArray* points, double* /*area*/) {
  if (points == nullptr) return GM_OK;
  ZorPointArray found(EdgeCrossings(*this, p, q, false));
  FormatPointArray(found);
  points->Swap(found);
  return GM_OK;
}

long ZorGeometryMeasure::ConvexPolygonIntersection(ZorPointArray& p, ZorPointArray& q,
                                                   ZorPointArray* points, double* area) {
  ZorPointArray gathered(EdgeCrossings(*this, p, q, true));
  // Deliberate: one list collects the crossings of p's last edge, then the vertices of p, then
  // those of q, and is taken over whole after each selection. Repeated points change neither the
  // order by angle nor the area, and hosts see them in `points`.
  ZorPointArray scratch = LastEdgeCrossings(p, q);
  static_cast<void>(PointArraySelectedByPolygon(p, q, &scratch));
  gathered.Append(scratch);
  static_cast<void>(PointArraySelectedByPolygon(q, p, &scratch));
  gathered.Append(scratch);
  static_cast<void>(ZorGeometryMeasureTools().OrderConvexPolygonVertex(gathered));
  if (area != nullptr) static_cast<void>(Area2(gathered, area));
  if (points != nullptr) points->Swap(gathered);
  return GM_OK;
}

long ZorGeometryMeasure::PolygonsIntersection2(ZorPointArray& p, ZorPointArray& q,
                                               ZorPointArray* points, double* area) {
  Trace trace("PolygonsIntersection2");
  if (p.Length() < 3 || q.Length() < 3) return GM_E_TOO_FEW_POINTS;
  ZorPointArray found;
  if (points != nullptr) {
    found.Assign(EdgeCrossings(*this, p, q, false));
    FormatPointArray2(found);
  }
  if (area != nullptr) {
    intersection::PairWitness witness;
    if (IsTracing()) {
      // The records of the general way; the area itself is the same with and without a sink.
      witness = [](std::span<const ZorPoint> piece, std::span<const ZorPoint> other) {
        ZorPointArray first = AsArray(piece);
        ZorPointArray second = AsArray(other);
        double ignored = 0.0;
        static_cast<void>(
            ZorGeometryMeasure().ConvexPolygonIntersection(first, second, nullptr, &ignored));
      };
    }
    *area = intersection::PolygonOverlapArea(p.View(), q.View(), witness);
  }
  if (points != nullptr) points->Swap(found);
  return trace.Done();
}
