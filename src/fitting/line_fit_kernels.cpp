#include "fitting/line_fit_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "fitting/huber_line.h"
#include "fitting/robust_fit.h"

namespace zor::fitting {

namespace {

inline constexpr double kNudge = 0.1;       // pixels between two ends that would coincide
inline constexpr double kLeastClip = 0.5;   // pixels, of the self-chosen clipping distance
inline constexpr double kMiddleRank = 0.5;  // share of the residuals below the middle one
inline constexpr double kClipRank = 0.8;    // and below the one that clips

/// v = c0 + c1 u, with u the coordinate along the axis.
template <Axis kAxis>
class LineModel {
 public:
  using Lane = Pair;
  using Vector = std::array<double, 2>;
  template <typename Real>
  using Row = std::array<Real, 2>;
  template <typename Real>
  using Sums = NormalSums<2, Real>;
  static constexpr int kInnerPasses = 50;
  // Deliberate: the line's least-absolute pass already ends on an equal sum, unlike the others'.
  static constexpr bool kRestoreOnEqual = true;
  static constexpr Decomposition kSolve = Decomposition::kLu;
  static constexpr Decomposition kInverse = Decomposition::kLu;
  static constexpr bool kStopOnFailedSolve = false;
  static constexpr bool kErrorsAreObserved = false;

  explicit LineModel(std::span<const ZorPoint> points) : points_(points) {}

  [[nodiscard]] Vector MakeVector() const { return {}; }
  template <typename Real>
  [[nodiscard]] Row<Real> MakeRow() const {
    return {};
  }
  [[nodiscard]] std::size_t PointCount() const { return points_.size(); }
  [[nodiscard]] std::size_t MinimumWeights() const { return 2; }

  template <typename Real>
  void FillRow(std::size_t i, Row<Real>& row) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
    row = {Real(1.0), kAxis == Axis::kX ? p.x : p.y};
  }
  template <typename Real>
  [[nodiscard]] Real Target(std::size_t i) const {
    const Coordinates<Real> p = LoadPoint<Real>(points_, i);
    return kAxis == Axis::kX ? p.y : p.x;
  }
  void Settle(const Vector& c) { c_ = c; }
  template <typename Real>
  [[nodiscard]] Real Error(std::size_t i) const {
    Row<Real> row;
    return Magnitude(Residual<Real>(*this, i, c_, row));
  }

  /// The line's points at the first and the last u.
  [[nodiscard]] ZorLine Ends() const {
    const double u0 = U(points_.front());
    double u1 = U(points_.back());
    // Deliberate: two ends at the same u are drawn apart, so that hosts get a line.
    if (u1 == u0) u1 = u0 + kNudge;
    return {PointAt(u0), PointAt(u1)};
  }

 private:
  static double U(const ZorPoint& p) { return kAxis == Axis::kX ? p.x : p.y; }
  static double V(const ZorPoint& p) { return kAxis == Axis::kX ? p.y : p.x; }
  [[nodiscard]] ZorPoint PointAt(double u) const {
    const double v = c_[0] + c_[1] * u;
    return kAxis == Axis::kX ? ZorPoint(u, v) : ZorPoint(v, u);
  }

  std::span<const ZorPoint> points_;
  Vector c_{};
};

/// The clipping distance that the residuals themselves suggest.
class SelfChosenClip {
 public:
  explicit SelfChosenClip(std::size_t count) : residuals_(count) {}

  template <typename Model>
  double operator()(const Model& model) {
    for (std::size_t i = 0; i < residuals_.size(); ++i)
      residuals_[i] = model.template Error<double>(i);
    return Ranked(kMiddleRank) > kLeastClip ? Ranked(kClipRank) : kLeastClip;
  }

 private:
  double Ranked(double share) {
    const double count = static_cast<double>(residuals_.size());
    const auto ranked = residuals_.begin() + static_cast<std::ptrdiff_t>(count * share);
    // Residuals that are not numbers come last, or the order would be none.
    std::nth_element(residuals_.begin(), ranked, residuals_.end(),
                     [](double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); });
    return *ranked;
  }

  std::vector<double> residuals_;
};

template <Axis kAxis>
ZorLine Squares(std::span<const ZorPoint> points, int passes, double clip) {
  LineModel<kAxis> model(points);
  auto c = model.MakeVector();
  static_cast<void>(FitLeastSquares(model, passes, FixedClip(clip), c));
  return model.Ends();
}

template <Axis kAxis, typename Clip>
ZorLine Absolute(std::span<const ZorPoint> points, int passes, Clip clip) {
  LineModel<kAxis> model(points);
  auto c = model.MakeVector();
  FitLeastAbsolute(model, passes, clip, c);
  return model.Ends();
}

}  // namespace

ZorLine FitExtentLine(std::span<const ZorPoint> points) {
  if (points.size() == 2) return {points[0], points[1]};
  double xmin = points[0].x, xmax = points[0].x, ymin = points[0].y, ymax = points[0].y;
  for (const ZorPoint& p : points) {
    if (p.x < xmin) xmin = p.x;
    if (p.x > xmax) xmax = p.x;
    if (p.y < ymin) ymin = p.y;
    if (p.y > ymax) ymax = p.y;
  }
  const HuberLine line = FitHuberLine(points);
  const bool is_flat = std::fabs(line.vx) >= std::fabs(line.vy);
  const double vx = static_cast<double>(line.vx);
  const double vy = static_cast<double>(line.vy);
  const double x0 = static_cast<double>(line.x0);
  const double y0 = static_cast<double>(line.y0);
  if (is_flat) {
    return {{xmin, (xmin - x0) * vy / vx + y0}, {xmax, (xmax - x0) * vy / vx + y0}};
  }
  return {{(ymin - y0) * vx / vy + x0, ymin}, {(ymax - y0) * vx / vy + x0, ymax}};
}

Axis ChooseAxis(std::span<const ZorPoint> points) {
  return IsHuberLineSteep(points) ? Axis::kY : Axis::kX;
}

ZorLine FitLineSquares(std::span<const ZorPoint> points, Axis axis, int passes, double clip) {
  return axis == Axis::kX ? Squares<Axis::kX>(points, passes, clip)
                          : Squares<Axis::kY>(points, passes, clip);
}

ZorLine FitLineAbsolute(std::span<const ZorPoint> points, Axis axis, int passes, double clip) {
  return axis == Axis::kX ? Absolute<Axis::kX>(points, passes, FixedClip(clip))
                          : Absolute<Axis::kY>(points, passes, FixedClip(clip));
}

ZorLine FitLineAbsoluteSelfClipped(std::span<const ZorPoint> points, int passes) {
  return Absolute<Axis::kX>(points, passes, SelfChosenClip(points.size()));
}

}  // namespace zor::fitting
