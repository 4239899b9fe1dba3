#include <limits>

#include <opencv2/imgproc.hpp>

#include "figures.h"
#include "part_finder.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr const char* kGroup = "Fiducials, darkest pixels of the metal";
constexpr int kBorder = 5;      // pixels along the metal's edges that are left out
constexpr int kDarkest = 145;   // grey; the smoothed dots stay below it, the metal does not
constexpr int kRadius = 8;      // pixels; no two dots are nearer
constexpr int kSpotWidth = 6;   // of the smoothing, somewhat less than a dot
constexpr double kPixel = 0.9;  // whole pixels, and noise may choose a neighbour

/// The picture with all that is not metal made white, so that nothing but dots is dark.
cv::Mat MetalAlone(const cv::Mat& grey) {
  const std::vector<Part> parts = FindParts(grey);
  cv::Mat mask(grey.size(), CV_8U, cv::Scalar(0));
  const auto fill = [&](const std::vector<cv::Point2d>& outline, int value) {
    const std::vector<std::vector<cv::Point>> chain = {{outline.begin(), outline.end()}};
    cv::fillPoly(mask, chain, cv::Scalar(value));
  };
  if (!parts.empty()) {
    fill(parts[0].outline, 255);
    for (const auto& hole : parts[0].holes) fill(hole, 0);
  }
  cv::erode(mask, mask, cv::Mat(), {-1, -1}, kBorder);
  cv::Mat metal(grey.size(), CV_8U, cv::Scalar(255));
  grey.copyTo(metal, mask);
  return metal;
}

}  // namespace

void MeasureDots(PlateBench* bench) {
  cv::Mat metal = MetalAlone(bench->Grey());
  const ZorImage image =
      ZorImage::Wrap(metal.data, metal.cols, metal.rows, static_cast<std::ptrdiff_t>(metal.step));
  ZorPointArray dots;
  Row count{kGroup, "number", ""};
  count.status = bench->Measure().PSFlocalminimum(image, kDarkest, kRadius, kSpotWidth, &dots);
  count.measured = dots.Length();
  bench->Add(count, "count.fiducials", kCountLimit);
  int number = 0;
  for (const cv::Point2d& drawn : bench->Drawing().fiducials) {
    const std::string name = "fiducial " + std::to_string(++number);
    ZorPoint nearest(std::numeric_limits<double>::quiet_NaN(), 0);
    for (const ZorPoint& dot : dots) {
      if (!(cv::norm(ToCv(nearest) - drawn) <= cv::norm(ToCv(dot) - drawn))) nearest = dot;
    }
    const std::string figure = SvgCircle(nearest, bench->Drawing().fiducial_radius);
    bench->Add({kGroup, name + ", column", "px", nearest.x, count.status, figure}, name + ".x",
               kPixel);
    bench->Add({kGroup, name + ", row", "px", nearest.y, count.status, figure}, name + ".y",
               kPixel);
  }
}

}  // namespace inspect
