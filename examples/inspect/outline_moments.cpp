#include "outline_moments.h"

#include <algorithm>
#include <cmath>

#include "figures.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr double kResampling = 0.5;  // step along the outline, pixels

/// Points in equal steps around a closed polygon.
ZorPointArray InEqualSteps(const std::vector<cv::Point2d>& polygon) {
  ZorPointArray points;
  double until_next = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const cv::Point2d& from = polygon[i];
    const cv::Point2d way = polygon[(i + 1) % polygon.size()] - from;
    const double length = cv::norm(way);
    for (; until_next < length; until_next += kResampling) {
      points.Append(ToZor(from + way * (until_next / length)));
    }
    until_next -= length;
  }
  return points;
}

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
  ZorPointArray points = InEqualSteps(outline);
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
