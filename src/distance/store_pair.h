#pragma once

#include "ZorPoint.h"
#include "distance/point_pair.h"
#include "frame/store.h"

namespace zor::distance {

/// Writes what the host wants of a pair.
inline void StorePair(const PointPair& pair, double* distance, ZorPoint* own, ZorPoint* figure) {
  frame::Store(distance, pair.distance);
  frame::Store(own, pair.own);
  frame::Store(figure, pair.figure);
}

}  // namespace zor::distance
