#include "outline_moments.h"

#include <algorithm>
#include <cmath>

#include "figures.h"
#include "outline.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr double kResampling = 0.5;  // step along the outline, pixels

}  // namespace

AreaMoments MomentsOf(const std::vector<cv::Point2d>& outline) {
  AreaMoments m;
  if (outline.empty()) return {0, {}, 0, 0, 0, GM_E_TOO_FEW_POINTS};
  // Coordinates from a point of the outline, so that no large terms cancel.
  const cv::Point2d origin = outline[0];
  ZorPointArray points;
  for (const cv::Point2d& p : outline) points.Append(ToZor(p - origin));
  const auto moment = [&](int order) {
    double value = 0;
    const long status = ZorGeometryMeasure().CalcMoment(points, order, &value);
    if (m.status == GM_OK) m.status = status;
    return value;
  };
  m.area = moment(0);
  const cv::Point2d centroid(moment(10) / m.area, moment(1) / m.area);
  m.centroid = origin + centroid;
  m.xx = moment(20) / m.area - centroid.x * centroid.x;
  m.yy = moment(2) / m.area - centroid.y * centroid.y;
  m.xy = moment(11) / m.area - centroid.x * centroid.y;
  return m;
}

WireAxes AxesOf(const std::vector<cv::Point2d>& outline) {
  ZORMV::ZorGeometryMeasureDlg measure;
  ZorPointArray points = ToZor(InEqualSteps(outline, kResampling));
  ZorVarArray variances;  // the smaller first
  ZorPointArray axes;
  WireAxes wire;
  wire.status = measure.PointArrayCenter(points, &wire.middle);
  if (wire.status == GM_OK) {
    wire.status = measure.PrincipalComponentAnalysis(points, &variances, &axes);
  }
  if (wire.status != GM_OK) return wire;
  wire.main = axes[1];
  wire.cross = axes[0];
  wire.main_deviation = std::sqrt(std::max(variances[1].D(), 0.0));
  wire.cross_deviation = std::sqrt(std::max(variances[0].D(), 0.0));
  return wire;
}

}  // namespace inspect
