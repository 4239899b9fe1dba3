#include "truth_lines.h"

namespace plate {
namespace {

/// Of two segments side by side: both distances lie at an end.
void AddPair(const std::string& names, const cv::Point2d& a1, const cv::Point2d& a2,
             const cv::Point2d& b1, const cv::Point2d& b2, TruthLines* truth) {
  const std::array<double, 4> ends = {DistanceToSegment(a1, b1, b2), DistanceToSegment(a2, b1, b2),
                                      DistanceToSegment(b1, a1, a2), DistanceToSegment(b2, a1, a2)};
  truth->Add("nearest." + names, *std::min_element(ends.begin(), ends.end()));
  truth->Add("farthest." + names, *std::max_element(ends.begin(), ends.end()));
  truth->Add("between lines." + names, DistanceToLine(0.5 * (b1 + b2), a1, a2));
}

/// Where the probe's line crosses a convex outline, as distances from the probe's start.
void AddProbe(const Probe& probe, const std::string& figure, const Outline& outline,
              TruthLines* truth) {
  const cv::Point2d along = (probe.to - probe.from) / Length(probe.to - probe.from);
  std::vector<double> places;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const cv::Point2d a = outline[i] - probe.from;
    const cv::Point2d b = outline[(i + 1) % outline.size()] - probe.from;
    const double side_a = along.cross(a);
    const double side_b = along.cross(b);
    if ((side_a < 0) == (side_b < 0)) continue;
    places.push_back(along.dot(a + side_a / (side_a - side_b) * (b - a)));
  }
  if (places.size() != 2) return;
  std::sort(places.begin(), places.end());
  truth->Add(probe.name + "." + figure + ".first", places[0]);
  truth->Add(probe.name + "." + figure + ".second", places[1]);
}

/// The bottom side's y in a column of the picture; x falls along the side.
double BottomRow(const Plate& plate, double x) {
  double low = 0;
  double high = 1;
  for (int i = 0; i < 60; ++i) {
    const double middle = (low + high) / 2;
    (BottomPoint(plate, middle).x > x ? low : high) = middle;
  }
  return BottomPoint(plate, low).y;
}

}  // namespace

void AddParallels(const Plate& plate, TruthLines* truth) {
  const auto& c = plate.corners;
  const auto w = WindowCorners(plate.window);
  AddPair("left.right", c[kLeft], c[kTop], c[kRight], c[kRight + 1], truth);
  AddPair("window top.window bottom", w[0], w[1], w[2], w[3], truth);
  AddPair("window left.window right", w[3], w[0], w[1], w[2], truth);
}

void AddCrossings(const Plate& plate, TruthLines* truth) {
  for (const Probe& probe : kProbes) {
    AddProbe(probe, "outline", OuterOutline(plate), truth);
    for (const Bore& bore : plate.bores) {
      AddProbe(probe, bore.name, CircleOutline(bore.centre, bore.radius), truth);
    }
    AddProbe(probe, "slot", EllipseOutline(plate.slot), truth);
  }
}

void AddTangents(const Plate& plate, TruthLines* truth) {
  const Bore& bore = plate.bores[0];
  const cv::Point2d d = plate.fiducials[0] - bore.centre;
  const double to_contact_deg = std::acos(bore.radius / Length(d)) * 180 / CV_PI;
  const cv::Point2d nearest = bore.radius / Length(d) * d;
  truth->AddPoint("tangent.1", FromFigureFrame(bore.centre, to_contact_deg, nearest.x, nearest.y));
  truth->AddPoint("tangent.2", FromFigureFrame(bore.centre, -to_contact_deg, nearest.x, nearest.y));
}

void AddBottom(const Plate& plate, TruthLines* truth) {
  // y is a parabola over t, so its values at 0, 1/2 and 1 tell where it is largest.
  const double y0 = BottomPoint(plate, 0).y;
  const double y1 = BottomPoint(plate, 0.5).y;
  const double y2 = BottomPoint(plate, 1).y;
  truth->AddPoint("bottom.lowest",
                  BottomPoint(plate, 0.25 * (3 * y0 - 4 * y1 + y2) / (y0 - 2 * y1 + y2)));
  truth->Add("bottom.sag", BottomRow(plate, (kSagFrom + kSagTo) / 2) -
                               (BottomRow(plate, kSagFrom) + BottomRow(plate, kSagTo)) / 2);
}

void AddScribeProfile(const Plate& plate, TruthLines* truth) {
  const Probe profile = ScribeProfile(Drawing().scribe);
  const cv::Point2d across = profile.to - profile.from;
  const cv::Point2d along = plate.scribe.to - plate.scribe.from;
  const double share = (plate.scribe.from - profile.from).cross(along) / across.cross(along);
  truth->Add("scribe.profile.position", share * Length(across));
}

/// The outline as a thin wire: its principal axes and standard deviations along them.
void AddOutlineCurve(const Outline& outline, TruthLines* truth) {
  double length = 0, xx = 0, yy = 0, xy = 0;
  cv::Point2d sum(0, 0);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const cv::Point2d a = outline[i] - kDatum;
    const cv::Point2d b = outline[(i + 1) % outline.size()] - kDatum;
    const double piece = Length(b - a);
    length += piece;
    sum += piece / 2 * (a + b);
    xx += piece * (a.x * a.x + a.x * b.x + b.x * b.x) / 3;
    yy += piece * (a.y * a.y + a.y * b.y + b.y * b.y) / 3;
    xy += piece * (2 * a.x * a.y + a.x * b.y + b.x * a.y + 2 * b.x * b.y) / 6;
  }
  const cv::Point2d middle = sum / length;
  xx = xx / length - middle.x * middle.x;
  yy = yy / length - middle.y * middle.y;
  xy = xy / length - middle.x * middle.y;
  const double mean = (xx + yy) / 2;
  const double spread = std::sqrt((xx - yy) * (xx - yy) / 4 + xy * xy);
  const double axis_rad = 0.5 * std::atan2(2 * xy, xx - yy);
  const cv::Point2d axis(std::cos(axis_rad), std::sin(axis_rad));
  truth->Add("outline.curve.main.angle_deg", LineAngle({0, 0}, axis));
  truth->Add("outline.curve.main.deviation", std::sqrt(mean + spread));
  truth->Add("outline.curve.cross.angle_deg", LineAngle({0, 0}, {-axis.y, axis.x}));
  truth->Add("outline.curve.cross.deviation", std::sqrt(mean - spread));
}

void AddFarthest(const Outline& outline, TruthLines* truth) {
  double farthest = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    for (std::size_t k = i + 1; k < outline.size(); ++k) {
      const cv::Point2d d = outline[k] - outline[i];
      farthest = std::max(farthest, d.dot(d));
    }
  }
  truth->Add("outline.farthest", std::sqrt(farthest));
}

}  // namespace plate
