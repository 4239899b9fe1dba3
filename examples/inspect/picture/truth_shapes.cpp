#include <opencv2/imgproc.hpp>

#include "truth_lines.h"

namespace plate {
namespace {

double DistanceToOutline(const cv::Point2d& p, const Outline& outline) {
  double nearest = 1e9;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    nearest =
        std::min(nearest, DistanceToSegment(p, outline[i], outline[(i + 1) % outline.size()]));
  }
  return nearest;
}

/// Of an outline around a convex figure, the nearest place and the one farthest from the figure.
void AddAround(const std::string& name, const Outline& outline, const Outline& figure,
               TruthLines* truth) {
  double nearest = 1e9;
  double farthest = 0;
  for (const cv::Point2d& p : figure) nearest = std::min(nearest, DistanceToOutline(p, outline));
  for (const cv::Point2d& p : outline) farthest = std::max(farthest, DistanceToOutline(p, figure));
  truth->Add("outline." + name + ".nearest", nearest);
  truth->Add("outline." + name + ".farthest", farthest);
}

/// (u / a)^2 + (v / b)^2 - 1 in the frame of the ellipse.
double Equation(const Slot& ellipse, const cv::Point2d& p) {
  const cv::Point2d d = p - ellipse.centre;
  const cv::Point2d uv = FromFigureFrame({0, 0}, -ellipse.angle_deg, d.x, d.y);
  return uv.x * uv.x / (ellipse.a * ellipse.a) + uv.y * uv.y / (ellipse.b * ellipse.b) - 1;
}

/// From a point inside the ellipse to its outline: the root of a parabola through three values.
double RayLength(const Slot& ellipse, const cv::Point2d& from, const cv::Point2d& direction) {
  const double c = Equation(ellipse, from);
  const double ahead = Equation(ellipse, from + direction);
  const double behind = Equation(ellipse, from - direction);
  const double a = (ahead + behind) / 2 - c;
  const double b = (ahead - behind) / 2;
  return (-b + std::sqrt(b * b - 4 * a * c)) / (2 * a);
}

/// The area that a figure shares with its zone, and their first crossing clockwise on the screen
/// from the end of the figure's first axis.
void AddZone(const std::string& name, const Slot& figure, const Slot& zone, TruthLines* truth) {
  constexpr int kRays = 200000;
  constexpr double kStep_rad = 2 * CV_PI / kRays;
  double twice_area = 0;
  for (int i = 0; i < kRays; ++i) {
    const cv::Point2d direction(std::cos(i * kStep_rad), std::sin(i * kStep_rad));
    const double r = std::min(RayLength(figure, zone.centre, direction),
                              RayLength(zone, zone.centre, direction));
    twice_area += r * r * kStep_rad;
  }
  truth->Add("zone." + name + ".area", twice_area / 2);
  const auto at = [&](int i) {
    return FromFigureFrame(figure.centre, figure.angle_deg, figure.a * std::cos(i * kStep_rad),
                           figure.b * std::sin(i * kStep_rad));
  };
  int first = 1;
  while (first < kRays && (Equation(zone, at(first - 1)) < 0) == (Equation(zone, at(first)) < 0)) {
    ++first;
  }
  truth->AddPoint("zone." + name, 0.5 * (at(first - 1) + at(first)));
}

}  // namespace

void AddZones(const Plate& plate, TruthLines* truth) {
  const Plate drawing = Drawing();
  for (std::size_t i = 0; i < plate.bores.size(); ++i) {
    const Bore& bore = plate.bores[i];
    AddZone(bore.name, {bore.centre, bore.radius, bore.radius, 0}, ToleranceZone(drawing.bores[i]),
            truth);
  }
  AddZone("slot", plate.slot, ToleranceZone(drawing.slot), truth);
}

void AddWebs(const Plate& plate, TruthLines* truth) {
  const Outline outline = OuterOutline(plate);
  const Bore& bore = plate.bores[0];
  AddAround(bore.name, outline, CircleOutline(bore.centre, bore.radius), truth);
  double thinnest = Length(plate.bores[1].centre - bore.centre);
  for (const Bore& a : plate.bores) {
    for (const Bore& b : plate.bores) {
      const double between = Length(b.centre - a.centre);
      if (between > 0) thinnest = std::min(thinnest, between - a.radius - b.radius);
    }
  }
  truth->Add("web.thinnest", thinnest);
  AddAround("slot", outline, EllipseOutline(plate.slot), truth);
}

void AddForms(const Plate& plate, TruthLines* truth) {
  truth->Add("roundness", 1);
  truth->Add("straightness", 0);
  truth->Add("rectangularity", 1);
  truth->Add("window.inscribed.radius", std::min(plate.window.width, plate.window.height) / 2);
  const Outline outline = OuterOutline(plate);
  const auto by_x = [](const cv::Point2d& a, const cv::Point2d& b) { return a.x < b.x; };
  const auto by_y = [](const cv::Point2d& a, const cv::Point2d& b) { return a.y < b.y; };
  const auto x = std::minmax_element(outline.begin(), outline.end(), by_x);
  const auto y = std::minmax_element(outline.begin(), outline.end(), by_y);
  truth->Add("outline.width", x.second->x - x.first->x);
  truth->Add("outline.height", y.second->y - y.first->y);
  const std::vector<cv::Point2f> points(outline.begin(), outline.end());
  cv::Point2f centre;
  float radius = 0;
  cv::minEnclosingCircle(points, centre, radius);
  truth->Add("outline.circle.radius", static_cast<double>(radius));
}

}  // namespace plate
