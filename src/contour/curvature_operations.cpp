#include <cstddef>
#include <span>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "ZorGeometryMeasureTools.h"
#include "contour/curvature_kernels.h"
#include "elementary/area_kernels.h"
#include "elementary/line_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::contour::Neighbourhood;
using zor::frame::InvalidArgument;
using zor::frame::IsDegenerate;
using zor::frame::IsMode;
using zor::frame::Store;
using zor::frame::Trace;
namespace contours = zor::contour;
namespace elementary = zor::elementary;

namespace {

/// Every point of `length` has that many neighbours on either side, all of them different points.
bool IsReach(int neighbours, int length) {
  return neighbours >= 1 && neighbours <= (length - 1) / 2;
}

Neighbourhood NeighboursOf(int neighbours, bool closed) {
  return {static_cast<std::size_t>(neighbours), closed};
}

using Convexity = std::vector<double> (*)(std::span<const ZorPoint>, const Neighbourhood&);

/// The points of the closed contour where the measure, positive towards the outside, is a local
/// maximum and at least `threshold`.
std::vector<ZorPoint> MostConvex(ZorPointView contour, const Neighbourhood& neighbours,
                                 Convexity convexity, double threshold) {
  std::vector<double> values = convexity(contour, neighbours);
  if (elementary::LocalSignedArea(contour) < 0) {
    for (double& value : values) value = -value;
  }
  std::vector<ZorPoint> convex;
  for (const std::size_t i : contours::LocalMaxima(values, neighbours)) {
    if (values[i] >= threshold) convex.push_back(contour[i]);
  }
  return convex;
}

long FindConvex(Trace& trace, ZorContour& contour, int neighbours, Convexity convexity,
                double threshold, ZorPointArray* convex) {
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (contour.Length() < 3) return InvalidArgument(1);
  if (!IsReach(neighbours, contour.Length())) return InvalidArgument(2);
  if (threshold < 0) return InvalidArgument(3);
  if (convex != nullptr) {
    convex->Assign(
        MostConvex(contour.View(), NeighboursOf(neighbours, true), convexity, threshold));
  }
  return trace.Done();
}

template <typename Number>
std::vector<ZorVar> ToVars(const std::vector<Number>& numbers) {
  std::vector<ZorVar> vars;
  vars.reserve(numbers.size());
  for (const Number number : numbers) vars.emplace_back(number);
  return vars;
}

}  // namespace

long ZorGeometryMeasure::FindConvexPoint(ZorContour& contour, int neighbours, double curvature,
                                         ZorPointArray* convex) {
  Trace trace("FindConvexPoint");
  return FindConvex(trace, contour, neighbours, contours::Curvatures, curvature, convex);
}

long ZorGeometryMeasure::FindConvexPoint2(ZorContour& contour, int neighbours, double height,
                                          ZorPointArray* convex) {
  Trace trace("FindConvexPoint2");
  return FindConvex(trace, contour, neighbours, contours::ChordHeights, height, convex);
}

long ZorGeometryMeasure::FindExtremeValue(ZorVarArray& values, int mode, int neighbours,
                                          bool closed, ZorVarArray* indices) {
  Trace trace("FindExtremeValue");
  if (values.Length() < 3) return GM_E_TOO_FEW_POINTS;
  if (!IsMode(mode, 1)) return InvalidArgument(2);
  if (!IsReach(neighbours, values.Length())) return InvalidArgument(3);
  std::vector<double> numbers;
  numbers.reserve(static_cast<std::size_t>(values.Length()));
  for (const ZorVar& value : values) numbers.push_back(mode == 0 ? -value.D() : value.D());
  std::vector<int> found;
  for (const std::size_t i : contours::LocalMaxima(numbers, NeighboursOf(neighbours, closed))) {
    found.push_back(static_cast<int>(i));
  }
  if (indices != nullptr) indices->Assign(ToVars(found));
  return trace.Done();
}

long ZorGeometryMeasureTools::PointTolineDistance(ZorPoint& point, ZorLine& line,
                                                  double* distance) {
  Trace trace("PointTolineDistance");
  if (IsDegenerate(line.start, line.end)) return GM_E_DEGENERATE_LINE;
  Store(distance, elementary::PointToLine(point, line.start, line.end));
  return trace.Done();
}

long ZorGeometryMeasureTools::GetCurvature(ZorPoint& before, ZorPoint& point, ZorPoint& behind,
                                           double* curvature) {
  Trace trace("GetCurvature");
  const auto through = contours::CurvatureThrough(before, point, behind);
  if (!through) return GM_E_DEGENERATE_LINE;
  Store(curvature, *through);
  return trace.Done();
}

long ZorGeometryMeasureTools::GetCurvatures(ZorContour& contour, int neighbours, bool closed,
                                            ZorVarArray* curvatures) {
  Trace trace("GetCurvatures");
  if (contour.Empty()) return GM_E_EMPTY_CONTOUR;
  if (contour.Length() < 3) return InvalidArgument(1);
  if (!IsReach(neighbours, contour.Length())) return InvalidArgument(2);
  if (curvatures != nullptr) {
    curvatures->Assign(
        ToVars(contours::Curvatures(contour.View(), NeighboursOf(neighbours, closed))));
  }
  return trace.Done();
}

long ZorGeometryMeasureTools::FindConvexPoint(ZorPointArray& points, ZorLine& line,
                                              ZorPoint* convex, double* distance) {
  Trace trace("FindConvexPoint");
  if (points.Empty()) return GM_E_TOO_FEW_POINTS;
  if (IsDegenerate(line.start, line.end)) return GM_E_DEGENERATE_LINE;
  ZorPoint farthest = points[0];
  double most = elementary::PointToLine(farthest, line.start, line.end);
  for (const ZorPoint& p : points) {
    const double candidate = elementary::PointToLine(p, line.start, line.end);
    if (candidate > most) {
      most = candidate;
      farthest = p;
    }
  }
  Store(convex, farthest);
  Store(distance, most);
  return trace.Done();
}
