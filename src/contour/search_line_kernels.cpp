#include "contour/search_line_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <optional>

#include "elementary/edge_index.h"
#include "elementary/point_kernels.h"

namespace zor::contour {
namespace {

ZorPoint Ahead(const ZorPoint& p, const ZorPoint& direction, double distance) {
  return {p.x + distance * direction.x, p.y + distance * direction.y};
}

/// The right of a direction, seen on the screen.
ZorPoint RightOf(const ZorPoint& direction) { return {-direction.y, direction.x}; }

/// The outlines of the band.
class Band {
 public:
  explicit Band(const ZorContourArray& contours) {
    for (const ZorContour& contour : contours) {
      if (contour.Length() >= 2) edges_.emplace_back(contour.View());
      for (const ZorPoint& p : contour) {
        largest_ = std::max(largest_, std::max(std::fabs(p.x), std::fabs(p.y)));
      }
    }
  }

  /// About the distance of p from the nearest outline: the least of those in eight directions.
  [[nodiscard]] double HalfWidthAt(const ZorPoint& p) const {
    double least = std::numeric_limits<double>::infinity();
    for (int k = 0; k < 8; ++k) {
      const double angle = k * std::numbers::pi / 4;
      const std::optional<ZorPoint> hit = Hit(p, {std::cos(angle), std::sin(angle)});
      if (hit) least = std::min(least, elementary::Distance(p, *hit));
    }
    return std::isinf(least) ? 0.0 : least;
  }

  /// The nearest point of an outline from p in the direction, a unit vector, but for p itself.
  /// Looks further and further, so that few edges are tested.
  [[nodiscard]] std::optional<ZorPoint> Hit(const ZorPoint& p, const ZorPoint& direction) const {
    for (double reach = 4.0; reach <= 8 * (largest_ + 1); reach *= 4) {
      std::vector<ZorPoint> crossings = Crossings(p, Ahead(p, direction, reach));
      std::erase_if(crossings, [&p](const ZorPoint& crossing) {
        return elementary::Distance(p, crossing) <= kAtOutline;
      });
      if (crossings.empty()) continue;
      return *std::min_element(crossings.begin(), crossings.end(),
                               [&p](const ZorPoint& a, const ZorPoint& b) {
                                 return elementary::Distance(p, a) < elementary::Distance(p, b);
                               });
    }
    return std::nullopt;
  }

  /// The line across the band through p, from the left to the right of the direction. A skeleton
  /// runs along the outline where the band is no wider than a pixel; the line begins or ends there.
  [[nodiscard]] std::optional<ZorLine> Across(const ZorPoint& p, const ZorPoint& direction) const {
    const ZorPoint right = RightOf(direction);
    const std::optional<ZorPoint> end = Hit(p, right);
    const std::optional<ZorPoint> start = Hit(p, {-right.x, -right.y});
    if (IsAtOutline(p)) {
      if (end && Encloses(elementary::Midpoint(p, *end))) return ZorLine(p, *end);
      if (start && Encloses(elementary::Midpoint(p, *start))) return ZorLine(*start, p);
      return std::nullopt;
    }
    if (!start || !end) return std::nullopt;
    return ZorLine(*start, *end);
  }

 private:
  static constexpr double kAtOutline = 1e-5;  // pixels

  [[nodiscard]] std::vector<ZorPoint> Crossings(const ZorPoint& a, const ZorPoint& b) const {
    std::vector<ZorPoint> crossings;
    for (const elementary::EdgeIndex& edges : edges_) edges.AppendCrossings(a, b, crossings);
    return crossings;
  }
  [[nodiscard]] bool IsAtOutline(const ZorPoint& p) const {
    for (const ZorPoint& step : {ZorPoint(1, 0), ZorPoint(0, 1)}) {
      for (const ZorPoint& crossing : Crossings(p - step, p + step)) {
        if (elementary::Distance(p, crossing) <= kAtOutline) return true;
      }
    }
    return false;
  }
  /// By the crossings of a ray in a direction that outlines by pixels do not have.
  [[nodiscard]] bool Encloses(const ZorPoint& p) const {
    const double reach = 8 * (largest_ + 1);
    return Crossings(p, {p.x + 0.8731 * reach, p.y + 0.4875 * reach}).size() % 2 == 1;
  }

  std::vector<elementary::EdgeIndex> edges_;
  double largest_ = 0.0;
};

/// A polyline by the length along it.
class Course {
 public:
  explicit Course(std::vector<ZorPoint> points) : points_(std::move(points)) {
    lengths_.push_back(0.0);
    for (std::size_t i = 1; i < points_.size(); ++i) {
      lengths_.push_back(lengths_.back() + elementary::Distance(points_[i - 1], points_[i]));
    }
  }

  [[nodiscard]] double Length() const { return lengths_.back(); }

  [[nodiscard]] ZorPoint At(double length) const {
    const auto after = std::upper_bound(lengths_.begin(), lengths_.end(), length);
    if (after == lengths_.begin()) return points_.front();
    if (after == lengths_.end()) return points_.back();
    const auto i = static_cast<std::size_t>(after - lengths_.begin());
    const double share = (length - lengths_[i - 1]) / (lengths_[i] - lengths_[i - 1]);
    return Ahead(points_[i - 1], points_[i] - points_[i - 1], share);
  }

  /// The corners strictly between two places.
  [[nodiscard]] std::span<const ZorPoint> Between(double start, double end) const {
    const auto first = std::upper_bound(lengths_.begin(), lengths_.end(), start);
    const auto last = std::lower_bound(first, lengths_.end(), end);
    return std::span(points_).subspan(static_cast<std::size_t>(first - lengths_.begin()),
                                      static_cast<std::size_t>(last - first));
  }

  /// Unit vector from `half` before to `half` behind a place; near an end from less.
  [[nodiscard]] ZorPoint DirectionAt(double length, double half) const {
    const double least = std::max(half / 4, 2.0);  // pixel steps turn by 45 degrees
    const double reach = std::max(std::min({half, length, Length() - length}), least);
    const ZorPoint d = At(std::min(length + reach, Length())) - At(std::max(length - reach, 0.0));
    const double norm = elementary::Norm(d);
    return {d.x / norm, d.y / norm};
  }

 private:
  std::vector<ZorPoint> points_;
  std::vector<double> lengths_;
};

/// The way without `cut` at either end, where it leads into a corner of the band's end; of a short
/// one what is left of its middle.
std::vector<ZorPoint> WithoutEnds(std::span<const ZorPoint> way, double cut) {
  constexpr double kLeast = 8.0;  // pixels that still tell a direction
  const Course course({way.begin(), way.end()});
  const double end = std::min(cut, std::max((course.Length() - kLeast) / 2, 0.0));
  std::vector<ZorPoint> kept = {course.At(end)};
  for (const ZorPoint& p : course.Between(end, course.Length() - end)) kept.push_back(p);
  kept.push_back(course.At(course.Length() - end));
  return kept;
}

/// The middle one of half the band's width at a few places of the way.
double TypicalHalfWidth(const Band& band, std::span<const ZorPoint> way) {
  std::array<double, 9> widths;
  for (std::size_t k = 0; k < widths.size(); ++k) {
    widths[k] = band.HalfWidthAt(way[(way.size() - 1) * (k + 1) / (widths.size() + 1)]);
  }
  std::nth_element(widths.begin(), widths.begin() + widths.size() / 2, widths.end());
  return widths[widths.size() / 2];
}

/// The course carried on straight to the band's ends.
std::vector<ZorPoint> ToTheEnds(const Band& band, const std::vector<ZorPoint>& points,
                                double half) {
  const Course course(points);
  const ZorPoint first = course.DirectionAt(0.0, half);
  const ZorPoint last = course.DirectionAt(course.Length(), half);
  std::vector<ZorPoint> longer;
  if (const auto start = band.Hit(points.front(), {-first.x, -first.y})) longer.push_back(*start);
  longer.insert(longer.end(), points.begin(), points.end());
  if (const auto end = band.Hit(points.back(), last)) longer.push_back(*end);
  return longer;
}

/// The middles between the outlines along the course, without `margin` at either end; where the
/// outlines are not beside the course, the course.
std::vector<ZorPoint> Middles(const Band& band, const Course& course, double half, double margin) {
  const double step = std::max(half / 4, 1.0);
  const double inner = std::max(course.Length() - 2 * margin, 0.0);
  const double first = (course.Length() - inner) / 2;
  const int count = std::max(static_cast<int>(inner / step), 1);
  std::vector<ZorPoint> middles;
  for (int k = 0; k <= count; ++k) {
    const double length = first + inner * k / count;
    const ZorPoint p = course.At(length);
    middles.push_back(p);
    const auto line = band.Across(p, course.DirectionAt(length, half));
    if (!line) continue;
    const ZorPoint middle = elementary::Midpoint(line->start, line->end);
    if (elementary::Distance(middle, p) <= half / 2) middles.back() = middle;
  }
  return middles;
}

void AppendLines(const Band& band, std::span<const ZorPoint> way, double spacing,
                 std::vector<ZorLine>& lines) {
  const double half = std::max(TypicalHalfWidth(band, way), 2.0);
  // A branch into a right corner is sqrt(2) times that long.
  std::vector<ZorPoint> points = Middles(band, Course(WithoutEnds(way, 1.5 * half)), half, 0.0);
  // The first time carries a bent band's ends on too straight; the second starts close to them.
  for (int pass = 0; pass < 2; ++pass) {
    points = Middles(band, Course(ToTheEnds(band, points, half)), half, half / 2);
  }
  const Course centre(ToTheEnds(band, points, half));
  constexpr double kRounding = 1e-6;  // a whole number of spacings counts as one
  const int count = std::max(static_cast<int>(centre.Length() / spacing + kRounding), 1);
  const double first = (centre.Length() - (count - 1) * spacing) / 2;
  for (int k = 0; k < count; ++k) {
    const double length = first + k * spacing;
    const auto line = band.Across(centre.At(length), centre.DirectionAt(length, half));
    if (line && elementary::Distance(line->start, line->end) > 0) lines.push_back(*line);
  }
}

}  // namespace

std::vector<ZorLine> LinesAcross(const ZorContourArray& contours,
                                 std::span<const std::vector<ZorPoint>> ways, double spacing) {
  const Band band(contours);
  std::vector<ZorLine> lines;
  for (const std::vector<ZorPoint>& way : ways) AppendLines(band, way, spacing, lines);
  return lines;
}

}  // namespace zor::contour
