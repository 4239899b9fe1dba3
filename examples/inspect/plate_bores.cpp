#include "figures.h"
#include "plate_bench.h"
#include "search_lines.h"

namespace inspect {
namespace {

constexpr int kPasses = 5;
constexpr double kClipDistance = 0.3;  // as for straight edges
constexpr double kCentreLimit = 0.03;  // pixels
constexpr double kRadiusLimit = 0.05;

MeasuredBore FindBore(const cv::Mat& grey, const plate::Bore& drawn) {
  SearchOptions options;
  options.polarity = Polarity::kRising;
  MeasuredBore bore;
  bore.name = drawn.name;
  bore.points =
      FindEdges(grey, AcrossEllipse(drawn.centre, drawn.radius, drawn.radius, 0, options));
  return bore;
}

void AddBore(PlateBench* bench, const MeasuredBore& bore, const std::string& method,
             const std::string& figure) {
  const std::string group = "Bores, " + method;
  const Row x{group, bore.name + ", centre x", "px", bore.centre.x, bore.status, figure};
  bench->Add(x, bore.name + ".x", kCentreLimit);
  const Row y{group, bore.name + ", centre y", "px", bore.centre.y, bore.status, figure};
  bench->Add(y, bore.name + ".y", kCentreLimit);
  const Row radius{group, bore.name + ", radius", "px", bore.radius, bore.status, figure};
  bench->Add(radius, bore.name + ".radius", kRadiusLimit);
}

}  // namespace

void MeasureBores(PlateBench* bench) {
  ZORMV::ZorGeometryMeasureDlg& measure = bench->Measure();
  for (const plate::Bore& drawn : bench->Drawing().bores) {
    MeasuredBore bore = FindBore(bench->Grey(), drawn);
    ZorPointArray points = ToZor(bore.points);
    bore.status =
        measure.LeastSqaureCircleFit(points, kPasses, kClipDistance, &bore.centre, &bore.radius);
    AddBore(bench, bore, "least squares",
            SvgPoints(bore.points) + SvgCircle(bore.centre, bore.radius) + SvgCross(bore.centre));
    bench->Bores().push_back(bore);
  }
  for (MeasuredBore bore : bench->Bores()) {
    ZorPointArray points = ToZor(bore.points);
    bore.status =
        measure.LeastAbsoluteCircleFit(points, kPasses, kClipDistance, &bore.centre, &bore.radius);
    AddBore(bench, bore, "least absolute",
            SvgCircle(bore.centre, bore.radius) + SvgCross(bore.centre));
  }
}

}  // namespace inspect
