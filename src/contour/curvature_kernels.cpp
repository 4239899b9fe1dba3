#include "contour/curvature_kernels.h"

#include <cmath>
#include <limits>

#include "elementary/point_kernels.h"
#include "frame/checks.h"

namespace zor::contour {
namespace {

/// `measure(before, point, behind)` at every point.
template <typename Measure>
std::vector<double> AtEveryPoint(std::span<const ZorPoint> points, const Neighbourhood& neighbours,
                                 Measure measure) {
  const std::size_t count = points.size();
  const std::size_t reach = neighbours.reach;
  std::vector<double> values(count);
  const std::size_t first = neighbours.closed ? 0 : reach;
  const std::size_t end = neighbours.closed ? count : count - reach;
  for (std::size_t i = first; i < end; ++i) {
    const ZorPoint& before = points[i >= reach ? i - reach : i + count - reach];
    const ZorPoint& behind = points[i + reach < count ? i + reach : i + reach - count];
    values[i] = measure(before, points[i], behind);
  }
  for (std::size_t i = 0; i < first; ++i) values[i] = values[first];
  for (std::size_t i = end; i < count; ++i) values[i] = values[end - 1];
  return values;
}

/// The largest value of a window that only moves on; each value is taken in once.
class SlidingMaximum {
 public:
  explicit SlidingMaximum(std::size_t count) { falling_.reserve(count); }

  void Add(std::size_t position, double value) {
    if (std::isnan(value)) return;
    while (falling_.size() > first_ && falling_.back().value <= value) falling_.pop_back();
    falling_.push_back({position, value});
  }
  /// Of the values at `position` and later; less than any if there are none.
  [[nodiscard]] double From(std::size_t position) {
    while (first_ < falling_.size() && falling_[first_].position < position) ++first_;
    return first_ < falling_.size() ? falling_[first_].value
                                    : -std::numeric_limits<double>::infinity();
  }

 private:
  struct Entry {
    std::size_t position;
    double value;
  };
  std::vector<Entry> falling_;  // from first_ on; each greater than all later ones
  std::size_t first_ = 0;
};

}  // namespace

std::optional<double> CurvatureThrough(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
  if (frame::IsDegenerate(a, b) || frame::IsDegenerate(b, c) || frame::IsDegenerate(a, c)) {
    return std::nullopt;
  }
  return 2 * elementary::Cross(b - a, c - b) /
         (elementary::Distance(a, b) * elementary::Distance(b, c) * elementary::Distance(a, c));
}

std::vector<double> Curvatures(std::span<const ZorPoint> points, const Neighbourhood& neighbours) {
  return AtEveryPoint(points, neighbours,
                      [](const ZorPoint& before, const ZorPoint& p, const ZorPoint& behind) {
                        return CurvatureThrough(before, p, behind).value_or(0.0);
                      });
}

std::vector<double> ChordHeights(std::span<const ZorPoint> points,
                                 const Neighbourhood& neighbours) {
  return AtEveryPoint(
      points, neighbours, [](const ZorPoint& before, const ZorPoint& p, const ZorPoint& behind) {
        if (frame::IsDegenerate(before, behind)) return 0.0;
        return elementary::TriangleCross(before, p, behind) / elementary::Distance(before, behind);
      });
}

std::vector<std::size_t> LocalMaxima(std::span<const double> values,
                                     const Neighbourhood& neighbours) {
  const std::size_t count = values.size();
  const std::size_t reach = neighbours.reach;
  // Positions run from `reach` before the first value to `reach` behind the last.
  const auto add = [&](SlidingMaximum& window, std::size_t position) {
    const std::size_t i = position + count - reach;
    if (neighbours.closed || (i >= count && i < 2 * count)) window.Add(position, values[i % count]);
  };
  SlidingMaximum before(count + reach);
  SlidingMaximum behind(count + reach);
  for (std::size_t k = 0; k < reach; ++k) add(before, k);
  for (std::size_t k = reach + 1; k <= 2 * reach; ++k) add(behind, k);
  std::vector<std::size_t> maxima;
  bool is_constant = true;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) {
      add(before, i + reach - 1);
      add(behind, i + 2 * reach);
    }
    if (values[i] != values[0]) is_constant = false;
    const double most_before = before.From(i);
    const double most_behind = behind.From(i + reach + 1);
    if (values[i] > most_before && values[i] >= most_behind) maxima.push_back(i);
  }
  if (is_constant) maxima.clear();
  return maxima;
}

}  // namespace zor::contour
