#include <optional>
#include <span>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureDlg.h"
#include "distance/band_kernels.h"
#include "distance/contour_pair_kernels.h"
#include "distance/contour_pair_outputs.h"
#include "distance/point_pair.h"
#include "distance/polyline_kernels.h"
#include "distance/rectangle_kernels.h"
#include "distance/store_pair.h"
#include "elementary/point_kernels.h"
#include "frame/catch_as.h"
#include "frame/rounding.h"
#include "frame/trace.h"

using zor::distance::Band;
using zor::distance::BandStatus;
using zor::distance::ContourPair;
using zor::distance::ContourPairOutputs;
using zor::distance::IndexedPair;
using zor::distance::PairRange;
using zor::distance::PointPair;
using zor::distance::StorePair;
using zor::elementary::NearestPoint;
using zor::frame::CatchAs;
using zor::frame::RoundToFloat;
using zor::frame::Trace;
namespace distance = zor::distance;
namespace elementary = zor::elementary;

namespace {

inline constexpr int kSinglePrecisionMode = 4;
inline constexpr int kBandMode = 5;

std::vector<ZorPoint> SinglePrecisionCopy(const ZorContour& contour) {
  std::vector<ZorPoint> copy;
  copy.reserve(contour.View().size());
  for (const ZorPoint& p : contour) copy.emplace_back(RoundToFloat(p.x), RoundToFloat(p.y));
  return copy;
}

void MeasureSinglePrecision(const ZorContour& contour_a, const ZorContour& contour_b,
                            const ContourPairOutputs& out) {
  const std::vector<ZorPoint> a = SinglePrecisionCopy(contour_a);
  const std::vector<ZorPoint> b = SinglePrecisionCopy(contour_b);
  const PairRange range = distance::ParallelPointPairs(a, b, out.Wants());
  const auto pair_of = [&](const IndexedPair& pair) {
    return ContourPair{pair.distance, a[pair.a], b[pair.b]};
  };
  out.Write(pair_of(range.low), pair_of(range.high));
}

long MeasureBandWidths(const ZorContour& a, const ZorContour& b, const ContourPairOutputs& out) {
  const Band band = distance::MeasureBand(a, b);
  switch (band.status) {
    case BandStatus::kFound:
      out.Write(band.narrowest, band.widest);
      return GM_OK;
    case BandStatus::kInvalidA:
      return GM_E_PARAM_1;
    case BandStatus::kInvalidB:
      return GM_E_PARAM_2;
    case BandStatus::kNotOverlapping:
      return GM_E_NO_INTERSECTION;
    case BandStatus::kOutOfMemory:
      break;
  }
  return GM_E_DISTANCE_FAILED;
}

/// Replaces the pair nearest among the points of a contour by one within its segments that is
/// nearer: at a corner of the outline, or where they cross.
PointPair NearestWithin(ZorPointView contour, ZorPointView outline, PointPair nearest) {
  for (const ZorPoint& corner : outline) {
    const NearestPoint of_corner = distance::NearestOnPolyline(
        corner, contour, {elementary::Distance(corner, contour[0]), contour[0]});
    if (of_corner.distance < nearest.distance) {
      nearest = {of_corner.distance, of_corner.point, corner};
    }
  }
  if (nearest.distance == 0.0) return nearest;
  const auto crossing = distance::FirstCommonPoint(contour, outline);
  if (crossing) return {0.0, *crossing, *crossing};
  return nearest;
}

}  // namespace

namespace ZORMV {

long ZorGeometryMeasureDlg::PointArrayToPointDistance(ZorPointArray& points, ZorPoint& point,
                                                      ZorPoint* minPoint, double* minDistance,
                                                      ZorPoint* maxPoint, double* maxDistance) {
  Trace trace("PointArrayToPointDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  ZorContour contour;
  contour.FromPointArray(points);
  const long status = ZorGeometryMeasure().PointToContourDistance(
      contour, point, 0, minPoint, minDistance, maxPoint, maxDistance);
  if (status != GM_OK) return status;
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourToContourDistance(ZorContour& contourA, ZorContour& contourB,
                                                     int mode, ZorPoint* minPointA,
                                                     ZorPoint* minPointB, double* minDistance,
                                                     ZorPoint* maxPointA, ZorPoint* maxPointB,
                                                     double* maxDistance) {
  Trace trace("ContourToContourDistance");
  long status = GM_OK;
  if (mode != kSinglePrecisionMode && mode != kBandMode) {
    status = ZorGeometryMeasure().ContourToContourDistance(contourA, contourB, mode, minPointA,
                                                           minPointB, minDistance, maxPointA,
                                                           maxPointB, maxDistance);
  } else if (contourA.Empty() || contourB.Empty()) {
    status = GM_E_EMPTY_CONTOUR;
  } else {
    const ContourPairOutputs out{minPointA, minPointB, minDistance,
                                 maxPointA, maxPointB, maxDistance};
    status = CatchAs(GM_E_DISTANCE_FAILED, [&] {
      if (mode == kBandMode) return MeasureBandWidths(contourA, contourB, out);
      MeasureSinglePrecision(contourA, contourB, out);
      return GM_OK;
    });
  }
  if (status != GM_OK) return status;
  return trace.Done();
}

long ZorGeometryMeasureDlg::PointArrayToContourDistance(
    ZorPointArray& points, ZorContour& contour, ZorPoint* minPointOfArray,
    ZorPoint* minPointOnContour, double* minDistance, ZorPoint* maxPointOfArray,
    ZorPoint* maxPointOnContour, double* maxDistance) {
  Trace trace("PointArrayToContourDistance");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  ZorContour array;
  array.FromPointArray(points);
  const long status = ZorGeometryMeasure().ContourToContourDistance(
      array, contour, 1, minPointOfArray, minPointOnContour, minDistance, maxPointOfArray,
      maxPointOnContour, maxDistance);
  if (status != GM_OK) return status;
  return trace.Done();
}

long ZorGeometryMeasureDlg::ContourToRectangularDistance(
    ZorContour& contour, ZorPoint& centre, double width, double height, double angle,
    ZorPoint* minContourPoint, ZorPoint* minRectanglePoint, double* minDistance,
    ZorPoint* maxContourPoint, ZorPoint* maxRectanglePoint, double* maxDistance) {
  Trace trace("ContourToRectangularDistance");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  ZorGeometryMeasure measure;
  ZorPointArray corners;
  long status = measure.RectAngularToPolygon(centre, width, height, angle, &corners);
  if (status != GM_OK) return status + 1;  // so that the number names this method's own argument
  corners.Append(ZorPoint(corners[0]));    // a contour does not close by itself
  ZorContour outline;
  outline.FromPointArray(corners);
  PointPair min;
  PointPair max;
  status = measure.ContourToContourDistance(contour, outline, 1, &min.own, &min.figure,
                                            &min.distance, &max.own, &max.figure, &max.distance);
  if (status != GM_OK) return status;
  const bool wants_min =
      minContourPoint != nullptr || minRectanglePoint != nullptr || minDistance != nullptr;
  if (wants_min && contour.Length() > 1) {
    min = NearestWithin(contour.View(), outline.View(), min);
  }
  StorePair(min, minDistance, minContourPoint, minRectanglePoint);
  StorePair(max, maxDistance, maxContourPoint, maxRectanglePoint);
  return trace.Done();
}

}  // namespace ZORMV
