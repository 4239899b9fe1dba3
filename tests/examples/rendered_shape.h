#pragma once

#include <functional>

#include <opencv2/core.hpp>

namespace examples_test {

inline constexpr int kFine = 8;

/// A picture of a shape of brightness `inside` on `outside`, sampled kFine times finer than the
/// pixels, blurred by sigma 1 and integrated over the pixels.
cv::Mat Rendered(const cv::Size& size, const std::function<bool(double x, double y)>& is_inside,
                 double inside = 200, double outside = 40);

}  // namespace examples_test
