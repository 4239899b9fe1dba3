#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr double kExtremeLimit = 0.1;  // pixels; single edge points decide extreme distances

ZorContour Closed(std::vector<cv::Point2d> points) {
  if (!points.empty()) points.push_back(points.front());
  return ZorContour(ToZor(points));
}

/// The nearest and the farthest place, each between a point of the outline and one of the figure.
struct Extremes {
  double nearest = 0, farthest = 0;
  ZorPoint near_outline, near_figure, far_outline, far_figure;
};

void AddExtremes(PlateBench* bench, const std::string& figure, const Extremes& found, long status) {
  const std::string group = "Distances of the outline";
  bench->Add({group, "to " + figure + ", nearest", "px", found.nearest, status,
              SvgLine(found.near_outline, found.near_figure) + SvgCross(found.near_outline) +
                  SvgCross(found.near_figure)},
             "outline." + figure + ".nearest", kExtremeLimit);
  bench->Add({group, "to " + figure + ", farthest", "px", found.farthest, status,
              SvgHintLine(found.far_outline, found.far_figure) + SvgCross(found.far_outline) +
                  SvgCross(found.far_figure)},
             "outline." + figure + ".farthest", kExtremeLimit);
}

void AddWeb(PlateBench* bench, const MeasuredBore& a, const MeasuredBore& b) {
  ZorContour contour_a = Closed(a.points);
  ZorContour contour_b = Closed(b.points);
  ZorPoint on_a;
  ZorPoint on_b;
  Row row{"Web between contours", a.name + " - " + b.name, "px"};
  row.status = bench->Measure().ContourToContourDistance(contour_a, contour_b, 2, &on_a, &on_b,
                                                         &row.measured, nullptr, nullptr, nullptr);
  row.figure = SvgLine(on_a, on_b);
  bench->Add(row, "web." + a.name + "." + b.name, kExtremeLimit);
}

}  // namespace

void MeasureWebs(PlateBench* bench) {
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  ZorContour outline = Closed(bench->OuterOutline());
  MeasuredBore& bore = bench->Bores()[0];
  Extremes e;
  long status = measure.ContourToCircleDistance(outline, bore.centre, bore.radius, &e.near_outline,
                                                &e.near_figure, &e.nearest, &e.far_outline,
                                                &e.far_figure, &e.farthest);
  AddExtremes(bench, bore.name, e, status);
  MeasuredSlot& slot = bench->Slot();
  status = measure.ContourToOvalDistance(outline, slot.centre, slot.a, slot.b, slot.angle_deg,
                                         &e.near_outline, &e.near_figure, &e.nearest,
                                         &e.far_outline, &e.far_figure, &e.farthest);
  AddExtremes(bench, "slot", e, status);
  AddWeb(bench, bench->Bores()[1], bench->Bores()[2]);
}

}  // namespace inspect
