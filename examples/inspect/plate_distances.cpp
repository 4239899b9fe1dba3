#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

/// From the middle of the first edge to the line of the second.
void AddWidth(PlateBench* bench, MeasuredEdge first, MeasuredEdge second) {
  Row row{"Distances of parallel edges", first.name + " - " + second.name, "px"};
  ZorPoint middle;
  ZorPoint foot;
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  static_cast<void>(measure.MidPoint(first.line.start, first.line.end, &middle));
  row.status =
      measure.PointToLineDistance(middle, second.line.start, second.line.end, &row.measured);
  static_cast<void>(
      measure.PerpendicularProjection(middle, second.line.start, second.line.end, &foot));
  row.figure = SvgLine(middle, foot);
  bench->Add(row, "distance." + first.name + "." + second.name, kPositionLimit);
}

/// An edge's length: the distance of its corners with the neighbouring edges.
void AddLength(PlateBench* bench, FittedLine before, MeasuredEdge edge, FittedLine after) {
  Row row{"Lengths of edges", edge.name, "px"};
  ZorPoint from;
  ZorPoint to;
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  row.status =
      measure.LinesIntersection(before.start, before.end, edge.line.start, edge.line.end, &from);
  const long status =
      measure.LinesIntersection(edge.line.start, edge.line.end, after.start, after.end, &to);
  if (row.status == GM_OK) row.status = status;
  static_cast<void>(measure.PointToPointDistance(from, to, &row.measured));
  row.figure = SvgLine(from, to) + SvgCross(from) + SvgCross(to);
  bench->Add(row, "edge." + edge.name + ".length", kPositionLimit);
}

void AddLengths(PlateBench* bench, const std::vector<MeasuredEdge>& edges) {
  const auto is_bulged = [](const MeasuredEdge& edge) {
    return edge.name == plate::kSideNames[plate::kBottom];
  };
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const MeasuredEdge& before = edges[(i + edges.size() - 1) % edges.size()];
    const MeasuredEdge& after = edges[(i + 1) % edges.size()];
    if (is_bulged(before) || is_bulged(edges[i]) || is_bulged(after)) continue;
    AddLength(bench, before.line, edges[i], after.line);
  }
}

}  // namespace

void MeasureDistances(PlateBench* bench) {
  AddWidth(bench, bench->Sides()[plate::kLeft], bench->Sides()[plate::kRight]);
  AddWidth(bench, bench->WindowSides()[0], bench->WindowSides()[2]);
  AddWidth(bench, bench->WindowSides()[3], bench->WindowSides()[1]);
  AddLengths(bench, bench->Sides());
  AddLengths(bench, bench->WindowSides());
}

}  // namespace inspect
