#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "plate_as_made.h"

namespace plate {

/// The lines of the file with the true dimensions.
class TruthLines {
 public:
  void Add(const std::string& key, double value) {
    char number[64];
    std::snprintf(number, sizeof(number), " %.6f\n", value);
    std::string line = key;
    std::replace(line.begin(), line.end(), ' ', '_');
    text_ += line + number;
  }
  void AddPoint(const std::string& key, const cv::Point2d& p) {
    Add(key + ".x", p.x);
    Add(key + ".y", p.y);
  }
  std::string text_ = "# Dimensions of the plate in plate.png: pixels and degrees\n";
};

inline double Length(const cv::Point2d& d) { return std::sqrt(d.dot(d)); }

/// Direction on the screen, counter-clockwise from +x, folded to [0, 180): a line has no sense.
inline double LineAngle(const cv::Point2d& from, const cv::Point2d& to) {
  const double angle_deg = std::atan2(from.y - to.y, to.x - from.x) * 180 / CV_PI;
  return angle_deg < 0 ? angle_deg + 180 : angle_deg;
}

inline double DistanceToLine(const cv::Point2d& p, const cv::Point2d& a, const cv::Point2d& b) {
  return std::abs((b - a).cross(p - a)) / Length(b - a);
}

inline double DistanceToSegment(const cv::Point2d& p, const cv::Point2d& a, const cv::Point2d& b) {
  const cv::Point2d d = b - a;
  const double t = std::clamp((p - a).dot(d) / d.dot(d), 0.0, 1.0);
  return Length(p - (a + t * d));
}

// Each adds the dimensions of one group of figures.
void AddParallels(const Plate& plate, TruthLines* truth);
void AddCrossings(const Plate& plate, TruthLines* truth);
void AddTangents(const Plate& plate, TruthLines* truth);
void AddBottom(const Plate& plate, TruthLines* truth);
void AddScribeProfile(const Plate& plate, TruthLines* truth);
void AddZones(const Plate& plate, TruthLines* truth);
void AddWebs(const Plate& plate, TruthLines* truth);
void AddForms(const Plate& plate, TruthLines* truth);
void AddOutlineCurve(const Outline& outline, TruthLines* truth);
void AddBand(const Outline& outline, TruthLines* truth);
void AddPixels(const Plate& plate, TruthLines* truth);
void AddFarthest(const Outline& outline, TruthLines* truth);

}  // namespace plate
