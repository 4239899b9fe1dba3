#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

/// The figure's crossings with a probe, as distances from the probe's start in that order.
void AddCrossings(PlateBench* bench, const plate::Probe& probe, const std::string& figure,
                  ZorPointArray crossings, long status) {
  ZorPoint start = ToZor(probe.from);
  std::vector<std::pair<double, ZorPoint>> found;
  for (int i = 0; i < crossings.Length(); ++i) {
    double distance = 0;
    static_cast<void>(bench->Measure().PointToPointDistance(start, crossings[i], &distance));
    found.emplace_back(distance, crossings[i]);
  }
  std::sort(found.begin(), found.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  found.resize(2, {std::numeric_limits<double>::quiet_NaN(), ZorPoint()});
  for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
    const std::string end = i == 0 ? "first" : "second";
    const Row row{"Crossings with the " + probe.name,
                  figure + ", " + end,
                  "px",
                  found[i].first,
                  status,
                  SvgCross(found[i].second) + SvgHintLine(start, found[i].second)};
    bench->Add(row, probe.name + "." + figure + "." + end, kPositionLimit);
  }
}

bool Crosses(const plate::Probe& probe, const plate::Bore& bore) {
  const cv::Point2d along = probe.to - probe.from;
  return std::abs(along.cross(bore.centre - probe.from)) < bore.radius * cv::norm(along);
}

}  // namespace

void MeasureCrossings(PlateBench* bench) {
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  std::vector<cv::Point2d> closed = bench->OuterOutline();
  if (!closed.empty()) closed.push_back(closed.front());
  ZorContour outline(ToZor(closed));
  for (const plate::Probe& probe : plate::kProbes) {
    ZorPoint from = ToZor(probe.from);
    ZorPoint to = ToZor(probe.to);
    ZorPointArray crossings;
    long status = measure.LineContourIntersection(from, to, outline, &crossings);
    AddCrossings(bench, probe, "outline", crossings, status);
    for (std::size_t i = 0; i < bench->Bores().size(); ++i) {
      if (!Crosses(probe, bench->Drawing().bores[i])) continue;
      MeasuredBore& bore = bench->Bores()[i];
      status = measure.LineCircleIntersection(from, to, bore.centre, bore.radius, &crossings);
      AddCrossings(bench, probe, bore.name, crossings, status);
    }
    if (!Crosses(probe, {"slot", bench->Drawing().slot.centre, bench->Drawing().slot.b})) continue;
    MeasuredSlot& slot = bench->Slot();
    status = measure.LineOvalIntersection(from, to, slot.centre, slot.a, slot.b, slot.angle_deg,
                                          &crossings);
    AddCrossings(bench, probe, "slot", crossings, status);
  }
}

}  // namespace inspect
