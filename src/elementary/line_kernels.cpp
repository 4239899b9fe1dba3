#include "elementary/line_kernels.h"

#include <cmath>

#include "elementary/point_kernels.h"
#include "frame/rounding.h"
#include "frame/tolerances.h"

namespace zor::elementary {

using frame::RoundToFloat;

bool AreParallel(const ZorPoint& d1, const ZorPoint& d2) {
  const double cross =
      RoundToFloat(d1.x) * RoundToFloat(d2.y) - RoundToFloat(d1.y) * RoundToFloat(d2.x);
  return std::fabs(cross) < frame::kParallelCross;
}

std::optional<ZorPoint> IntersectLines(const ZorPoint& p1, const ZorPoint& p2, const ZorPoint& p3,
                                       const ZorPoint& p4) {
  const double a1 = TriangleCross(p1, p3, p2);
  const double a2 = TriangleCross(p1, p2, p4);
  if (a1 + a2 == 0.0) return std::nullopt;
  return ZorPoint((a2 * p3.x + a1 * p4.x) / (a1 + a2), (a2 * p3.y + a1 * p4.y) / (a1 + a2));
}

double PointToLine(const ZorPoint& p, const ZorPoint& a, const ZorPoint& b) {
  const ZorPoint u = a - p;
  const ZorPoint v = b - p;
  return std::fabs(u.x * v.y - v.x * u.y) / Norm(u - v);
}

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
