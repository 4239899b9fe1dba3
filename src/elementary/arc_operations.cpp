#include "ZorGeometryMeasure.h"
#include "elementary/arc_kernels.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::frame::InvalidArgument;
using zor::frame::IsDegreeAngle;
using zor::frame::IsPositive;
using zor::frame::Trace;
namespace elementary = zor::elementary;

long ZorGeometryMeasure::SampleArc(ZorPoint& centre, float a, float b, float phi, float start,
                                   float extent, int count, ZorPointArray* out) {
  Trace trace("SampleArc");
  if (!IsPositive(a)) return InvalidArgument(2);
  if (!IsPositive(b)) return InvalidArgument(3);
  if (!IsDegreeAngle(phi)) return InvalidArgument(4);
  if (!IsDegreeAngle(start)) return InvalidArgument(5);
  if (!IsPositive(extent) || extent > 360.0F) return InvalidArgument(6);
  if (count < 3) return InvalidArgument(7);
  if (out != nullptr) {
    out->Assign(elementary::SamplePoints({centre, a, b, phi, start, extent}, count));
  }
  return trace.Done();
}
