#pragma once

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "ZorPoint.h"
#include "fitting/curve_solver.h"

namespace zor::fitting {

/// Passes of a curve's refinement from c, re-weighted in between as the linear fits are
/// (robust_fit.h): w = 1 - (e / clip)^2 for a point whose y is e < clip off the curve, else 0. Ends
/// early when fewer points than parameters have a weight, or a pass moves nothing.
/// refine(weights, c) gives the refined parameters, value_at(c, x) the curve.
template <typename Refine, typename ValueAt>
[[nodiscard]] CurveParameters RefineInPasses(std::span<const ZorPoint> points, CurveParameters c,
                                             int passes, double clip, const Refine& refine,
                                             const ValueAt& value_at) {
  std::vector<double> weights;  // none: all 1
  for (int pass = 1;; ++pass) {
    const CurveParameters before = c;
    c = refine(std::span<const double>(weights), before);
    if (pass >= passes || (pass > 1 && c == before)) return c;
    weights.resize(points.size());
    std::size_t weighted = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double error = std::fabs(points[i].y - value_at(c, points[i].x));
      const double ratio = error / clip;
      weights[i] = error < clip ? 1.0 - ratio * ratio : 0.0;
      if (weights[i] != 0.0) ++weighted;
    }
    if (weighted < c.size()) return c;
  }
}

}  // namespace zor::fitting
