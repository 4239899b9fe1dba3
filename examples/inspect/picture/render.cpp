#include "render.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <opencv2/imgproc.hpp>

#include "coverage.h"
#include "plate_as_made.h"

namespace plate {
namespace {

// The scene is drawn this many times finer than the pixels, so that blur and pixel integration act
// on (nearly) continuous light and leave no trace of where the pixel grid lies.
constexpr int kFine = 4;

constexpr float kTable = 42;
constexpr float kMetal = 182;
constexpr float kDot = 74;          // ink of the fiducials
constexpr double kNoiseSigma = 2;   // of the sensor, grey values
constexpr double kUnevenX = 0.035;  // change of the light from the middle to the right border
constexpr double kUnevenY = -0.03;  // and to the lower border

cv::Mat FineCoverage(const std::vector<Outline>& solids, const std::vector<Outline>& holes) {
  Coverage coverage(kPictureWidth * kFine, kPictureHeight * kFine, kFine);
  for (const Outline& outline : solids) coverage.Add(outline);
  for (const Outline& outline : holes) coverage.Add(outline, true);
  return coverage.Take();
}

cv::Mat MetalCoverage(const Plate& plate) {
  std::vector<Outline> holes;
  for (const Bore& bore : plate.bores) holes.push_back(CircleOutline(bore.centre, bore.radius));
  holes.push_back(EllipseOutline(plate.slot));
  const auto window = WindowCorners(plate.window);
  holes.emplace_back(window.begin(), window.end());
  return FineCoverage({OuterOutline(plate)}, holes);
}

cv::Mat DotCoverage(const Plate& plate) {
  std::vector<Outline> dots;
  for (const cv::Point2d& centre : plate.fiducials) {
    dots.push_back(CircleOutline(centre, plate.fiducial_radius));
  }
  return FineCoverage(dots, {});
}

/// Height of the scribed line's profile; it fades out as softly beyond its two ends.
double ScribeHeight(const Scribe& scribe, const cv::Point2d& p) {
  const cv::Point2d d = scribe.to - scribe.from;
  const double t = std::clamp((p - scribe.from).dot(d) / d.dot(d), 0.0, 1.0);
  const cv::Point2d off = p - (scribe.from + t * d);
  return scribe.height * std::exp(-off.dot(off) / (2 * scribe.sigma * scribe.sigma));
}

void AddScribe(const Scribe& scribe, cv::Mat* scene) {
  const double reach = 6 * scribe.sigma;
  const int left = static_cast<int>((std::min(scribe.from.x, scribe.to.x) - reach) * kFine);
  const int right = static_cast<int>((std::max(scribe.from.x, scribe.to.x) + reach) * kFine);
  const int top = static_cast<int>((std::min(scribe.from.y, scribe.to.y) - reach) * kFine);
  const int bottom = static_cast<int>((std::max(scribe.from.y, scribe.to.y) + reach) * kFine);
  for (int row = top; row < bottom; ++row) {
    for (int col = left; col < right; ++col) {
      const cv::Point2d p((col + 0.5) / kFine - 0.5, (row + 0.5) / kFine - 0.5);
      scene->at<float>(row, col) += static_cast<float>(ScribeHeight(scribe, p));
    }
  }
}

/// Standard normal numbers that are the same with every standard library.
class Noise {
 public:
  explicit Noise(std::uint64_t seed) : bits_(seed) {}
  double Next() {
    const double u = (static_cast<double>(bits_() >> 11) + 0.5) * 0x1p-53;
    const double v = static_cast<double>(bits_() >> 11) * 0x1p-53;
    return std::sqrt(-2 * std::log(u)) * std::cos(2 * CV_PI * v);
  }

 private:
  std::mt19937_64 bits_;
};

cv::Mat Exposed(const cv::Mat& light, std::uint64_t seed) {
  cv::Mat picture(light.size(), CV_8U);
  Noise noise(seed);
  for (int row = 0; row < light.rows; ++row) {
    const double from_middle_y = 2.0 * row / light.rows - 1;
    for (int col = 0; col < light.cols; ++col) {
      const double from_middle_x = 2.0 * col / light.cols - 1;
      const double lit = 1 + kUnevenX * from_middle_x + kUnevenY * from_middle_y;
      const double grey = lit * static_cast<double>(light.at<float>(row, col));
      picture.at<unsigned char>(row, col) =
          cv::saturate_cast<unsigned char>(grey + kNoiseSigma * noise.Next());
    }
  }
  return picture;
}

}  // namespace

cv::Mat Render(const Plate& plate, std::uint64_t seed) {
  cv::Mat scene = MetalCoverage(plate) * (kMetal - kTable) + kTable;
  scene += DotCoverage(plate) * (kDot - kMetal);
  AddScribe(plate.scribe, &scene);
  cv::GaussianBlur(scene, scene, {}, kBlurSigma * kFine);
  cv::Mat light;
  cv::resize(scene, light, {kPictureWidth, kPictureHeight}, 0, 0, cv::INTER_AREA);
  return Exposed(light, seed);
}

}  // namespace plate
