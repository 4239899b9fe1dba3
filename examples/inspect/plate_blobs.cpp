#include <cmath>

#include <opencv2/imgproc.hpp>

#include "figures.h"
#include "plate_bench.h"
#include <ZorGeometryMeasure.h>

namespace inspect {
namespace {

constexpr const char* kGroup = "Bores, areas in the binary picture";
// Square pixels: more than a fiducial and less than the slot, the window and the table around.
constexpr float kMinBore = 1000;
constexpr float kMaxBore = 20000;
// Whole pixels are in or out; light that falls off over the picture moves all of an edge.
constexpr double kEdgeLimit = 0.2;     // pixels by which a whole outline may be off
constexpr double kCentreLimit = 0.7;   // rounded to whole pixels
constexpr double kPixelsShare = 1e-3;  // of the metal, accepted error of their number

ZorImage Wrapped(cv::Mat& image) {
  return ZorImage::Wrap(image.data, image.cols, image.rows,
                        static_cast<std::ptrdiff_t>(image.step));
}

struct Blobs {
  ZorVarArray areas, x, y;
  long status = GM_OK;
};

Blobs Measured(cv::Mat& binary, int mode) {
  ZorImage image = Wrapped(binary);
  ZorROI everywhere;
  Blobs blobs;
  blobs.status = ZorGeometryMeasure().AreaMeasure(image, everywhere, mode, kMinBore, kMaxBore,
                                                  nullptr, blobs.areas, blobs.x, blobs.y);
  return blobs;
}

/// The number of the blob whose centre lies in the drawn bore; -1 for none.
int BlobIn(const plate::Bore& drawn, const Blobs& blobs) {
  for (int i = 0; i < blobs.areas.Length(); ++i) {
    const cv::Point2d off = cv::Point2d(blobs.x[i].D(), blobs.y[i].D()) - drawn.centre;
    if (cv::norm(off) < drawn.radius) return i;
  }
  return -1;
}

void AddBlob(PlateBench* bench, const plate::Bore& drawn, const Blobs& blobs) {
  const int i = BlobIn(drawn, blobs);
  if (i < 0) return;
  const double area = blobs.areas[i].D();
  const ZorPoint centre(blobs.x[i].D(), blobs.y[i].D());
  // The outline that is measured runs through the centres of the outermost pixels.
  const std::string figure = SvgCircle(centre, std::sqrt(area / CV_PI));
  bench->Add({kGroup, drawn.name + ", area between pixel centres", "px2", area, GM_OK, figure},
             drawn.name + ".area between pixels", kEdgeLimit * 2 * CV_PI * drawn.radius);
  const std::string cross = SvgCross(centre);
  bench->Add({kGroup, drawn.name + ", whole centre x", "px", centre.x, GM_OK, cross},
             drawn.name + ".x", kCentreLimit);
  bench->Add({kGroup, drawn.name + ", whole centre y", "px", centre.y, GM_OK, cross},
             drawn.name + ".y", kCentreLimit);
}

}  // namespace

void MeasureBlobs(PlateBench* bench) {
  cv::Mat metal;
  cv::threshold(bench->Grey(), metal, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
  cv::Mat dark = ~metal;
  const Blobs bores = Measured(dark, 0);
  Row count{kGroup, "number", "", static_cast<double>(bores.areas.Length()), bores.status};
  bench->Add(count, "count.bores", kCountLimit);
  for (const plate::Bore& drawn : bench->Drawing().bores) AddBlob(bench, drawn, bores);
  const Blobs pixels = Measured(metal, 1);
  bench->AddRelative({kGroup, "metal, number of pixels", "px2", pixels.areas[0].D(), pixels.status},
                     "metal.area", kPixelsShare);
}

}  // namespace inspect
