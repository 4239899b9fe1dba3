#include "edge_defects.h"

#include <algorithm>
#include <cmath>

#include "figures.h"
#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr int kMinPoints = 4;   // fewer are no edge to the library
constexpr int kBothEnds = 2;    // vertices to which the edge is reduced: it is one side
constexpr double kFitClip = 1;  // of the fit inside the library's search

/// Coordinates along and across a line, from its start.
struct Frame {
  cv::Point2d origin, along;
  explicit Frame(const FittedLine& line) : origin(ToCv(line.start)) {
    const cv::Point2d way = ToCv(line.end) - origin;
    along = way / cv::norm(way);
  }
  [[nodiscard]] ZorPoint Into(const cv::Point2d& p) const {
    return {along.dot(p - origin), along.cross(p - origin)};
  }
  [[nodiscard]] cv::Point2d From(const ZorPoint& uv) const {
    return origin + uv.x * along + uv.y * cv::Point2d(-along.y, along.x);
  }
};

/// How far the line that the search fits to all of the points lies off the edge's line, by which
/// the defects pull it towards themselves.
double Pull(ZorPointArray& points) {
  ZorPoint start;
  ZorPoint end;
  const long status =
      ZORMV::ZorGeometryMeasureDlg().LeastSqaureLineFit(points, 1, kFitClip, &start, &end);
  return status == GM_OK ? std::max(std::abs(start.y), std::abs(end.y)) : 0;
}

EdgeDefect Described(const ZorContour& contour, const Frame& frame, const FittedLine& line) {
  ZORMV::ZorGeometryMeasureDlg measure;
  ZorPoint start = line.start;
  ZorPoint end = line.end;
  EdgeDefect defect;
  for (const ZorPoint& uv : contour) {
    ZorPoint p = ToZor(frame.From(uv));
    defect.points.push_back(ToCv(p));
    double distance = 0;
    static_cast<void>(measure.PointToLineDistance(p, start, end, &distance));
    if (distance <= defect.depth) continue;
    defect.depth = distance;
    defect.deepest = p;
  }
  static_cast<void>(measure.PerpendicularProjection(defect.deepest, start, end, &defect.foot));
  return defect;
}

}  // namespace

EdgeDefects FindDefects(const std::vector<cv::Point2d>& points, const FittedLine& line,
                        double distance, int min_points) {
  EdgeDefects defects;
  if (points.size() < kMinPoints || line.status != GM_OK) return defects;
  // The search fits y over x, so the edge is laid along x, whatever its direction.
  const Frame frame(line);
  ZorPointArray laid;
  for (const cv::Point2d& p : points) laid.Append(frame.Into(p));
  ZorContour contour(laid);
  ZorContourArray runs;
  const double any_tolerance = cv::norm(points.back() - points.front()) + 1;
  defects.status = ZORMV::ZorGeometryMeasureDlg().FindDefectRegion(
      contour, any_tolerance, kBothEnds, distance + Pull(laid), min_points, &runs);
  // With this many points the code means that there is no defect.
  if (defects.status == GM_E_PARAM_1) defects.status = GM_OK;
  for (const ZorContour& run : runs) {
    EdgeDefect defect = Described(run, frame, line);
    if (defect.depth >= distance) defects.found.push_back(std::move(defect));
  }
  return defects;
}

}  // namespace inspect
