#include <algorithm>
#include <cmath>
#include <iterator>

#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr const char* kWebGroup = "Webs between bores, contour to contour";
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

/// The web between two bores, contour to contour.
struct Web {
  const MeasuredBore* a = nullptr;
  const MeasuredBore* b = nullptr;
  ZorPoint on_a, on_b;
  double width = 0;
  long status = GM_E_TOO_FEW_POINTS;
};

Web WebBetween(PlateBench* bench, const MeasuredBore& a, const MeasuredBore& b) {
  constexpr int kSegments = 2;  // the mode that measures from segment to segment
  ZorContour contour_a = Closed(a.points);
  ZorContour contour_b = Closed(b.points);
  Web web{&a, &b, {}, {}, 0, GM_OK};
  web.status = bench->Measure().ContourToContourDistance(
      contour_a, contour_b, kSegments, &web.on_a, &web.on_b, &web.width, nullptr, nullptr, nullptr);
  return web;
}

Web ThinnestWeb(PlateBench* bench) {
  const std::vector<MeasuredBore>& bores = bench->Bores();
  Web thinnest;
  for (std::size_t i = 0; i < bores.size(); ++i) {
    for (std::size_t k = i + 1; k < bores.size(); ++k) {
      const Web web = WebBetween(bench, bores[i], bores[k]);
      if (web.status != GM_OK) return web;
      if (thinnest.a == nullptr || web.width < thinnest.width) thinnest = web;
    }
  }
  return thinnest;
}

/// The bore's points that face another bore, in their order around it.
std::vector<cv::Point2d> Facing(const MeasuredBore& bore, const MeasuredBore& other) {
  constexpr double kHalfAngle_rad = 0.4;
  const cv::Point2d centre = ToCv(bore.centre);
  const cv::Point2d towards = ToCv(other.centre) - centre;
  const auto faces = [&](const cv::Point2d& p) {
    const cv::Point2d d = p - centre;
    return std::abs(std::atan2(towards.cross(d), towards.dot(d))) < kHalfAngle_rad;
  };
  std::vector<cv::Point2d> points = bore.points;
  // From a point that does not face the other one the facing ones are one run.
  std::rotate(points.begin(), std::find_if_not(points.begin(), points.end(), faces), points.end());
  std::vector<cv::Point2d> facing;
  std::copy_if(points.begin(), points.end(), std::back_inserter(facing), faces);
  return facing;
}

bool IsOn(const MeasuredBore& bore, const ZorPoint& p) {
  constexpr double kNear = 0.5;  // pixels
  return std::abs(cv::norm(ToCv(p - bore.centre)) - bore.radius) < kNear;
}

/// The web once more as a band: search lines across it, and the shortest of those from bore to
/// bore. Where the band was cut off they lead to its ends.
void AddSearchLines(PlateBench* bench, const Web& web) {
  constexpr int kSpacing = 2;  // pixels along the band
  std::vector<cv::Point2d> outline = Facing(*web.a, *web.b);
  const std::vector<cv::Point2d> back = Facing(*web.b, *web.a);
  outline.insert(outline.end(), back.begin(), back.end());
  ZorContour band(ToZor(outline));
  ZorROIArray lines;
  Row row{kWebGroup, "shortest search line across it", "px"};
  row.status = bench->Measure().ContourSearchLine(band, kSpacing, &lines);
  for (const ZorROI& line : lines) {
    ZorPoint from;
    ZorPoint to;
    double length = 0;
    if (!line.GetLine(&from, &to)) continue;
    if (!(IsOn(*web.a, from) && IsOn(*web.b, to)) && !(IsOn(*web.b, from) && IsOn(*web.a, to))) {
      continue;
    }
    row.figure += SvgHintLine(from, to);
    static_cast<void>(bench->Measure().PointToPointDistance(from, to, &length));
    if (!(length >= row.measured)) row.measured = length;
  }
  bench->Add(row, "web.thinnest", kExtremeLimit);
}

void AddThinnestWeb(PlateBench* bench) {
  const Web web = ThinnestWeb(bench);
  Row row{kWebGroup, "thinnest", "px", web.width, web.status};
  if (web.status == GM_OK) {
    row.name += ", " + web.a->name + " - " + web.b->name;
    row.figure = SvgLine(web.on_a, web.on_b) + SvgCross(web.on_a) + SvgCross(web.on_b);
  }
  bench->Add(row, "web.thinnest", kExtremeLimit);
  if (web.status == GM_OK) AddSearchLines(bench, web);
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
  AddThinnestWeb(bench);
}

}  // namespace inspect
