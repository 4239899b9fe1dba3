#pragma once

#include <cmath>

namespace zor::intersection {

/// A root of a continuous function whose values at `left` and `right` differ in sign (a zero counts
/// as positive), to the last bits of the argument. Regula falsi in its Illinois form (Dowell and
/// Jarratt, A modified regula falsi method, 1971) with a bisection every third step: converges
/// faster than linearly and never leaves the bracket.
template <typename Function>
[[nodiscard]] double FindBracketedRoot(Function&& f, double left, double right) {
  double at_left = f(left);
  double at_right = f(right);
  int last_moved = 0;  // -1 the left end, 1 the right end
  for (int step = 0; step < 200; ++step) {
    const double middle = left + (right - left) / 2;
    if (!(left < middle && middle < right)) return middle;
    const double chord = (left * at_right - right * at_left) / (at_right - at_left);
    const bool use_chord = step % 3 != 2 && left < chord && chord < right;
    const double next = use_chord ? chord : middle;
    const double value = f(next);
    if (value == 0) return next;
    if ((value < 0) == (at_left < 0)) {
      if (last_moved == -1) at_right /= 2;
      left = next;
      at_left = value;
      last_moved = -1;
    } else {
      if (last_moved == 1) at_left /= 2;
      right = next;
      at_right = value;
      last_moved = 1;
    }
  }
  return left + (right - left) / 2;
}

}  // namespace zor::intersection
