#include "ZorGeometryMeasure.h"
#include "elementary/line_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::CatchAs;
using zor::frame::IsDegenerate;
using zor::frame::Store;
using zor::frame::Trace;
namespace elementary = zor::elementary;

long ZorGeometryMeasure::PointTolineDistance(ZorPoint point, ZorPoint lineStart, ZorPoint lineEnd,
                                             double* distance) {
  Trace trace("PointTolineDistance");
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    if (IsDegenerate(lineStart, lineEnd)) return GM_E_DEGENERATE_LINE;
    Store(distance, elementary::PointToLine(point, lineStart, lineEnd));
    return trace.Done();
  });
}
