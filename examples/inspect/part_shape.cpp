#include "part_shape.h"

#include "figures.h"
#include "line_fit.h"
#include "outline_moments.h"
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr double kMinElongation = 1.01;  // of deviations along the axes, for a direction

ZorPoint Along(const WireAxes& axes, const ZorPoint& direction, double distance) {
  return {axes.middle.x + distance * direction.x, axes.middle.y + distance * direction.y};
}

}  // namespace

std::vector<Row> ShapeRows(const std::vector<cv::Point2d>& outline, const std::string& group,
                           const std::string& what) {
  std::vector<Row> rows;
  ZorPointArray points = ToZor(outline);
  Row area{group, what + "area", "px2"};
  area.status = ZORMV::ZorGeometryMeasureDlg().PolygonArea(points, &area.measured);
  area.figure = SvgPolygon(outline);
  rows.push_back(area);

  const AreaMoments moments = MomentsOf(outline);
  const std::string cross = SvgCross(ToZor(moments.centroid));
  rows.push_back({group, what + "centroid, x", "px", moments.centroid.x, moments.status, cross});
  rows.push_back({group, what + "centroid, y", "px", moments.centroid.y, moments.status, cross});

  const WireAxes axes = AxesOf(outline);
  const FittedLine main{Along(axes, axes.main, -2 * axes.main_deviation),
                        Along(axes, axes.main, 2 * axes.main_deviation), axes.status};
  const std::string main_figure = SvgHintLine(main.start, main.end);
  if (axes.main_deviation > kMinElongation * axes.cross_deviation) {
    rows.push_back(
        {group, what + "main axis, direction", "deg", LineAngle(main), axes.status, main_figure});
  }
  rows.push_back({group, what + "main axis, standard deviation", "px", axes.main_deviation,
                  axes.status, main_figure});
  rows.push_back({group, what + "cross axis, standard deviation", "px", axes.cross_deviation,
                  axes.status,
                  SvgHintLine(Along(axes, axes.cross, -2 * axes.cross_deviation),
                              Along(axes, axes.cross, 2 * axes.cross_deviation))});
  return rows;
}

}  // namespace inspect
