#include "search_lines.h"

#include <algorithm>
#include <cmath>

namespace inspect {
namespace {

EdgeSearch Search(const cv::Point2d& centre, const cv::Point2d& direction, double curvature,
                  const SearchOptions& options) {
  return {centre,          direction, options.half_length, curvature, options.min_contrast,
          options.polarity};
}

}  // namespace

std::vector<EdgeSearch> AcrossSegment(const cv::Point2d& from, const cv::Point2d& to,
                                      const SearchOptions& options) {
  std::vector<EdgeSearch> searches;
  const double length = std::sqrt((to - from).dot(to - from));
  const double usable = length - 2 * options.margin;
  if (!(usable > 0)) return searches;
  const cv::Point2d along = (to - from) / length;
  const cv::Point2d outward(along.y, -along.x);
  const int count = 1 + static_cast<int>(usable / options.spacing);
  const double first = options.margin + (usable - (count - 1) * options.spacing) / 2;
  searches.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    searches.push_back(Search(from + (first + i * options.spacing) * along, outward, 0, options));
  }
  return searches;
}

std::vector<EdgeSearch> AcrossEllipse(const cv::Point2d& centre, double a, double b,
                                      double angle_deg, const SearchOptions& options) {
  std::vector<EdgeSearch> searches;
  const double theta_rad = angle_deg * CV_PI / 180;
  const cv::Point2d first_axis(std::cos(theta_rad), -std::sin(theta_rad));
  const cv::Point2d second_axis(-first_axis.y, first_axis.x);
  // Steps of the parametric angle that each cover `spacing` of the outline.
  double t = 0;
  while (t < 2 * CV_PI) {
    const double c = std::cos(t);
    const double s = std::sin(t);
    const double speed = std::sqrt(a * a * s * s + b * b * c * c);
    const cv::Point2d normal = (b * c / speed) * first_axis + (a * s / speed) * second_axis;
    searches.push_back(Search(centre + a * c * first_axis + b * s * second_axis, normal,
                              a * b / (speed * speed * speed), options));
    t += std::max(options.spacing / speed, 1e-4);
  }
  return searches;
}

}  // namespace inspect
