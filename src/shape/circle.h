#pragma once

#include "ZorPoint.h"

namespace zor::shape {

struct Circle {
  ZorPoint centre;
  double radius;
};

}  // namespace zor::shape
