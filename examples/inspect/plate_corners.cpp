#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr double kArcRadius = 34;  // of the drawn angles, pixels

/// Two neighbouring edges, clockwise on the screen; both lines run along that sense.
struct Corner {
  std::string name;
  std::string key;
  FittedLine before, after;
};

Corner CornerOf(const MeasuredEdge& before, const MeasuredEdge& after) {
  return {before.name + " / " + after.name, before.name + "." + after.name, before.line,
          after.line};
}

/// All corners of two straight edges.
std::vector<Corner> Corners(PlateBench* bench) {
  std::vector<Corner> corners;
  const auto& sides = bench->Sides();
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const std::size_t before = (i + sides.size() - 1) % sides.size();
    if (i == plate::kBottom || before == plate::kBottom) continue;
    corners.push_back(CornerOf(sides[before], sides[i]));
  }
  const auto& window = bench->WindowSides();
  for (std::size_t i = 0; i < window.size(); ++i) {
    corners.push_back(CornerOf(window[(i + window.size() - 1) % window.size()], window[i]));
  }
  return corners;
}

void AddAngle(PlateBench* bench, Corner corner, ZorPoint vertex) {
  Row row{"Angles between edges", corner.name, "deg"};
  // From the corner outwards along both edges: the angle that the corner encloses.
  row.status =
      bench->Measure().IncludedAngle(corner.before.end, corner.before.start, corner.after.start,
                                     corner.after.end, 0, &row.measured);
  row.figure = SvgAngle(vertex, corner.before.start, corner.after.end, kArcRadius);
  bench->Add(row, "angle." + corner.key, kAngleLimit_deg);
}

void AddBisector(PlateBench* bench, Corner corner, ZorPoint vertex) {
  Row row{"Bisectors", corner.name + ", direction", "deg"};
  FittedLine bisector;
  bisector.start = vertex;
  row.status =
      bench->Measure().BissectingLine(corner.before.start, vertex, corner.after.end, &bisector.end);
  row.measured = LineAngle(bisector);
  row.figure = SvgAuxLine(vertex, bisector.end);
  bench->Add(row, "bisector." + corner.key + ".angle_deg", kAngleLimit_deg);
}

void AddPlace(PlateBench* bench, const Corner& corner, long status, const ZorPoint& vertex) {
  Row row{"Corners", corner.name + ", x", "px", vertex.x, status, SvgCross(vertex)};
  bench->Add(row, "corner." + corner.key + ".x", kPositionLimit);
  row.name = corner.name + ", y";
  row.measured = vertex.y;
  bench->Add(row, "corner." + corner.key + ".y", kPositionLimit);
}

}  // namespace

void MeasureCorners(PlateBench* bench) {
  std::vector<Corner> corners = Corners(bench);
  std::vector<ZorPoint> places;
  std::vector<long> statuses;
  for (Corner& corner : corners) {
    ZorPoint vertex;
    statuses.push_back(bench->Measure().LinesIntersection(
        corner.before.start, corner.before.end, corner.after.start, corner.after.end, &vertex));
    places.push_back(vertex);
  }
  for (std::size_t i = 0; i < corners.size(); ++i) AddAngle(bench, corners[i], places[i]);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    AddPlace(bench, corners[i], statuses[i], places[i]);
  }
  const std::size_t outer = corners.size() - bench->WindowSides().size();
  for (std::size_t i = 0; i < outer; ++i) AddBisector(bench, corners[i], places[i]);
}

}  // namespace inspect
