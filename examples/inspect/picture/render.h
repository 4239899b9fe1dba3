#pragma once

#include <cstdint>

#include <opencv2/core.hpp>

#include "../plate_drawing.h"

namespace plate {

inline constexpr double kBlurSigma = 1.0;  // of the lens, pixels
/// Variance of the whole point spread: the lens and the square pixel that integrates its light.
inline constexpr double kBlurVariance = kBlurSigma * kBlurSigma + 1.0 / 12;

/// The 8-bit grey picture of the plate: bright metal on a dark table, lit slightly unevenly,
/// blurred by the lens before the pixels integrate it, with sensor noise from `seed`.
cv::Mat Render(const Plate& plate, std::uint64_t seed);

}  // namespace plate
