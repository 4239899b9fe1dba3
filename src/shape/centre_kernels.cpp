#include "shape/centre_kernels.h"

#include <cassert>
#include <cstddef>

#include "elementary/point_kernels.h"

using zor::elementary::Cross;

namespace zor::shape {

namespace {

ZorPoint TriangleCentre(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
  return {(a.x + b.x + c.x) / 3, (a.y + b.y + c.y) / 3};
}

struct WeightedSum {
  double x = 0.0;
  double y = 0.0;
  double weight = 0.0;

  void AddTriple(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
    const ZorPoint centre = TriangleCentre(a, b, c);
    const double w = Cross(a, b) + Cross(b, c) + Cross(c, a);
    x += centre.x * w;
    y += centre.y * w;
    weight += w;
  }
};

}  // namespace

ZorPoint MeanPoint(std::span<const ZorPoint> points) {
  const double n = static_cast<double>(points.size());
  double x = 0.0;
  double y = 0.0;
  for (const ZorPoint& p : points) {
    x += p.x;
    y += p.y;
  }
  return {x / n, y / n};
}

std::optional<ZorPoint> TripleWeightedCentre(std::span<const ZorPoint> polygon) {
  const std::size_t n = polygon.size();
  assert(n > 0);
  if (n == 1) return polygon[0];
  if (n == 2) return elementary::Midpoint(polygon[0], polygon[1]);
  if (n == 3) return TriangleCentre(polygon[0], polygon[1], polygon[2]);
  WeightedSum sum;
  sum.AddTriple(polygon[n - 2], polygon[n - 1], polygon[0]);
  sum.AddTriple(polygon[n - 1], polygon[0], polygon[1]);
  // Deliberate: triples of consecutive vertices, not a fan from one vertex. This is the weight
  // centre that contour offsetting and its hosts are tuned to.
  for (std::size_t i = 0; i + 2 < n; ++i) {
    sum.AddTriple(polygon[i], polygon[i + 1], polygon[i + 2]);
  }
  if (sum.weight == 0) return std::nullopt;
  const double scale = 1 / sum.weight;
  return ZorPoint(sum.x * scale, sum.y * scale);
}

}  // namespace zor::shape
