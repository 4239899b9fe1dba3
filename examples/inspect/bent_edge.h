#pragma once

#include <vector>

#include "edge_finder.h"

namespace inspect {

/// The edge points on neighbouring search lines, in order, found twice: the second time knowing how
/// the edge bends there, seen over `reach` points to both sides, since blur moves a bent edge.
/// Search lines without an edge are left out.
std::vector<cv::Point2d> FindBentEdge(const cv::Mat& grey, const std::vector<EdgeSearch>& searches,
                                      int reach);

}  // namespace inspect
