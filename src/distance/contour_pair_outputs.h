#pragma once

#include "ZorPoint.h"
#include "distance/indexed_pair.h"
#include "frame/store.h"

namespace zor::distance {

/// A point of (or on) contour A and one of contour B, with their distance.
struct ContourPair {
  double distance = 0.0;
  ZorPoint a;
  ZorPoint b;
};

/// The outputs of the contour to contour distances.
struct ContourPairOutputs {
  ZorPoint* min_a;
  ZorPoint* min_b;
  double* min_distance;
  ZorPoint* max_a;
  ZorPoint* max_b;
  double* max_distance;

  [[nodiscard]] Wanted Wants() const {
    return {min_a != nullptr || min_b != nullptr || min_distance != nullptr,
            max_a != nullptr || max_b != nullptr || max_distance != nullptr};
  }
  void Write(const ContourPair& low, const ContourPair& high) const {
    frame::Store(min_a, low.a);
    frame::Store(min_b, low.b);
    frame::Store(min_distance, low.distance);
    frame::Store(max_a, high.a);
    frame::Store(max_b, high.b);
    frame::Store(max_distance, high.distance);
  }
};

}  // namespace zor::distance
