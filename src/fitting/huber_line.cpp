#include "fitting/huber_line.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "frame/opencv_points.h"

// Why the steepness can be had without the fit.
//
// The routine keeps, of all lines that it looks at, the one with the least sum E of the points'
// distances. It looks at start lines first: 20 times it draws ten different points (all of them, if
// there are fewer) from a generator with a fixed seed and takes their line of least squares. So the
// line it returns has an E no greater than any start line's.
//
// Not steep. A steep line has |vx| < 1e-6, so its point distances are |x - c| for some c, but for
// 1e-6 of the extent. Whatever c is, two points add at least |xi - xj| to the sum. Pairing the
// points anyhow thus bounds E from below for all steep lines; once a start line lies below the
// bound, the result is not steep.
//
// Steep. When all x are the same in single precision, a line that is not steep crosses the points
// with |vx| >= 1e-6, so two points add at least 1e-6 |yi - yj|. A start line passes through that x
// and has |vx| = 4.4e-8, unless the products that the routine rounds to single precision spoil it:
// once one of them lies below that bound, the result is steep.
//
// The margins cover that the routine works on coordinates rounded to single precision (eps = 6e-8),
// rounds in each of the few operations of a distance, and takes its sums of squares from 0, not
// from the mean. With D the extents' sum and M the largest coordinate, each distance is good to 3
// eps D + 5 eps M, far within kExtentSlack and kSizeSlack; a start line's direction to 8 * 2^-53
// (sum of squares / anisotropy) + 2 eps, which kLeastAnisotropy keeps below 1e-6. A bound on the
// sum of the returned line takes the error of a distance twice, for it and the start line, and that
// of the start line's direction once: 6 eps + 1e-6 of D and 12 eps of M.

namespace zor::fitting {
namespace {

inline constexpr float kSteepRatio = 1e6F;         // exclusive
inline constexpr int kStartLines = 20;             // restarts of the routine
inline constexpr std::size_t kStartPoints = 10;    // of each
inline constexpr double kExtentSlack = 1e-5;       // of the extents, a point
inline constexpr double kSizeSlack = 1e-6;         // of the largest coordinate, a point
inline constexpr double kLeastSum = 1e-6;          // a point; below 1.2e-7 the routine stops early
inline constexpr double kLeastAnisotropy = 1e-7;   // of the mean square
inline constexpr double kGreatestSize = 1e15;      // its square is far within single precision
inline constexpr int kBoundLines = 3;              // start lines tried for a bound
inline constexpr double kBoundExtentSlack = 2e-6;  // of the extents, a point
inline constexpr double kBoundSizeSlack = 1e-6;    // of the largest coordinate, a point
inline constexpr double kSteepSine = 9e-7;         // below the least |vx| of a line not steep
inline constexpr double kSineSlack = 1.4e-7;       // two steps of single precision at half pi

/// What the bounds need of all points.
struct Cloud {
  double xmin, xmax, ymin, ymax;
  double paired_x = 0.0;  // sum of |xi - xj| over the pairs: each point in one, at most
  double paired_y = 0.0;
};

Cloud Survey(std::span<const ZorPoint> points) {
  const std::size_t half = points.size() / 2;
  const ZorPoint last = points.back();
  Cloud cloud{last.x, last.x, last.y, last.y};
  for (std::size_t i = 0; i < half; ++i) {
    const ZorPoint a = points[i];
    const ZorPoint b = points[i + half];  // far from a where the points follow the line
    cloud.xmin = std::min(cloud.xmin, std::min(a.x, b.x));
    cloud.xmax = std::max(cloud.xmax, std::max(a.x, b.x));
    cloud.ymin = std::min(cloud.ymin, std::min(a.y, b.y));
    cloud.ymax = std::max(cloud.ymax, std::max(a.y, b.y));
    cloud.paired_x += std::fabs(a.x - b.x);
    cloud.paired_y += std::fabs(a.y - b.y);
  }
  return cloud;
}

/// The points that the routine starts from, in its own order of drawing.
class StartPoints {
 public:
  explicit StartPoints(std::span<const ZorPoint> points) : points_(points) {}

  /// The next start line; nothing when its direction is too sensitive to rounding.
  std::optional<HuberLine> NextLine() {
    Draw();
    return LineOfSquares();
  }

 private:
  /// Draws until there are enough different ones; kept in ascending order.
  void Draw() {
    count_ = 0;
    const std::size_t wanted = std::min(points_.size(), kStartPoints);
    while (count_ < wanted) {
      const auto drawn =
          static_cast<std::size_t>(generator_.uniform(0, static_cast<int>(points_.size())));
      std::size_t at = count_;
      while (at > 0 && indices_[at - 1] > drawn) --at;
      if (at > 0 && indices_[at - 1] == drawn) continue;
      for (std::size_t k = count_; k > at; --k) indices_[k] = indices_[k - 1];
      indices_[at] = drawn;
      ++count_;
    }
  }

  /// As the routine computes it: products in single precision, sums in double, in point order.
  [[nodiscard]] std::optional<HuberLine> LineOfSquares() const {
    double x = 0, y = 0, xx = 0, yy = 0, xy = 0;
    for (std::size_t k = 0; k < count_; ++k) {
      const float px = static_cast<float>(points_[indices_[k]].x);
      const float py = static_cast<float>(points_[indices_[k]].y);
      x += static_cast<double>(px);
      y += static_cast<double>(py);
      xx += static_cast<double>(px * px);
      yy += static_cast<double>(py * py);
      xy += static_cast<double>(px * py);
    }
    const double n = static_cast<double>(count_);
    x /= n;
    y /= n;
    xx /= n;
    yy /= n;
    xy /= n;
    const double across = 2 * (xy - x * y);
    const double along = (xx - x * x) - (yy - y * y);
    if (!(std::fabs(across) + std::fabs(along) > kLeastAnisotropy * (xx + yy))) return std::nullopt;
    const double t = static_cast<double>(static_cast<float>(std::atan2(across, along)) / 2);
    return HuberLine{static_cast<float>(std::cos(t)), static_cast<float>(std::sin(t)),
                     static_cast<float>(x), static_cast<float>(y)};
  }

  std::span<const ZorPoint> points_;
  cv::RNG generator_{static_cast<uint64>(-1)};  // the routine's seed
  std::array<std::size_t, kStartPoints> indices_{};
  std::size_t count_ = 0;
};

/// The sum of `distance` over the points, or any part of it that is not below `bound`. Two running
/// sums, so that additions need not wait for one another.
template <typename Distance>
double SumUpTo(double bound, std::span<const ZorPoint> points, Distance distance) {
  constexpr std::size_t kBlock = 64;
  double sum = 0.0;
  for (std::size_t i = 0; i < points.size() && sum < bound;) {
    const std::size_t end = std::min(i + kBlock, points.size());
    double even = 0.0, odd = 0.0;
    for (; i + 1 < end; i += 2) {
      even += distance(points[i]);
      odd += distance(points[i + 1]);
    }
    if (i < end) even += distance(points[i++]);
    sum += even + odd;
  }
  return sum;
}

/// The sum of the distances from the line, or any part of it that is not below `bound`.
double DistanceSumUpTo(double bound, const HuberLine& line, std::span<const ZorPoint> points) {
  const double nx = static_cast<double>(line.vy);
  const double ny = -static_cast<double>(line.vx);
  const double px = static_cast<double>(line.x0);
  const double py = static_cast<double>(line.y0);
  return SumUpTo(bound, points,
                 [=](const ZorPoint& p) { return std::fabs(nx * (p.x - px) + ny * (p.y - py)); });
}

/// Whether the start line lies below the bound of all steep lines.
bool BeatsSteepLines(const HuberLine& start, std::span<const ZorPoint> points, double bound) {
  return DistanceSumUpTo(bound, start, points) < bound;
}

/// Whether the start line through one column of points lies below the bound of all lines that are
/// not steep.
bool BeatsSlantedLines(const HuberLine& start, std::span<const ZorPoint> points, double bound) {
  const double sine = std::fabs(static_cast<double>(start.vx)) + kSineSlack;
  const double py = static_cast<double>(start.y0);
  const double limit = bound / sine;
  return SumUpTo(limit, points, [=](const ZorPoint& p) { return std::fabs(p.y - py); }) < limit;
}

}  // namespace

HuberLine FitHuberLine(std::span<const ZorPoint> points) {
  cv::Vec4f line;
  cv::fitLine(frame::ViewOfPoints(points), line, cv::DIST_HUBER, 0, 0.001, 0.001);
  return {line[0], line[1], line[2], line[3]};
}

Steepness JudgeSteepness(std::span<const ZorPoint> points) {
  assert(points.size() >= 2);
  const Cloud cloud = Survey(points);
  const double n = static_cast<double>(points.size());
  const double extents = (cloud.xmax - cloud.xmin) + (cloud.ymax - cloud.ymin);
  const double size = std::max(std::max(std::fabs(cloud.xmin), std::fabs(cloud.xmax)),
                               std::max(std::fabs(cloud.ymin), std::fabs(cloud.ymax)));
  const double slack = n * (kExtentSlack * extents + kSizeSlack * size + kLeastSum);
  // A coordinate that is not a number can slip past the extents, but not past the sums.
  const bool is_plain = size < kGreatestSize && std::isfinite(cloud.paired_x + cloud.paired_y) &&
                        std::isfinite(slack);
  if (!is_plain) return Steepness::kDoubtful;
  const bool is_column = static_cast<float>(cloud.xmin) == static_cast<float>(cloud.xmax);
  const double bound = is_column ? kSteepSine * (cloud.paired_y - slack) : cloud.paired_x - slack;
  const int lines = points.size() <= kStartPoints ? 1 : kStartLines;
  StartPoints start(points);
  for (int k = 0; k < lines; ++k) {
    const std::optional<HuberLine> line = start.NextLine();
    if (!line) continue;
    if (is_column && BeatsSlantedLines(*line, points, bound)) return Steepness::kSteep;
    if (!is_column && BeatsSteepLines(*line, points, bound)) return Steepness::kNotSteep;
  }
  return Steepness::kDoubtful;
}

bool IsHuberLineSteep(std::span<const ZorPoint> points) {
  switch (JudgeSteepness(points)) {
    case Steepness::kSteep:
      return true;
    case Steepness::kNotSteep:
      return false;
    case Steepness::kDoubtful:
      break;
  }
  const HuberLine line = FitHuberLine(points);
  return std::fabs(line.vy / line.vx) > kSteepRatio;
}

double DistanceSumBound(std::span<const ZorPoint> points, double extents, double size) {
  double least = std::numeric_limits<double>::infinity();
  if (!(size < kGreatestSize)) return least;
  const int lines = points.size() <= kStartPoints ? 1 : kBoundLines;
  StartPoints start(points);
  for (int k = 0; k < lines; ++k) {
    const std::optional<HuberLine> line = start.NextLine();
    if (line) least = std::min(least, DistanceSumUpTo(least, *line, points));
  }
  const double slack = kBoundExtentSlack * extents + kBoundSizeSlack * size + kLeastSum;
  return least + static_cast<double>(points.size()) * slack;
}

}  // namespace zor::fitting
