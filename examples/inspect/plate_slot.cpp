#include "ellipse_fit.h"
#include "figures.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

constexpr int kPasses = 5;
constexpr double kClipDistance = 0.3;
constexpr double kAxisLimit = 0.1;  // pixels

MeasuredSlot FindSlot(PlateBench* bench) {
  const plate::Slot& drawn = bench->Drawing().slot;
  SearchOptions options;
  options.polarity = Polarity::kRising;
  MeasuredSlot slot;
  slot.points = FindEdges(bench->Grey(),
                          AcrossEllipse(drawn.centre, drawn.a, drawn.b, drawn.angle_deg, options));
  const FittedEllipse ellipse = FitEllipse(slot.points, drawn.centre, kPasses, kClipDistance);
  slot.centre = ellipse.centre;
  slot.a = ellipse.a;
  slot.b = ellipse.b;
  slot.angle_deg = ellipse.angle_deg;
  slot.status = ellipse.status;
  return slot;
}

}  // namespace

void MeasureSlot(PlateBench* bench) {
  bench->Slot() = FindSlot(bench);
  const MeasuredSlot& slot = bench->Slot();
  const std::string group = "Slot, ellipse";
  const std::string figure = SvgPoints(slot.points) +
                             SvgEllipse(slot.centre, slot.a, slot.b, slot.angle_deg) +
                             SvgCross(slot.centre);
  const auto add = [&](const std::string& name, const std::string& unit, double value,
                       const std::string& key, double limit) {
    bench->Add({group, "slot, " + name, unit, value, slot.status, figure}, key, limit);
  };
  add("centre x", "px", slot.centre.x, "slot.x", kPositionLimit);
  add("centre y", "px", slot.centre.y, "slot.y", kPositionLimit);
  add("longer semi-axis", "px", slot.a, "slot.a", kAxisLimit);
  add("shorter semi-axis", "px", slot.b, "slot.b", kAxisLimit);
  add("direction", "deg", slot.angle_deg, "slot.angle_deg", kAngleLimit_deg);
}

}  // namespace inspect
