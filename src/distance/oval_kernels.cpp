#include "distance/oval_kernels.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "elementary/lanes.h"
#include "elementary/point_kernels.h"
#include "frame/tolerances.h"

namespace zor::distance {

using elementary::Pair;
using elementary::Root;

namespace {

inline constexpr double kAtCentre = 1e-5;   // pixels, exclusive
inline constexpr double kOnOutline = 1e-5;  // of the ellipse's equation, inclusive
// Deliberate: a fixed number of updates, and the outcome of the last one is not used; distances
// from thin ellipses, where they have not settled by then, rest on it.
inline constexpr int kUpdates = 10;
inline constexpr std::size_t kBlock = 8;  // points measured together

/// The updates for points (u, v) of the first quadrant.
template <typename Real>
class Updates {
 public:
  Updates(double a, double b) : a_(a), b_(b), excess_(a * a - b * b) {}

  void Measure(Real u, Real v) {
    u_ = u;
    v_ = v;
  }

  /// One update; no clamping.
  void Next() {
    const Real ex = excess_ * (tx_ * tx_ * tx_) / a_;
    const Real ey = -excess_ * (ty_ * ty_ * ty_) / b_;
    const Real rx = a_ * tx_ - ex;
    const Real ry = b_ * ty_ - ey;
    const Real qx = u_ - ex;
    const Real qy = v_ - ey;
    const Real r = Root(ry * ry + rx * rx);
    const Real q = Root(qy * qy + qx * qx);
    const Real x = (qx * r / q + ex) / a_;
    const Real y = (qy * r / q + ey) / b_;
    const Real length = Root(x * x + y * y);
    tx_ = x / length;
    ty_ = y / length;
  }

  [[nodiscard]] Real X() const { return a_ * tx_; }
  [[nodiscard]] Real Y() const { return b_ * ty_; }
  friend bool operator==(const Updates& s, const Updates& t) {
    return s.tx_ == t.tx_ && s.ty_ == t.ty_;
  }

 private:
  Real a_, b_, excess_;
  Real u_ = Real(0.0), v_ = Real(0.0);
  Real tx_ = Real(std::numbers::sqrt2 / 2), ty_ = tx_;
};

/// The foot in the quadrant of the point itself.
ZorPoint InQuadrantOf(const ZorPoint& local, double x, double y) {
  return {std::copysign(x, local.x), std::copysign(y, local.y)};
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

double OvalMeasure::Equation(const ZorPoint& local) const {
  const double s = local.x / a_;
  const double t = local.y / b_;
  return s * s + t * t - 1;
}

bool OvalMeasure::IsAtCentre(const ZorPoint& p) const {
  return elementary::Distance(p, centre_) < kAtCentre;
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
  const double equation = Equation(local);
  if (std::fabs(equation) <= kOnOutline) return {0.0, p};
  Updates<double> updates(a_, b_);
  updates.Measure(std::fabs(local.x), std::fabs(local.y));
  for (int k = 1; k < kUpdates; ++k) {
    const Updates<double> before = updates;
    updates.Next();
    if (updates == before) break;  // nothing would change any more
  }
  const ZorPoint foot = InQuadrantOf(local, updates.X(), updates.Y());
  return {SignOf(equation) * elementary::Distance(local, foot),
          {centre_.x + cos_ * foot.x - sin_ * foot.y, centre_.y + sin_ * foot.x + cos_ * foot.y}};
}

void OvalMeasure::DistancesOf(std::span<const ZorPoint> points, std::span<double> distances) const {
  assert(points.size() == distances.size());
  constexpr std::size_t kPairs = kBlock / 2;
  std::size_t i = 0;
  for (; i + kBlock <= points.size(); i += kBlock) {
    std::array<ZorPoint, kBlock> local;
    for (std::size_t k = 0; k < kBlock; ++k) local[k] = Local(points[i + k]);
    std::array<Updates<Pair>, kPairs> updates{Updates<Pair>(a_, b_), Updates<Pair>(a_, b_),
                                              Updates<Pair>(a_, b_), Updates<Pair>(a_, b_)};
    for (std::size_t k = 0; k < kPairs; ++k) {
      const ZorPoint& s = local[2 * k];
      const ZorPoint& t = local[2 * k + 1];
      updates[k].Measure({std::fabs(s.x), std::fabs(t.x)}, {std::fabs(s.y), std::fabs(t.y)});
    }
    for (int n = 1; n < kUpdates; ++n) {
      for (Updates<Pair>& pair : updates) pair.Next();
    }
    for (std::size_t k = 0; k < kBlock; ++k) {
      const double equation = Equation(local[k]);
      const Updates<Pair>& pair = updates[k / 2];
      const ZorPoint foot = InQuadrantOf(local[k], pair.X().v[k % 2], pair.Y().v[k % 2]);
      distances[i + k] = std::fabs(equation) <= kOnOutline
                             ? 0.0
                             : SignOf(equation) * elementary::Distance(local[k], foot);
      if (IsAtCentre(points[i + k])) distances[i + k] = FootOfCentre().distance;
    }
  }
  for (; i < points.size(); ++i) distances[i] = FootOf(points[i]).distance;
}

}  // namespace zor::distance
