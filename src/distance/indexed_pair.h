#pragma once

#include <cstdint>

namespace zor::distance {

/// Item a of one contour and item b of the other, with their distance.
struct IndexedPair {
  double distance = 0.0;
  std::uint32_t a = 0;
  std::uint32_t b = 0;
};

/// In the order in which the plain loops meet the pairs.
[[nodiscard]] inline bool IsEarlier(std::uint32_t a, std::uint32_t b, const IndexedPair& pair) {
  return a < pair.a || (a == pair.a && b < pair.b);
}

struct PairRange {
  IndexedPair low;
  IndexedPair high;
};

/// Which of the two are wanted; the other one is left at 0.
struct Wanted {
  bool low = true;
  bool high = true;
};

}  // namespace zor::distance
