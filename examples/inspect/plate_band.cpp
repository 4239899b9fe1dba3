#include "figures.h"
#include "outline.h"
#include "plate_bench.h"
#include <ZorGeometryMeasure.h>

namespace inspect {
namespace {

constexpr const char* kGroup = "Tolerance band of the outline";
constexpr double kStep = 0.5;            // between points of the outline, pixels
constexpr double kAreaShare = 5e-4;      // as for the outline itself
constexpr double kBandAreaShare = 1e-3;  // of an area that is mostly its edges' length
constexpr double kWidthLimit = 0.1;
constexpr double kBoundaryLimit = 0.2;  // pixels; the outermost edge points decide

struct Boundary {
  std::vector<cv::Point2d> points;
  long status = GM_OK;
};

Boundary Offset(const std::vector<cv::Point2d>& outline, double distance) {
  // Normals are taken over eleven points: dense ones keep what corners do to them near the corners.
  ZorContour contour(ToZor(InEqualSteps(outline, kStep)));
  ZorContour moved;
  Boundary boundary;
  boundary.status = ZorGeometryMeasure().ContourScaling_Closed(contour, distance, &moved);
  for (const ZorPoint& p : moved) boundary.points.push_back(ToCv(p));
  return boundary;
}

Row Area(PlateBench* bench, const Boundary& boundary, const std::string& name) {
  ZorPointArray points = ToZor(boundary.points);
  Row row{kGroup, name + " boundary, area", "px2"};
  row.status = bench->Measure().PolygonArea(points, &row.measured);
  if (boundary.status != GM_OK) row.status = boundary.status;
  row.figure = SvgPolygon(boundary.points);
  return row;
}

void AddBox(PlateBench* bench, const Boundary& outer) {
  ZorPointArray points = ToZor(outer.points);
  ZorPoint centre;
  double width = 0;
  double height = 0;
  const long status = bench->Measure().PolygonExternalRectangle(points, &centre, &width, &height);
  const ZorPoint across(width / 2, 0);
  const ZorPoint down(0, height / 2);
  bench->Add({kGroup, "outer boundary, width", "px", width, status,
              SvgHintLine(centre - across, centre + across)},
             "band.outer.width", kBoundaryLimit);
  bench->Add({kGroup, "outer boundary, height", "px", height, status,
              SvgHintLine(centre - down, centre + down)},
             "band.outer.height", kBoundaryLimit);
}

/// The widest place: at the corners, where the outline's points fan out, others are narrower.
void AddWidth(PlateBench* bench, const Boundary& boundary, const std::string& name) {
  constexpr int kBetween = 5;  // the mode that measures the width of the band between two contours
  ZorContour outline(ToZor(bench->OuterOutline()));
  ZorContour moved(ToZor(boundary.points));
  ZorPoint on_outline;
  ZorPoint on_moved;
  Row row{kGroup, "outline to " + name + " boundary, widest", "px"};
  row.status = bench->Measure().ContourToContourDistance(
      outline, moved, kBetween, nullptr, nullptr, nullptr, &on_outline, &on_moved, &row.measured);
  row.figure = SvgLine(on_outline, on_moved) + SvgCross(on_outline);
  bench->Add(row, "band.half width", kWidthLimit);
}

}  // namespace

void MeasureBand(PlateBench* bench) {
  const Boundary outer = Offset(bench->OuterOutline(), plate::kBandHalfWidth);
  const Boundary inner = Offset(bench->OuterOutline(), -plate::kBandHalfWidth);
  const Row outer_area = Area(bench, outer, "outer");
  const Row inner_area = Area(bench, inner, "inner");
  Row band{kGroup, "band, area", "px2", outer_area.measured - inner_area.measured};
  band.status = outer_area.status != GM_OK ? outer_area.status : inner_area.status;
  bench->AddRelative(outer_area, "band.outer.area", kAreaShare);
  bench->AddRelative(inner_area, "band.inner.area", kAreaShare);
  bench->AddRelative(band, "band.area", kBandAreaShare);
  AddBox(bench, outer);
  AddWidth(bench, outer, "outer");
  AddWidth(bench, inner, "inner");
}

}  // namespace inspect
