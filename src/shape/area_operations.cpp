#include <cmath>

#include <opencv2/core/types.hpp>
#include <opencv2/imgproc.hpp>

#include "ZorGeometryMeasure.h"
#include "elementary/area_kernels.h"
#include "frame/opencv_points.h"
#include "frame/store.h"
#include "frame/trace.h"
#include "shape/centre_kernels.h"
#include "shape/moment_kernels.h"

using zor::frame::Store;
using zor::frame::Trace;
namespace shape = zor::shape;

namespace {

// Square pixels, inclusive: a cut polygon no larger than this has no centroid of its own.
constexpr double kVanishingArea = 1e-5;

}  // namespace

long ZorGeometryMeasure::Area(ZorPointArray points, double* area) {
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (area != nullptr) *area = cv::contourArea(zor::frame::ToTruncatedPoints(points.View()), false);
  return GM_OK;
}

long ZorGeometryMeasure::Area2(ZorPointArray& points, double* area) {
  if (points.Length() < 3) {
    Store(area, 0.0);
    return GM_E_TOO_FEW_POINTS;
  }
  if (area != nullptr) *area = zor::elementary::SignedArea(points.View());
  return GM_OK;
}

long ZorGeometryMeasure::PolygonCenter(ZorPointArray points, ZorPoint* centre) {
  Trace trace("PolygonCenter");
  if (points.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (centre == nullptr) return trace.Done();
  const cv::Moments moments = cv::moments(zor::frame::ToTruncatedPoints(points.View()), false);
  if (std::fabs(moments.m00) <= kVanishingArea) {
    static_cast<void>(PointArrayCenter(points, centre));  // cannot fail: there are points
  } else {
    *centre = ZorPoint(moments.m10 / moments.m00, moments.m01 / moments.m00);
  }
  return trace.Done();
}

long ZorGeometryMeasure::PolygonWeightCenter(ZorPointArray& points, ZorPoint* centre) {
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  const auto weighted = shape::TripleWeightedCentre(points.View());
  if (!weighted) return PointArrayCenter(points, centre);
  Store(centre, *weighted);
  return GM_OK;
}

long ZorGeometryMeasure::CalcMoment(ZorPointArray& points, int order, double* moment) {
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (moment != nullptr) *moment = shape::PolygonMoment(points.View(), order);
  return GM_OK;
}
