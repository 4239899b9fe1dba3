#pragma once

#include "ZorPoint.h"

namespace zor::distance {

/// A point of what is measured and the figure's point nearest to it, with their distance.
struct PointPair {
  double distance = 0.0;
  ZorPoint own;
  ZorPoint figure;
};

}  // namespace zor::distance
