#include <optional>

#include "bent_edge.h"
#include "edge_defects.h"
#include "figures.h"
#include "outline_moments.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

constexpr double kReach = 12;      // of the search lines: twice as deep as a nick may be
constexpr double kSpacing = 0.5;   // pixels between search lines
constexpr int kBendReach = 8;      // points to both sides over which the bend of the edge is taken
constexpr double kStraying = 0.5;  // pixels off the line; ten times the noise of edge points
constexpr int kMinPoints = 8;
constexpr double kDepthLimit = 0.1;  // the deepest point decides
constexpr double kPlaceLimit = 0.2;

EdgeDefects DefectsOf(PlateBench* bench, std::size_t side) {
  const plate::Plate& drawing = bench->Drawing();
  SearchOptions options;
  options.polarity = Polarity::kFalling;
  options.half_length = kReach;
  options.spacing = kSpacing;
  const auto searches =
      AcrossSegment(drawing.corners[side], drawing.corners[(side + 1) % plate::kSides], options);
  return FindDefects(FindBentEdge(bench->Grey(), searches, kBendReach), bench->Sides()[side].line,
                     kStraying, kMinPoints);
}

/// How far along the top edge, from the corner where it begins, the middle of the defect's area is.
Row PlaceAlong(PlateBench* bench, const EdgeDefect& nick) {
  FittedLine left = bench->Sides()[plate::kLeft].line;
  FittedLine top = bench->Sides()[plate::kTop].line;
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  ZorPoint corner;
  ZorPoint foot;
  Row row{"Defects of the straight edges", "nick, from the corner left / top", "px"};
  row.status = measure.LinesIntersection(left.start, left.end, top.start, top.end, &corner);
  // The nick's area lies between its points and the line, and not their chord.
  std::vector<cv::Point2d> area = nick.points;
  for (const cv::Point2d& p : {nick.points.back(), nick.points.front()}) {
    ZorPoint end = ToZor(p);
    static_cast<void>(measure.PerpendicularProjection(end, top.start, top.end, &foot));
    area.push_back(ToCv(foot));
  }
  ZorPoint middle = ToZor(MomentsOf(area).centroid);
  static_cast<void>(measure.PerpendicularProjection(middle, top.start, top.end, &foot));
  static_cast<void>(measure.PointToPointDistance(corner, foot, &row.measured));
  row.figure = SvgHintLine(corner, foot) + SvgCross(middle);
  return row;
}

}  // namespace

void MeasureNick(PlateBench* bench) {
  const std::string group = "Defects of the straight edges";
  Row count{group, "number", ""};
  count.measured = 0;
  std::optional<EdgeDefect> nick;
  for (std::size_t i = 0; i < plate::kSides; ++i) {
    if (i == plate::kBottom) continue;
    const EdgeDefects defects = DefectsOf(bench, i);
    if (count.status == GM_OK) count.status = defects.status;
    count.measured += static_cast<double>(defects.found.size());
    for (const EdgeDefect& defect : defects.found) count.figure += SvgCurve(defect.points);
    if (i == plate::kTop && !defects.found.empty()) nick = defects.found[0];
  }
  bench->Add(count, "count.edge defects", kCountLimit);
  if (!nick) return;
  const ZorPoint below(nick->deepest.x, nick->deepest.y + 16);
  bench->Add({group, "nick, depth", "px", nick->depth, GM_OK,
              SvgLine(nick->foot, nick->deepest) + SvgLabel(below, "nick")},
             "nick.depth", kDepthLimit);
  bench->Add(PlaceAlong(bench, *nick), "nick.along", kPlaceLimit);
}

}  // namespace inspect
