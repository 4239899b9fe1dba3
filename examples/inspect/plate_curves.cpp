#include <algorithm>
#include <cmath>

#include "figures.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

constexpr int kOrder = 3;  // a parabola that is turned by a little
constexpr int kPasses = 5;
constexpr double kClipDistance = 0.3;
constexpr double kLowestPlaceLimit = 0.1;  // pixels along the edge, where it hardly bends

constexpr double kProfileWidth = 10;  // of the scribed line, to both sides of the profile, pixels
constexpr double kBin = 0.5;          // of the profile, pixels
constexpr int kGaussianSteps = 50;

std::vector<cv::Point2d> FindBottom(PlateBench* bench) {
  constexpr int kCount = 320;
  constexpr double kMargin = 0.015;  // share of the side at its ends
  const plate::Plate& drawing = bench->Drawing();
  const cv::Point2d chord = drawing.corners[plate::kBottom + 1] - drawing.corners[plate::kBottom];
  std::vector<EdgeSearch> searches;
  for (int i = 0; i < kCount; ++i) {
    const double t = kMargin + (1 - 2 * kMargin) * i / (kCount - 1);
    const cv::Point2d d = BottomPoint(drawing, t + kMargin) - BottomPoint(drawing, t - kMargin);
    EdgeSearch search;
    search.centre = BottomPoint(drawing, t);
    search.direction = cv::Point2d(d.y, -d.x) / cv::norm(d);
    search.curvature = 8 * drawing.bulge / chord.dot(chord);
    search.polarity = Polarity::kFalling;
    searches.push_back(search);
  }
  return FindEdges(bench->Grey(), searches);
}

/// The fitted bottom edge: y - height as a polynomial in u, which runs from -1 to 1 over the chord
/// of the sag, so that the powers stay small.
struct Bottom {
  static constexpr double kMiddle = (plate::kSagFrom + plate::kSagTo) / 2;
  static constexpr double kHalf = (plate::kSagTo - plate::kSagFrom) / 2;
  double height = 0;
  ZorVarArray c;  // ascending powers
  [[nodiscard]] ZorPoint At(double u) const {
    return {kMiddle + u * kHalf,
            height + c[0].D() + u * (c[1].D() + u * (c[2].D() + u * c[3].D()))};
  }
  /// Where the derivative vanishes.
  [[nodiscard]] ZorPoint Lowest() const {
    const double root = std::sqrt(c[2].D() * c[2].D() - 3 * c[1].D() * c[3].D());
    return At(-c[1].D() / (c[2].D() + std::copysign(root, c[2].D())));
  }
};

void MeasureBottom(PlateBench* bench) {
  const std::vector<cv::Point2d> edge = FindBottom(bench);
  Bottom bottom;
  bottom.height = bench->Drawing().corners[plate::kBottom].y;
  ZorPointArray points;
  for (const cv::Point2d& p : edge) {
    points.Append({(p.x - Bottom::kMiddle) / Bottom::kHalf, p.y - bottom.height});
  }
  const long status = bench->Measure().LeastSqaurePolynomialFit(points, kOrder, kPasses,
                                                                kClipDistance, &bottom.c, nullptr);
  const std::string group = "Bulged edge, polynomial";
  Row sag{group, "bottom, sag over 600 px", "px"};
  Row x{group, "bottom, lowest point, x", "px"};
  Row y{group, "bottom, lowest point, y", "px"};
  sag.status = x.status = y.status = status;
  if (status == GM_OK) {
    const ZorPoint from = bottom.At(-1);
    const ZorPoint to = bottom.At(1);
    const ZorPoint middle = bottom.At(0);
    const ZorPoint lowest = bottom.Lowest();
    const double chord_y = (from.y + to.y) / 2;
    std::vector<cv::Point2d> curve;
    for (int i = -100; i <= 100; ++i) curve.push_back(ToCv(bottom.At(i / 100.0)));
    sag.measured = middle.y - chord_y;
    sag.figure = SvgPoints(edge) + SvgCurve(curve) + SvgAuxLine(from, to) +
                 SvgLine({middle.x, chord_y}, middle) +
                 SvgLabel({middle.x, middle.y + 15}, "bottom");
    x.measured = lowest.x;
    y.measured = lowest.y;
    x.figure = y.figure = SvgCross(lowest);
  }
  bench->Add(sag, "bottom.sag", kPositionLimit);
  bench->Add(x, "bottom.lowest.x", kLowestPlaceLimit);
  bench->Add(y, "bottom.lowest.y", kPositionLimit);
}

/// Places along the profile with their grey values: means over all pixels near the profile that lie
/// at about the same place. No pixel is interpolated, which would widen the peak.
ZorPointArray GreyProfile(const cv::Mat& grey, const plate::Probe& profile) {
  const double length = cv::norm(profile.to - profile.from);
  const cv::Point2d n = (profile.to - profile.from) / length;
  const cv::Point2d middle = 0.5 * (profile.from + profile.to);
  const double reach = length / 2 + kProfileWidth;
  std::vector<cv::Vec3d> bins(static_cast<std::size_t>(length / kBin));  // places, greys, count
  const int bottom = std::min(grey.rows - 1, static_cast<int>(middle.y + reach));
  const int right = std::min(grey.cols - 1, static_cast<int>(middle.x + reach));
  for (int y = static_cast<int>(middle.y - reach); y <= bottom; ++y) {
    for (int x = static_cast<int>(middle.x - reach); x <= right; ++x) {
      const cv::Point2d d = cv::Point2d(x, y) - profile.from;
      const double place = d.dot(n);
      const double bin = std::floor(place / kBin);
      if (std::abs(n.cross(d)) > kProfileWidth || bin < 0) continue;
      if (bin >= static_cast<double>(bins.size())) continue;
      bins[static_cast<std::size_t>(bin)] +=
          cv::Vec3d(place, static_cast<double>(grey.at<unsigned char>(y, x)), 1);
    }
  }
  ZorPointArray points;
  for (const cv::Vec3d& bin : bins) {
    if (bin[2] > 0) points.Append({bin[0] / bin[2], bin[1] / bin[2]});
  }
  return points;
}

void MeasureScribe(PlateBench* bench) {
  const plate::Probe profile = ScribeProfile(bench->Drawing().scribe);
  ZorPointArray points = GreyProfile(bench->Grey(), profile);
  ZorVarArray gaussian;  // height, position, variance, baseline
  const long status = bench->Measure().FitGaussianCurve(points, kGaussianSteps, &gaussian);
  const std::string group = "Profile across the scribe, Gaussian";
  Row position{group, "peak, position", "px"};
  Row sigma{group, "peak, sigma", "px"};
  Row height{group, "peak, height", "grey"};
  position.status = sigma.status = height.status = status;
  if (status == GM_OK) {
    position.measured = gaussian[1].D();
    sigma.measured = std::sqrt(gaussian[2].D());
    height.measured = gaussian[0].D();
    const cv::Point2d n = (profile.to - profile.from) / cv::norm(profile.to - profile.from);
    const ZorPoint peak = ToZor(profile.from + position.measured * n);
    // The grey values drawn as a curve over the profile line, upwards along the scribed line.
    std::vector<cv::Point2d> curve;
    for (int i = 0; i < points.Length(); ++i) {
      const double up = points[i].y - gaussian[3].D();
      curve.push_back(profile.from + points[i].x * n + up * cv::Point2d(n.y, -n.x));
    }
    position.figure = SvgAuxLine(ToZor(profile.from), ToZor(profile.to)) + SvgCross(peak);
    sigma.figure =
        SvgLine(ToZor(ToCv(peak) - sigma.measured * n), ToZor(ToCv(peak) + sigma.measured * n));
    height.figure = SvgCurve(curve);
  }
  bench->Add(position, "scribe.profile.position", kPositionLimit);
  bench->Add(sigma, "scribe.sigma", kPositionLimit);
  bench->Add(height, "scribe.profile.height", 0);
}

}  // namespace

void MeasureCurves(PlateBench* bench) {
  MeasureBottom(bench);
  MeasureScribe(bench);
}

}  // namespace inspect
