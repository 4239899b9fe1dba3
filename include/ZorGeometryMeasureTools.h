#pragma once

#include "ZorStatus.h"
#include "zorgeometrymeasure_export.h"
#include <ZorData.h>

/// Vector, polygon and contour tools beside the measuring operations. No state. Not traced.
class ZORGEOMETRYMEASURE_EXPORT ZorGeometryMeasureTools {
 public:
  ZorGeometryMeasureTools() noexcept = default;

  /// Direction of a vector in degrees in [0, 360), by atan2 in the frame of the coordinates: from
  /// +x towards +y, which is clockwise on the screen. The zero vector gives 0.
  double CalcVectorAngle(ZorPoint& v);

  /// Mean of the points; of an empty list, not a number.
  ZorPoint PointArrayCenter(ZorPointArray& points);
};
