#include "edge_finder.h"

#include <cmath>

#include <gtest/gtest.h>

#include "outline.h"
#include "part_finder.h"
#include "rendered_shape.h"
#include "search_lines.h"

namespace examples_test {
namespace {

// Half the distance of the samples, and what rounding to whole grey values adds.
constexpr double kPlace = 0.5 / kFine;
// The mean over many places of the pixel grid.
constexpr double kMeanPlace = 0.01;

using inspect::EdgeSearch;
using inspect::FindEdge;
using inspect::Polarity;

TEST(EdgeFinder, PlacesStraightEdgesOfAnyDirection) {
  for (const double angle_rad : {0.0, 0.01, 0.4, CV_PI / 4, 1.3, CV_PI / 2, 2.0, 3.0, 4.4}) {
    SCOPED_TRACE(angle_rad);
    const cv::Point2d normal(std::cos(angle_rad), std::sin(angle_rad));
    const cv::Point2d on_edge(31.37, 30.81);
    const cv::Mat picture = Rendered({64, 64}, [&](double x, double y) {
      return (cv::Point2d(x, y) - on_edge).dot(normal) < 0;
    });
    double sum = 0;
    int count = 0;
    for (int i = -15; i <= 15; ++i) {
      EdgeSearch search;
      search.direction = normal;
      search.centre = on_edge + 1.7 * normal + i * cv::Point2d(-normal.y, normal.x);
      const auto edge = FindEdge(picture, search);
      ASSERT_TRUE(edge);
      const double off = (edge->position - on_edge).dot(normal);
      EXPECT_NEAR(off, 0, kPlace) << "at " << i;
      EXPECT_NEAR(edge->contrast, -160, 3);
      EXPECT_NEAR(edge->blur, std::sqrt(1 + 1.0 / 12), 0.05);
      sum += off;
      ++count;
    }
    // An edge along the samples' rows or columns has the same sampling error everywhere.
    const bool along_samples = std::abs(std::sin(2 * angle_rad)) < 1e-6;
    EXPECT_NEAR(sum / count, 0, along_samples ? kPlace : kMeanPlace);
  }
}

TEST(EdgeFinder, UndoesWhatBlurDoesToBentEdges) {
  for (const double radius : {12.0, 25.0}) {
    SCOPED_TRACE(radius);
    const cv::Point2d centre(31.6, 32.2);
    const cv::Mat picture = Rendered({64, 64}, [&](double x, double y) {
      return cv::norm(cv::Point2d(x, y) - centre) < radius;
    });
    inspect::SearchOptions options;
    options.polarity = Polarity::kFalling;
    const auto searches =
        inspect::AcrossEllipse(centre + cv::Point2d(0.8, -0.5), radius, radius, 0, options);
    const auto points = inspect::FindEdges(picture, searches);
    ASSERT_EQ(points.size(), searches.size());
    double sum = 0;
    for (const cv::Point2d& p : points) sum += cv::norm(p - centre) - radius;
    EXPECT_NEAR(sum / static_cast<double>(points.size()), 0, kMeanPlace);
  }
}

TEST(EdgeFinder, FindsOnlyWhatIsAskedFor) {
  const cv::Mat band = Rendered(
      {64, 64}, [](double x, double) { return x > 25.5 && x < 37.5; }, 200, 40);
  EdgeSearch search;
  search.centre = {31, 32};
  search.direction = {1, 0};
  search.half_length = 9;
  search.polarity = Polarity::kRising;
  EXPECT_NEAR(FindEdge(band, search)->position.x, 25.5, kPlace);
  search.polarity = Polarity::kFalling;
  EXPECT_NEAR(FindEdge(band, search)->position.x, 37.5, kPlace);

  search.half_length = 3;
  EXPECT_FALSE(FindEdge(band, search)) << "flat";
  search.centre.x = 26;
  EXPECT_FALSE(FindEdge(band, search)) << "the wrong polarity";
  search.polarity = Polarity::kRising;
  search.min_contrast = 170;
  EXPECT_FALSE(FindEdge(band, search)) << "too faint";
  search.min_contrast = 20;
  for (const cv::Point2d outside : {cv::Point2d(-40, 30), {25, -3}, {25, 64.2}, {1e6, 1e6}}) {
    search.centre = outside;
    EXPECT_FALSE(FindEdge(band, search)) << outside;
  }
}

TEST(Outline, PutsCornersWhereSidesMeet) {
  const std::vector<cv::Point2d> corners = {
      {20.3, 18.4}, {101.2, 31.7}, {88.9, 90.1}, {31.5, 74.6}};
  const cv::Mat picture = Rendered({128, 112}, [&](double x, double y) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const cv::Point2d side = corners[(i + 1) % corners.size()] - corners[i];
      if (side.cross(cv::Point2d(x, y) - corners[i]) < 0) return false;
    }
    return true;
  });
  std::vector<cv::Point2d> rough;  // two pixels off, and in the other sense
  for (const cv::Point2d& corner : corners)
    rough.insert(rough.begin(), corner + cv::Point2d(2, -1));
  inspect::SearchOptions options;
  options.margin = 4;
  const inspect::Outline traced = inspect::TraceOutline(picture, rough, options);
  EXPECT_EQ(traced.found, 1);
  const std::vector<cv::Point2d>& outline = traced.points;
  const double perimeter = 310;
  EXPECT_NEAR(inspect::SignedArea(outline), inspect::SignedArea(corners), perimeter * kMeanPlace);
  for (const cv::Point2d& corner : corners) {
    double nearest = 1e9;
    for (const cv::Point2d& p : outline) nearest = std::min(nearest, cv::norm(p - corner));
    EXPECT_LT(nearest, 0.1) << corner;
  }
}

TEST(Outline, DoesNotBridgeNotches) {
  const auto top = [](double x) {
    return 20.4 + (std::abs(x - 60) < 16 ? 3 * (1 + std::cos(CV_PI * (x - 60) / 16)) : 0);
  };
  const cv::Mat picture = Rendered({120, 90}, [&](double x, double y) {
    return x > 15.3 && x < 104.7 && y > top(x) && y < 70.6;
  });
  const inspect::Outline traced =
      inspect::TraceOutline(picture, inspect::FindParts(picture)[0].outline, {});
  EXPECT_NEAR(inspect::SignedArea(traced.points), 89.4 * 50.2 - 6 * 16, 20);
}

}  // namespace
}  // namespace examples_test
