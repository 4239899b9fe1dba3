#pragma once

#include <string>
#include <vector>

#include <opencv2/core.hpp>

#include <ZorData.h>

// Pieces of SVG in picture coordinates, where an integer is the centre of a pixel as everywhere in
// this program. The report styles them by their classes: "line", "aux" (constructions), "hint"
// (constructions that are shown only for the row pointed at), "points", "label".
namespace inspect {

inline cv::Point2d ToCv(const ZorPoint& p) { return {p.x, p.y}; }
inline ZorPoint ToZor(const cv::Point2d& p) { return {p.x, p.y}; }
ZorPointArray ToZor(const std::vector<cv::Point2d>& points);

std::string SvgLine(const ZorPoint& from, const ZorPoint& to);
/// A construction: thinner and dashed.
std::string SvgAuxLine(const ZorPoint& from, const ZorPoint& to);
std::string SvgHintLine(const ZorPoint& from, const ZorPoint& to);
std::string SvgCircle(const ZorPoint& centre, double radius);
std::string SvgHintCircle(const ZorPoint& centre, double radius);
/// Semi-axis a along `angle_deg`, counter-clockwise on the screen.
std::string SvgEllipse(const ZorPoint& centre, double a, double b, double angle_deg);
std::string SvgHintEllipse(const ZorPoint& centre, double a, double b, double angle_deg);
std::string SvgPolygon(const std::vector<cv::Point2d>& corners);
std::string SvgCurve(const std::vector<cv::Point2d>& points);
/// Small dots.
std::string SvgPoints(const std::vector<cv::Point2d>& points);
/// A small cross.
std::string SvgCross(const ZorPoint& at);
/// The arc of an angle at `vertex` between the directions to two points.
std::string SvgAngle(const ZorPoint& vertex, const ZorPoint& first, const ZorPoint& second,
                     double radius);
std::string SvgLabel(const ZorPoint& at, const std::string& text);

/// The text with the characters that mean something in HTML and SVG replaced.
std::string Escaped(const std::string& text);

}  // namespace inspect
