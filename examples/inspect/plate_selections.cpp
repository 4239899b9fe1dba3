#include "figures.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

std::vector<cv::Point2d> Points(const ZorPointArray& array) {
  std::vector<cv::Point2d> points;
  for (const ZorPoint& p : array) points.push_back(ToCv(p));
  return points;
}

/// The top edge beyond the nick: outline points in a rectangle, and the line through them.
void SelectByRectangle(PlateBench* bench) {
  constexpr double kWidth = 260;
  constexpr double kHeight = 16;
  ZorPoint centre(810, 128);
  ZorPointArray points = ToZor(bench->OuterOutline());
  ZorPointArray selected;
  const long status = bench->Measure().PointArraySelectedByRectangular(points, centre, kWidth,
                                                                       kHeight, 0, &selected);
  FittedLine line = FitLine(Points(selected), 0.3);
  if (status != GM_OK) line.status = status;
  const cv::Point2d half(kWidth / 2, kHeight / 2);
  const cv::Point2d across(kWidth / 2, -kHeight / 2);
  const cv::Point2d c = ToCv(centre);
  const std::string group = "Edge points selected by a rectangle";
  bench->Add(
      {group, "line through them, direction", "deg", LineAngle(line), line.status,
       SvgPolygon({c - half, c + across, c + half, c - across}) + SvgPoints(Points(selected))},
      "edge.top.angle_deg", kAngleLimit_deg);
  Row place{group, "line through them, from datum", "px"};
  ZorPoint datum = ToZor(plate::kDatum);
  place.status = line.status;
  static_cast<void>(
      bench->Measure().PointToLineDistance(datum, line.start, line.end, &place.measured));
  place.figure = SvgLine(line.start, line.end);
  bench->Add(place, "edge.top.from_datum", kPositionLimit);
}

/// The points of one bore out of the edge points of all, by a contour around it.
void SelectByContour(PlateBench* bench) {
  constexpr double kRoom = 8;  // around the bore; its neighbour is farther
  constexpr int kCorners = 24;
  const plate::Bore& drawn = bench->Drawing().bores[2];
  std::vector<cv::Point2d> corners;
  for (int i = 0; i < kCorners; ++i) {
    corners.push_back(
        plate::FromFigureFrame(drawn.centre, 360.0 * i / kCorners, drawn.radius + kRoom, 0));
  }
  ZorContour region(ToZor(corners));
  ZorPointArray points;
  for (const MeasuredBore& bore : bench->Bores()) {
    for (const cv::Point2d& p : bore.points) points.Append(ToZor(p));
  }
  ZorPointArray selected;
  ZorPoint centre;
  double radius = 0;
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  long status = measure.PointArraySelectedByContours(points, region, &selected);
  if (status == GM_OK) status = measure.LeastSqaureCircleFit(selected, 5, 0.3, &centre, &radius);
  const std::string group = "Edge points selected by a contour";
  const std::string name = drawn.name + " through them, ";
  const std::string figure = SvgPolygon(corners) + SvgPoints(Points(selected));
  bench->Add({group, name + "x", "px", centre.x, status, figure}, drawn.name + ".x",
             kPositionLimit);
  bench->Add({group, name + "y", "px", centre.y, status, figure}, drawn.name + ".y",
             kPositionLimit);
  bench->Add({group, name + "radius", "px", radius, status, figure}, drawn.name + ".radius",
             kPositionLimit);
}

}  // namespace

void MeasureSelections(PlateBench* bench) {
  SelectByRectangle(bench);
  SelectByContour(bench);
}

}  // namespace inspect
