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

/// Appends the extrema of a grey picture to the list, whose content takes part in the search.
void AppendExtrema(const cv::Mat& grey, Extremum which, int threshold, int radius,
                   ZorPointArray* output) {
  if (output == nullptr || grey.empty()) return;
  const image_kernels::PixelView view{grey.ptr(), grey.cols, grey.rows,
                                      static_cast<std::ptrdiff_t>(grey.step[0])};
  ZorPointArray found(image_kernels::FindExtrema(view, which, threshold, radius, output->View()));
  if (output->Empty()) {
    output->Swap(found);
  } else {
    output->Append(found);
  }
}

/// Smoothed by a Gaussian spot of the given full width at half maximum.
cv::Mat Smoothed(const cv::Mat& grey, int width) {
  const int spot = std::min(width, std::max(grey.cols, grey.rows));
  if (spot < 1) return grey;
  const double sigma = spot / (2 * std::sqrt(2 * std::log(2.0)));
  const int kernel = static_cast<int>(std::ceil(2 * kKernelSigmas * sigma)) | 1;
  cv::Mat smoothed;
  cv::GaussianBlur(grey, smoothed, cv::Size(kernel, kernel), sigma, sigma);
  return smoothed;
}

}  // namespace

long ZorGeometryMeasure::localminima(ZorImage image, int threshold, int radius,
                                     ZorPointArray* output) {
  Trace trace("localminima");
  AppendExtrema(image_kernels::GreyView(image), Extremum::kMinimum, threshold, radius, output);
  return trace.Done();
}

long ZorGeometryMeasure::localmaxima(ZorImage image, int threshold, int radius,
                                     ZorPointArray* output) {
  Trace trace("localmaxima");
  AppendExtrema(image_kernels::GreyView(image), Extremum::kMaximum, threshold, radius, output);
  return trace.Done();
}

long ZorGeometryMeasure::PSFlocalminimum(ZorImage image, int threshold, int radius, int width,
                                         ZorPointArray* output) {
  Trace trace("PSFlocalminimum");
  AppendExtrema(Smoothed(image_kernels::GreyView(image), width), Extremum::kMinimum, threshold,
                radius, output);
  return trace.Done();
}

long ZorGeometryMeasure::PSFlocalmaximum(ZorImage image, int threshold, int radius, int width,
                                         ZorPointArray* output) {
  Trace trace("PSFlocalmaximum");
  AppendExtrema(Smoothed(image_kernels::GreyView(image), width), Extremum::kMaximum, threshold,
                radius, output);
  return trace.Done();
}
