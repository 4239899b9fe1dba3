#include "plate_as_made.h"

#include <cmath>

namespace plate {
namespace {

constexpr int kCirclePoints = 4096;
constexpr int kBottomPoints = 4096;
constexpr int kNickPoints = 1024;

// The piece lies on the table turned by this angle about the plate's middle and shifted.
constexpr double kTurn_deg = 0.17;
const cv::Point2d kTurnCentre(595, 460);
const cv::Point2d kShift(0.83, -0.62);

cv::Point2d OnTable(const cv::Point2d& p) {
  const cv::Point2d d = p - kTurnCentre;
  return FromFigureFrame(kTurnCentre, kTurn_deg, d.x, d.y) + kShift;
}

void Place(Plate* p) {
  for (cv::Point2d& corner : p->corners) corner = OnTable(corner);
  for (Bore& bore : p->bores) bore.centre = OnTable(bore.centre);
  for (cv::Point2d& fiducial : p->fiducials) fiducial = OnTable(fiducial);
  p->slot.centre = OnTable(p->slot.centre);
  p->slot.angle_deg += kTurn_deg;
  p->window.centre = OnTable(p->window.centre);
  p->window.angle_deg += kTurn_deg;
  p->scribe.from = OnTable(p->scribe.from);
  p->scribe.to = OnTable(p->scribe.to);
}

}  // namespace

Plate AsMade(const Plate& drawing) {
  Plate p = drawing;
  const std::array<cv::Point2d, kSides> corner_errors = {cv::Point2d(0.21, -0.34),
                                                         {0.42, 0.18},
                                                         {-0.27, 0.31},
                                                         {-0.05, -0.44},
                                                         {0.33, 0.12},
                                                         {-0.4, 0.25},
                                                         {0.14, -0.2}};
  for (std::size_t i = 0; i < p.corners.size(); ++i) p.corners[i] += corner_errors[i];
  const std::array<cv::Vec3d, 5> bore_errors = {cv::Vec3d(0.31, -0.17, 0.35),
                                                {-0.24, 0.41, -0.2},
                                                {0.36, 0.22, 0.15},
                                                {-0.45, -0.13, -0.4},
                                                {0.12, 0.29, 0.22}};
  for (std::size_t i = 0; i < p.bores.size(); ++i) {
    p.bores[i].centre += cv::Point2d(bore_errors[i][0], bore_errors[i][1]);
    p.bores[i].radius += bore_errors[i][2];
  }
  p.bulge += 0.43;
  p.nick.along += 0.7;
  p.slot = {p.slot.centre + cv::Point2d(0.26, -0.38), p.slot.a + 0.3, p.slot.b - 0.25,
            p.slot.angle_deg + 0.2};
  p.window = {p.window.centre + cv::Point2d(-0.33, 0.19), p.window.width + 0.4,
              p.window.height - 0.3, p.window.angle_deg + 0.15};
  Place(&p);
  return p;
}

Outline OuterOutline(const Plate& plate) {
  Outline outline;
  for (int side = 0; side < kSides; ++side) {
    const cv::Point2d& from = plate.corners[static_cast<std::size_t>(side)];
    outline.push_back(from);
    if (side == kTop) {
      const cv::Point2d chord = plate.corners[kChamfer] - from;
      const cv::Point2d along = chord / std::sqrt(chord.dot(chord));
      const cv::Point2d inward(-along.y, along.x);
      for (int i = 0; i <= kNickPoints; ++i) {
        const double u = 2.0 * i / kNickPoints - 1;
        const double dent = plate.nick.depth * 0.5 * (1 + std::cos(CV_PI * u));
        outline.push_back(from + (plate.nick.along + u * plate.nick.half_width) * along +
                          dent * inward);
      }
    } else if (side == kBottom) {
      for (int i = 1; i < kBottomPoints; ++i) {
        outline.push_back(BottomPoint(plate, static_cast<double>(i) / kBottomPoints));
      }
    }
  }
  return outline;
}

Outline CircleOutline(const cv::Point2d& centre, double radius) {
  return EllipseOutline({centre, radius, radius, 0});
}

Outline EllipseOutline(const Slot& slot) {
  Outline outline;
  for (int i = 0; i < kCirclePoints; ++i) {
    const double t = 2 * CV_PI * i / kCirclePoints;
    outline.push_back(
        FromFigureFrame(slot.centre, slot.angle_deg, slot.a * std::cos(t), slot.b * std::sin(t)));
  }
  return outline;
}

}  // namespace plate
