#include "figures.h"

#include <cmath>
#include <cstdio>

namespace inspect {
namespace {

std::string Coordinate(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.3f", std::isfinite(value) ? value : 0.0);
  return text;
}

std::string Pair(const ZorPoint& p) { return Coordinate(p.x) + "," + Coordinate(p.y); }

std::string Attribute(const std::string& name, double value) {
  return " " + name + "=\"" + Coordinate(value) + "\"";
}

std::string Line(const std::string& style, const ZorPoint& from, const ZorPoint& to) {
  return "<line class=\"" + style + "\"" + Attribute("x1", from.x) + Attribute("y1", from.y) +
         Attribute("x2", to.x) + Attribute("y2", to.y) + "/>";
}

std::string Circle(const std::string& style, const ZorPoint& centre, double radius) {
  return "<circle class=\"" + style + "\"" + Attribute("cx", centre.x) + Attribute("cy", centre.y) +
         Attribute("r", radius) + "/>";
}

std::string Ellipse(const std::string& style, const ZorPoint& centre, double a, double b,
                    double angle_deg) {
  // SVG turns from +x towards +y, which is clockwise on the screen.
  return "<ellipse class=\"" + style + "\"" + Attribute("rx", a) + Attribute("ry", b) +
         " transform=\"translate(" + Pair(centre) + ") rotate(" + Coordinate(-angle_deg) + ")\"/>";
}

/// The point at `radius` from the vertex towards `to`.
ZorPoint Towards(const ZorPoint& vertex, const ZorPoint& to, double radius) {
  const ZorPoint d = to - vertex;
  const double length = std::sqrt(d.x * d.x + d.y * d.y);
  return {vertex.x + d.x / length * radius, vertex.y + d.y / length * radius};
}

}  // namespace

ZorPointArray ToZor(const std::vector<cv::Point2d>& points) {
  ZorPointArray array;
  array.Reserve(static_cast<int>(points.size()));
  for (const cv::Point2d& p : points) array.Append(ToZor(p));
  return array;
}

std::string SvgLine(const ZorPoint& from, const ZorPoint& to) { return Line("line", from, to); }

std::string SvgAuxLine(const ZorPoint& from, const ZorPoint& to) { return Line("aux", from, to); }

std::string SvgHintLine(const ZorPoint& from, const ZorPoint& to) { return Line("hint", from, to); }

std::string SvgCircle(const ZorPoint& centre, double radius) {
  return Circle("line", centre, radius);
}

std::string SvgHintCircle(const ZorPoint& centre, double radius) {
  return Circle("hint", centre, radius);
}

std::string SvgEllipse(const ZorPoint& centre, double a, double b, double angle_deg) {
  return Ellipse("line", centre, a, b, angle_deg);
}

std::string SvgHintEllipse(const ZorPoint& centre, double a, double b, double angle_deg) {
  return Ellipse("hint", centre, a, b, angle_deg);
}

std::string SvgPolygon(const std::vector<cv::Point2d>& corners) {
  std::string svg = "<polygon class=\"line\" points=\"";
  for (const cv::Point2d& corner : corners) svg += Pair(ToZor(corner)) + " ";
  return svg + "\"/>";
}

std::string SvgCurve(const std::vector<cv::Point2d>& points) {
  std::string svg = "<polyline class=\"line\" points=\"";
  for (const cv::Point2d& p : points) svg += Pair(ToZor(p)) + " ";
  return svg + "\"/>";
}

std::string SvgPoints(const std::vector<cv::Point2d>& points) {
  // Lines without length: the round caps of the stroke are the dots.
  std::string svg = "<path class=\"points\" d=\"";
  for (const cv::Point2d& p : points) svg += "M" + Pair(ToZor(p)) + "h0";
  return svg + "\"/>";
}

std::string SvgCross(const ZorPoint& at) {
  return "<path class=\"line\" d=\"M" + Pair({at.x - 6, at.y}) + "h12M" + Pair({at.x, at.y - 6}) +
         "v12\"/>";
}

std::string SvgAngle(const ZorPoint& vertex, const ZorPoint& first, const ZorPoint& second,
                     double radius) {
  const ZorPoint from = Towards(vertex, first, radius);
  const ZorPoint to = Towards(vertex, second, radius);
  const ZorPoint u = from - vertex;
  const ZorPoint v = to - vertex;
  const bool clockwise = u.x * v.y - u.y * v.x > 0;
  const std::string r = Coordinate(radius);
  return "<path class=\"line\" d=\"M" + Pair(from) + "A" + r + "," + r + " 0 0 " +
         (clockwise ? "1 " : "0 ") + Pair(to) + "\"/>";
}

std::string SvgLabel(const ZorPoint& at, const std::string& text) {
  return "<text class=\"label\"" + Attribute("x", at.x) + Attribute("y", at.y) + ">" +
         Escaped(text) + "</text>";
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace inspect
