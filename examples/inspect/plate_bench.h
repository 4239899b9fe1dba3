#pragma once

#include <string>
#include <vector>

#include <opencv2/core.hpp>

#include "line_fit.h"
#include "plate_drawing.h"
#include "row.h"
#include "truth.h"
#include <ZorGeometryMeasureDlg.h>

namespace inspect {

// Largest accepted errors.
inline constexpr double kAngleLimit_deg = 0.02;
inline constexpr double kPositionLimit = 0.05;  // pixels
inline constexpr double kCountLimit = 0.5;      // numbers of things are exact

/// A straight edge as found in the picture, from its first to its last edge point.
struct MeasuredEdge {
  std::string name;
  std::vector<cv::Point2d> points;
  FittedLine line;
};

/// A bore as found in the picture: its edge points and the least-squares circle through them.
struct MeasuredBore {
  std::string name;
  std::vector<cv::Point2d> points;
  ZorPoint centre;
  double radius = 0;
  long status = GM_E_TOO_FEW_POINTS;
};

/// The slot as found in the picture: semi-axis a, the longer one, along `angle_deg`.
struct MeasuredSlot {
  std::vector<cv::Point2d> points;
  ZorPoint centre;
  double a = 0, b = 0, angle_deg = 0;
  long status = GM_E_TOO_FEW_POINTS;
};

/// What the measurements of the plate share: the picture, what is known of the plate, and the rows
/// so far. A group of measurements is a function that takes the bench and adds its rows.
class PlateBench {
 public:
  PlateBench(const cv::Mat& grey, const Truth& truth)
      : grey_(grey), truth_(truth), drawing_(plate::Drawing()) {}

  [[nodiscard]] const cv::Mat& Grey() const { return grey_; }
  [[nodiscard]] const plate::Plate& Drawing() const { return drawing_; }
  ZORMV::ZorGeometryMeasureDlg& Measure() { return measure_; }
  std::vector<MeasuredEdge>& Sides() { return sides_; }
  std::vector<MeasuredEdge>& WindowSides() { return window_sides_; }
  std::vector<MeasuredBore>& Bores() { return bores_; }
  MeasuredSlot& Slot() { return slot_; }
  std::vector<cv::Point2d>& OuterOutline() { return outer_outline_; }
  std::vector<Row>& Rows() { return rows_; }

  /// Adds a row whose truth stands under `key`, its blanks as '_', in the truth file.
  void Add(Row row, std::string key, double limit);
  /// The same with the limit as a share of the truth.
  void AddRelative(const Row& row, const std::string& key, double share);

 private:
  const cv::Mat& grey_;
  const Truth& truth_;
  plate::Plate drawing_;
  ZORMV::ZorGeometryMeasureDlg measure_;
  std::vector<MeasuredEdge> sides_;  // in order of plate::Side; the bulged one has no line
  std::vector<MeasuredEdge> window_sides_;
  std::vector<MeasuredBore> bores_;
  MeasuredSlot slot_;
  std::vector<cv::Point2d> outer_outline_;  // closed, clockwise on the screen
  std::vector<Row> rows_;
};

/// The plate's and the window's edges: found, fitted, and their directions and places. First of all
/// groups, since the others build on the edges.
void MeasureEdges(PlateBench* bench);
/// Angles between neighbouring edges, their corners and bisectors.
void MeasureCorners(PlateBench* bench);
/// Distances of parallel edges and of corners.
void MeasureDistances(PlateBench* bench);
/// Nearest and farthest places of parallel edges, and the distance between their lines.
void MeasureParallels(PlateBench* bench);
/// The bores as circles. Before the groups that build on the bores.
void MeasureBores(PlateBench* bench);
/// The slot as an ellipse. Before the groups that build on the slot.
void MeasureSlot(PlateBench* bench);
/// The bulged bottom edge as a polynomial, and the scribed line's profile as a Gaussian.
void MeasureCurves(PlateBench* bench);
/// The outer outline: area, centroid, moments, principal axes, farthest points. Before the groups
/// that build on the outline.
void MeasureOutline(PlateBench* bench);
/// Crossings of the probe lines with the plate's figures.
void MeasureCrossings(PlateBench* bench);
/// The fiducials, and the tangents from one of them to a bore.
void MeasureTangents(PlateBench* bench);
/// What bores and slot share with their tolerance zones.
void MeasureZones(PlateBench* bench);
/// Edge points selected by regions, and what is fitted to them.
void MeasureSelections(PlateBench* bench);
/// Distances of the outline from a bore and the slot, and the web between two bores.
void MeasureWebs(PlateBench* bench);
/// Roundness, straightness, rectangularity; enclosing and inscribed figures.
void MeasureForms(PlateBench* bench);
/// Where the straight edges stray from their lines: the nick, its depth and its place.
void MeasureNick(PlateBench* bench);
/// The band between the outline moved outwards and inwards.
void MeasureBand(PlateBench* bench);
/// The bores counted and sized as dark areas of the binary picture, and the metal's pixels.
void MeasureBlobs(PlateBench* bench);
/// The fiducials as the darkest pixels of the metal.
void MeasureDots(PlateBench* bench);

}  // namespace inspect
