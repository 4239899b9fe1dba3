#pragma once

#include "ZorPoint.h"
#include "ZorStatus.h"
#include "frame/checks.h"

namespace zor::distance {

/// An oval as the operations on lists, contours and segments take it.
struct OvalArguments {
  ZorPoint centre;
  double a = 0.0;
  double b = 0.0;
  double angle_deg = 0.0;

  /// Deliberate: for segments too the codes number the arguments as in the operations on points,
  /// where the oval is one argument further to the front; hosts tell them by these codes.
  [[nodiscard]] long Check() const {
    if (!frame::IsPositive(a)) return frame::InvalidArgument(3);
    if (!frame::IsPositive(b)) return frame::InvalidArgument(4);
    if (!frame::IsDegreeAngle(angle_deg)) return frame::InvalidArgument(5);
    return GM_OK;
  }
};

}  // namespace zor::distance
