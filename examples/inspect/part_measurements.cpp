#include "part_measurements.h"

#include <algorithm>
#include <cmath>

#include "figures.h"
#include "outline.h"
#include "part_shape.h"
#include "side_defects.h"
#include "straight_sides.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr std::size_t kMaxSides = 12;  // of an outline that are listed, the longest
constexpr std::size_t kMaxHoles = 24;  // of a part, the largest
constexpr double kParallel_deg = 1;
constexpr double kMinFound = 0.25;  // share of the outline that must be an edge
constexpr double kArcRadius = 30;   // of the drawn angles, pixels; and at most
constexpr double kArcShare = 0.2;   // of the shorter side

/// The foot lies on the side, not on its prolongation.
bool FacesFoot(const FittedLine& side, const ZorPoint& foot) {
  const cv::Point2d along = ToCv(side.end - side.start);
  const double t = along.dot(ToCv(foot - side.start)) / along.dot(along);
  return t >= 0 && t <= 1;
}

class PartRows {
 public:
  PartRows(const cv::Mat& grey, const std::string& group) : grey_(grey), group_(group) {}

  /// The upright box around the outline, its middle, and its shape. `what` names the outline in the
  /// rows: "" or "hole 2, ".
  void AddExtent(const std::vector<cv::Point2d>& outline, const std::string& what);
  /// The straight sides of the outline with the chain of pixels `chain`.
  void AddSides(const std::vector<cv::Point2d>& outline, const std::vector<cv::Point2d>& chain,
                const std::string& what);
  std::vector<Row> rows_;

 private:
  void AddSide(const StraightSide& side, const std::string& name);
  void AddLength(const StraightSide& before, const StraightSide& side, const StraightSide& after,
                 const std::string& name);
  void AddAngle(const StraightSide& first, const StraightSide& second, const std::string& name);
  void AddDefects(const std::vector<cv::Point2d>& outline, const std::vector<StraightSide>& sides,
                  const std::string& what);
  void AddWidths(const std::vector<StraightSide>& sides, const std::vector<std::string>& names);

  const cv::Mat& grey_;
  std::string group_;
  ZORMV::ZorGeometryMeasureDlg measure_;
};

void PartRows::AddExtent(const std::vector<cv::Point2d>& outline, const std::string& what) {
  const auto by_x = [](const cv::Point2d& a, const cv::Point2d& b) { return a.x < b.x; };
  const auto by_y = [](const cv::Point2d& a, const cv::Point2d& b) { return a.y < b.y; };
  const double left = std::min_element(outline.begin(), outline.end(), by_x)->x;
  const double right = std::max_element(outline.begin(), outline.end(), by_x)->x;
  const double top = std::min_element(outline.begin(), outline.end(), by_y)->y;
  const double bottom = std::max_element(outline.begin(), outline.end(), by_y)->y;
  ZorPoint upper_left(left, top);
  ZorPoint upper_right(right, top);
  ZorPoint lower_right(right, bottom);
  Row width{group_, what + "width", "px"};
  width.status = measure_.PointToPointDistance(upper_left, upper_right, &width.measured);
  width.figure = SvgPolygon(outline) + SvgHintLine(upper_left, upper_right);
  Row height{group_, what + "height", "px"};
  height.status = measure_.PointToPointDistance(upper_right, lower_right, &height.measured);
  height.figure = SvgHintLine(upper_right, lower_right);
  ZorPoint middle;
  Row x{group_, what + "middle, x", "px"};
  x.status = measure_.MidPoint(upper_left, lower_right, &middle);
  x.measured = middle.x;
  x.figure = SvgLabel(middle, what.empty() ? group_ : what.substr(0, what.find(',')));
  Row y{group_, what + "middle, y", "px", middle.y, x.status, x.figure};
  rows_.insert(rows_.end(), {width, height, x, y});
  const std::vector<Row> shape = ShapeRows(outline, group_, what);
  rows_.insert(rows_.end(), shape.begin(), shape.end());
}

void PartRows::AddSide(const StraightSide& side, const std::string& name) {
  Row row{group_, name + ", direction", "deg"};
  row.status = side.line.status;
  row.measured = LineAngle(side.line);
  row.figure = SvgPoints(side.points) + SvgLine(side.line.start, side.line.end);
  rows_.push_back(row);
  ZorPointArray points = ToZor(side.points);
  Row straightness{group_, name + ", straightness", "px"};
  straightness.status = ZorGeometryMeasure().Straightness(points, 1, &straightness.measured);
  if (straightness.status != GM_E_TOO_FEW_POINTS) rows_.push_back(straightness);
}

void PartRows::AddLength(const StraightSide& before, const StraightSide& side,
                         const StraightSide& after, const std::string& name) {
  FittedLine a = before.line;
  FittedLine b = side.line;
  FittedLine c = after.line;
  ZorPoint from;
  ZorPoint to;
  Row row{group_, name + ", length", "px"};
  row.status = measure_.LinesIntersection(a.start, a.end, b.start, b.end, &from);
  const long status = measure_.LinesIntersection(b.start, b.end, c.start, c.end, &to);
  if (row.status == GM_OK) row.status = status;
  static_cast<void>(measure_.PointToPointDistance(from, to, &row.measured));
  if (row.status == GM_OK) row.figure = SvgLine(from, to) + SvgCross(from) + SvgCross(to);
  rows_.push_back(row);
}

void PartRows::AddAngle(const StraightSide& first, const StraightSide& second,
                        const std::string& name) {
  FittedLine a = first.line;
  FittedLine b = second.line;
  Row row{group_, name, "deg"};
  row.status = measure_.IncludedAngle(a.end, a.start, b.start, b.end, 0, &row.measured);
  ZorPoint vertex;
  if (measure_.LinesIntersection(a.start, a.end, b.start, b.end, &vertex) == GM_OK) {
    const double shorter =
        std::min(cv::norm(ToCv(a.end - a.start)), cv::norm(ToCv(b.end - b.start)));
    row.figure = SvgAngle(vertex, a.start, b.end, std::min(kArcRadius, kArcShare * shorter));
  }
  rows_.push_back(row);
}

void PartRows::AddWidths(const std::vector<StraightSide>& sides,
                         const std::vector<std::string>& names) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    for (std::size_t k = i + 1; k < sides.size(); ++k) {
      FittedLine a = sides[i].line;
      FittedLine b = sides[k].line;
      double angle_deg = 0;
      const long status = measure_.IncludedAngle(a.start, a.end, b.start, b.end, 1, &angle_deg);
      if (status != GM_OK || angle_deg > kParallel_deg) continue;
      ZorPoint middle;
      ZorPoint foot;
      Row row{group_, names[i] + " - " + std::to_string(k + 1) + ", distance", "px"};
      static_cast<void>(measure_.MidPoint(a.start, a.end, &middle));
      row.status = measure_.PointToLineDistance(middle, b.start, b.end, &row.measured);
      static_cast<void>(measure_.PerpendicularProjection(middle, b.start, b.end, &foot));
      row.figure = SvgLine(middle, foot);
      if (FacesFoot(b, foot)) rows_.push_back(row);
    }
  }
}

void PartRows::AddDefects(const std::vector<cv::Point2d>& outline,
                          const std::vector<StraightSide>& sides, const std::string& what) {
  Row count{group_, what + "sides' defects, number", "", 0};
  Row depth{group_, what + "sides' defects, greatest depth", "px", 0};
  for (const StraightSide& side : sides) {
    const EdgeDefects defects = FindSideDefects(grey_, side, outline);
    count.measured += static_cast<double>(defects.found.size());
    for (const EdgeDefect& defect : defects.found) {
      count.figure += SvgCurve(defect.points);
      if (defect.depth <= depth.measured) continue;
      depth.measured = defect.depth;
      depth.figure = SvgLine(defect.foot, defect.deepest);
    }
  }
  rows_.push_back(count);
  if (count.measured > 0) rows_.push_back(depth);
}

void PartRows::AddSides(const std::vector<cv::Point2d>& outline,
                        const std::vector<cv::Point2d>& chain, const std::string& what) {
  std::vector<StraightSide> sides = FindStraightSides(grey_, chain);
  if (sides.size() > kMaxSides) {
    // Neighbours may be missing from the longest, so these stand alone.
    std::sort(sides.begin(), sides.end(), [](const StraightSide& a, const StraightSide& b) {
      return cv::norm(a.to - a.from) > cv::norm(b.to - b.from);
    });
    sides.resize(kMaxSides);
    for (StraightSide& side : sides) side.joined = false;
  }
  const std::size_t count = sides.size();
  std::vector<std::string> names;
  for (std::size_t i = 0; i < count; ++i) names.push_back(what + "side " + std::to_string(i + 1));
  for (std::size_t i = 0; i < count; ++i) {
    AddSide(sides[i], names[i]);
    const StraightSide& before = sides[(i + count - 1) % count];
    if (before.joined && sides[i].joined) {
      AddLength(before, sides[i], sides[(i + 1) % count], names[i]);
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!sides[i].joined) continue;
    const std::size_t next = (i + 1) % count;
    AddAngle(sides[i], sides[next], names[i] + " / " + std::to_string(next + 1) + ", angle");
  }
  AddWidths(sides, names);
  if (!sides.empty()) AddDefects(outline, sides, what);
}

}  // namespace

std::vector<Row> MeasurePart(const cv::Mat& grey, const Part& part, const std::string& name) {
  PartRows rows(grey, part.cut ? name + " (cut by the border)" : name);
  SearchOptions options;
  options.half_length = 5;
  options.margin = 5;
  const Outline outline = TraceOutline(grey, part.outline, options);
  if (outline.found < kMinFound) return {};
  rows.AddExtent(outline.points, "");
  rows.AddSides(outline.points, part.outline, "");
  for (std::size_t i = 0; i < std::min(part.holes.size(), kMaxHoles); ++i) {
    const std::string what = "hole " + std::to_string(i + 1) + ", ";
    const Outline hole = TraceOutline(grey, part.holes[i], options);
    if (hole.found < kMinFound) continue;
    rows.AddExtent(hole.points, what);
    rows.AddSides(hole.points, part.holes[i], what);
  }
  return rows.rows_;
}

}  // namespace inspect
