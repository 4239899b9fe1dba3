#include <algorithm>
#include <cmath>
#include <limits>

#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr int kReach = 10;          // half size of the square around a fiducial, pixels
constexpr double kMinDarkness = 8;  // grey values below the metal around; four times the noise

/// The mean grey value along the border of the square around a fiducial.
double MetalGrey(const cv::Mat& grey, int x0, int y0) {
  double sum = 0;
  for (int i = -kReach; i < kReach; ++i) {
    sum +=
        grey.at<unsigned char>(y0 - kReach, x0 + i) + grey.at<unsigned char>(y0 + kReach, x0 - i) +
        grey.at<unsigned char>(y0 - i, x0 - kReach) + grey.at<unsigned char>(y0 + i, x0 + kReach);
  }
  return sum / (8 * kReach);
}

bool ShowsSquare(const cv::Mat& grey, int x0, int y0) {
  return x0 >= kReach && y0 >= kReach && x0 + kReach < grey.cols && y0 + kReach < grey.rows;
}

/// The dark dot near `place`: the mean of its pixels, each weighted with its darkness. A dot is too
/// small for edge points, and its blur does not move the mean. Not a number without a dot there.
cv::Point2d DotCentre(const cv::Mat& grey, const cv::Point2d& place) {
  const int x0 = static_cast<int>(std::lround(place.x));
  const int y0 = static_cast<int>(std::lround(place.y));
  constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
  if (!ShowsSquare(grey, x0, y0)) return {kNothing, kNothing};
  const double metal = MetalGrey(grey, x0, y0);
  double weights = 0;
  cv::Point2d sum(0, 0);
  for (int y = y0 - kReach; y <= y0 + kReach; ++y) {
    for (int x = x0 - kReach; x <= x0 + kReach; ++x) {
      const double darkness = metal - static_cast<double>(grey.at<unsigned char>(y, x));
      if (darkness < kMinDarkness) continue;
      weights += darkness;
      sum += darkness * cv::Point2d(x, y);
    }
  }
  return sum / weights;
}

void AddPoint(PlateBench* bench, const std::string& group, const std::string& name,
              const std::string& key, const ZorPoint& p, long status, const std::string& figure) {
  bench->Add({group, name + ", x", "px", p.x, status, figure}, key + ".x", kPositionLimit);
  bench->Add({group, name + ", y", "px", p.y, status, figure}, key + ".y", kPositionLimit);
}

}  // namespace

void MeasureTangents(PlateBench* bench) {
  std::vector<ZorPoint> dots;
  for (const cv::Point2d& drawn : bench->Drawing().fiducials) {
    dots.push_back(ToZor(DotCentre(bench->Grey(), drawn)));
    const std::string name = "fiducial " + std::to_string(dots.size());
    AddPoint(bench, "Fiducials", name, name, dots.back(), GM_OK, SvgCross(dots.back()));
  }
  MeasuredBore bore = bench->Bores()[0];
  ZorPointArray contacts;
  const long status =
      bench->Measure().TangentFromPointToCircle(dots[0], bore.centre, bore.radius, &contacts);
  for (int i = 0; i < std::min(2, contacts.Length()); ++i) {
    const std::string number = std::to_string(i + 1);
    AddPoint(bench, "Tangents from fiducial 1 to " + bore.name, "contact " + number,
             "tangent." + number, contacts[i], status,
             SvgLine(dots[0], contacts[i]) + SvgCross(contacts[i]));
  }
}

}  // namespace inspect
