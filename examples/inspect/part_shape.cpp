#include "part_shape.h"

#include <cmath>
#include <utility>

#include "ellipse_fit.h"
#include "figures.h"
#include "line_fit.h"
#include "outline.h"
#include "outline_moments.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr double kMinElongation = 1.01;  // of what is measured along the axes, for a direction
constexpr double kEllipseStep = 1;       // between points that the ellipse is fitted to, pixels

ZorPoint Along(const WireAxes& axes, const ZorPoint& direction, double distance) {
  return {axes.middle.x + distance * direction.x, axes.middle.y + distance * direction.y};
}

/// How nearly the outline is a circle or a rectangle, and the smallest figures around it.
void AddForm(const std::vector<cv::Point2d>& outline, const std::string& group,
             const std::string& what, std::vector<Row>* rows) {
  ZorGeometryMeasure form;
  ZORMV::ZorGeometryMeasureDlg measure;
  ZorPointArray points = ToZor(outline);
  for (const auto& [name, mode] :
       {std::pair("roundness by perimeter", 0), std::pair("roundness by deviation", 1),
        std::pair("roundness by fitted circle", 2), std::pair("roundness by farthest point", 3)}) {
    Row row{group, what + name, ""};
    row.status = form.Roundness(points, mode, &row.measured);
    rows->push_back(row);
  }
  Row rectangularity{group, what + "rectangularity", ""};
  rectangularity.status = form.Rectangularity(points, &rectangularity.measured);
  rows->push_back(rectangularity);

  ZorPoint centre;
  double length = 0;
  double width = 0;
  double angle_deg = 0;
  long status = measure.MinAreaRectangularity(points, &centre, &length, &width, &angle_deg);
  const auto direction = [&](double turn_deg) {
    const double theta_rad = (angle_deg + turn_deg) * CV_PI / 180;
    return ZorPoint(std::cos(theta_rad), -std::sin(theta_rad));
  };
  const ZorPoint half_length(length / 2 * direction(0).x, length / 2 * direction(0).y);
  const ZorPoint half_width(width / 2 * direction(90).x, width / 2 * direction(90).y);
  const ZorPoint far = centre + half_length;
  const ZorPoint near = centre - half_length;
  const std::string box = SvgHintLine(far + half_width, far - half_width) +
                          SvgHintLine(near + half_width, near - half_width) +
                          SvgHintLine(far + half_width, near + half_width) +
                          SvgHintLine(far - half_width, near - half_width);
  rows->push_back({group, what + "smallest rectangle, length", "px", length, status, box});
  rows->push_back({group, what + "smallest rectangle, width", "px", width, status, box});
  double radius = 0;
  status = measure.ExternalCircle(points, &centre, &radius);
  rows->push_back({group, what + "smallest circle, radius", "px", radius, status,
                   SvgHintCircle(centre, radius)});
  status = measure.IncisionCircle(points, &centre, &radius);
  rows->push_back({group, what + "largest circle inside, radius", "px", radius, status,
                   SvgHintCircle(centre, radius)});
}

/// The ellipse that the outline is nearest to.
void AddEllipse(const std::vector<cv::Point2d>& outline, const cv::Point2d& middle,
                const std::string& group, const std::string& what, std::vector<Row>* rows) {
  const FittedEllipse e = FitEllipse(InEqualSteps(outline, kEllipseStep), middle, 1, 0);
  const std::string figure = SvgHintEllipse(e.centre, e.a, e.b, e.angle_deg);
  rows->push_back({group, what + "ellipse, longer semi-axis", "px", e.a, e.status, figure});
  rows->push_back({group, what + "ellipse, shorter semi-axis", "px", e.b, e.status, figure});
  if (e.a > kMinElongation * e.b) {
    rows->push_back({group, what + "ellipse, direction", "deg", e.angle_deg, e.status, figure});
  }
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
  AddForm(outline, group, what, &rows);
  AddEllipse(outline, moments.centroid, group, what, &rows);
  return rows;
}

}  // namespace inspect
