#include "line_fit.h"

#include <algorithm>
#include <utility>

#include <ZorGeometryMeasureDlg.h>

namespace inspect {
namespace {

constexpr int kPasses = 5;

bool IsSteep(const std::vector<cv::Point2d>& points) {
  cv::Point2d low = points[0];
  cv::Point2d high = points[0];
  for (const cv::Point2d& p : points) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  return high.y - low.y > high.x - low.x;
}

ZorPoint Exchanged(const ZorPoint& p) { return {p.y, p.x}; }

}  // namespace

FittedLine FitLine(const std::vector<cv::Point2d>& points, double clip_distance,
                   LineMethod method) {
  FittedLine line;
  if (points.size() < 2) return line;
  // The library fits y over x and clips by the difference in y, except for lines that are exactly
  // vertical. A steep edge is therefore handed over with its axes exchanged, so that clipping acts
  // nearly across the edge.
  const bool steep = IsSteep(points);
  ZorPointArray array;
  array.Reserve(static_cast<int>(points.size()));
  for (const cv::Point2d& p : points) {
    array.Append(steep ? ZorPoint(p.y, p.x) : ZorPoint(p.x, p.y));
  }
  ZORMV::ZorGeometryMeasureDlg measure;
  line.status =
      method == LineMethod::kLeastSquares
          ? measure.LeastSqaureLineFit(array, kPasses, clip_distance, &line.start, &line.end)
          : measure.LeastAbsoluteLineFit(array, kPasses, clip_distance, &line.start, &line.end);
  if (steep) {
    line.start = Exchanged(line.start);
    line.end = Exchanged(line.end);
  }
  return line;
}

double LineAngle(const FittedLine& line) {
  ZorPoint start = line.start;
  ZorPoint end = line.end;
  double angle_deg = 0;
  static_cast<void>(ZORMV::ZorGeometryMeasureDlg().VectorAngle(start, end, &angle_deg));
  return angle_deg >= 180 ? angle_deg - 180 : angle_deg;
}

}  // namespace inspect
