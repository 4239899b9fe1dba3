#pragma once

#include <vector>

namespace zor::intersection {

/// f(t) = c0 + c1 cos t + s1 sin t + c2 cos 2t + s2 sin 2t.
struct TrigPolynomial {
  double c0 = 0.0;
  double c1 = 0.0;
  double s1 = 0.0;
  double c2 = 0.0;
  double s2 = 0.0;

  [[nodiscard]] double At(double t) const;
  [[nodiscard]] TrigPolynomial Derivative() const;
  [[nodiscard]] bool IsFinite() const;
};

/// Where f changes its sign in [0, 2 pi), ascending, to about 1e-9 at simple roots; pairs closer
/// than that may be passed over. None when a coefficient is not finite.
///
/// Bisection of the circle: with h the half-width of an interval, m its middle and B a bound of
/// |f''|, it holds no root when |f(m)| > |f'(m)| h + B h^2 / 2, and at most one, told by the signs
/// at its ends, when |f'(m)| > B h (the mean value theorem). Every other interval is halved.
[[nodiscard]] std::vector<double> FindSignChanges(const TrigPolynomial& f);

}  // namespace zor::intersection
