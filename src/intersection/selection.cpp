#include "intersection/selection.h"

#include <cstddef>

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>
#include <tbb/partitioner.h>
#include <tbb/task_group.h>

#include "ZorGeometryMeasure.h"
#include "elementary/polygon_index.h"
#include "elementary/relation_codes.h"
#include "frame/trace.h"
#include "intersection/relation_kernels.h"

namespace zor::intersection {
namespace {

/// Points that a task takes at least: some 10 us of work.
inline constexpr std::size_t kGrain = 1024;

template <typename Relation>
std::vector<ZorPoint> PointsNotOutside(std::span<const ZorPoint> points, Relation relation) {
  std::vector<ZorPoint> kept;
  for (const ZorPoint& p : points) {
    if (relation(p) != elementary::kOutside) kept.push_back(p);
  }
  return kept;
}

/// The relation of points to a polygon. May be asked by several threads.
class PolygonRegion {
 public:
  PolygonRegion(ZorPointArray& polygon, std::size_t queries)
      : polygon_(polygon),
        is_traced_(frame::IsTracing()),
        index_(polygon.View(), is_traced_ ? 0 : queries) {}

  [[nodiscard]] int Relation(ZorPoint p) const {
    if (!is_traced_) return index_.Relation(p);
    int code = elementary::kOutside;
    static_cast<void>(ZorGeometryMeasure().PointToPolygonPosRelation(p, polygon_, &code));
    return code;
  }

 private:
  ZorPointArray& polygon_;
  bool is_traced_;
  elementary::PolygonIndex index_;
};

/// Body of the parallel selection. One byte a point says whether it is kept, so that no two tasks
/// write to the same place; that is all that comes out, and nothing is left to join.
class PointToPolygonPosRelationTbb {
 public:
  PointToPolygonPosRelationTbb(std::span<const ZorPoint> points, const PolygonRegion& region,
                               std::vector<unsigned char>& is_kept)
      : points_(points), region_(region), is_kept_(is_kept) {}
  PointToPolygonPosRelationTbb(PointToPolygonPosRelationTbb& other, tbb::split)
      : points_(other.points_), region_(other.region_), is_kept_(other.is_kept_) {}

  void operator()(const tbb::blocked_range<std::size_t>& range) {
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      const bool is_kept = region_.Relation(points_[i]) != elementary::kOutside;
      is_kept_[i] = static_cast<unsigned char>(is_kept);
    }
  }
  void join(const PointToPolygonPosRelationTbb&) {}

 private:
  std::span<const ZorPoint> points_;
  const PolygonRegion& region_;
  std::vector<unsigned char>& is_kept_;
};

}  // namespace

std::vector<ZorPoint> KeptByCircle(std::span<const ZorPoint> points, const ZorPoint& centre,
                                   double radius) {
  if (!frame::IsTracing()) {
    return PointsNotOutside(points,
                            [&](const ZorPoint& p) { return CircleRelation(p, centre, radius); });
  }
  return PointsNotOutside(points, [c = centre, radius](ZorPoint p) mutable {
    int code = elementary::kOutside;
    static_cast<void>(ZorGeometryMeasure().PointToCirclePosRelation(p, c, radius, &code));
    return code;
  });
}

std::vector<ZorPoint> KeptByOval(std::span<const ZorPoint> points, const ZorPoint& centre, double a,
                                 double b, double angle_deg) {
  if (!frame::IsTracing()) return PointsNotOutside(points, OvalRelation(centre, a, b, angle_deg));
  return PointsNotOutside(points, [=, c = centre](ZorPoint p) mutable {
    int code = elementary::kOutside;
    static_cast<void>(ZorGeometryMeasure().PointToOvalPosRelation(p, c, a, b, angle_deg, &code));
    return code;
  });
}

std::vector<ZorPoint> KeptByPolygon(std::span<const ZorPoint> points, ZorPointArray& polygon) {
  const PolygonRegion region(polygon, points.size());
  return PointsNotOutside(points, [&](const ZorPoint& p) { return region.Relation(p); });
}

std::vector<ZorPoint> KeptByPolygonInParallel(std::span<const ZorPoint> points,
                                              ZorPointArray& polygon) {
  const PolygonRegion region(polygon, points.size());
  std::vector<unsigned char> is_kept(points.size(), 0);
  PointToPolygonPosRelationTbb body(points, region, is_kept);
  tbb::task_group_context context;
  tbb::parallel_reduce(tbb::blocked_range<std::size_t>(0, points.size(), kGrain), body,
                       tbb::auto_partitioner(), context);
  std::vector<ZorPoint> kept;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (is_kept[i] != 0) kept.push_back(points[i]);
  }
  return kept;
}

}  // namespace zor::intersection
