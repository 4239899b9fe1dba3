#include <array>
#include <cstddef>
#include <cwchar>
#include <optional>
#include <utility>
#include <vector>

#include "ZorFindDefectRegion.h"
#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureTools.h"
#include "ZorRansacFit.h"
#include "contour/anchor_kernels.h"
#include "contour/side_verdict.h"
#include "elementary/segment_distance_kernels.h"
#include "fitting/ransac_kernels.h"
#include "frame/trace.h"
#include <ZorDebugger.h>

using zor::frame::IsTracing;
namespace contours = zor::contour;
namespace elementary = zor::elementary;
namespace fitting = zor::fitting;

namespace {

constexpr double kSideClip = 1.0;  // without effect in a fit of one pass

void PrintToDebugger(const wchar_t* format, int number) {
  std::array<wchar_t, 4096> text;
  std::swprintf(text.data(), text.size(), format, number);
  OutputDebugStringW(text.data());
}

/// What a search looks for along each side.
struct Wanted {
  double distance;
  int min_length;
};

/// The line along a side, or another that the same points are far from; nothing when the fit gives
/// none.
std::optional<ZorLine> LineAlong(ZorPointView side, double distance) {
  // Records of the fits are wanted while there is a sink; otherwise few sides need the fit.
  if (!IsTracing()) {
    const std::optional<ZorLine> line = contours::LineOfSameVerdict(side, distance);
    if (line) return line;
  }
  ZorPointArray points(side);
  ZorLine line;  // a fit that fails leaves both ends equal
  static_cast<void>(
      ZorGeometryMeasure().LeastSqaureLineFit(points, 1, kSideClip, &line.start, &line.end));
  if (elementary::Coincide(line.start, line.end)) return std::nullopt;
  return line;
}

/// Appends the defects of the side of the given points, the first of which has index `first`.
void AppendDefects(ZorPointView side, int first, const Wanted& wanted,
                   std::vector<fitting::Run>& runs) {
  const std::optional<ZorLine> line = LineAlong(side, wanted.distance);
  if (!line) return;
  std::vector<fitting::Run> far_runs;
  fitting::CollectFarRuns(*line, wanted.distance, side, far_runs);
  for (const auto& [begin, length] : far_runs) {
    // Deliberate: the first short run ends the side; they come longest first.
    if (length < wanted.min_length) break;
    runs.emplace_back(first + begin, length);
  }
}

void FindAlong(ZorPointView points, const ZorPointArray& vertices, const Wanted& wanted,
               std::vector<fitting::Run>& runs) {
  PrintToDebugger(L"temp_polygonSize  %d \n", vertices.Length());
  PrintToDebugger(L"len  %d \n", static_cast<int>(points.size()));
  const std::vector<std::size_t> anchors = contours::FindAnchors(vertices.View(), points);
  PrintToDebugger(L"indexSize  %d \n", static_cast<int>(anchors.size()));
  // Deliberate: no side from the last vertex back to the first; the outline is taken as open.
  for (std::size_t k = 1; k < anchors.size(); ++k) {
    const std::size_t first = anchors[k - 1];
    const std::size_t last = anchors[k];
    if (last <= first) continue;  // nothing lies between
    const ZorPointView side(points.data() + first, last - first);
    AppendDefects(side, static_cast<int>(first), wanted, runs);
  }
}

}  // namespace

long ZorFindDefectRegion::Find(ZorPointArray& points, double tolerance, double distance, int count,
                               int minLength, std::vector<std::pair<int, int>>& runs) {
  ZorPointArray vertices;
  static_cast<void>(  // a failure leaves no vertices, and nothing is found
      ZorGeometryMeasureTools().GetPolygon2(points, tolerance, count, false, &vertices));
  FindAlong(points.View(), vertices, {distance, minLength}, runs);
  return GM_OK;
}

long ZorFindDefectRegion::Find(double epsilon, double distance, double /*reserved*/, int minLength,
                               std::vector<std::pair<int, int>>& runs) {
  ZorPointArray vertices;
  static_cast<void>(  // a failure leaves no vertices, and nothing is found
      ZorGeometryMeasureTools().GetPolygon(contour_, epsilon, &vertices));
  FindAlong(contour_.View(), vertices, {distance, minLength}, runs);
  return GM_OK;
}

long ZorGeometryMeasureTools::FindDefectRegion(ZorContour& contour, double /*tolerance*/,
                                               double /*distance*/, double /*reserved*/,
                                               int /*minLength*/,
                                               std::vector<std::pair<int, int>>& /*runs*/) {
  constexpr int kFewPoints = 10;
  constexpr long kTooFewPoints = -1;
  if (contour.Length() <= kFewPoints) return kTooFewPoints;
  // Deliberate: the line is thrown away and nothing is reported. What hosts can notice is that the
  // generator behind `rand` is reseeded.
  ZorPointArray points;
  contour.ToPointArray(&points);
  ZorRansacFit fit;
  ZorLine line;
  return fit.RansacFitLine(points, 0.1, 100, 0.5, &line);
}
