#include "contour/reduction_kernels.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <opencv2/imgproc.hpp>

#include "elementary/area_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/opencv_points.h"

namespace zor::contour {
namespace {

/// The segment that points deviate from.
class Chord {
 public:
  Chord(const ZorPoint& a, const ZorPoint& b) : a_(a), along_(b - a) {
    const double squared = elementary::Dot(along_, along_);
    if (squared > 0) inverse_ = 1 / squared;
  }

  /// Squared distance of p from the segment.
  [[nodiscard]] double Deviation2(const ZorPoint& p) const {
    const ZorPoint d = p - a_;
    double share = elementary::Dot(d, along_) * inverse_;
    share = share < 0 ? 0 : share;
    share = share > 1 ? 1 : share;
    const ZorPoint off(d.x - share * along_.x, d.y - share * along_.y);
    return elementary::Dot(off, off);
  }

 private:
  ZorPoint a_;
  ZorPoint along_;
  double inverse_ = 0.0;
};

/// A stretch of the sequence between two kept points, and where it deviates most from its chord.
struct Stretch {
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t farthest = 0;
  double deviation2 = 0.0;
};

/// Order of a heap whose top deviates most; of equal ones the earliest.
bool IsLessUrgent(const Stretch& a, const Stretch& b) {
  return a.deviation2 != b.deviation2 ? a.deviation2 < b.deviation2 : a.first > b.first;
}

/// The open sequence `points` reduced; ascending positions.
class Reduction {
 public:
  Reduction(std::span<const ZorPoint> points, double tolerance)
      : points_(points), tolerance2_(tolerance * tolerance) {}

  /// Splits until at most `most` positions are kept.
  void Split(std::size_t most) {
    kept_ = {0, points_.size() - 1};
    Push(0, points_.size() - 1);
    while (!open_.empty() && kept_.size() < most) {
      std::pop_heap(open_.begin(), open_.end(), IsLessUrgent);
      const Stretch s = open_.back();
      open_.pop_back();
      kept_.push_back(s.farthest);
      Push(s.first, s.farthest);
      Push(s.farthest, s.last);
    }
    std::sort(kept_.begin(), kept_.end());
  }

  /// Drops kept positions whose neighbours' chord is within the tolerance of all points between.
  void DropNeedless() {
    std::vector<std::size_t> needed = {kept_.front()};
    for (std::size_t i = 1; i + 1 < kept_.size(); ++i) {
      if (!IsWithin(needed.back(), kept_[i], kept_[i + 1])) needed.push_back(kept_[i]);
    }
    needed.push_back(kept_.back());
    kept_ = std::move(needed);
  }

  [[nodiscard]] const std::vector<std::size_t>& Kept() const { return kept_; }

 private:
  void Push(std::size_t first, std::size_t last) {
    if (last - first < 2) return;
    const Chord chord(points_[first], points_[last]);
    Stretch s{first, last, first + 1, 0.0};  // what is not a number deviates from nothing
    for (std::size_t i = first + 1; i < last; ++i) {
      const double deviation2 = chord.Deviation2(points_[i]);
      if (deviation2 > s.deviation2) {
        s.deviation2 = deviation2;
        s.farthest = i;
      }
    }
    if (!(s.deviation2 > tolerance2_)) return;
    open_.push_back(s);
    std::push_heap(open_.begin(), open_.end(), IsLessUrgent);
  }

  /// Most kept points are corners, which their own deviation tells at once.
  [[nodiscard]] bool IsWithin(std::size_t first, std::size_t middle, std::size_t last) const {
    const Chord chord(points_[first], points_[last]);
    if (chord.Deviation2(points_[middle]) > tolerance2_) return false;
    return std::all_of(points_.begin() + static_cast<std::ptrdiff_t>(first),
                       points_.begin() + static_cast<std::ptrdiff_t>(last),
                       [&](const ZorPoint& p) { return !(chord.Deviation2(p) > tolerance2_); });
  }

  std::span<const ZorPoint> points_;
  double tolerance2_;
  std::vector<std::size_t> kept_;
  std::vector<Stretch> open_;  // a heap of those that deviate too much
};

std::size_t FarthestFrom(const ZorPoint& p, std::span<const ZorPoint> points) {
  const auto squared = [&p](const ZorPoint& q) { return elementary::Dot(q - p, q - p); };
  std::size_t farthest = 0;
  double best = squared(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double candidate = squared(points[i]);
    if (candidate > best) {
      best = candidate;
      farthest = i;
    }
  }
  return farthest;
}

/// Precondition: at least two points, and room for both ends.
std::vector<std::size_t> ReduceOpen(std::span<const ZorPoint> points, double tolerance,
                                    std::size_t most) {
  Reduction reduction(points, tolerance);
  reduction.Split(most);
  reduction.DropNeedless();
  return reduction.Kept();
}

/// As an open sequence from a point that no tolerance short of the whole figure removes, once
/// around and back to it.
std::vector<std::size_t> ReduceClosed(std::span<const ZorPoint> points, double tolerance,
                                      std::size_t most) {
  const std::size_t count = points.size();
  const std::size_t start = FarthestFrom(points[0], points);
  std::vector<ZorPoint> around(points.begin() + static_cast<std::ptrdiff_t>(start), points.end());
  around.reserve(count + 1);
  around.insert(around.end(), points.begin(),
                points.begin() + static_cast<std::ptrdiff_t>(start + 1));
  std::vector<std::size_t> kept = ReduceOpen(around, tolerance, most + 1);
  kept.pop_back();  // the start again
  for (std::size_t& i : kept) i = (i + start) % count;
  std::sort(kept.begin(), kept.end());
  return kept;
}

}  // namespace

std::vector<std::size_t> ReducePolyline(std::span<const ZorPoint> points, double tolerance,
                                        std::size_t most, bool closed) {
  if (points.size() == 1 || most == 1) return {0};
  if (most == 0) most = points.size();
  return closed ? ReduceClosed(points, tolerance, most) : ReduceOpen(points, tolerance, most);
}

bool IsApproximationTolerance(double tolerance) { return tolerance >= 0 && tolerance < 1e30; }

std::vector<ZorPoint> ApproximateClosed(std::span<const ZorPoint> points, double tolerance) {
  std::vector<cv::Point2f> kept;
  cv::approxPolyDP(frame::ToFloatPoints(points), kept, tolerance, true);
  std::vector<ZorPoint> vertices;
  vertices.reserve(kept.size());
  for (const cv::Point2f& p : kept) vertices.push_back(frame::FromFloatPoint(p));
  return vertices;
}

std::vector<ZorPoint> InStandardOrder(std::span<const ZorPoint> polygon) {
  std::vector<ZorPoint> vertices(polygon.begin(), polygon.end());
  if (elementary::SignedArea(polygon) < 0) std::reverse(vertices.begin(), vertices.end());
  const auto first = std::min_element(
      vertices.begin(), vertices.end(),
      [](const ZorPoint& a, const ZorPoint& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
  std::rotate(vertices.begin(), first, vertices.end());
  return vertices;
}

}  // namespace zor::contour
