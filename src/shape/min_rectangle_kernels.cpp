#include "shape/min_rectangle_kernels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

#include <opencv2/core/types.hpp>
#include <opencv2/imgproc.hpp>

#include "elementary/point_kernels.h"
#include "frame/opencv_points.h"

using zor::frame::FromFloatPoint;

namespace zor::shape {

namespace {

// cv::minAreaRect sorts all points, by x and then y, finds their hull and turns calipers around it;
// the sort takes most of the time. Of more points it gets only those that matter, in the order of
// the list: that order decides where the calipers start when the hull runs through it in one turn,
// and so which of equally small rectangles comes out.
constexpr std::size_t kMany = 1000;

// How far inside the hull, relative to the size of the set, a point is to be left out: far beyond
// what the single precision of the routine could take for the hull itself.
constexpr double kDepth = 1e-4;

/// A box within the hull: between the points that reach farthest along the diagonals,
///
///        a-----.          a, b, c, d: extremes of x + y and x - y
///       /+----+ \ b       the box between the inner ones of their coordinates lies in the
///      / |    |  /        quadrilateral
///     d  +----+-/
///      `-----c
struct InnerBox {
  double left;
  double right;
  double top;
  double bottom;

  [[nodiscard]] bool Holds(const ZorPoint& p) const {
    return left < p.x && p.x < right && top < p.y && p.y < bottom;
  }
};

InnerBox BoxWithin(const std::vector<cv::Point2f>& points) {
  const auto sum = [](const ZorPoint& p) { return p.x + p.y; };
  const auto difference = [](const ZorPoint& p) { return p.x - p.y; };
  ZorPoint least_sum = FromFloatPoint(points[0]);
  ZorPoint most_sum = least_sum;
  ZorPoint least_difference = least_sum;
  ZorPoint most_difference = least_sum;
  for (const cv::Point2f& point : points) {
    const ZorPoint p = FromFloatPoint(point);
    if (sum(p) < sum(least_sum)) least_sum = p;
    if (sum(p) > sum(most_sum)) most_sum = p;
    if (difference(p) < difference(least_difference)) least_difference = p;
    if (difference(p) > difference(most_difference)) most_difference = p;
  }
  const double depth =
      kDepth * std::max(sum(most_sum) - sum(least_sum),
                        difference(most_difference) - difference(least_difference));
  return {std::max(least_sum.x, least_difference.x) + depth,
          std::min(most_sum.x, most_difference.x) - depth,
          std::max(least_sum.y, most_difference.y) + depth,
          std::min(most_sum.y, least_difference.y) - depth};
}

/// Whether nine of ten turns along the outline, in some 500 steps, go the same way: then about all
/// points are on the hull.
bool IsConvexOutline(const std::vector<cv::Point2f>& points) {
  const std::size_t step = points.size() / 500;
  std::size_t count = 0;
  std::size_t left = 0;
  std::size_t right = 0;
  for (std::size_t i = 2 * step; i < points.size(); i += step) {
    const ZorPoint a = FromFloatPoint(points[i - 2 * step]);
    const ZorPoint b = FromFloatPoint(points[i - step]);
    const double turn = elementary::Cross(b - a, FromFloatPoint(points[i]) - b);
    ++count;
    left += turn < 0 ? 1 : 0;
    right += turn > 0 ? 1 : 0;
  }
  return 10 * std::max(left, right) >= 9 * count;
}

/// The indices of the points roughly in the order of x (of y, if all x are equal): sorted into as
/// many classes of equal width as there are points. The routine's own sort then has little to do.
std::vector<int> OrderAlongX(const std::vector<cv::Point2f>& points) {
  const auto less_x = [](const cv::Point2f& a, const cv::Point2f& b) { return a.x < b.x; };
  const auto less_y = [](const cv::Point2f& a, const cv::Point2f& b) { return a.y < b.y; };
  const auto [left, right] = std::minmax_element(points.begin(), points.end(), less_x);
  const auto [top, bottom] = std::minmax_element(points.begin(), points.end(), less_y);
  const bool is_along_x = left->x < right->x;
  const auto key = [&](const cv::Point2f& p) { return double{is_along_x ? p.x : p.y}; };
  const double first = key(is_along_x ? *left : *top);
  const double range = key(is_along_x ? *right : *bottom) - first;
  const double scale = range > 0 ? static_cast<double>(points.size() - 1) / range : 0.0;
  const auto class_of = [&](const cv::Point2f& p) {
    return static_cast<std::size_t>((key(p) - first) * scale);
  };
  std::vector<std::uint32_t> next(points.size(), 0);
  for (const cv::Point2f& p : points) ++next[class_of(p)];
  std::exclusive_scan(next.begin(), next.end(), next.begin(), std::uint32_t{0});
  std::vector<int> order(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    order[next[class_of(points[i])]++] = static_cast<int>(i);
  }
  return order;
}

std::vector<cv::Point2f> Chosen(const std::vector<cv::Point2f>& points,
                                const std::vector<int>& indices) {
  std::vector<cv::Point2f> chosen;
  chosen.reserve(indices.size());
  for (const int i : indices) chosen.push_back(points[static_cast<std::size_t>(i)]);
  return chosen;
}

/// The points to give to cv::minAreaRect instead of all: the result is the same to the last bit,
/// but that on smooth outlines of more than kMany points another of equally small rectangles may
/// come out, such as the other one of the two about a circle along the axes.
std::vector<cv::Point2f> Reduced(std::vector<cv::Point2f> points) {
  if (points.size() <= kMany) return points;
  const bool is_all_hull = IsConvexOutline(points);
  if (!is_all_hull) {
    const InnerBox inner = BoxWithin(points);
    std::erase_if(points, [&](const cv::Point2f& p) { return inner.Holds(FromFloatPoint(p)); });
    if (points.size() <= kMany) return points;
  }
  const std::vector<int> order = OrderAlongX(points);
  std::vector<cv::Point2f> sorted = Chosen(points, order);
  if (is_all_hull) return sorted;
  std::vector<int> hull;
  cv::convexHull(sorted, hull, false, false);
  if (hull.size() > sorted.size() / 4) return sorted;
  for (int& i : hull) i = order[static_cast<std::size_t>(i)];
  std::sort(hull.begin(), hull.end());
  return Chosen(points, hull);
}

}  // namespace

std::array<ZorPoint, 4> MinAreaRectangle(std::span<const ZorPoint> points) {
  std::vector<cv::Point2f> given = frame::ToFloatPoints(points);
  if (!frame::AreFinite(given)) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const ZorPoint unknown(kNaN, kNaN);
    return {unknown, unknown, unknown, unknown};
  }
  std::array<cv::Point2f, 4> corners;
  cv::minAreaRect(Reduced(std::move(given))).points(corners.data());
  return {FromFloatPoint(corners[0]), FromFloatPoint(corners[1]), FromFloatPoint(corners[2]),
          FromFloatPoint(corners[3])};
}

}  // namespace zor::shape
