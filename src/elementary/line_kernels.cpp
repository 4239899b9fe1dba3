#include "elementary/line_kernels.h"

#include "elementary/point_kernels.h"

namespace zor::elementary {

ZorPoint CarryThirdVertex(const ZorPoint& t0, const ZorPoint& t1, const ZorPoint& t2,
                          const ZorPoint& s0, const ZorPoint& s1) {
  const ZorPoint u = t1 - t0;
  const ZorPoint v = s1 - s0;
  const double c = Dot(u, v) / (Norm(u) * Norm(v));
  const double s = (v.x * u.y - v.y * u.x) / (Norm(u) * Norm(v));
  const ZorPoint w = t2 - t0;
  return {w.y * s + w.x * c + s0.x, w.y * c - w.x * s + s0.y};
}

}  // namespace zor::elementary
