#include "figures.h"
#include "plate_bench.h"

namespace inspect {
namespace {

constexpr double kAreaShare = 5e-4;
constexpr double kCrossingLimit = 0.1;  // pixels; the outlines cross at a flat angle

void AddOverlap(PlateBench* bench, const std::string& name, const plate::Slot& zone, double area,
                const ZorPointArray& crossings, long status) {
  const std::string group = "Overlap with the tolerance zone";
  std::string figure = SvgEllipse(ToZor(zone.centre), zone.a, zone.b, zone.angle_deg);
  for (const ZorPoint& p : crossings) figure += SvgCross(p);
  bench->AddRelative({group, name + ", area", "px2", area, status, figure},
                     "zone." + name + ".area", kAreaShare);
  if (status == GM_OK && crossings.Empty()) status = GM_E_NO_INTERSECTION;
  const ZorPoint first = crossings.Empty() ? ZorPoint() : *crossings.begin();
  bench->Add({group, name + ", first crossing, x", "px", first.x, status, SvgCross(first)},
             "zone." + name + ".x", kCrossingLimit);
  bench->Add({group, name + ", first crossing, y", "px", first.y, status, SvgCross(first)},
             "zone." + name + ".y", kCrossingLimit);
}

}  // namespace

void MeasureZones(PlateBench* bench) {
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  ZorPointArray crossings;
  double area = 0;
  for (std::size_t i = 0; i < bench->Bores().size(); ++i) {
    MeasuredBore& bore = bench->Bores()[i];
    const plate::Slot zone = ToleranceZone(bench->Drawing().bores[i]);
    ZorPoint centre = ToZor(zone.centre);
    const long status = measure.CircleOvalIntersection(bore.centre, bore.radius, centre, zone.a,
                                                       zone.b, zone.angle_deg, &crossings, &area);
    AddOverlap(bench, bore.name, zone, area, crossings, status);
  }
  MeasuredSlot& slot = bench->Slot();
  const plate::Slot zone = ToleranceZone(bench->Drawing().slot);
  ZorPoint centre = ToZor(zone.centre);
  const long status = measure.OvalsIntersection(slot.centre, slot.a, slot.b, slot.angle_deg, centre,
                                                zone.a, zone.b, zone.angle_deg, &crossings, &area);
  AddOverlap(bench, "slot", zone, area, crossings, status);
}

}  // namespace inspect
