#include "bent_edge.h"

#include "figures.h"
#include <ZorGeometryMeasureTools.h>

namespace inspect {

std::vector<cv::Point2d> FindBentEdge(const cv::Mat& grey, const std::vector<EdgeSearch>& searches,
                                      int reach) {
  std::vector<cv::Point2d> straight;
  std::vector<EdgeSearch> hits;
  for (const EdgeSearch& search : searches) {
    const auto edge = FindEdge(grey, search);
    if (!edge) continue;
    straight.push_back(edge->position);
    hits.push_back(search);
  }
  ZorContour contour(ToZor(straight));
  ZorVarArray curvatures;
  if (ZorGeometryMeasureTools().GetCurvatures(contour, reach, false, &curvatures) != GM_OK) {
    return straight;
  }
  for (std::size_t i = 0; i < hits.size(); ++i) {
    hits[i].curvature = curvatures[static_cast<int>(i)].D();
  }
  return FindEdges(grey, hits);
}

}  // namespace inspect
