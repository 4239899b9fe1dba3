#include "straight_sides.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "figures.h"
#include "outline.h"
#include "search_lines.h"

namespace inspect {
namespace {

constexpr double kMinLength = 20;       // pixels
constexpr double kApproximation = 1.8;  // pixels that a side may leave the chain of pixels
constexpr double kSearchLength = 5;     // to both sides
constexpr double kClipDistance = 1;
constexpr double kNear = 0.5;           // pixels; a point this near to the line supports it
constexpr double kMinSupport = 0.7;     // share of the search lines
constexpr double kMaxBendShare = 0.15;  // of the turn at the side's ends; about 1 on curves
constexpr double kCollinearTurn_rad = 0.01;
constexpr double kMaxGapShare = 0.25;  // of the shorter side, for a rounded corner between two

double Length(const cv::Point2d& d) { return std::sqrt(d.dot(d)); }

double Turn(const cv::Point2d& first, const cv::Point2d& second) {
  return std::abs(std::atan2(first.cross(second), first.dot(second)));
}

double DistanceFromLine(const cv::Point2d& p, const FittedLine& line) {
  const cv::Point2d a = ToCv(line.start);
  const cv::Point2d along = ToCv(line.end) - a;
  return std::abs(along.cross(p - a)) / Length(along);
}

/// The corners of the chain, clockwise.
std::vector<cv::Point2d> RoughCorners(const std::vector<cv::Point2d>& chain) {
  const std::vector<cv::Point2f> points(chain.begin(), chain.end());
  std::vector<cv::Point2f> approximated;
  cv::approxPolyDP(points, approximated, kApproximation, true);
  std::vector<cv::Point2d> corners(approximated.begin(), approximated.end());
  if (SignedArea(corners) < 0) std::reverse(corners.begin(), corners.end());
  return corners;
}

/// The angle by which the points turn from end to end of the side, by the parabola through them.
double Bend(const StraightSide& side) {
  const cv::Point2d chord = side.to - side.from;
  const double length = Length(chord);
  cv::Matx33d normal = cv::Matx33d::zeros();
  cv::Vec3d right = cv::Vec3d::all(0);
  for (const cv::Point2d& p : side.points) {
    const double t = chord.dot(p - side.from) / (length * length) - 0.5;  // -0.5 .. 0.5
    const cv::Vec3d powers(1, t, t * t);
    normal += powers * powers.t();
    right += chord.cross(p - side.from) / length * powers;
  }
  const cv::Vec3d parabola = normal.solve(right, cv::DECOMP_SVD);
  return std::abs(2 * parabola[2]) / length;
}

/// Finds the side's points and line. False when it is short, or its edge cannot be found.
bool MeasureSide(const cv::Mat& grey, StraightSide* side) {
  const double length = Length(side->to - side->from);
  if (length < kMinLength) return false;
  SearchOptions options;
  options.half_length = kSearchLength;
  options.margin = CornerMargin(length);
  options.spacing = std::max(1.0, length / 400);
  const std::vector<EdgeSearch> searches = AcrossSegment(side->from, side->to, options);
  side->points = FindEdges(grey, searches);
  side->line = FitLine(side->points, kClipDistance);
  if (side->line.status != GM_OK) return false;
  const auto near =
      std::count_if(side->points.begin(), side->points.end(),
                    [&](const cv::Point2d& p) { return DistanceFromLine(p, side->line) <= kNear; });
  return static_cast<double>(near) >= kMinSupport * static_cast<double>(searches.size());
}

bool AreCollinear(const StraightSide& a, const StraightSide& b) {
  return Turn(ToCv(a.line.end - a.line.start), ToCv(b.line.end - b.line.start)) <=
             kCollinearTurn_rad &&
         DistanceFromLine(b.points.front(), a.line) <= 2 * kNear &&
         DistanceFromLine(b.points.back(), a.line) <= 2 * kNear;
}

/// Makes one side of neighbours that lie on the same line.
std::vector<StraightSide> Merged(const std::vector<StraightSide>& sides) {
  std::vector<StraightSide> merged;
  for (const StraightSide& side : sides) {
    if (merged.empty() || !AreCollinear(merged.back(), side)) {
      merged.push_back(side);
      continue;
    }
    StraightSide& whole = merged.back();
    whole.points.insert(whole.points.end(), side.points.begin(), side.points.end());
    whole.to = side.to;
    whole.line = FitLine(whole.points, kClipDistance);
  }
  if (merged.size() > 2 && AreCollinear(merged.back(), merged.front())) {
    StraightSide& whole = merged.front();
    whole.points.insert(whole.points.begin(), merged.back().points.begin(),
                        merged.back().points.end());
    whole.from = merged.back().from;
    whole.line = FitLine(whole.points, kClipDistance);
    merged.pop_back();
  }
  return merged;
}

bool AreJoined(const StraightSide& side, const StraightSide& next) {
  const double shorter = std::min(Length(side.to - side.from), Length(next.to - next.from));
  return Length(next.from - side.to) <= kMaxGapShare * shorter;
}

}  // namespace

double CornerMargin(double length) { return std::clamp(0.15 * length, 4.0, 10.0); }

std::vector<StraightSide> FindStraightSides(const cv::Mat& grey,
                                            const std::vector<cv::Point2d>& chain) {
  const std::vector<cv::Point2d> corners = RoughCorners(chain);
  const std::size_t count = corners.size();
  const auto along = [&](std::size_t i) { return corners[(i + 1) % count] - corners[i % count]; };
  std::vector<StraightSide> sides;
  for (std::size_t i = 0; i < count; ++i) {
    StraightSide side;
    side.from = corners[i];
    side.to = corners[(i + 1) % count];
    if (!MeasureSide(grey, &side)) continue;
    // A chord of a curve turns within about as much as from one chord to the next.
    const double turn =
        std::min(Turn(along(i + count - 1), along(i)), Turn(along(i), along(i + 1)));
    if (Bend(side) <= kMaxBendShare * turn) sides.push_back(std::move(side));
  }
  sides = Merged(sides);
  for (std::size_t k = 0; k < sides.size() && sides.size() > 2; ++k) {
    sides[k].joined = AreJoined(sides[k], sides[(k + 1) % sides.size()]);
  }
  return sides;
}

}  // namespace inspect
