#include "render.h"
#include "truth_lines.h"

namespace plate {
namespace {

/// Angle at `corner` between the directions to its two neighbours.
double InsideAngle(const cv::Point2d& before, const cv::Point2d& corner, const cv::Point2d& after) {
  const cv::Point2d u = before - corner;
  const cv::Point2d v = after - corner;
  return std::atan2(std::abs(u.cross(v)), u.dot(v)) * 180 / CV_PI;
}

template <std::size_t N>
void AddPolygon(const std::array<cv::Point2d, N>& corners, const std::array<const char*, N>& names,
                TruthLines* truth) {
  for (std::size_t i = 0; i < N; ++i) {
    const cv::Point2d& before = corners[(i + N - 1) % N];
    const cv::Point2d& from = corners[i];
    const cv::Point2d& to = corners[(i + 1) % N];
    const std::string edge = std::string("edge.") + names[i];
    const std::string pair = std::string(names[(i + N - 1) % N]) + "." + names[i];
    truth->Add(edge + ".angle_deg", LineAngle(from, to));
    truth->Add(edge + ".from_datum", DistanceToLine(kDatum, from, to));
    truth->Add(edge + ".length", Length(to - from));
    truth->AddPoint("corner." + pair, from);
    truth->Add("angle." + pair, InsideAngle(before, from, to));
    const cv::Point2d inwards =
        (before - from) / Length(before - from) + (to - from) / Length(to - from);
    truth->Add("bisector." + pair + ".angle_deg", LineAngle(from, from + inwards));
  }
}

void AddWidths(const Plate& plate, TruthLines* truth) {
  const auto& c = plate.corners;
  truth->Add("distance.left.right",
             DistanceToLine(0.5 * (c[kLeft] + c[kTop]), c[kRight], c[kRight + 1]));
  truth->Add("distance.window_top.window_bottom", plate.window.height);
  truth->Add("distance.window_left.window_right", plate.window.width);
}

/// Area, centroid and central second moments of the outer outline without its holes, by Green's
/// theorem about a point inside, so that no large terms cancel.
void AddOutline(const Outline& outline, TruthLines* truth) {
  double area = 0, x = 0, y = 0, xx = 0, yy = 0, xy = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const cv::Point2d a = outline[i] - kDatum;
    const cv::Point2d b = outline[(i + 1) % outline.size()] - kDatum;
    const double c = a.cross(b);
    area += c / 2;
    x += c * (a.x + b.x) / 6;
    y += c * (a.y + b.y) / 6;
    xx += c * (a.x * a.x + a.x * b.x + b.x * b.x) / 12;
    yy += c * (a.y * a.y + a.y * b.y + b.y * b.y) / 12;
    xy += c * (2 * a.x * a.y + a.x * b.y + b.x * a.y + 2 * b.x * b.y) / 24;
  }
  const cv::Point2d centroid(x / area, y / area);
  xx = xx / area - centroid.x * centroid.x;
  yy = yy / area - centroid.y * centroid.y;
  xy = xy / area - centroid.x * centroid.y;
  truth->Add("outline.area", area);
  truth->AddPoint("outline.centroid", kDatum + centroid);
  truth->Add("outline.variance.xx", xx);
  truth->Add("outline.variance.yy", yy);
  truth->Add("outline.variance.xy", xy);
  truth->Add("outline.axis.angle_deg", -0.5 * std::atan2(2 * xy, xx - yy) * 180 / CV_PI);
}

void AddFigures(const Plate& plate, TruthLines* truth) {
  for (const Bore& bore : plate.bores) {
    truth->AddPoint(bore.name, bore.centre);
    truth->Add(bore.name + ".radius", bore.radius);
  }
  truth->AddPoint("slot", plate.slot.centre);
  truth->Add("slot.a", plate.slot.a);
  truth->Add("slot.b", plate.slot.b);
  truth->Add("slot.angle_deg", plate.slot.angle_deg);
  truth->AddPoint("window", plate.window.centre);
  truth->Add("bottom.bulge", plate.bulge);
  truth->Add("nick.along", plate.nick.along);
  truth->Add("nick.depth", plate.nick.depth);
  for (std::size_t i = 0; i < plate.fiducials.size(); ++i) {
    truth->AddPoint("fiducial " + std::to_string(i + 1), plate.fiducials[i]);
  }
}

/// The scribed line as the picture shows it: the lens's blur widens and lowers its profile.
void AddScribe(const Scribe& scribe, TruthLines* truth) {
  const double blurred = std::sqrt(scribe.sigma * scribe.sigma + kBlurVariance);
  truth->AddPoint("scribe.middle", 0.5 * (scribe.from + scribe.to));
  truth->Add("scribe.angle_deg", LineAngle(scribe.from, scribe.to));
  truth->Add("scribe.sigma", blurred);
}

}  // namespace

std::string TruthText(const Plate& plate) {
  TruthLines truth;
  AddPolygon(plate.corners, kSideNames, &truth);
  AddPolygon(WindowCorners(plate.window), kWindowSideNames, &truth);
  AddWidths(plate, &truth);
  AddFigures(plate, &truth);
  AddScribe(plate.scribe, &truth);
  AddOutline(OuterOutline(plate), &truth);
  AddOutlineCurve(OuterOutline(plate), &truth);
  AddFarthest(OuterOutline(plate), &truth);
  AddParallels(plate, &truth);
  AddCrossings(plate, &truth);
  AddTangents(plate, &truth);
  AddBottom(plate, &truth);
  AddScribeProfile(plate, &truth);
  AddZones(plate, &truth);
  AddWebs(plate, &truth);
  AddForms(plate, &truth);
  AddBand(OuterOutline(plate), &truth);
  AddPixels(plate, &truth);
  return truth.text_;
}

}  // namespace plate
