#include "intersection/trig_polynomial.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "intersection/bracketed_root.h"

namespace zor::intersection {
namespace {

inline constexpr double kSmallestHalfWidth = 1e-9;  // radians
inline constexpr int kFirstPieces = 8;

class SignChangeSearch {
 public:
  explicit SignChangeSearch(const TrigPolynomial& f)
      : f_(f), slope_(f.Derivative()), bend_(std::hypot(f.c1, f.s1) + 4 * std::hypot(f.c2, f.s2)) {}

  std::vector<double> Run() {
    const double width = 2 * std::numbers::pi / kFirstPieces;
    const double at_start = f_.At(0.0);
    double at_left = at_start;
    for (int i = 0; i < kFirstPieces; ++i) {
      // The circle closes: its end has the very value of its start.
      const double at_right = i + 1 < kFirstPieces ? f_.At((i + 1) * width) : at_start;
      Search(i * width, (i + 1) * width, at_left, at_right);
      at_left = at_right;
    }
    return std::move(found_);
  }

 private:
  // A zero counts as positive. The values at common ends are shared, so that a root there is found
  // exactly once and rounding cannot let the bounds pass over a sign change.
  void Search(double left, double right, double at_left, double at_right) {
    const double middle = left + (right - left) / 2;
    const double h = (right - left) / 2;
    const double value = f_.At(middle);
    const double slope = std::fabs(slope_.At(middle));
    const bool is_change = (at_left < 0) != (at_right < 0);
    if (!is_change && std::fabs(value) > slope * h + bend_ * h * h / 2) return;
    if (slope > bend_ * h || h < kSmallestHalfWidth) {
      if (is_change) found_.push_back(RootBetween(left, right, at_left < 0));
      return;
    }
    Search(left, middle, at_left, value);
    Search(middle, right, value, at_right);
  }

  double RootBetween(double left, double right, bool is_rising) const {
    // Written so that the ends have the signs that were found, whatever rounding makes of them.
    return FindBracketedRoot(
        [&](double t) {
          if (t <= left) return is_rising ? -1.0 : 1.0;
          if (t >= right) return is_rising ? 1.0 : -1.0;
          return f_.At(t);
        },
        left, right);
  }

  TrigPolynomial f_;
  TrigPolynomial slope_;
  double bend_;
  std::vector<double> found_;
};

}  // namespace

double TrigPolynomial::At(double t) const {
  const double c = std::cos(t);
  const double s = std::sin(t);
  return c0 + c1 * c + s1 * s + c2 * (c * c - s * s) + s2 * (2 * s * c);
}

TrigPolynomial TrigPolynomial::Derivative() const { return {0.0, s1, -c1, 2 * s2, -2 * c2}; }

bool TrigPolynomial::IsFinite() const { return std::isfinite(c0 + c1 + s1 + c2 + s2); }

std::vector<double> FindSignChanges(const TrigPolynomial& f) {
  if (!f.IsFinite()) return {};
  if (f.c1 == 0 && f.s1 == 0 && f.c2 == 0 && f.s2 == 0) return {};
  // By a power of two, which changes no digit: the bounds of the search must not overflow.
  double largest = 0.0;
  for (const double c : {f.c0, f.c1, f.s1, f.c2, f.s2}) largest = std::max(largest, std::fabs(c));
  const auto scaled = [power = -std::ilogb(largest)](double c) { return std::scalbn(c, power); };
  return SignChangeSearch({scaled(f.c0), scaled(f.c1), scaled(f.s1), scaled(f.c2), scaled(f.s2)})
      .Run();
}

}  // namespace zor::intersection
