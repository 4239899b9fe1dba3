#include "truth_lines.h"

namespace plate {
namespace {

constexpr double kCornerTurn_rad = 0.1;  // the curves turn by far less from point to point

double Turn(const cv::Point2d& before, const cv::Point2d& at, const cv::Point2d& after) {
  return std::atan2((at - before).cross(after - at), (at - before).dot(after - at));
}

}  // namespace

/// The outline moved by d along its normals. Its area grows by the strips along the sides, length
/// times d, and at every turn: outwards a sharp corner becomes an arc, inwards it stays sharp, and
/// its strips overlap in a kite. Curves turn gradually, so nothing overlaps while their radii stay
/// above d.
void AddBand(const Outline& outline, TruthLines* truth) {
  const double d = kBandHalfWidth;
  double area = 0, length = 0, sectors = 0, kites = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const cv::Point2d& before = outline[(i + outline.size() - 1) % outline.size()];
    const cv::Point2d& after = outline[(i + 1) % outline.size()];
    const double turn_rad = Turn(before, outline[i], after);
    area += (outline[i] - kDatum).cross(after - kDatum) / 2;
    length += Length(after - outline[i]);
    sectors += turn_rad / 2 * d * d;
    kites += (turn_rad > kCornerTurn_rad ? std::tan(turn_rad / 2) : turn_rad / 2) * d * d;
  }
  const double outer = area + length * d + sectors;
  const double inner = area - length * d + kites;
  truth->Add("band.half width", d);
  truth->Add("band.outer.area", outer);
  truth->Add("band.inner.area", inner);
  truth->Add("band.area", outer - inner);
  const auto by_x = [](const cv::Point2d& a, const cv::Point2d& b) { return a.x < b.x; };
  const auto by_y = [](const cv::Point2d& a, const cv::Point2d& b) { return a.y < b.y; };
  const auto x = std::minmax_element(outline.begin(), outline.end(), by_x);
  const auto y = std::minmax_element(outline.begin(), outline.end(), by_y);
  truth->Add("band.outer.width", x.second->x - x.first->x + 2 * d);
  truth->Add("band.outer.height", y.second->y - y.first->y + 2 * d);
}

}  // namespace plate
