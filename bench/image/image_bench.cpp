#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <ZorGeometryMeasure.h>

namespace {

constexpr int kSide = 1000;

ZorImage View(cv::Mat& mat) { return ZorImage::Wrap(mat.data, mat.cols, mat.rows, mat.step[0]); }

/// 0: noise, smoothed (many extrema); 1: a flat picture (all of it one plateau).
cv::Mat GreyPicture(int kind) {
  cv::Mat picture(kSide, kSide, CV_8UC1, cv::Scalar(7));
  if (kind == 1) return picture;
  cv::RNG rng(20240607);
  rng.fill(picture, cv::RNG::UNIFORM, 0, 256);
  cv::GaussianBlur(picture, picture, cv::Size(5, 5), 1.0);
  return picture;
}

cv::Mat BlobPicture() {
  cv::Mat picture(kSide, kSide, CV_8UC1, cv::Scalar(0));
  std::mt19937 rng(20240607);
  for (int y = 11; y < kSide; y += 22) {
    for (int x = 11; x < kSide; x += 22) {
      cv::circle(picture, cv::Point(x, y), 3 + static_cast<int>(rng() % 6), cv::Scalar(255), -1);
    }
  }
  return picture;
}

void PerPixel(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

void Minima(benchmark::State& state) {
  cv::Mat picture = GreyPicture(static_cast<int>(state.range(1)));
  const ZorImage image = View(picture);
  for (auto _ : state) {
    ZorPointArray found;
    ZorGeometryMeasure().localminima(image, 200, static_cast<int>(state.range(0)), &found);
    benchmark::DoNotOptimize(found.Length());
  }
  PerPixel(state);
}
BENCHMARK(Minima)->Name("localminima/zor")->Args({3, 0})->Args({3, 1})->Args({20, 0});

void Erosion(benchmark::State& state) {
  const cv::Mat picture = GreyPicture(static_cast<int>(state.range(1)));
  const int side = 2 * static_cast<int>(state.range(0)) + 1;
  const cv::Mat kernel = cv::getStructuringElement(cv::MORPH_RECT, cv::Size(side, side));
  for (auto _ : state) {
    cv::Mat eroded;
    cv::erode(picture, eroded, kernel);
    benchmark::DoNotOptimize(eroded.data);
  }
  PerPixel(state);
}
BENCHMARK(Erosion)->Name("localminima/cv_erode")->Args({3, 0})->Args({3, 1})->Args({20, 0});

void Blobs(benchmark::State& state) {
  cv::Mat picture = BlobPicture();
  ZorImage image = View(picture);
  ZorROI roi;
  ZorVarArray areas, x, y;
  for (auto _ : state) {
    ZorGeometryMeasure().AreaMeasure(image, roi, static_cast<int>(state.range(0)), 0, 1e9F, nullptr,
                                     areas, x, y);
    benchmark::DoNotOptimize(areas.Length());
  }
  PerPixel(state);
}
BENCHMARK(Blobs)->Name("AreaMeasure/zor")->Arg(0)->Arg(1);

void BareContours(benchmark::State& state) {
  const cv::Mat picture = BlobPicture();
  for (auto _ : state) {
    std::vector<std::vector<cv::Point>> contours;
    std::vector<cv::Vec4i> hierarchy;
    cv::findContours(picture, contours, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_SIMPLE);
    double sum = 0;
    for (const auto& contour : contours) sum += cv::moments(contour).m00;
    benchmark::DoNotOptimize(sum);
  }
  PerPixel(state);
}
BENCHMARK(BareContours)->Name("AreaMeasure/cv_findContours_moments")->Arg(0);

void Components(benchmark::State& state) {
  const cv::Mat picture = BlobPicture();
  for (auto _ : state) {
    cv::Mat labels, stats, centroids;
    benchmark::DoNotOptimize(cv::connectedComponentsWithStats(picture, labels, stats, centroids));
  }
  PerPixel(state);
}
BENCHMARK(Components)->Name("AreaMeasure/cv_connectedComponents")->Arg(0);

void CountNonZero(benchmark::State& state) {
  const cv::Mat picture = BlobPicture();
  for (auto _ : state) benchmark::DoNotOptimize(cv::countNonZero(picture));
  PerPixel(state);
}
BENCHMARK(CountNonZero)->Name("AreaMeasure/cv_countNonZero")->Arg(1);

}  // namespace
