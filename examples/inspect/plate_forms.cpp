#include "figures.h"
#include "outline.h"
#include "plate_bench.h"
#include <ZorGeometryMeasure.h>

namespace inspect {
namespace {

constexpr double kRoundnessLimit = 0.005;
constexpr double kStraightnessLimit = 0.2;     // pixels between single edge points
constexpr double kRectangularityLimit = 0.01;  // the area is that of whole pixels
constexpr double kEnclosingLimit = 0.2;        // pixels; the outermost edge points decide

void AddRoundness(PlateBench* bench) {
  constexpr int kModes = 4;
  constexpr int kAboutCutCentre = 3;  // its centre is that of whole pixels, up to a pixel off
  for (const MeasuredBore& bore : bench->Bores()) {
    ZorPointArray points = ToZor(bore.points);
    for (int mode = 0; mode < kModes; ++mode) {
      Row row{"Roundness of the bores", bore.name + ", mode " + std::to_string(mode), ""};
      row.status = ZorGeometryMeasure().Roundness(points, mode, &row.measured);
      row.figure = SvgPoints(bore.points);
      bench->Add(row, "roundness", mode == kAboutCutCentre ? 2 / bore.radius : kRoundnessLimit);
    }
  }
}

void AddStraightness(PlateBench* bench, const MeasuredEdge& edge) {
  ZorPointArray points = ToZor(edge.points);
  Row row{"Straightness of the edges", edge.name, "px"};
  row.status = ZorGeometryMeasure().Straightness(points, 1, &row.measured);
  row.figure = SvgPoints(edge.points);
  bench->Add(row, "straightness", kStraightnessLimit);
}

void AddWindow(PlateBench* bench) {
  const auto corners = WindowCorners(bench->Drawing().window);
  SearchOptions options;
  options.polarity = Polarity::kRising;
  const std::vector<cv::Point2d> outline =
      TraceOutline(bench->Grey(), {corners.begin(), corners.end()}, options).points;
  ZorPointArray points = ToZor(outline);
  const std::string group = "Rectangularity of the window";
  Row rectangularity{group, "share of its rectangle", ""};
  rectangularity.status = ZorGeometryMeasure().Rectangularity(points, &rectangularity.measured);
  rectangularity.figure = SvgPolygon(outline);
  bench->Add(rectangularity, "rectangularity", kRectangularityLimit);

  ZorPoint centre;
  double length = 0;
  double width = 0;
  double angle_deg = 0;
  long status =
      bench->Measure().MinAreaRectangularity(points, &centre, &length, &width, &angle_deg);
  const auto at = [&](double u, double v) {
    return plate::FromFigureFrame(ToCv(centre), angle_deg, u * length / 2, v * width / 2);
  };
  const std::string figure = SvgPolygon({at(-1, -1), at(1, -1), at(1, 1), at(-1, 1)});
  const auto add = [&](const std::string& name, const std::string& unit, double value,
                       const std::string& key, double limit) {
    bench->Add({group, "enclosing rectangle, " + name, unit, value, status, figure}, key, limit);
  };
  add("length", "px", length, "distance.window_left.window_right", kEnclosingLimit);
  add("width", "px", width, "distance.window_top.window_bottom", kEnclosingLimit);
  add("direction", "deg", angle_deg, "edge.window_top.angle_deg", 0.1);
  double radius = 0;
  status = bench->Measure().IncisionCircle(points, &centre, &radius);
  bench->Add({group, "inscribed circle, radius", "px", radius, status, SvgCircle(centre, radius)},
             "window.inscribed.radius", kEnclosingLimit);
}

void AddEnclosing(PlateBench* bench) {
  ZorPointArray points = ToZor(bench->OuterOutline());
  ZorPoint centre;
  double width = 0;
  double height = 0;
  long status = bench->Measure().PolygonExternalRectangle(points, &centre, &width, &height);
  const cv::Point2d half(width / 2, height / 2);
  const cv::Point2d across(width / 2, -height / 2);
  const cv::Point2d c = ToCv(centre);
  const std::string group = "Figures around the outline";
  const std::string box = SvgPolygon({c - half, c + across, c + half, c - across});
  bench->Add({group, "rectangle, width", "px", width, status, box}, "outline.width",
             kEnclosingLimit);
  bench->Add({group, "rectangle, height", "px", height, status, box}, "outline.height",
             kEnclosingLimit);
  double radius = 0;
  status = bench->Measure().ExternalCircle(points, &centre, &radius);
  bench->Add({group, "circle, radius", "px", radius, status, SvgCircle(centre, radius)},
             "outline.circle.radius", kEnclosingLimit);
}

}  // namespace

void MeasureForms(PlateBench* bench) {
  AddRoundness(bench);
  for (std::size_t i = 0; i < bench->Sides().size(); ++i) {
    // The top edge has a nick, the bottom edge is bulged.
    if (i != plate::kTop && i != plate::kBottom) AddStraightness(bench, bench->Sides()[i]);
  }
  for (const MeasuredEdge& edge : bench->WindowSides()) AddStraightness(bench, edge);
  AddWindow(bench);
  AddEnclosing(bench);
}

}  // namespace inspect
