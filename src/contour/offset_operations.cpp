#include <span>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "contour/offset_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include <ZorDataConvert.h>

using zor::frame::InvalidArgument;
using zor::frame::IsPositive;
using zor::frame::Store;
namespace contours = zor::contour;

namespace {

/// Contours shorter than this are moved away from their centroid.
constexpr int kLongContour = 15;

using Offset = std::vector<ZorPoint> (*)(std::span<const ZorPoint>, double);

long OffsetBy(Offset offset_long, ZorGeometryMeasure& measure, const ZorContour& contour,
              double distance, ZorContour* result) {
  if (contour.Length() < 1) return GM_E_EMPTY_CONTOUR;
  if (contour.Length() < 3) return InvalidArgument(1);
  if (distance == 0.0) {
    Store(result, contour);
    return GM_OK;
  }
  if (contour.Length() >= kLongContour) {
    if (result != nullptr) *result = ZorContour(offset_long(contour.View(), distance));
    return GM_OK;
  }
  ZorPointArray points;
  contour.ToPointArray(&points);
  ZorPoint centre;  // of points there are, so the status tells nothing
  static_cast<void>(measure.PolygonWeightCenter(points, &centre));
  Store(result, ZorContour(contours::MovedFrom(centre, points.View(), distance)));
  return GM_OK;
}

}  // namespace

long ZorGeometryMeasure::ContourScaling(ZorContour& contour, ZorPoint& centre, double factor,
                                        ZorContour* result) {
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (!IsPositive(factor)) return InvalidArgument(3);
  const ZorPointArray scaled(contours::Scaled(contour.View(), centre, factor));
  return ZORMV::ZorPointArrayToContour(scaled, result);
}

// Deliberate: inert, kept for hosts that link against it.
long ZorGeometryMeasure::ContourScaling2(ZorContour& /*contour*/, ZorPoint& /*centre*/,
                                         ZorContour* /*result*/, double /*factor*/) {
  return GM_OK;
}

long ZorGeometryMeasure::ContourScaling3(ZorContour& contour, double distance, ZorContour* result) {
  return OffsetBy(contours::OffsetOpen, *this, contour, distance, result);
}

long ZorGeometryMeasure::ContourScaling_Closed(ZorContour& contour, double distance,
                                               ZorContour* result) {
  return OffsetBy(contours::OffsetClosed, *this, contour, distance, result);
}
