#pragma once

#include <cmath>
#include <cstddef>
#include <span>
#include <type_traits>

#include "ZorPoint.h"

// Sweeps over points work on two points at a time: written once for a type Real that is a double or
// a Pair of them. Every lane computes exactly what a double would; only a sum over points depends
// on the way that it is split, and that in its last bits.

namespace zor::elementary {

/// Two doubles side by side, one step of the vector unit.
struct Pair {
  using Lanes [[gnu::vector_size(2 * sizeof(double))]] = double;
  Lanes v{};

  Pair() = default;
  Pair(double both) : v{both, both} {}  // NOLINT: implicit, so that formulas take plain constants
  Pair(double first, double second) : v{first, second} {}
  explicit Pair(Lanes lanes) : v(lanes) {}

  friend Pair operator+(Pair a, Pair b) { return Pair(a.v + b.v); }
  friend Pair operator-(Pair a, Pair b) { return Pair(a.v - b.v); }
  friend Pair operator*(Pair a, Pair b) { return Pair(a.v * b.v); }
  friend Pair operator/(Pair a, Pair b) { return Pair(a.v / b.v); }
  friend Pair operator-(Pair a) { return Pair(-a.v); }
  Pair& operator+=(Pair b) {
    v += b.v;
    return *this;
  }
};

template <typename Real>
inline constexpr std::size_t kLaneCount = std::is_same_v<Real, Pair> ? 2 : 1;

[[nodiscard]] inline double Magnitude(double a) { return std::fabs(a); }
[[nodiscard]] inline Pair Magnitude(Pair a) { return {std::fabs(a.v[0]), std::fabs(a.v[1])}; }

[[nodiscard]] inline double Root(double a) { return std::sqrt(a); }
[[nodiscard]] inline Pair Root(Pair a) { return {std::sqrt(a.v[0]), std::sqrt(a.v[1])}; }

[[nodiscard]] inline double Total(double a) { return a; }
[[nodiscard]] inline double Total(Pair a) { return a.v[0] + a.v[1]; }

/// `value` where a < b, else 0; a comparison with what is not a number is false.
[[nodiscard]] inline double WhereLess(double a, double b, double value) {
  return a < b ? value : 0.0;
}
[[nodiscard]] inline Pair WhereLess(Pair a, Pair b, Pair value) {
  return Pair(a.v < b.v ? value.v : Pair::Lanes{});
}

/// The numbers from index i on.
template <typename Real>
[[nodiscard]] Real Load(std::span<const double> values, std::size_t i) {
  if constexpr (std::is_same_v<Real, Pair>) {
    return {values[i], values[i + 1]};
  } else {
    return values[i];
  }
}
inline void StoreAt(std::span<double> values, std::size_t i, double value) { values[i] = value; }
inline void StoreAt(std::span<double> values, std::size_t i, Pair value) {
  values[i] = value.v[0];
  values[i + 1] = value.v[1];
}

/// The coordinates of the points from index i on.
template <typename Real>
struct Coordinates {
  Real x;
  Real y;
};
template <typename Real>
[[nodiscard]] Coordinates<Real> LoadPoint(std::span<const ZorPoint> points, std::size_t i) {
  if constexpr (std::is_same_v<Real, Pair>) {
    return {{points[i].x, points[i + 1].x}, {points[i].y, points[i + 1].y}};
  } else {
    return {points[i].x, points[i].y};
  }
}

}  // namespace zor::elementary
