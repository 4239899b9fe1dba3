#include "edge_finder.h"

#include <algorithm>
#include <cmath>

namespace inspect {
namespace {

constexpr double kSampleStep = 0.5;    // of the coarse search along the line, pixels
constexpr double kPatchDepth = 4.5;    // half size of the fitted patch across the edge, pixels
constexpr double kPatchWidth = 1.5;    // and along it
constexpr int kMinPatchPixels = 12;    // three for each parameter
constexpr int kMaxSteps = 20;          // of the fit; four or five are usual
constexpr double kSettled = 1e-5;      // pixels, change of the offset at which the fit ends
constexpr double kMinBlur = 0.25;      // just below the blur of the pixels alone, sqrt(1 / 12)
constexpr double kMaxBlur = 4;         // wider transitions do not fit into the patch
constexpr double kMaxMove = 2;         // pixels from the coarse place to the fitted one
constexpr double kMaxResidual = 0.12;  // root mean square, as a share of the contrast

/// grey(p) = level + contrast * Phi((s(p) - offset) / blur), s the signed distance across the edge.
struct Step {
  double level, contrast, offset, blur;
};

struct Sample {
  double s, grey;
};

double Grey(const cv::Mat& grey, const cv::Point2d& p) {
  const int x = static_cast<int>(std::floor(p.x));
  const int y = static_cast<int>(std::floor(p.y));
  const double u = p.x - x;
  const double v = p.y - y;
  const unsigned char* upper = grey.ptr<unsigned char>(y) + x;
  const unsigned char* lower = grey.ptr<unsigned char>(y + 1) + x;
  return (1 - v) * ((1 - u) * upper[0] + u * upper[1]) + v * ((1 - u) * lower[0] + u * lower[1]);
}

bool Inside(const cv::Mat& grey, const cv::Point2d& p) {
  return p.x >= 0 && p.y >= 0 && p.x < grey.cols - 1 && p.y < grey.rows - 1;
}

/// The offset of the steepest place along the line, from differences over two pixels of the profile
/// averaged across three. The part of the line that lies outside of the picture is left out.
std::optional<double> SteepestPlace(const cv::Mat& grey, const EdgeSearch& search) {
  const cv::Point2d along(-search.direction.y, search.direction.x);
  const int reach = static_cast<int>(std::ceil((search.half_length + 1) / kSampleStep));
  const auto mean = [&](int k) -> std::optional<double> {
    double sum = 0;
    for (const int t : {-1, 0, 1}) {
      const cv::Point2d p = search.centre + k * kSampleStep * search.direction + t * along;
      if (!Inside(grey, p)) return std::nullopt;
      sum += Grey(grey, p);
    }
    return sum / 3;
  };
  std::vector<std::optional<double>> profile;
  profile.reserve(2 * static_cast<std::size_t>(reach) + 1);
  for (int k = -reach; k <= reach; ++k) profile.push_back(mean(k));
  std::optional<double> place;
  double steepest = 0;
  const auto apart = static_cast<std::size_t>(1 / kSampleStep);
  for (std::size_t i = apart; i + apart < profile.size(); ++i) {
    const std::optional<double>& before = profile[i - apart];
    const std::optional<double>& after = profile[i + apart];
    if (!before || !after) continue;
    const double rise = *after - *before;
    const double wanted = search.polarity == Polarity::kAny       ? std::abs(rise)
                          : search.polarity == Polarity::kFalling ? -rise
                                                                  : rise;
    if (wanted > steepest) {
      steepest = wanted;
      place = (static_cast<int>(i) - reach) * kSampleStep;
    }
  }
  return place;
}

/// The pixels around the coarse place with their distance across the edge. On a bent edge that is
/// the distance along the radius: s grows by half the curvature times the square of the way along.
std::vector<Sample> Patch(const cv::Mat& grey, const EdgeSearch& search, double place) {
  const cv::Point2d n = search.direction;
  const cv::Point2d middle = search.centre + place * n;
  const double reach = kPatchDepth + kPatchWidth;
  const int left = std::max(0, static_cast<int>(std::ceil(middle.x - reach)));
  const int right = std::min(grey.cols - 1, static_cast<int>(middle.x + reach));
  const int top = std::max(0, static_cast<int>(std::ceil(middle.y - reach)));
  const int bottom = std::min(grey.rows - 1, static_cast<int>(middle.y + reach));
  std::vector<Sample> samples;
  samples.reserve(64);
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      const cv::Point2d d = cv::Point2d(x, y) - search.centre;
      const double s = d.dot(n);
      const double t = n.cross(d);
      if (std::abs(s - place) > kPatchDepth || std::abs(t) > kPatchWidth) continue;
      samples.push_back(
          {s + search.curvature * t * t / 2, static_cast<double>(grey.at<unsigned char>(y, x))});
    }
  }
  return samples;
}

Step FirstGuess(const std::vector<Sample>& samples, double place) {
  double before = 0, after = 0, before_count = 0, after_count = 0;
  for (const Sample& sample : samples) {
    if (sample.s < place - 1) {
      before += sample.grey;
      ++before_count;
    } else if (sample.s > place + 1) {
      after += sample.grey;
      ++after_count;
    }
  }
  before /= std::max(before_count, 1.0);
  after /= std::max(after_count, 1.0);
  return {before, after - before, place, 1};
}

double Phi(double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); }

double SquaredResiduals(const std::vector<Sample>& samples, const Step& step) {
  double sum = 0;
  for (const Sample& sample : samples) {
    const double model = step.level + step.contrast * Phi((sample.s - step.offset) / step.blur);
    sum += (sample.grey - model) * (sample.grey - model);
  }
  return sum;
}

/// Least squares by Levenberg's and Marquardt's damped steps. The residual is symmetric about the
/// edge for any symmetric blur, so the offset has no bias even where the blur is not a Gaussian.
Step FitStep(const std::vector<Sample>& samples, Step step) {
  double error = SquaredResiduals(samples, step);
  double damping = 1e-3;
  for (int i = 0; i < kMaxSteps; ++i) {
    cv::Matx44d normal = cv::Matx44d::zeros();
    cv::Vec4d right = cv::Vec4d::all(0);
    for (const Sample& sample : samples) {
      const double z = (sample.s - step.offset) / step.blur;
      const double slope =
          step.contrast * std::exp(-z * z / 2) / (std::sqrt(2 * CV_PI) * step.blur);
      const cv::Vec4d gradient(1, Phi(z), -slope, -slope * z);
      const double residual = sample.grey - (step.level + step.contrast * gradient[1]);
      normal += gradient * gradient.t();
      right += residual * gradient;
    }
    for (int k = 0; k < 4; ++k) normal(k, k) *= 1 + damping;
    const cv::Vec4d change = normal.solve(right, cv::DECOMP_LU);
    Step next{step.level + change[0], step.contrast + change[1], step.offset + change[2],
              std::clamp(step.blur + change[3], kMinBlur, kMaxBlur)};
    const double next_error = SquaredResiduals(samples, next);
    if (next_error < error) {
      step = next;
      error = next_error;
      damping *= 0.1;
    } else {
      damping *= 10;
    }
    if (std::abs(change[2]) < kSettled) break;
  }
  return step;
}

bool IsEdge(const EdgeSearch& search, const std::vector<Sample>& samples, const Step& step,
            double place) {
  if (!(std::abs(step.contrast) >= search.min_contrast)) return false;
  if (search.polarity == Polarity::kRising && step.contrast < 0) return false;
  if (search.polarity == Polarity::kFalling && step.contrast > 0) return false;
  if (std::abs(step.offset - place) > kMaxMove || step.blur >= kMaxBlur) return false;
  const double residual =
      std::sqrt(SquaredResiduals(samples, step) / static_cast<double>(samples.size()));
  return residual <= kMaxResidual * std::abs(step.contrast);
}

}  // namespace

std::optional<EdgePoint> FindEdge(const cv::Mat& grey, const EdgeSearch& search) {
  const std::optional<double> place = SteepestPlace(grey, search);
  if (!place) return std::nullopt;
  const std::vector<Sample> samples = Patch(grey, search, *place);
  if (static_cast<int>(samples.size()) < kMinPatchPixels) return std::nullopt;
  const Step step = FitStep(samples, FirstGuess(samples, *place));
  if (!IsEdge(search, samples, step, *place)) return std::nullopt;
  // Blur draws the half-way grey value of a bent edge towards its centre of curvature: of a disc of
  // radius r to r - blur^2 / (2 r), to first order for every symmetric blur of that variance.
  const double offset = step.offset + step.blur * step.blur * search.curvature / 2;
  return EdgePoint{search.centre + offset * search.direction, step.blur, step.contrast};
}

std::vector<cv::Point2d> FindEdges(const cv::Mat& grey, const std::vector<EdgeSearch>& searches) {
  std::vector<cv::Point2d> points;
  points.reserve(searches.size());
  for (const EdgeSearch& search : searches) {
    if (const auto edge = FindEdge(grey, search)) points.push_back(edge->position);
  }
  return points;
}

}  // namespace inspect
