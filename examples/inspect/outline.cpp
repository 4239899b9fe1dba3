#include "outline.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <opencv2/imgproc.hpp>

namespace inspect {
namespace {

constexpr int kTurnReach = 6;             // steps to both sides over which a turn is seen
constexpr int kBendReach = 14;            // and over which curvature is taken
constexpr double kCornerTurn_rad = 0.35;  // 20 degrees within the reach
constexpr int kSideLength = 8;            // measured points on each side that place a corner

constexpr double kMinCross = 0.1;  // of the directions of sides that meet in a corner
constexpr double kMaxPassed = 3;   // pixels beyond a corner; the rough outline is no nearer
constexpr int kSmoothing = 3;      // points to both sides that hide the steps of a pixel chain

/// Points one pixel apart along a closed outline, and the same with the steps of pixels smoothed.
struct Ring {
  std::vector<cv::Point2d> points;
  std::vector<cv::Point2d> smooth;
  [[nodiscard]] int Size() const { return static_cast<int>(points.size()); }
  [[nodiscard]] std::size_t Index(int i) const {
    return static_cast<std::size_t>((i % Size() + Size()) % Size());
  }
  /// The way from point i to point k.
  [[nodiscard]] cv::Point2d Chord(int i, int k) const {
    return smooth[Index(k)] - smooth[Index(i)];
  }
  /// Angle by which the ring turns at point i, seen over `reach` points; positive clockwise.
  [[nodiscard]] double Turn(int i, int reach) const {
    const cv::Point2d before = Chord(i - reach, i);
    const cv::Point2d after = Chord(i, i + reach);
    return std::atan2(before.cross(after), before.dot(after));
  }
};

double Distance(const cv::Point2d& a, const cv::Point2d& b) {
  return std::sqrt((b - a).dot(b - a));
}

/// The ring along the polygon, clockwise.
Ring Resampled(std::vector<cv::Point2d> polygon) {
  if (SignedArea(polygon) < 0) std::reverse(polygon.begin(), polygon.end());
  Ring ring;
  ring.points = InEqualSteps(polygon, 1);
  for (int i = 0; i < ring.Size(); ++i) {
    cv::Point2d sum(0, 0);
    for (int k = -kSmoothing; k <= kSmoothing; ++k) sum += ring.points[ring.Index(i + k)];
    ring.smooth.push_back(sum / (2 * kSmoothing + 1));
  }
  return ring;
}

/// Marks the points near corners. A ring that turns nearly everywhere is a small round figure: it
/// has no corners.
std::vector<char> CornerZones(const Ring& ring, int margin) {
  std::vector<char> zone(ring.points.size(), 0);
  for (int i = 0; i < ring.Size(); ++i) {
    if (std::abs(ring.Turn(i, kTurnReach)) < kCornerTurn_rad) continue;
    for (int k = -margin; k <= margin; ++k) zone[ring.Index(i + k)] = 1;
  }
  const auto marked = std::count(zone.begin(), zone.end(), 1);
  if (2 * marked > ring.Size()) std::fill(zone.begin(), zone.end(), 0);
  return zone;
}

EdgeSearch SearchAt(const Ring& ring, const std::vector<char>& zone, int i,
                    const SearchOptions& options) {
  const cv::Point2d chord = ring.Chord(i - kTurnReach, i + kTurnReach);
  const double length = std::max(std::sqrt(chord.dot(chord)), 1e-9);
  const bool near_corner = zone[ring.Index(i - kBendReach)] || zone[ring.Index(i + kBendReach)];
  const bool short_ring = ring.Size() < 4 * kBendReach;
  const double curvature = near_corner || short_ring ? 0 : ring.Turn(i, kBendReach) / kBendReach;
  return {ring.points[ring.Index(i)], {chord.y / length, -chord.x / length},
          options.half_length,        curvature,
          options.min_contrast,       options.polarity};
}

/// A stretch of the outline up to a corner, and the rough outline of the corner itself.
struct Stretch {
  std::vector<cv::Point2d> points;
  std::vector<cv::Point2d> corner;
};

cv::Vec4d SideLine(const cv::Point2d* first, const cv::Point2d* last) {
  const std::vector<cv::Point2f> points(first, last);
  cv::Vec4f line;
  cv::fitLine(points, line, cv::DIST_L2, 0, 0.01, 0.01);
  return line;
}

/// Whether the rough outline between both ends reaches beyond the corner, or to the other side of
/// their chord. Blur and threshold round corners off, so one that the rough outline goes round is
/// none: it is a notch or a bump.
bool IsPassed(const cv::Point2d& from, const cv::Point2d& corner, const cv::Point2d& to,
              const std::vector<cv::Point2d>& rough) {
  const cv::Point2d chord = to - from;
  const double length = std::sqrt(chord.dot(chord));
  const double reach = chord.cross(corner - from);
  return std::any_of(rough.begin(), rough.end(), [&](const cv::Point2d& p) {
    const double way = reach < 0 ? -chord.cross(p - from) : chord.cross(p - from);
    return std::max(way - std::abs(reach), -way) > kMaxPassed * length;
  });
}

/// Where the end of one stretch and the start of the next meet, when that is near the gap and does
/// not cut off what the rough outline shows there.
std::optional<cv::Point2d> MeetingPoint(const std::vector<cv::Point2d>& before,
                                        const std::vector<cv::Point2d>& after,
                                        const std::vector<cv::Point2d>& rough) {
  const auto side = static_cast<std::size_t>(kSideLength);
  if (before.size() < side || after.size() < side) return std::nullopt;
  const cv::Vec4d u = SideLine(before.data() + before.size() - side, before.data() + before.size());
  const cv::Vec4d v = SideLine(after.data(), after.data() + side);
  const double cross = u[0] * v[1] - u[1] * v[0];
  if (std::abs(cross) < kMinCross) return std::nullopt;
  const double t = ((v[2] - u[2]) * v[1] - (v[3] - u[3]) * v[0]) / cross;
  const cv::Point2d corner(u[2] + t * u[0], u[3] + t * u[1]);
  const double gap = Distance(before.back(), after.front());
  if (Distance(corner, before.back()) > gap || Distance(corner, after.front()) > gap) {
    return std::nullopt;
  }
  if (IsPassed(before.back(), corner, after.front(), rough)) return std::nullopt;
  return corner;
}

/// The stretches one after the other, joined at their corners.
std::vector<cv::Point2d> Joined(const std::vector<Stretch>& stretches) {
  std::vector<cv::Point2d> points;
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    const Stretch& stretch = stretches[i];
    points.insert(points.end(), stretch.points.begin(), stretch.points.end());
    if (stretch.corner.empty()) continue;
    const Stretch& next = stretches[(i + 1) % stretches.size()];
    if (const auto corner = MeetingPoint(stretch.points, next.points, stretch.corner)) {
      points.push_back(*corner);
    } else {
      points.insert(points.end(), stretch.corner.begin(), stretch.corner.end());
    }
  }
  return points;
}

}  // namespace

std::vector<cv::Point2d> InEqualSteps(const std::vector<cv::Point2d>& polygon, double step) {
  std::vector<cv::Point2d> points;
  double until_next = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const cv::Point2d& from = polygon[i];
    const cv::Point2d way = polygon[(i + 1) % polygon.size()] - from;
    const double length = Distance(from, from + way);
    for (; until_next < length; until_next += step) {
      points.push_back(from + way * (until_next / length));
    }
    until_next -= length;
  }
  return points;
}

double SignedArea(const std::vector<cv::Point2d>& polygon) {
  double twice = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    twice += polygon[i].cross(polygon[(i + 1) % polygon.size()]);
  }
  return twice / 2;
}

Outline TraceOutline(const cv::Mat& grey, const std::vector<cv::Point2d>& rough,
                     const SearchOptions& options) {
  const Ring ring = Resampled(rough);
  if (ring.Size() < 4 * kTurnReach) return {};
  const std::vector<char> zone = CornerZones(ring, static_cast<int>(options.margin));
  // Starting at the end of a corner keeps every stretch in one piece.
  int start = 0;
  while (start < ring.Size() && !(zone[ring.Index(start - 1)] && !zone[ring.Index(start)])) ++start;
  std::vector<Stretch> stretches(1);
  const int step = std::max(1, static_cast<int>(options.spacing));
  int searched = 0;
  int found = 0;
  for (int i = start; i < start + ring.Size(); ++i) {
    const cv::Point2d& place = ring.points[ring.Index(i)];
    if (zone[ring.Index(i)]) {
      stretches.back().corner.push_back(place);
      continue;
    }
    if (!stretches.back().corner.empty()) stretches.emplace_back();
    if ((i - start) % step != 0) continue;
    const auto edge = FindEdge(grey, SearchAt(ring, zone, i, options));
    stretches.back().points.push_back(edge ? edge->position : place);
    ++searched;
    if (edge) ++found;
  }
  return {Joined(stretches), static_cast<double>(found) / std::max(searched, 1)};
}

}  // namespace inspect
