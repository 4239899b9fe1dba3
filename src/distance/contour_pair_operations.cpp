#include <cstddef>
#include <span>

#include "ZorGeometryMeasure.h"
#include "distance/contour_pair_kernels.h"
#include "distance/contour_pair_outputs.h"
#include "distance/polyline_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::ContourPair;
using zor::distance::ContourPairOutputs;
using zor::distance::IndexedPair;
using zor::distance::PairRange;
using zor::distance::Wanted;
using zor::elementary::NearestPoint;
using zor::frame::CatchAs;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::IsTracing;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

using Points = std::span<const ZorPoint>;

enum Mode { kPoints, kPointsToPolyline, kPolylines, kModeCount };

struct Found {
  ContourPair low;
  ContourPair high;
};

/// The plain loops of modes 0 and 1 over the points of A, for their records.
long LoopOverPoints(ZorGeometryMeasure& measure, Points a, ZorContour& b, int mode, Found* found) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    ContourPair near{0.0, a[i], {}};
    ContourPair far{0.0, a[i], {}};
    const long status = measure.PointToContourDistance(b, a[i], mode, &near.b, &near.distance,
                                                       &far.b, &far.distance);
    if (status != GM_OK) return status;
    if (mode == kPointsToPolyline) far = near;  // the largest of the nearest distances
    if (i == 0 || near.distance < found->low.distance) found->low = near;
    if (i == 0 || far.distance > found->high.distance) found->high = far;
  }
  return GM_OK;
}

/// The plain loops of mode 2 over the segments of both, for their records.
long LoopOverSegments(ZorGeometryMeasure& measure, Points a, Points b, Found* found) {
  for (std::size_t i = 0; i + 1 < a.size(); ++i) {
    ContourPair nearest;
    for (std::size_t j = 0; j + 1 < b.size(); ++j) {
      ContourPair pair;
      const long status = measure.LineToLineDistance(a[i], a[i + 1], b[j], b[j + 1], 0,
                                                     &pair.distance, &pair.a, &pair.b);
      if (status != GM_OK) return status;
      if (j == 0 || pair.distance < nearest.distance) nearest = pair;
    }
    if (i == 0 || nearest.distance < found->low.distance) found->low = nearest;
    if (i == 0 || nearest.distance > found->high.distance) found->high = nearest;
  }
  return GM_OK;
}

ContourPair PointPair(Points a, Points b, const IndexedPair& pair) {
  return {pair.distance, a[pair.a], b[pair.b]};
}

/// The pair of a point of a and segment pair.b of the polyline b.
ContourPair PolylinePair(Points a, Points b, const IndexedPair& pair) {
  const ZorPoint& p = a[pair.a];
  const NearestPoint first{elementary::Distance(p, b[0]), b[0]};
  return {pair.distance, p, distance::NearestOnPolyline(p, b.subspan(pair.b, 2), first).point};
}

bool HasDegenerateSegment(Points polyline) {
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    if (IsDegenerate(polyline[i - 1], polyline[i])) return true;
  }
  return false;
}

long SearchSegments(ZorGeometryMeasure& measure, Points a, Points b, Wanted wanted, Found* found) {
  if (HasDegenerateSegment(a) || HasDegenerateSegment(b)) return GM_E_DEGENERATE_LINE;
  if (!wanted.low && !wanted.high) return GM_OK;
  const PairRange range = distance::Polylines(a, b, wanted);
  const auto measure_pair = [&](const IndexedPair& pair, ContourPair* out) {
    return measure.LineToLineDistance(a[pair.a], a[pair.a + 1], b[pair.b], b[pair.b + 1], 0,
                                      &out->distance, &out->a, &out->b);
  };
  if (const long status = measure_pair(range.low, &found->low); status != GM_OK) return status;
  return measure_pair(range.high, &found->high);
}

long Search(ZorGeometryMeasure& measure, Points a, Points b, int mode, Wanted wanted,
            Found* found) {
  if (mode == kPolylines) return SearchSegments(measure, a, b, wanted, found);
  if (!wanted.low && !wanted.high) return GM_OK;
  if (mode == kPoints) {
    const PairRange range = distance::PointPairs(a, b, wanted);
    *found = {PointPair(a, b, range.low), PointPair(a, b, range.high)};
  } else {
    const PairRange range = distance::PointsToPolyline(a, b, wanted);
    *found = {PolylinePair(a, b, range.low), PolylinePair(a, b, range.high)};
  }
  return GM_OK;
}

}  // namespace

long ZorGeometryMeasure::ContourToContourDistance(ZorContour& contourA, ZorContour& contourB,
                                                  int mode, ZorPoint* minPointA,
                                                  ZorPoint* minPointB, double* minDistance,
                                                  ZorPoint* maxPointA, ZorPoint* maxPointB,
                                                  double* maxDistance) {
  Trace trace("ContourToContourDistance");
  if (contourA.Empty() || contourB.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!IsMode(mode, kModeCount - 1)) return GM_E_PARAM_3;
  if (mode == kPointsToPolyline && contourB.Length() < 2) return GM_E_PARAM_2;
  if (mode == kPolylines && (contourA.Length() < 2 || contourB.Length() < 2)) return GM_E_PARAM_1;
  return CatchAs(GM_E_DISTANCE_FAILED, [&]() -> long {
    const Points a = contourA.View();
    const Points b = contourB.View();
    const ContourPairOutputs out{minPointA, minPointB, minDistance,
                                 maxPointA, maxPointB, maxDistance};
    Found found;
    long status = GM_OK;
    if (!IsTracing()) {
      status = Search(*this, a, b, mode, out.Wants(), &found);
    } else if (mode == kPolylines) {
      status = LoopOverSegments(*this, a, b, &found);
    } else {
      status = LoopOverPoints(*this, a, contourB, mode, &found);
    }
    if (status != GM_OK) return status;
    out.Write(found.low, found.high);
    return trace.Done();
  });
}

long ZorGeometryMeasure::ContourToContourDistance(ZorContour& contourA, ZorContour& contourB,
                                                  double* minDistance, double* maxDistance) {
  return ContourToContourDistance(contourA, contourB, kPoints, nullptr, nullptr, minDistance,
                                  nullptr, nullptr, maxDistance);
}

long ZorGeometryMeasure::ContourToContourDistance2(ZorContour& contourA, ZorContour& contourB,
                                                   int mode, ZorPoint* minPointA,
                                                   ZorPoint* minPointB, double* minDistance,
                                                   ZorPoint* maxPointA, ZorPoint* maxPointB,
                                                   double* maxDistance) {
  Trace trace("ContourToContourDistance2");
  if (contourA.Empty() || contourB.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!IsMode(mode, 2)) return GM_E_PARAM_3;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    const Points a = contourA.View();
    const Points b = contourB.View();
    const ContourPairOutputs out{minPointA, minPointB, minDistance,
                                 maxPointA, maxPointB, maxDistance};
    const Wanted wanted = out.Wants();
    PairRange range;
    ContourPair high;
    if (mode == 1) {
      range = distance::PointPairs(a, b, wanted);
      high = PointPair(a, b, range.high);
    } else {
      range = distance::NearestPoints(a, b, wanted);
      high = PointPair(a, b, range.high);
      if (mode == 2 && wanted.high) {
        const PairRange back = distance::NearestPoints(b, a, {false, true});
        if (back.high.distance > high.distance) {
          high = {back.high.distance, a[back.high.b], b[back.high.a]};
        }
      }
    }
    out.Write(PointPair(a, b, range.low), high);
    return trace.Done();
  });
}
