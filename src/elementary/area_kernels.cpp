#include "elementary/area_kernels.h"

#include <cstddef>

#include "elementary/point_kernels.h"

namespace zor::elementary {

double SignedArea(std::span<const ZorPoint> polygon) {
  if (polygon.empty()) return 0.0;
  // One running sum in the order of the edges; several would be no faster by much, and would move
  // the last bits.
  double sum = Cross(polygon.back(), polygon.front());
  for (std::size_t i = 0; i + 1 < polygon.size(); ++i) sum += Cross(polygon[i], polygon[i + 1]);
  return 0.5 * sum;
}

double LocalSignedArea(std::span<const ZorPoint> polygon) {
  double sum = 0.0;
  for (std::size_t i = 2; i < polygon.size(); ++i) {
    sum += Cross(polygon[i - 1] - polygon[0], polygon[i] - polygon[0]);
  }
  return 0.5 * sum;
}

}  // namespace zor::elementary
