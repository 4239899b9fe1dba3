#include "side_defects.h"

#include <algorithm>

#include "bent_edge.h"
#include "outline.h"

namespace inspect {
namespace {

constexpr double kStep = 1;      // between points of the outline, pixels
constexpr double kMinDepth = 1;  // of a defect, pixels
constexpr int kMinPoints = 4;
constexpr double kReach = 5;   // of the search lines to both sides of the outline, pixels
constexpr int kBendReach = 4;  // points to both sides over which the bend of the edge is taken

/// The points of a clockwise outline along the side, defects included, but for what its corners may
/// have rounded.
std::vector<cv::Point2d> OutlineAlong(const StraightSide& side,
                                      const std::vector<cv::Point2d>& outline) {
  const auto nearest = [&](const cv::Point2d& place) {
    return std::min_element(outline.begin(), outline.end(),
                            [&](const cv::Point2d& a, const cv::Point2d& b) {
                              return (a - place).dot(a - place) < (b - place).dot(b - place);
                            }) -
           outline.begin();
  };
  const auto count = static_cast<std::ptrdiff_t>(outline.size());
  const std::ptrdiff_t first = nearest(side.from);
  const std::ptrdiff_t last = nearest(side.to);
  const cv::Point2d way = side.to - side.from;
  const double length = cv::norm(way);
  const double margin = CornerMargin(length);
  std::vector<cv::Point2d> points;
  for (std::ptrdiff_t i = first; i != last; i = (i + 1) % count) {
    const cv::Point2d& p = outline[static_cast<std::size_t>(i)];
    const double along = way.dot(p - side.from) / length;
    if (along > margin && along < length - margin) points.push_back(p);
  }
  return points;
}

}  // namespace

EdgeDefects FindSideDefects(const cv::Mat& grey, const StraightSide& side,
                            const std::vector<cv::Point2d>& outline) {
  const std::vector<cv::Point2d> rough = OutlineAlong(side, InEqualSteps(outline, kStep));
  EdgeDefects defects = FindDefects(rough, side.line, kMinDepth, kMinPoints);
  if (defects.found.empty()) return defects;
  const cv::Point2d way = (side.to - side.from) / cv::norm(side.to - side.from);
  std::vector<EdgeSearch> searches;
  for (const cv::Point2d& p : rough) searches.push_back({p, {way.y, -way.x}, kReach});
  EdgeDefects refined =
      FindDefects(FindBentEdge(grey, searches, kBendReach), side.line, kMinDepth, kMinPoints);
  return refined.found.empty() ? defects : refined;
}

}  // namespace inspect
