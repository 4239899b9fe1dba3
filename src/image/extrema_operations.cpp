#include <algorithm>
#include <cmath>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "ZorGeometryMeasure.h"
#include "frame/trace.h"
#include "image/extrema_kernels.h"
#include "image/image_view.h"

using zor::frame::Trace;
using zor::image::Extremum;
namespace image_kernels = zor::image;

namespace {

constexpr double kKernelSigmas = 3.0;  // half the width of the smoothing kernel
constexpr int kUnsmoothed = 0;         // a width
constexpr int kWidestSpot = 255;       // pixels; the time grows with the width
// Up to this many taps the matrix library's smoothing of bytes is the faster one. Its weights are
// multiples of 1/256, too coarse and too slow for more.
constexpr int kMostByteTaps = 31;

/// Smoothed by a Gaussian spot of the given full width at half maximum; below 1 as it is.
cv::Mat Smoothed(const cv::Mat& grey, int width) {
  const int spot = std::min({width, std::max(grey.cols, grey.rows), kWidestSpot});
  if (spot < 1) return grey;
  const double sigma = spot / (2 * std::sqrt(2 * std::log(2.0)));
  const int taps = static_cast<int>(std::ceil(2 * kKernelSigmas * sigma)) | 1;
  const cv::Size kernel(taps, taps);
  cv::Mat smoothed;
  if (taps <= kMostByteTaps) {
    cv::GaussianBlur(grey, smoothed, kernel, sigma, sigma);
    return smoothed;
  }
  cv::Mat real, rounded;
  grey.convertTo(real, CV_32F);
  cv::GaussianBlur(real, smoothed, kernel, sigma, sigma);
  smoothed.convertTo(rounded, CV_8U);
  return rounded;
}

/// Appends the extrema of the image, smoothed by a spot of that width, to the list, whose content
/// takes part in the search.
void AppendExtrema(const ZorImage& image, Extremum which, int threshold, int radius, int width,
                   ZorPointArray* output) {
  if (output == nullptr) return;
  const cv::Mat grey = Smoothed(image_kernels::GreyView(image), width);
  if (grey.empty()) return;
  const image_kernels::PixelView view{grey.ptr(), grey.cols, grey.rows,
                                      static_cast<std::ptrdiff_t>(grey.step[0])};
  ZorPointArray found(image_kernels::FindExtrema(view, which, threshold, radius, output->View()));
  if (output->Empty()) {
    output->Swap(found);
  } else {
    output->Append(found);
  }
}

}  // namespace

long ZorGeometryMeasure::localminima(ZorImage image, int threshold, int radius,
                                     ZorPointArray* output) {
  Trace trace("localminima");
  AppendExtrema(image, Extremum::kMinimum, threshold, radius, kUnsmoothed, output);
  return trace.Done();
}

long ZorGeometryMeasure::localmaxima(ZorImage image, int threshold, int radius,
                                     ZorPointArray* output) {
  Trace trace("localmaxima");
  AppendExtrema(image, Extremum::kMaximum, threshold, radius, kUnsmoothed, output);
  return trace.Done();
}

long ZorGeometryMeasure::PSFlocalminimum(ZorImage image, int threshold, int radius, int width,
                                         ZorPointArray* output) {
  Trace trace("PSFlocalminimum");
  AppendExtrema(image, Extremum::kMinimum, threshold, radius, width, output);
  return trace.Done();
}

long ZorGeometryMeasure::PSFlocalmaximum(ZorImage image, int threshold, int radius, int width,
                                         ZorPointArray* output) {
  Trace trace("PSFlocalmaximum");
  AppendExtrema(image, Extremum::kMaximum, threshold, radius, width, output);
  return trace.Done();
}
