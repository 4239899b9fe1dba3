#include <cmath>

#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

/// A straight edge between its corners.
struct Segment {
  std::string name;
  ZorPoint from, to;
  long status = GM_OK;
};

Segment Between(PlateBench* bench, std::vector<MeasuredEdge>& edges, std::size_t i) {
  FittedLine before = edges[(i + edges.size() - 1) % edges.size()].line;
  FittedLine edge = edges[i].line;
  FittedLine after = edges[(i + 1) % edges.size()].line;
  Segment segment;
  segment.name = edges[i].name;
  segment.status = bench->Measure().LinesIntersection(before.start, before.end, edge.start,
                                                      edge.end, &segment.from);
  const long status =
      bench->Measure().LinesIntersection(edge.start, edge.end, after.start, after.end, &segment.to);
  if (segment.status == GM_OK) segment.status = status;
  return segment;
}

/// To a millionth of a pixel, where sums and differences of coordinates are exact.
ZorPoint Snapped(const ZorPoint& p) {
  constexpr double kStep = 0x1p-20;
  return {std::round(p.x / kStep) * kStep, std::round(p.y / kStep) * kStep};
}

void AddDistance(PlateBench* bench, Segment a, Segment b, int mode, const std::string& what) {
  Row row{"Parallel edges", a.name + " - " + b.name + ", " + what, "px"};
  ZorPoint on_a;
  ZorPoint on_b;
  row.status = bench->Measure().LineToLineDistance(a.from, a.to, b.from, b.to, mode, &row.measured,
                                                   &on_a, &on_b);
  if (a.status != GM_OK || b.status != GM_OK) row.status = GM_E_DISTANCE_FAILED;
  row.figure = SvgLine(on_a, on_b) + SvgHintLine(a.from, a.to) + SvgHintLine(b.from, b.to);
  bench->Add(row, what + "." + a.name + "." + b.name, kPositionLimit);
}

/// The library measures between lines only where they are exactly parallel and run the same way.
/// Measured edges hardly are, so the second line is set parallel to the first, through its middle.
void AddBetweenLines(PlateBench* bench, Segment a, Segment b) {
  a.from = Snapped(a.from);
  a.to = Snapped(a.to);
  ZorPoint middle;
  static_cast<void>(bench->Measure().MidPoint(b.from, b.to, &middle));
  b.from = Snapped(middle);
  const long status = bench->Measure().ParallerLine(b.from, a.from, a.to, &b.to);
  if (b.status == GM_OK) b.status = status;
  AddDistance(bench, a, b, 4, "between lines");
}

void AddPair(PlateBench* bench, const Segment& a, const Segment& b) {
  AddDistance(bench, a, b, 0, "nearest");
  AddDistance(bench, a, b, 1, "farthest");
  AddBetweenLines(bench, a, b);
}

}  // namespace

void MeasureParallels(PlateBench* bench) {
  auto& sides = bench->Sides();
  auto& window = bench->WindowSides();
  AddPair(bench, Between(bench, sides, plate::kLeft), Between(bench, sides, plate::kRight));
  AddPair(bench, Between(bench, window, 0), Between(bench, window, 2));
  AddPair(bench, Between(bench, window, 3), Between(bench, window, 1));
}

}  // namespace inspect
