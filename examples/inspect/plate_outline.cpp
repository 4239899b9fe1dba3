#include <algorithm>
#include <cmath>

#include "figures.h"
#include "outline.h"
#include "outline_moments.h"
#include "part_finder.h"
#include "plate_bench.h"
#include <ZorGeometryMeasure.h>

namespace inspect {
namespace {

constexpr double kAreaShare = 5e-4;      // accepted error as a share of the true value
constexpr double kCentroidLimit = 0.02;  // pixels
constexpr double kAxisLengthLimit = 0.1;
constexpr double kFarthestLimit = 0.1;  // corners are prolonged from a few edge points
constexpr double kResampling = 0.5;     // step along the outline, pixels

void AddArea(PlateBench* bench, const std::vector<cv::Point2d>& outline) {
  ZorPointArray points = ToZor(outline);
  Row row{"Outline", "area", "px2"};
  row.status = bench->Measure().PolygonArea(points, &row.measured);
  row.figure = SvgPolygon(outline);
  bench->AddRelative(row, "outline.area", kAreaShare);
}

void AddMoments(PlateBench* bench, const AreaMoments& m) {
  const ZorPoint centroid = ToZor(m.centroid);
  const std::string cross =
      SvgCross(centroid) + SvgLabel({centroid.x, centroid.y + 16}, "centroid");
  bench->Add({"Outline", "centroid, x", "px", centroid.x, m.status, cross}, "outline.centroid.x",
             kCentroidLimit);
  bench->Add({"Outline", "centroid, y", "px", centroid.y, m.status, cross}, "outline.centroid.y",
             kCentroidLimit);
  bench->AddRelative({"Outline", "second moment xx / area", "px2", m.xx, m.status, cross},
                     "outline.variance.xx", kAreaShare);
  bench->AddRelative({"Outline", "second moment yy / area", "px2", m.yy, m.status, cross},
                     "outline.variance.yy", kAreaShare);
  bench->Add({"Outline", "second moment xy / area", "px2", m.xy, m.status, cross},
             "outline.variance.xy", kAreaShare * std::sqrt(m.xx * m.yy));
  const double axis_rad = 0.5 * std::atan2(2 * m.xy, m.xx - m.yy);
  const double reach = 2 * std::sqrt(std::max(m.xx, m.yy));
  const ZorPoint along(reach * std::cos(axis_rad), reach * std::sin(axis_rad));
  bench->Add({"Outline", "main axis of the area, direction", "deg", -axis_rad * 180 / CV_PI,
              m.status, SvgHintLine(centroid - along, centroid + along)},
             "outline.axis.angle_deg", kAngleLimit_deg);
}

void AddAxis(PlateBench* bench, const WireAxes& axes, const std::string& name,
             const ZorPoint& direction, double deviation) {
  const ZorPoint along(deviation * direction.x, deviation * direction.y);
  const FittedLine axis{axes.middle - along, axes.middle + along, axes.status};
  const std::string figure = SvgAuxLine(axis.start, axis.end);
  const std::string group = "Principal axes of the outline";
  bench->Add({group, name + " axis, direction", "deg", LineAngle(axis), axes.status, figure},
             "outline.curve." + name + ".angle_deg", kAngleLimit_deg);
  bench->Add({group, name + " axis, standard deviation", "px", deviation, axes.status, figure},
             "outline.curve." + name + ".deviation", kAxisLengthLimit);
}

void AddFarthest(PlateBench* bench, const std::vector<cv::Point2d>& outline) {
  ZorPointArray points = ToZor(outline);
  ZorPoint first;
  ZorPoint second;
  Row row{"Outline", "farthest points, distance", "px"};
  row.status = ZorGeometryMeasure().FindMaxDistancePointPair(points, &first, &second);
  if (row.status == GM_OK) {
    row.status = bench->Measure().PointToPointDistance(first, second, &row.measured);
  }
  row.figure = SvgLine(first, second) + SvgCross(first) + SvgCross(second);
  bench->Add(row, "outline.farthest", kFarthestLimit);
}

}  // namespace

void MeasureOutline(PlateBench* bench) {
  const std::vector<Part> parts = FindParts(bench->Grey());
  SearchOptions options;
  options.polarity = Polarity::kFalling;
  std::vector<cv::Point2d>& outline = bench->OuterOutline();
  if (!parts.empty()) outline = TraceOutline(bench->Grey(), parts[0].outline, options).points;
  AddArea(bench, outline);
  AddMoments(bench, MomentsOf(outline));
  AddFarthest(bench, outline);
  const WireAxes axes = AxesOf(outline);
  AddAxis(bench, axes, "main", axes.main, axes.main_deviation);
  AddAxis(bench, axes, "cross", axes.cross, axes.cross_deviation);
}

}  // namespace inspect
