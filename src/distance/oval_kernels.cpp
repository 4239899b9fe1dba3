#include "distance/oval_kernels.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::distance {

namespace {

inline constexpr double kAtOvalCentre = 1e-5;  // pixels, exclusive
inline constexpr double kOnOutline = 1e-5;     // of the ellipse's equation, inclusive
// Deliberate: a fixed number of updates, and the outcome of the last one is not used; distances
// from thin ellipses, where they have not settled by then, rest on it.
inline constexpr int kUpdates = 10;

// Points are measured in blocks, eight side by side: as many registers as the processor needs for
// them. All steps of an update are divisions and roots that wait for one another, so that a second
// group is worked on meanwhile.
using Lanes [[gnu::vector_size(8 * sizeof(double))]] = double;
inline constexpr std::size_t kLanes = 8;
inline constexpr std::size_t kGroups = 2;
inline constexpr std::size_t kBlock = kGroups * kLanes;

// Below, inlining is forced, so that the code is compiled for the instructions that its user may
// use, and lanes go by reference: how they are passed depends on those instructions too.

[[gnu::always_inline]] inline void TakeRoot(double& value) { value = std::sqrt(value); }
[[gnu::always_inline]] inline void TakeRoot(Lanes& values) {
  for (std::size_t i = 0; i < kLanes; ++i) values[i] = std::sqrt(values[i]);
}

/// One update of (tx, ty) for a point (u, v) of the first quadrant; no clamping. The lengths are
/// roots of plain sums of squares: five times as fast as hypot, which differs in the last bit, and
/// pixels are far from where squares overflow.
template <typename Real>
[[gnu::always_inline]] inline void Update(double a, double b, const Real& u, const Real& v,
                                          Real& tx, Real& ty) {
  const Real ex = (a * a - b * b) * (tx * tx * tx) / a;
  const Real ey = (b * b - a * a) * (ty * ty * ty) / b;
  const Real rx = a * tx - ex;
  const Real ry = b * ty - ey;
  const Real qx = u - ex;
  const Real qy = v - ey;
  Real r = ry * ry + rx * rx;
  Real q = qy * qy + qx * qx;
  TakeRoot(r);
  TakeRoot(q);
  tx = (qx * r / q + ex) / a;
  ty = (qy * r / q + ey) / b;
  Real length = tx * tx + ty * ty;
  TakeRoot(length);
  tx = tx / length;
  ty = ty / length;
}

/// (u/a)^2 + (v/b)^2 - 1.
template <typename Real>
[[gnu::always_inline]] inline void Equate(double a, double b, const Real& u, const Real& v,
                                          Real& equation) {
  const Real s = u / a;
  const Real t = v / b;
  equation = s * s + t * t - 1.0;
}

/// kBlock points of the first quadrant and their unsigned distances from the ellipse.
struct Block {
  Lanes u[kGroups];
  Lanes v[kGroups];
  Lanes equation[kGroups];
  Lanes distance[kGroups];
};

[[gnu::always_inline]] inline void MeasureLanes(double a, double b, Block& block) {
  Lanes tx[kGroups];
  Lanes ty[kGroups];
  for (std::size_t g = 0; g < kGroups; ++g) tx[g] = ty[g] = Lanes{} + std::numbers::sqrt2 / 2;
  for (int n = 1; n < kUpdates; ++n) {
    for (std::size_t g = 0; g < kGroups; ++g) Update(a, b, block.u[g], block.v[g], tx[g], ty[g]);
  }
  for (std::size_t g = 0; g < kGroups; ++g) {
    Equate(a, b, block.u[g], block.v[g], block.equation[g]);
    for (std::size_t i = 0; i < kLanes; ++i) {  // either point taken to the other's quadrant
      const double du = block.u[g][i] - std::fabs(a * tx[g][i]);
      const double dv = block.v[g][i] - std::fabs(b * ty[g][i]);
      block.distance[g][i] = du * du + dv * dv;
    }
    TakeRoot(block.distance[g]);
  }
}

void MeasureLanesAnywhere(double a, double b, Block& block) { MeasureLanes(a, b, block); }

#if defined(__x86_64__)
// Half the time; every instruction rounds as its narrower form does.
[[gnu::target("avx2")]] void MeasureLanesWithAvx2(double a, double b, Block& block) {
  MeasureLanes(a, b, block);
}
#endif

using MeasureBlock = void (*)(double a, double b, Block& block);

MeasureBlock FastestMeasureBlock() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return MeasureLanesWithAvx2;
#endif
  return MeasureLanesAnywhere;
}

double SignOf(double equation) { return equation < 0 ? -1 : 1; }

}  // namespace

OvalMeasure::OvalMeasure(const ZorPoint& centre, double a, double b, double angle_deg)
    : centre_(centre), first_(a), second_(b), angle_deg_(angle_deg), a_(a), b_(b) {
  double major_deg = angle_deg;
  if (a < b) {
    std::swap(a_, b_);
    major_deg += 90;
  }
  const double theta = -major_deg / 180 * frame::kPi;
  cos_ = std::cos(theta);
  sin_ = std::sin(theta);
}

ZorPoint OvalMeasure::Local(const ZorPoint& p) const {
  const double dx = p.x - centre_.x;
  const double dy = p.y - centre_.y;
  return {cos_ * dx + sin_ * dy, -sin_ * dx + cos_ * dy};
}

bool OvalMeasure::IsAtCentre(const ZorPoint& p) const {
  const double dx = p.x - centre_.x;
  const double dy = p.y - centre_.y;
  const double square = dx * dx + dy * dy;
  // The root, a dear one among many points, only where it can be that small.
  return square < 2 * kAtOvalCentre * kAtOvalCentre && std::sqrt(square) < kAtOvalCentre;
}

OvalFoot OvalMeasure::FootOfCentre() const {
  const bool is_first = first_ <= second_;
  const double radius = is_first ? first_ : second_;
  const double theta = (is_first ? -angle_deg_ : -angle_deg_ - 90) / 180 * frame::kPi;
  return {-radius, {centre_.x + radius * std::cos(theta), centre_.y + radius * std::sin(theta)}};
}

OvalFoot OvalMeasure::FootOf(const ZorPoint& p) const {
  if (IsAtCentre(p)) return FootOfCentre();
  const ZorPoint local = Local(p);
  const double u = std::fabs(local.x);
  const double v = std::fabs(local.y);
  double equation = 0.0;
  Equate(a_, b_, u, v, equation);
  if (std::fabs(equation) <= kOnOutline) return {0.0, p};
  double tx = std::numbers::sqrt2 / 2;
  double ty = tx;
  for (int n = 1; n < kUpdates; ++n) {
    const double tx_before = tx;
    const double ty_before = ty;
    Update(a_, b_, u, v, tx, ty);
    if (tx == tx_before && ty == ty_before) break;  // nothing would change any more
  }
  const ZorPoint foot(std::copysign(a_ * tx, local.x), std::copysign(b_ * ty, local.y));
  return {SignOf(equation) * elementary::Distance(local, foot),
          {centre_.x + cos_ * foot.x - sin_ * foot.y, centre_.y + sin_ * foot.x + cos_ * foot.y}};
}

void OvalMeasure::DistancesOf(std::span<const ZorPoint> points, std::span<double> distances) const {
  assert(points.size() == distances.size());
  static const MeasureBlock measure_block = FastestMeasureBlock();
  for (std::size_t first = 0; first < points.size(); first += kBlock) {
    const std::size_t count = std::min(kBlock, points.size() - first);
    Block block{};
    for (std::size_t i = 0; i < count; ++i) {
      const ZorPoint local = Local(points[first + i]);
      block.u[i / kLanes][i % kLanes] = std::fabs(local.x);
      block.v[i / kLanes][i % kLanes] = std::fabs(local.y);
    }
    measure_block(a_, b_, block);
    for (std::size_t i = 0; i < count; ++i) {
      const double equation = block.equation[i / kLanes][i % kLanes];
      double& distance = distances[first + i];
      distance = SignOf(equation) * block.distance[i / kLanes][i % kLanes];
      if (std::fabs(equation) <= kOnOutline) distance = 0.0;
      if (IsAtCentre(points[first + i])) distance = FootOfCentre().distance;
    }
  }
}

}  // namespace zor::distance
