#include "fitting/circle_centre_kernels.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include <opencv2/core.hpp>

#include "elementary/point_kernels.h"

namespace zor::fitting {

using elementary::Distance;

namespace {

inline constexpr double kParallelBisectors = 1e-5;  // |cross product of the unit directions|
inline constexpr double kFlatBisector = 1e-6;       // |b| below which y does not determine x
inline constexpr double kSmallCentre = 1e-6;        // pixels, signed
inline constexpr double kSameCoordinate = 1e-6;     // pixels, exclusive
inline constexpr double kUpright = 1e-6;            // degrees, exclusive
inline constexpr double kReach = 100.0;             // pixels along a bisector
inline constexpr double kAngleReach = 10.0;         // pixels along a line at an angle
inline constexpr double kTinyCentre = 1e-5;         // pixels, exclusive
inline constexpr double kSnap = 10000.0;            // steps a pixel
// Deliberate: two values of pi beside the library's own; centres of hosts rest on their digits.
inline constexpr double kSevenDigitPi = 3.1415926;
inline constexpr double kFiveDigitPi = 3.14159;

/// The line a x + b y + c = 0, (a, b) of unit length.
struct Bisector {
  double a, b, c;
};

Bisector BisectorOf(const ZorPoint& p, const ZorPoint& q) {
  const double length = Distance(p, q);
  const double a = (p.x - q.x) / length;
  const double b = (p.y - q.y) / length;
  return {a, b, -0.5 * ((q.x + p.x) * a + (q.y + p.y) * b)};
}

bool AreParallel(const Bisector& j, const Bisector& k) {
  return std::fabs(k.a * j.b - k.b * j.a) < kParallelBisectors;
}

ZorPoint Crossing(const Bisector& j, const Bisector& k) {
  const double x = std::fabs(k.b) >= kFlatBisector
                       ? (k.c * j.b / k.b - j.c) / (j.a - k.a * j.b / k.b)
                       : -k.c / k.a;
  const Bisector& steep = std::fabs(j.b) < kFlatBisector ? k : j;
  return {x, -(steep.a * x + steep.c) / steep.b};
}

double MeanDistance(std::span<const ZorPoint> points, const ZorPoint& centre) {
  double sum = 0.0;
  for (const ZorPoint& p : points) sum += Distance(p, centre);
  return sum / static_cast<double>(points.size());
}

/// How far the points are from the circle, in all.
double Misfit(std::span<const ZorPoint> points, const Circle& circle) {
  double sum = 0.0;
  for (const ZorPoint& p : points) sum += std::fabs(Distance(p, circle.centre) - circle.radius);
  return sum;
}

/// The centre of the rotation by delta_deg that carries p0 to p1, in single precision.
ZorPoint CentreOfRotation(const ZorPoint& p0, const ZorPoint& p1, double delta_deg) {
  const double delta = delta_deg * kSevenDigitPi / 180;
  const double co = std::cos(delta);
  const double si = std::sin(delta);
  std::array<float, 4> matrix{static_cast<float>(1 - co), static_cast<float>(si),
                              static_cast<float>(-si), static_cast<float>(1 - co)};
  std::array<float, 2> right{static_cast<float>(p1.x - co * p0.x + si * p0.y),
                             static_cast<float>(p1.y - si * p0.x - co * p0.y)};
  std::array<float, 2> centre{};
  cv::Mat out(2, 1, CV_32F, centre.data());
  cv::solve(cv::Mat(2, 2, CV_32F, matrix.data()), cv::Mat(2, 1, CV_32F, right.data()), out,
            cv::DECOMP_SVD);
  return {static_cast<double>(centre[0]), static_cast<double>(centre[1])};
}

/// The circle of one sense of rotation about the centre that the first two of three points give.
class Sense {
 public:
  Sense(const ZorPoint& p0, const ZorPoint& p1, double delta_deg)
      : centre_(CentreOfRotation(p0, p1, delta_deg)),
        first_(Distance(p0, centre_)),
        second_(Distance(p1, centre_)) {}

  void Complete(const ZorPoint& p2) {
    const double third = Distance(p2, centre_);
    radius_ = static_cast<float>((first_ + second_ + third) / 3);
    const double radius = static_cast<double>(radius_);
    misfit_ = std::fabs(first_ - radius) + std::fabs(second_ - radius) + std::fabs(third - radius);
  }

  [[nodiscard]] const ZorPoint& Centre() const { return centre_; }
  [[nodiscard]] float Radius() const { return radius_; }
  /// The better of two, `a` when they are equal or not comparable.
  [[nodiscard]] static const Sense& Better(const Sense& a, const Sense& b) {
    return b.misfit_ < a.misfit_ ? b : a;
  }

 private:
  ZorPoint centre_;
  double first_;
  double second_;
  float radius_ = 0.0F;
  double misfit_ = 0.0;
};

/// The mean of many circles; Radius is the type that their radii are added in.
template <typename Radius>
class MeanCircle {
 public:
  void Add(const Sense& sense) {
    centre_ = centre_ + sense.Centre();
    radius_ += static_cast<Radius>(sense.Radius());
  }
  [[nodiscard]] Circle Over(std::size_t count) const {
    const double n = static_cast<double>(count);
    return {{centre_.x / n, centre_.y / n},
            static_cast<double>(radius_ / static_cast<Radius>(count))};
  }

 private:
  ZorPoint centre_;
  Radius radius_{};
};

double Snapped(double coordinate) {
  const double value = std::fabs(coordinate) < kTinyCentre ? 0.0 : coordinate;
  return std::round(value * kSnap) / kSnap;
}

}  // namespace

std::optional<Circle> CircleByBisectors(std::span<const ZorPoint> points) {
  std::vector<Bisector> bisectors;
  bisectors.reserve(points.size());
  for (std::size_t i = 1; i < points.size(); ++i) {
    bisectors.push_back(BisectorOf(points[i - 1], points[i]));
  }
  ZorPoint mean;
  double count = 0;
  for (std::size_t j = 0; j < bisectors.size(); ++j) {
    for (std::size_t k = j + 1; k < bisectors.size(); ++k) {
      if (AreParallel(bisectors[j], bisectors[k])) continue;
      const ZorPoint crossing = Crossing(bisectors[j], bisectors[k]);
      ++count;
      mean.x += (crossing.x - mean.x) / count;
      mean.y += (crossing.y - mean.y) / count;
    }
  }
  if (count == 0 || std::isnan(mean.x) || std::isnan(mean.y)) return std::nullopt;
  // Deliberate: the tests are signed, so negative coordinates become 0 too, and move the radius.
  if (mean.x < kSmallCentre) mean.x = 0;
  if (mean.y < kSmallCentre) mean.y = 0;
  const double radius = MeanDistance(points, mean);
  if (std::isnan(radius)) return std::nullopt;
  return Circle{mean, radius};
}

Circle CircleByRotations(std::span<const ZorPoint> points, std::span<const double> angles_deg) {
  const std::size_t n = points.size();
  MeanCircle<double> as_given;
  // Deliberate: the mean for the negated angles adds its radii in single precision.
  MeanCircle<float> negated;
  std::size_t count = 0;
  for (std::size_t i = 0; i + 2 < n; ++i) {
    for (std::size_t j = i + 1; j + 1 < n; ++j) {
      const double delta = angles_deg[j] - angles_deg[i];
      Sense forwards(points[i], points[j], delta);
      Sense backwards(points[i], points[j], -delta);
      for (std::size_t k = j + 1; k < n; ++k) {
        forwards.Complete(points[k]);
        backwards.Complete(points[k]);
        // Both means try both senses; they differ in the one that is tried first and wins a tie.
        as_given.Add(Sense::Better(forwards, backwards));
        negated.Add(Sense::Better(backwards, forwards));
        ++count;
      }
    }
  }
  const Circle given = as_given.Over(count);
  const Circle other = negated.Over(count);
  return Misfit(points, other) < Misfit(points, given) ? other : given;
}

ZorPoint AlongAngle(const ZorPoint& p, double angle_deg) {
  for (const double upright : {90.0, -90.0, 270.0, -270.0}) {
    if (std::fabs(angle_deg - upright) < kUpright) return {p.x, p.y + kAngleReach};
  }
  return {p.x + kAngleReach, p.y + kAngleReach * std::tan(angle_deg * kFiveDigitPi / 180)};
}

ZorPoint AlongBisector(const ZorPoint& a, const ZorPoint& b, const ZorPoint& m) {
  if (std::fabs(a.y - b.y) < kSameCoordinate) return {m.x, m.y + kReach};
  if (std::fabs(a.x - b.x) < kSameCoordinate) return {m.x + kReach, m.y};
  const double slope = -1 / ((a.y - b.y) / (a.x - b.x));
  return {m.x + kReach, (m.x + kReach) * slope + (m.y - slope * m.x)};
}

bool AreOnePoint(const ZorPoint& a, const ZorPoint& b) {
  return std::fabs(a.x - b.x) < kSameCoordinate && std::fabs(a.y - b.y) < kSameCoordinate;
}

Circle CircleOnBisector(const ZorPoint& p0, const ZorPoint& hit0, const ZorPoint& p1,
                        const ZorPoint& hit1) {
  const ZorPoint sum = hit1 + hit0;
  return {{Snapped(sum.x / 2), Snapped(sum.y / 2)}, (Distance(hit1, p1) + Distance(hit0, p0)) / 2};
}

}  // namespace zor::fitting
