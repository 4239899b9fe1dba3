#include <cmath>
#include <utility>

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
  // Fitted about the drawn centre: near the origin the fit keeps most digits.
  ZorPointArray points;
  for (const cv::Point2d& p : slot.points) points.Append(ToZor(p - drawn.centre));
  float a = 0;
  float b = 0;
  float angle_deg = 0;
  slot.status = bench->Measure().LeastSqaureEllipseFit(points, kPasses, kClipDistance, &slot.centre,
                                                       &a, &b, &angle_deg);
  slot.centre = slot.centre + ToZor(drawn.centre);
  slot.a = static_cast<double>(a);
  slot.b = static_cast<double>(b);
  slot.angle_deg = static_cast<double>(angle_deg);
  if (slot.a < slot.b) {
    std::swap(slot.a, slot.b);
    slot.angle_deg += 90;
  }
  slot.angle_deg = std::fmod(slot.angle_deg, 180);
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
