#include "plate_drawing.h"

#include <cmath>

namespace plate {

Plate Drawing() {
  Plate p;
  p.corners = {cv::Point2d(110, 130),
               {970, 130},
               {1080, 240},
               {1080, 580},
               {940, 790},
               {280, 790},
               {110, 640}};
  p.bulge = 26;
  p.nick = {520, 16, 6};
  p.bores = {{"bore 1", {235, 275}, 65},
             {"bore 2", {470, 270}, 60},
             {"bore 3", {606, 270}, 60},
             {"bore 4", {850, 285}, 75},
             {"bore 5", {215, 545}, 30}};
  p.slot = {{850, 560}, 130, 55, 25};
  p.window = {{480, 560}, 230, 150, 12};
  p.fiducials = {{150, 170}, {1035, 300}, {330, 745}};
  p.fiducial_radius = 4;
  p.scribe = {{690, 665}, {715, 775}, 3.2, 48};
  return p;
}

cv::Point2d FromFigureFrame(const cv::Point2d& centre, double angle_deg, double u, double v) {
  const double theta_rad = angle_deg * CV_PI / 180;
  const double c = std::cos(theta_rad);
  const double s = std::sin(theta_rad);
  return {centre.x + u * c + v * s, centre.y - u * s + v * c};
}

std::array<cv::Point2d, 4> WindowCorners(const Window& window) {
  const double u = window.width / 2;
  const double v = window.height / 2;
  const auto at = [&](double su, double sv) {
    return FromFigureFrame(window.centre, window.angle_deg, su * u, sv * v);
  };
  return {at(-1, -1), at(1, -1), at(1, 1), at(-1, 1)};
}

Probe ScribeProfile(const Scribe& drawn) {
  constexpr double kHalfLength = 15;
  const cv::Point2d d = drawn.to - drawn.from;
  const cv::Point2d across = kHalfLength / std::sqrt(d.dot(d)) * cv::Point2d(d.y, -d.x);
  const cv::Point2d middle = 0.5 * (drawn.from + drawn.to);
  return {"profile", middle - across, middle + across};
}

Slot ToleranceZone(const Bore& drawn) {
  return ToleranceZone(Slot{drawn.centre, drawn.radius, drawn.radius, 0});
}

Slot ToleranceZone(const Slot& drawn) {
  return {drawn.centre, 1.05 * drawn.a, 0.95 * drawn.b, drawn.angle_deg};
}

cv::Point2d BottomPoint(const Plate& plate, double t) {
  const cv::Point2d& from = plate.corners[kBottom];
  const cv::Point2d chord = plate.corners[kBottom + 1] - from;
  const double length = std::sqrt(chord.dot(chord));
  const cv::Point2d outward(chord.y / length, -chord.x / length);
  return from + t * chord + plate.bulge * 4 * t * (1 - t) * outward;
}

}  // namespace plate
