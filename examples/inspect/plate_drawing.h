#pragma once

#include <array>
#include <string>
#include <vector>

#include <opencv2/core.hpp>

/// The machined plate of the demo as drawn: what the inspector knows before he looks at a picture.
/// The picture shows a plate that was made from this drawing, with the deviations of
/// picture/plate_as_made.cpp; the host may place its searches by the drawing only.
///
/// Pixels; an integer coordinate is the centre of a pixel, so pixel (i, j) covers
/// [i - 0.5, i + 0.5] x [j - 0.5, j + 0.5]. y grows downwards, angles turn counter-clockwise on the
/// screen and are in degrees.
namespace plate {

inline constexpr int kPictureWidth = 1200;
inline constexpr int kPictureHeight = 900;
/// Positions of edges are given as their distance from this point.
const cv::Point2d kDatum(600, 450);

struct Bore {
  std::string name;
  cv::Point2d centre;
  double radius;
};

/// Semi-axis a along `angle_deg`, b across it.
struct Slot {
  cv::Point2d centre;
  double a, b, angle_deg;
};

/// A window with straight sides, `width` along `angle_deg`.
struct Window {
  cv::Point2d centre;
  double width, height, angle_deg;
};

/// Damage in the top edge: a cosine-shaped dent of `depth` at `along` from the edge's start.
struct Nick {
  double along, half_width, depth;
};

/// A bright line whose cross profile is a Gaussian of this sigma and height (grey values).
struct Scribe {
  cv::Point2d from, to;
  double sigma, height;
};

/// Sides of the outline: side i runs from corner i to corner i + 1.
enum Side { kTop, kChamfer, kRight, kLowerRight, kBottom, kLowerLeft, kLeft, kSides };

inline constexpr std::array<const char*, kSides> kSideNames = {
    "top", "chamfer", "right", "lower right", "bottom", "lower left", "left"};
inline constexpr std::array<const char*, 4> kWindowSideNames = {"window top", "window right",
                                                                "window bottom", "window left"};

/// A straight line along which the places of edges are measured, from its first point.
struct Probe {
  std::string name;
  cv::Point2d from, to;
};

/// Where the probes lie on the table; they do not move with the piece.
const std::array<Probe, 2> kProbes = {Probe{"upper probe", {80, 262}, {1120, 291}},
                                      Probe{"lower probe", {80, 549}, {1120, 563}}};

struct Plate {
  std::array<cv::Point2d, kSides> corners;  // clockwise on the screen
  double bulge;                             // height of the bottom side's parabola over its chord
  Nick nick;
  std::vector<Bore> bores;
  Slot slot;
  Window window;
  std::vector<cv::Point2d> fiducials;
  double fiducial_radius;
  Scribe scribe;
};

Plate Drawing();

/// (u, v) in the frame of a figure at `centre`, turned by `angle_deg`, in picture coordinates.
cv::Point2d FromFigureFrame(const cv::Point2d& centre, double angle_deg, double u, double v);

/// The window's corners, clockwise on the screen from the upper left one.
std::array<cv::Point2d, 4> WindowCorners(const Window& window);

/// The line across the scribed line's middle along which its profile is measured.
Probe ScribeProfile(const Scribe& drawn);

// The zones that bores and slot are compared with: ellipses about the drawn figures, longer by a
// twentieth along the first axis and shorter by as much along the second.
Slot ToleranceZone(const Bore& drawn);
Slot ToleranceZone(const Slot& drawn);

/// The bottom side's sag is taken in the middle between these columns, from the chord between them.
inline constexpr double kSagFrom = 310;
inline constexpr double kSagTo = 910;

/// The tolerance band of the outline reaches this far to both sides.
inline constexpr double kBandHalfWidth = 4;

/// Point of the bottom side at t in [0, 1] from its first corner.
cv::Point2d BottomPoint(const Plate& plate, double t);

}  // namespace plate
