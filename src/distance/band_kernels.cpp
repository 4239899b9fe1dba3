#include "distance/band_kernels.h"

#include <cstdint>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "distance/one_sided_search.h"
#include "distance/pairings.h"
#include "distance/polyline_kernels.h"
#include "distance/run_tree.h"
#include "elementary/point_kernels.h"
#include <ZorContourArray.h>
#include <ZorDataConvert.h>
#include <ZorImage.h>
#include <ZorRegion.h>
#include <ZorSkeleton.h>

namespace zor::distance {
namespace {

using Items = RunTree::Items;

// What the conversions answer besides an invalid argument.
constexpr long kOk = 0;

BandStatus RegionOf(const ZorContour& contour, BandStatus invalid, ZorRegion* region) {
  const long status = ZORMV::ZorContourArrayToRegion({contour}, region);
  if (status == kOk) return BandStatus::kFound;
  return status == ZORMV::kZorConvertOutOfMemory ? BandStatus::kOutOfMemory : invalid;
}

/// The outline with its closing edge.
class Outline {
 public:
  explicit Outline(const ZorContour& contour) : points_(contour.begin(), contour.end()) {
    points_.push_back(points_.front());
  }

  /// The points of the outline nearest to the stations.
  [[nodiscard]] std::vector<ZorPoint> NearestTo(const RunTree& stations) const {
    const RunTree tree(points_, Items::kSegments);
    const double longest = tree.BoxOf(tree.Root()).Extent();
    OneSidedSearch<PointSegmentPairing> search(
        PointSegmentPairing(stations.Points(), points_, longest), stations, tree);
    std::vector<ZorPoint> nearest;
    nearest.reserve(stations.Size());
    for (std::uint32_t i = 0; i < stations.Size(); ++i) {
      const ZorPoint& p = stations.Start(i);
      const std::uint32_t edge = search.NearestTo(i).b;
      nearest.push_back(
          elementary::PointToClosedSegment(p, points_[edge], points_[edge + 1]).point);
    }
    return nearest;
  }

 private:
  std::vector<ZorPoint> points_;
};

/// The centres of the pixels of a region's skeleton, row by row.
BandStatus SkeletonOf(const ZorRegion& region, BandStatus invalid, std::vector<ZorPoint>* pixels) {
  ZorImage image;
  int left = 0;
  int top = 0;
  if (const long status = ZORMV::ZorRegionToBinImage(region, 1, &image, &left, &top);
      status != kOk) {
    return status == ZORMV::kZorConvertOutOfMemory ? BandStatus::kOutOfMemory : invalid;
  }
  ZorImage skeleton;
  if (ZORMV::ZorSkeletonDlg().Execute(image, &skeleton) != kOk) return BandStatus::kOutOfMemory;
  for (int y = 0; y < skeleton.Height(); ++y) {
    const unsigned char* const row = skeleton.Row(y);
    for (int x = 0; x < skeleton.Width(); ++x) {
      if (row[x] != 0) pixels->emplace_back(left + x, top + y);
    }
  }
  return BandStatus::kFound;
}

Band MeasureAt(std::span<const ZorPoint> stations, const ZorContour& contour_a,
               const ZorContour& contour_b) {
  const RunTree tree(stations, Items::kPoints);
  const std::vector<ZorPoint> on_a = Outline(contour_a).NearestTo(tree);
  const std::vector<ZorPoint> on_b = Outline(contour_b).NearestTo(tree);
  Band band;
  for (std::size_t i = 0; i < stations.size(); ++i) {
    const ContourPair width{elementary::Distance(on_a[i], on_b[i]), on_a[i], on_b[i]};
    if (i == 0 || width.distance < band.narrowest.distance) band.narrowest = width;
    if (i == 0 || width.distance > band.widest.distance) band.widest = width;
  }
  return band;
}

}  // namespace

Band MeasureBand(const ZorContour& contour_a, const ZorContour& contour_b) {
  ZorRegion region_a;
  ZorRegion region_b;
  BandStatus status = RegionOf(contour_a, BandStatus::kInvalidA, &region_a);
  if (status == BandStatus::kFound) status = RegionOf(contour_b, BandStatus::kInvalidB, &region_b);
  if (status != BandStatus::kFound) return {status, {}, {}};
  const bool is_a_outer = region_a.Area() >= region_b.Area();
  const ZorRegion& outer = is_a_outer ? region_a : region_b;
  const ZorRegion& inner = is_a_outer ? region_b : region_a;
  ZorRegion band;
  if (ZORMV::ZorRegionSub(outer, inner, &band) != kOk) return {BandStatus::kOutOfMemory, {}, {}};
  if (!outer.Empty() && band.Area() == outer.Area()) return {BandStatus::kNotOverlapping, {}, {}};
  if (band.Empty()) return MeasureAt(contour_a.View(), contour_a, contour_b);
  std::vector<ZorPoint> pixels;
  const BandStatus invalid = is_a_outer ? BandStatus::kInvalidA : BandStatus::kInvalidB;
  status = SkeletonOf(band, invalid, &pixels);
  if (status != BandStatus::kFound) return {status, {}, {}};
  return MeasureAt(pixels, contour_a, contour_b);
}

}  // namespace zor::distance
