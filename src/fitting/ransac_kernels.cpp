#include "fitting/ransac_kernels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include <opencv2/core.hpp>

#include "elementary/point_kernels.h"

namespace zor::fitting {
namespace {

ZorPoint UnitDirection(const ZorLine& line) {
  const ZorPoint d = line.start - line.end;
  const double length = elementary::Norm(d);
  return {d.x / length, d.y / length};
}

}  // namespace

ZorPoint ProjectToLine(const ZorPoint& p, const ZorLine& line) {
  const ZorPoint d = line.end - line.start;
  const double length = std::hypot(d.x, d.y);
  if (length < kShortestBase) return {0.0, 0.0};
  const ZorPoint u(d.x / length, d.y / length);
  const double t = elementary::Dot(u, p - line.start);
  return {line.start.x + t * u.x, line.start.y + t * u.y};
}

std::optional<ZorLine> LineThrough(const ZorPoint& first, const ZorPoint& second) {
  const ZorPoint d = first - second;
  if (std::hypot(d.x, d.y) >= kShortestPair) return ZorLine(first, second);
  return std::nullopt;
}

int CountNear(std::span<const ZorPoint> points, const ZorLine& line, double distance) {
  const LineDistance distance_to(line);
  int count = 0;
  for (const ZorPoint& p : points) {
    if (std::fabs(distance_to(p)) <= distance) ++count;
  }
  return count;
}

std::optional<ZorLine> BestSupported(std::span<const ZorLine> candidates,
                                     std::span<const ZorPoint> points, double distance) {
  if (candidates.empty()) return std::nullopt;
  // Deliberate: 16 bits a count, so that 65536 points near a line count as none; the choice between
  // candidates rests on it for long point lists.
  cv::Mat counts(1, static_cast<int>(candidates.size()), CV_16U);
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    // Samples drawn within one second are all the same pair: count its points once.
    const bool is_repeated = i > 0 && candidates[i] == candidates[i - 1];
    counts.at<std::uint16_t>(static_cast<int>(i)) =
        is_repeated ? counts.at<std::uint16_t>(static_cast<int>(i) - 1)
                    : static_cast<std::uint16_t>(CountNear(points, candidates[i], distance));
  }
  cv::Mat order;
  cv::sortIdx(counts, order, cv::SORT_EVERY_ROW | cv::SORT_DESCENDING);
  return candidates[static_cast<std::size_t>(order.at<int>(0))];
}

void CollectFarRuns(const ZorLine& line, double distance, std::span<const ZorPoint> points,
                    std::vector<Run>& runs) {
  runs.clear();
  const LineDistance distance_to(line);
  const std::size_t count = points.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (!(std::fabs(distance_to(points[i])) > distance)) continue;
    std::size_t j = i + 1;
    while (j < count && std::fabs(distance_to(points[j])) >= distance) ++j;
    // Deliberate: one less than the number of far points. The shortest length that hosts ask of
    // defects is compared with this.
    runs.emplace_back(static_cast<int>(i), static_cast<int>(j - i - 1));
    i = j;  // not far itself
  }
  std::sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) {
    return a.second != b.second ? a.second > b.second : a.first < b.first;
  });
}

bool Coincide(const ZorLine& a, const ZorLine& b, double angle_tolerance,
              double distance_tolerance) {
  const ZorPoint da = UnitDirection(a);
  const ZorPoint db = UnitDirection(b);
  const double sine = std::fabs(db.y * da.x - db.x * da.y);
  if (sine >= angle_tolerance) return false;
  // Deliberate: only the ends of `a` are measured, so that exchanging the lines can change the
  // answer.
  const LineDistance distance_to_b(b);
  return std::max(std::fabs(distance_to_b(a.start)), std::fabs(distance_to_b(a.end))) <
         distance_tolerance;
}

}  // namespace zor::fitting
