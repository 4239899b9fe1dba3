#include <algorithm>
#include <cmath>
#include <utility>

#include "figures.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

// Farther than the noise of single edge points by an order, nearer than what damage does.
constexpr double kClipDistance = 0.3;
constexpr double kLabelDistance = 13;   // from the edge, pixels
constexpr double kLetterHalfWidth = 4;  // so much more a letter where the label stands beside it

MeasuredEdge FindSide(const cv::Mat& grey, const std::string& name, const cv::Point2d& from,
                      const cv::Point2d& to, Polarity polarity) {
  SearchOptions options;
  options.polarity = polarity;
  MeasuredEdge edge;
  edge.name = name;
  edge.points = FindEdges(grey, AcrossSegment(from, to, options));
  edge.line = FitLine(edge.points, kClipDistance);
  return edge;
}

void FindAll(PlateBench* bench) {
  const plate::Plate& drawing = bench->Drawing();
  for (std::size_t i = 0; i < plate::kSides; ++i) {
    MeasuredEdge side;
    side.name = plate::kSideNames[i];
    if (i != plate::kBottom) {
      side = FindSide(bench->Grey(), side.name, drawing.corners[i],
                      drawing.corners[(i + 1) % plate::kSides], Polarity::kFalling);
    }
    bench->Sides().push_back(std::move(side));
  }
  const auto window = WindowCorners(drawing.window);
  for (std::size_t i = 0; i < window.size(); ++i) {
    bench->WindowSides().push_back(FindSide(bench->Grey(), plate::kWindowSideNames[i], window[i],
                                            window[(i + 1) % window.size()], Polarity::kRising));
  }
}

/// The edge's name beside its middle, on the side that the search lines point to.
std::string EdgeLabel(PlateBench* bench, const std::string& name, FittedLine line) {
  ZorPoint middle;
  static_cast<void>(bench->Measure().MidPoint(line.start, line.end, &middle));
  const cv::Point2d along = ToCv(line.end) - ToCv(line.start);
  const double length = std::max(cv::norm(along), 1e-9);
  const cv::Point2d outward(along.y / length, -along.x / length);
  const double letters = kLetterHalfWidth * static_cast<double>(name.size());
  const double distance = kLabelDistance + std::abs(outward.x) * letters;
  return SvgLabel(ToZor(ToCv(middle) + distance * outward), name);
}

void AddEdge(PlateBench* bench, const MeasuredEdge& edge, const FittedLine& line,
             const std::string& method) {
  const std::string key = "edge." + edge.name;
  ZorPoint start = line.start;
  ZorPoint end = line.end;

  Row angle{"Edges, " + method, edge.name + ", direction", "deg"};
  angle.status = line.status;
  angle.measured = LineAngle(line);
  angle.figure = SvgPoints(edge.points) + SvgLine(start, end) + EdgeLabel(bench, edge.name, line);
  bench->Add(angle, key + ".angle_deg", kAngleLimit_deg);

  Row place{"Edges, " + method, edge.name + ", from datum", "px"};
  ZorPoint datum = ToZor(plate::kDatum);
  ZorPoint foot;
  static_cast<void>(bench->Measure().PerpendicularProjection(datum, start, end, &foot));
  place.status = bench->Measure().PointToLineDistance(datum, start, end, &place.measured);
  place.figure = SvgLine(start, end) + SvgHintLine(datum, foot);
  bench->Add(place, key + ".from_datum", kPositionLimit);
}

}  // namespace

void MeasureEdges(PlateBench* bench) {
  FindAll(bench);
  for (const MeasuredEdge& edge : bench->Sides()) {
    if (edge.name == plate::kSideNames[plate::kBottom]) continue;
    AddEdge(bench, edge, edge.line, "least squares");
  }
  for (const MeasuredEdge& edge : bench->WindowSides()) {
    AddEdge(bench, edge, edge.line, "least squares");
  }
  // The edge with the nick once more by the other method.
  const MeasuredEdge& top = bench->Sides()[plate::kTop];
  AddEdge(bench, top, FitLine(top.points, kClipDistance, LineMethod::kLeastAbsolute),
          "least absolute");
}

}  // namespace inspect
