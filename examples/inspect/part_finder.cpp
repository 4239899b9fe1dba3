#include "part_finder.h"

#include <algorithm>
#include <utility>

#include <opencv2/imgproc.hpp>

namespace inspect {
namespace {

constexpr double kSmoothing = 1;     // sigma, pixels, before the threshold
constexpr double kMinContrast = 15;  // grey values between background and parts
constexpr double kMinArea = 100;     // square pixels; and as a share of the picture
constexpr double kMinAreaShare = 1e-4;
constexpr double kMinHoleArea = 100;

/// The median of the grey values along the border.
int BackgroundGrey(const cv::Mat& grey) {
  std::vector<unsigned char> border;
  for (int x = 0; x < grey.cols; ++x) {
    border.push_back(grey.at<unsigned char>(0, x));
    border.push_back(grey.at<unsigned char>(grey.rows - 1, x));
  }
  for (int y = 0; y < grey.rows; ++y) {
    border.push_back(grey.at<unsigned char>(y, 0));
    border.push_back(grey.at<unsigned char>(y, grey.cols - 1));
  }
  const auto middle = border.begin() + static_cast<std::ptrdiff_t>(border.size() / 2);
  std::nth_element(border.begin(), middle, border.end());
  return *middle;
}

/// White where the picture differs from its background, by Otsu's threshold on the difference.
cv::Mat Foreground(const cv::Mat& grey) {
  cv::Mat smooth;
  cv::GaussianBlur(grey, smooth, {}, kSmoothing);
  cv::Mat difference;
  cv::absdiff(smooth, cv::Scalar(BackgroundGrey(smooth)), difference);
  cv::Mat mask;
  cv::threshold(difference, mask, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
  const double parts = cv::mean(difference, mask)[0];
  const double background = cv::mean(difference, ~mask)[0];
  if (parts - background < kMinContrast) mask.setTo(0);
  return mask;
}

bool ReachesBorder(const std::vector<cv::Point>& chain, const cv::Size& size) {
  return std::any_of(chain.begin(), chain.end(), [&](const cv::Point& p) {
    return p.x <= 0 || p.y <= 0 || p.x >= size.width - 1 || p.y >= size.height - 1;
  });
}

std::vector<cv::Point2d> Precise(const std::vector<cv::Point>& chain) {
  return {chain.begin(), chain.end()};
}

/// The holes from number `first` on along their list, largest first.
std::vector<std::vector<cv::Point2d>> Holes(const std::vector<std::vector<cv::Point>>& chains,
                                            const std::vector<cv::Vec4i>& hierarchy, int first) {
  std::vector<std::pair<double, std::size_t>> found;
  for (int number = first; number >= 0;) {
    const auto i = static_cast<std::size_t>(number);
    const double area = cv::contourArea(chains[i]);
    if (area >= kMinHoleArea) found.emplace_back(-area, i);
    number = hierarchy[i][0];
  }
  std::sort(found.begin(), found.end());
  std::vector<std::vector<cv::Point2d>> holes;
  holes.reserve(found.size());
  for (const auto& hole : found) holes.push_back(Precise(chains[hole.second]));
  return holes;
}

}  // namespace

std::vector<Part> FindParts(const cv::Mat& grey) {
  const cv::Mat mask = Foreground(grey);
  std::vector<std::vector<cv::Point>> chains;
  std::vector<cv::Vec4i> hierarchy;  // next, previous, first hole, parent
  cv::findContours(mask, chains, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
  const double picture_area = static_cast<double>(grey.total());
  const double min_area = std::max(kMinArea, kMinAreaShare * picture_area);
  std::vector<Part> parts;
  for (std::size_t i = 0; i < chains.size(); ++i) {
    if (hierarchy[i][3] >= 0) continue;
    Part part;
    part.area = cv::contourArea(chains[i]);
    if (part.area < min_area) continue;
    part.cut = ReachesBorder(chains[i], grey.size());
    part.outline = Precise(chains[i]);
    part.holes = Holes(chains, hierarchy, hierarchy[i][2]);
    parts.push_back(std::move(part));
  }
  std::sort(parts.begin(), parts.end(),
            [](const Part& a, const Part& b) { return a.area > b.area; });
  return parts;
}

}  // namespace inspect
