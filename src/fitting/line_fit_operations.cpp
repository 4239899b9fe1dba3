#include "ZorGeometryMeasure.h"
#include "fitting/line_fit_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/store.h"
#include "frame/trace.h"

using zor::frame::CatchAs;
using zor::frame::InvalidArgument;
using zor::frame::Store;
using zor::frame::Trace;
namespace fitting = zor::fitting;

namespace {

void StoreEnds(const ZorLine& line, ZorPoint* start, ZorPoint* end) {
  Store(start, line.start);
  Store(end, line.end);
}

}  // namespace

long ZorGeometryMeasure::FitLine(ZorPointArray& points, int method, int iterations, ZorPoint* start,
                                 ZorPoint* end) {
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  return CatchAs(GM_E_FIT_FAILED, [&] {
    if (method == 0) {
      StoreEnds(fitting::FitExtentLine(points.View()), start, end);
    } else if (method == 1) {
      StoreEnds(fitting::FitLineAbsoluteSelfClipped(points.View(), iterations), start, end);
    }
    return GM_OK;  // Deliberate: also for any other method, which does nothing.
  });
}

long ZorGeometryMeasure::LeastSqaureLineFit(ZorPointArray& points, int iterations,
                                            double clipDistance, ZorPoint* start, ZorPoint* end) {
  Trace trace("LeastSqaureLineFit");
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  if (iterations == 1) {
    StoreEnds(fitting::FitExtentLine(points.View()), start, end);
    return GM_OK;  // Deliberate: one pass leaves no end record; hosts tell the two kinds by it.
  }
  const fitting::Axis axis = fitting::ChooseAxis(points.View());
  StoreEnds(fitting::FitLineSquares(points.View(), axis, iterations, clipDistance), start, end);
  return trace.Done();
}

long ZorGeometryMeasure::LeastAbsoluteLineFit(ZorPointArray& points, int iterations,
                                              double clipDistance, ZorPoint* start, ZorPoint* end) {
  Trace trace("LeastAbsoluteLineFit");
  if (points.Length() < 2) return GM_E_TOO_FEW_POINTS;
  if (iterations < 1) return InvalidArgument(2);
  if (clipDistance < 0) return InvalidArgument(3);
  const fitting::Axis axis = fitting::ChooseAxis(points.View());
  StoreEnds(fitting::FitLineAbsolute(points.View(), axis, iterations, clipDistance), start, end);
  return trace.Done();
}

long ZorGeometryMeasure::SSETest(ZorVarArray /*values*/, ZorVar* /*result*/) { return GM_OK; }
