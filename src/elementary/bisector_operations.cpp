#include <array>
#include <utility>

#include "ZorGeometryMeasure.h"
#include "elementary/bisector_kernels.h"
#include "elementary/line_kernels.h"
#include "elementary/point_kernels.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/tolerances.h"
#include "frame/trace.h"

using zor::frame::IsDegenerate;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

namespace {

bool HasCoincidentPair(const ZorPoint& a, const ZorPoint& b, const ZorPoint& c) {
  return IsDegenerate(a, b) || IsDegenerate(b, c) || IsDegenerate(a, c);
}

}  // namespace

long ZorGeometryMeasure::BissectingLine(ZorPoint p1, ZorPoint vertex, ZorPoint p3, ZorPoint* out) {
  if (HasCoincidentPair(p1, vertex, p3)) return GM_E_DEGENERATE_LINE;
  double opening = 0.0;
  double heading = 0.0;
  static_cast<void>(AngleFrom3Point(p1, vertex, p3, &opening));
  static_cast<void>(AngleFromHorizontal(p1, vertex, &heading));
  // Deliberate: half the opening is taken off the heading, which mirrors the bisector in the first
  // ray. Hosts of this older form rely on its values; BissectingLine2 gives the bisector as seen.
  double angle_deg = heading - opening / 2;
  if (angle_deg >= 360) angle_deg -= 360;
  if (angle_deg == 0 || angle_deg == 180) return GM_E_COLLINEAR;
  const ZorPoint ahead = vertex + elementary::ScreenDirection(angle_deg);
  ZorPoint crossing;
  if (const long status = LinesIntersection(vertex, ahead, p1, p3, &crossing); status != GM_OK) {
    return status;
  }
  const bool is_clear = elementary::Distance(crossing, vertex) > zor::frame::kCoincident;
  if (!is_clear) return GM_E_COLLINEAR;
  Store(out, crossing);
  return GM_OK;
}

long ZorGeometryMeasure::BissectingLine(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4,
                                        ZorPoint* out1, ZorPoint* out2) {
  return BissectingLine2(p1, p2, p3, p4, out1, out2);
}

long ZorGeometryMeasure::BissectingLine2(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint p4,
                                         ZorPoint* out1, ZorPoint* out2) {
  Trace trace("BissectingLine2");
  if (IsDegenerate(p1, p2) || IsDegenerate(p3, p4)) return GM_E_DEGENERATE_LINE;
  if (elementary::AreParallel(p2 - p1, p4 - p3)) return GM_E_PARALLEL;
  double first_deg = 0.0;
  double second_deg = 0.0;
  static_cast<void>(AngleFromHorizontal(p1, p2, &first_deg));
  static_cast<void>(AngleFromHorizontal(p3, p4, &second_deg));
  ZorPoint crossing;
  if (const long status = LinesIntersection(p1, p2, p3, p4, &crossing); status != GM_OK) {
    return status;
  }
  const ZorPoint direction =
      elementary::ScreenDirection(elementary::MiddleDirection(first_deg, second_deg));
  const std::array<std::pair<ZorPoint, ZorPoint>, 4> segments = {
      {{p1, p3}, {p2, p4}, {p1, p4}, {p2, p3}}};
  // The whole line is clipped, not the ray from the crossing: of edges side by side that run
  // towards their crossing the middle line lies behind it.
  const double length = (elementary::Distance(p1, p2) + elementary::Distance(p3, p4)) / 2;
  const auto [start, end] =
      elementary::ClipLine(crossing, direction, segments)
          .value_or(std::pair(crossing, ZorPoint(crossing.x + length * direction.x,
                                                 crossing.y + length * direction.y)));
  Store(out1, start);
  Store(out2, end);
  return trace.Done();
}

long ZorGeometryMeasure::BissectingVector(ZorPoint u, ZorPoint v, ZorPoint* bisector) {
  Trace trace("BissectingVector");
  if (IsDegenerate(u, ZorPoint()) || IsDegenerate(v, ZorPoint())) return GM_E_DEGENERATE_LINE;
  const auto middle = elementary::MiddleVector(u, v);
  if (!middle) return GM_E_COLLINEAR;
  Store(bisector, *middle);
  return trace.Done();
}

long ZorGeometryMeasure::MidLine(ZorPoint p1, ZorPoint p2, ZorPoint p3, ZorPoint* out1,
                                 ZorPoint* out2) {
  Trace trace("MidLine");
  if (HasCoincidentPair(p1, p2, p3)) return GM_E_DEGENERATE_LINE;
  if (elementary::AreParallel(p2 - p1, p3 - p1)) return GM_E_PARALLEL;
  Store(out1, elementary::Midpoint(p1, p2));
  Store(out2, elementary::Midpoint(p1, p3));
  return trace.Done();
}
