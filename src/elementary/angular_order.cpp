#include "elementary/angular_order.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "frame/tolerances.h"

namespace zor::elementary {
namespace {

/// Up to here the exchanges are as fast as sorting, and need no allocation.
constexpr std::size_t kFew = 32;

/// Up to here the exchanges can be afforded where they matter.
constexpr std::size_t kMany = 1000;

struct Spoke {
  double angle_deg = 0.0;
  ZorPoint point;
};

double AngleAround(const ZorPoint& centre, const ZorPoint& p) {
  const double angle_deg = std::atan2(p.y - centre.y, p.x - centre.x) * 180 / frame::kPi;
  return angle_deg < 0 ? angle_deg + 360 : angle_deg;
}

void Exchange(std::span<Spoke> spokes) {
  for (std::size_t i = 0; i < spokes.size(); ++i) {
    for (std::size_t j = i + 1; j < spokes.size(); ++j) {
      if (spokes[j].angle_deg < spokes[i].angle_deg) std::swap(spokes[i], spokes[j]);
    }
  }
}

/// Sorts stably, with what is no number last. Whether the exchanges cannot give another order.
bool Sort(std::span<Spoke> spokes) {
  const auto is_number = [](const Spoke& s) { return !std::isnan(s.angle_deg); };
  const auto numbers_end = std::stable_partition(spokes.begin(), spokes.end(), is_number);
  std::stable_sort(spokes.begin(), numbers_end,
                   [](const Spoke& a, const Spoke& b) { return a.angle_deg < b.angle_deg; });
  const auto conflict = [](const Spoke& a, const Spoke& b) {
    return a.angle_deg == b.angle_deg && a.point != b.point;
  };
  return numbers_end == spokes.end() &&
         std::adjacent_find(spokes.begin(), spokes.end(), conflict) == spokes.end();
}

void Fill(std::span<Spoke> spokes, std::span<const ZorPoint> points, const ZorPoint& centre) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    spokes[i] = {AngleAround(centre, points[i]), points[i]};
  }
}

void TakePoints(std::span<const Spoke> spokes, std::span<ZorPoint> points) {
  for (std::size_t i = 0; i < points.size(); ++i) points[i] = spokes[i].point;
}

}  // namespace

void OrderByAngle(std::span<ZorPoint> points, const ZorPoint& centre) {
  if (points.size() <= kFew) {
    std::array<Spoke, kFew> few;
    const std::span<Spoke> spokes = std::span(few).first(points.size());
    Fill(spokes, points, centre);
    Exchange(spokes);
    TakePoints(spokes, points);
    return;
  }
  std::vector<Spoke> spokes(points.size());
  Fill(spokes, points, centre);
  if (!Sort(spokes) && points.size() <= kMany) {
    Fill(spokes, points, centre);
    Exchange(spokes);
  }
  TakePoints(spokes, points);
}

}  // namespace zor::elementary
