#include "elementary/arc_kernels.h"

#include <cmath>
#include <cstddef>

#include "frame/tolerances.h"

namespace zor::elementary {

using frame::kPi;

namespace {

// Deliberate: divided in single precision and widened after; the sample positions rest on it.
double StepOf(const Arc& arc, int count) {
  const bool is_full_turn = arc.extent == 360.0F;
  const float steps = static_cast<float>(is_full_turn ? count : count - 1);
  return static_cast<double>(arc.extent / steps);
}

}  // namespace

std::vector<ZorPoint> SamplePoints(const Arc& arc, int count) {
  const double step = StepOf(arc, count);
  const double start = static_cast<double>(arc.start);
  const double phi = static_cast<double>(arc.phi);
  const double a = static_cast<double>(arc.a);
  const double b = static_cast<double>(arc.b);
  const ZorPoint centre = arc.centre;
  std::vector<ZorPoint> samples;
  samples.reserve(static_cast<std::size_t>(count));
  if (arc.a == arc.b) {
    for (int i = 0; i < count; ++i) {
      const double t = (i * step + start) / -180 * kPi;
      samples.emplace_back(b * std::cos(t) + centre.x, b * std::sin(t) + centre.y);
    }
    return samples;
  }
  for (int i = 0; i < count; ++i) {
    const double s = i * step;
    const double u = (start + s - phi) / 180 * kPi;
    const double across = std::sin(u) / b;
    const double along = std::cos(u) / a;
    const double r = std::sqrt(1 / (across * across + along * along));
    const double w = ((360 - start) - s) / 180 * kPi;
    samples.emplace_back(std::cos(w) * r + centre.x, std::sin(w) * r + centre.y);
  }
  return samples;
}

}  // namespace zor::elementary
