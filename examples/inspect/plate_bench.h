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

/// A straight edge as found in the picture, from its first to its last edge point.
struct MeasuredEdge {
  std::string name;
  std::vector<cv::Point2d> points;
  FittedLine line;
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
  std::vector<Row>& Rows() { return rows_; }

  /// Adds a row whose truth stands under `key`, its blanks as '_', in the truth file.
  void Add(Row row, std::string key, double limit);

 private:
  const cv::Mat& grey_;
  const Truth& truth_;
  plate::Plate drawing_;
  ZORMV::ZorGeometryMeasureDlg measure_;
  std::vector<MeasuredEdge> sides_;  // in order of plate::Side; the bulged one has no line
  std::vector<MeasuredEdge> window_sides_;
  std::vector<Row> rows_;
};

/// The plate's and the window's edges: found, fitted, and their directions and places. First of all
/// groups, since the others build on the edges.
void MeasureEdges(PlateBench* bench);
/// Angles between neighbouring edges, their corners and bisectors.
void MeasureCorners(PlateBench* bench);
/// Distances of parallel edges and of corners.
void MeasureDistances(PlateBench* bench);

}  // namespace inspect
