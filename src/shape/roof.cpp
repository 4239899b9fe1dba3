#include "shape/roof.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "elementary/point_kernels.h"

namespace zor::shape {

namespace {

// A linear programme in the three unknowns z, u.x, u.y: z as large as possible under
//   z - normal . u <= offset   for each plane,   +-u.x, +-u.y <= half_width,
// solved by the dual simplex method. Three constraints hold as equations; their multipliers, which
// add up to the objective, stay non-negative. The constraint that is violated most replaces one of
// them until none is. Each step lowers z, which is an upper bound from the start.

constexpr int kMostSteps = 64;

// Relative to the height: a violation that is rounding.
constexpr double kRounding = 1e-14;

using Triple = std::array<double, 3>;

struct Constraint {
  Triple factors;  // of z, u.x, u.y
  double limit;
};

Constraint ConstraintOf(const Plane& plane) {
  return {{1.0, -plane.normal.x, -plane.normal.y}, plane.offset};
}

Triple CrossOf(const Triple& a, const Triple& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double DotOf(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// Three constraints with linearly independent factors, and the inverse of that matrix: its
/// columns.
class Basis {
 public:
  explicit Basis(const std::array<Constraint, 3>& constraints) : constraints_(constraints) {
    const Triple& a = constraints_[0].factors;
    const Triple& b = constraints_[1].factors;
    const Triple& c = constraints_[2].factors;
    columns_ = {CrossOf(b, c), CrossOf(c, a), CrossOf(a, b)};
    const double determinant = DotOf(a, columns_[0]);
    for (Triple& column : columns_) {
      for (double& entry : column) entry /= determinant;
    }
  }

  /// The point where all three hold as equations.
  [[nodiscard]] Triple Corner() const {
    Triple corner = {};
    for (std::size_t k = 0; k < 3; ++k) {
      for (std::size_t i = 0; i < 3; ++i) corner[i] += columns_[k][i] * constraints_[k].limit;
    }
    return corner;
  }

  /// This with `entering` in the place of the one whose multiplier reaches 0 first; nothing when
  /// none does, or the rest is rounding.
  [[nodiscard]] std::optional<Basis> With(const Constraint& entering) const {
    std::optional<std::size_t> leaving;
    double least = 0.0;
    for (std::size_t k = 0; k < 3; ++k) {
      const double share = DotOf(columns_[k], entering.factors);
      if (!(share > kRounding)) continue;
      const double ratio = columns_[k][0] / share;  // its multiplier: the objective is z
      if (leaving && !(ratio < least)) continue;
      leaving = k;
      least = ratio;
    }
    if (!leaving) return std::nullopt;
    std::array<Constraint, 3> constraints = constraints_;
    constraints[*leaving] = entering;
    return Basis(constraints);
  }

 private:
  std::array<Constraint, 3> constraints_;
  std::array<Triple, 3> columns_;
};

const Plane& LowestAt(std::span<const Plane> planes, const ZorPoint& u) {
  const Plane* lowest = nullptr;
  double least = 0.0;
  for (const Plane& plane : planes) {
    const double height = plane.offset + elementary::Dot(plane.normal, u);
    if (lowest != nullptr && !(height < least)) continue;
    lowest = &plane;
    least = height;
  }
  return *lowest;
}

/// The lowest plane over the centre and the two sides of the square that it rises to.
Basis StartingBasis(std::span<const Plane> planes, double half_width) {
  const Plane& lowest = LowestAt(planes, {0, 0});
  const double right = lowest.normal.x < 0 ? -1.0 : 1.0;
  const double down = lowest.normal.y < 0 ? -1.0 : 1.0;
  return Basis({ConstraintOf(lowest), Constraint{{0.0, right, 0.0}, half_width},
                Constraint{{0.0, 0.0, down}, half_width}});
}

/// The constraint that the corner violates most, if any by more than rounding.
std::optional<Constraint> MostViolated(std::span<const Plane> planes, double half_width,
                                       const Triple& corner) {
  const ZorPoint place(corner[1], corner[2]);
  const double outside = std::max(std::fabs(place.x), std::fabs(place.y)) - half_width;
  const Plane& lowest = LowestAt(planes, place);
  const double above = corner[0] - (lowest.offset + elementary::Dot(lowest.normal, place));
  if (outside > kRounding * half_width && outside >= above) {
    const bool is_beside = std::fabs(place.x) >= std::fabs(place.y);
    const double x = is_beside ? std::copysign(1.0, place.x) : 0.0;
    const double y = is_beside ? 0.0 : std::copysign(1.0, place.y);
    return Constraint{{0.0, x, y}, half_width};
  }
  if (above > kRounding * std::fabs(corner[0])) return ConstraintOf(lowest);
  return std::nullopt;
}

}  // namespace

Peak HighestUnder(std::span<const Plane> planes, double half_width) {
  Basis basis = StartingBasis(planes, half_width);
  for (int step = 0;; ++step) {
    const Triple corner = basis.Corner();
    const auto violated = MostViolated(planes, half_width, corner);
    const auto next = violated ? basis.With(*violated) : std::nullopt;
    if (!next || step == kMostSteps) {
      return {{std::clamp(corner[1], -half_width, half_width),
               std::clamp(corner[2], -half_width, half_width)},
              corner[0]};
    }
    basis = *next;
  }
}

}  // namespace zor::shape
