#include "truth_lines.h"

namespace plate {
namespace {

/// Area of the polygon through the centres of the outermost pixels of a disc: by Pick's theorem the
/// number of pixels, less half of those on the outline, less one.
double AreaBetweenPixels(const Bore& bore) {
  const auto is_in = [&](int x, int y) {
    return Length(cv::Point2d(x, y) - bore.centre) < bore.radius;
  };
  int inside = 0;
  int outermost = 0;
  for (int y = 0; y < kPictureHeight; ++y) {
    for (int x = 0; x < kPictureWidth; ++x) {
      if (!is_in(x, y)) continue;
      ++inside;
      if (!is_in(x - 1, y) || !is_in(x + 1, y) || !is_in(x, y - 1) || !is_in(x, y + 1)) ++outermost;
    }
  }
  return inside - outermost / 2.0 - 1;
}

}  // namespace

void AddPixels(const Plate& plate, TruthLines* truth) {
  truth->Add("count.edge defects", 1);
  truth->Add("count.bores", static_cast<double>(plate.bores.size()));
  truth->Add("count.fiducials", static_cast<double>(plate.fiducials.size()));
  const Outline outline = OuterOutline(plate);
  double metal = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    metal += (outline[i] - kDatum).cross(outline[(i + 1) % outline.size()] - kDatum) / 2;
  }
  for (const Bore& bore : plate.bores) {
    truth->Add(bore.name + ".area between pixels", AreaBetweenPixels(bore));
    metal -= CV_PI * bore.radius * bore.radius;
  }
  metal -= CV_PI * plate.slot.a * plate.slot.b + plate.window.width * plate.window.height;
  const double dots = static_cast<double>(plate.fiducials.size());
  truth->Add("metal.area", metal - dots * CV_PI * plate.fiducial_radius * plate.fiducial_radius);
}

}  // namespace plate
