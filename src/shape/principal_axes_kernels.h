#pragma once

#include <array>
#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// Eigenvalues of the covariance of a point set in increasing order, with a unit eigenvector each,
/// in single precision. Every component holds a float.
struct PrincipalAxes {
  std::array<float, 2> values;
  std::array<ZorPoint, 2> axes;
};

/// At least one point. Input that is not finite gives whatever the solver is left with.
[[nodiscard]] PrincipalAxes AnalysePrincipalAxes(std::span<const ZorPoint> points);

}  // namespace zor::shape
