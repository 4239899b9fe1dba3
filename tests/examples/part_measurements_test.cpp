#include "part_measurements.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "part_finder.h"
#include "rendered_shape.h"

namespace examples_test {
namespace {

using inspect::FindParts;
using inspect::Part;

bool InBox(double x, double y) { return x > 20.25 && x < 100.75 && y > 30.5 && y < 80.25; }
bool InDisc(double x, double y) {
  return cv::norm(cv::Point2d(x, y) - cv::Point2d(150, 60)) < 28.0;
}
bool InHole(double x, double y) { return x > 40 && x < 80.5 && y > 42 && y < 70; }

std::map<std::string, double> Measured(const cv::Mat& picture, const Part& part) {
  std::map<std::string, double> values;
  for (const inspect::Row& row : inspect::MeasurePart(picture, part, "Part")) {
    EXPECT_TRUE(inspect::IsGood(row)) << row.name << ": " << inspect::Verdict(row);
    values[row.name] = row.measured;
  }
  return values;
}

TEST(Parts, BrightAndDarkOnesAreFoundAndSpecksAreNot) {
  cv::Mat picture = Rendered({200, 120}, InBox, 230, 120);
  picture.setTo(15, Rendered({200, 120}, InDisc) > 120);
  picture(cv::Rect(120, 100, 4, 4)).setTo(0);
  std::vector<Part> parts = FindParts(picture);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_FALSE(parts[0].cut);
  EXPECT_NEAR(parts[0].area, 80.5 * 49.75, 0.05 * 4000);

  parts = FindParts(picture.colRange(0, 160));
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_TRUE(parts[1].cut);
  EXPECT_TRUE(FindParts(cv::Mat(50, 50, CV_8U, cv::Scalar(90))).empty());
}

TEST(Parts, SidesAreMeasuredAndCurvesAreNoSides) {
  const cv::Mat picture = Rendered({200, 120}, [](double x, double y) {
    return (InBox(x, y) && !InHole(x, y)) || InDisc(x, y);
  });
  const std::vector<Part> parts = FindParts(picture);
  ASSERT_EQ(parts.size(), 2U);
  ASSERT_EQ(parts[0].holes.size(), 1U);
  const auto box = Measured(picture, parts[0]);
  // Extent and middle, shape with figures around and inside, two distances, four lengths, angles,
  // directions and straightnesses, and that there is no defect, for box and hole each.
  EXPECT_EQ(box.size(), 2 * (4 + 6 + 12 + 2 + 4 * 4 + 1));
  EXPECT_EQ(box.at("sides' defects, number"), 0);
  EXPECT_NEAR(box.at("area"), 80.5 * 49.75, 5);
  EXPECT_NEAR(box.at("centroid, x"), (20.25 + 100.75) / 2, 0.1);
  EXPECT_NEAR(box.at("centroid, y"), (30.5 + 80.25) / 2, 0.1);
  EXPECT_NEAR(std::abs(box.at("main axis, direction") - 90), 90, 0.2);
  EXPECT_GT(box.at("main axis, standard deviation"), box.at("cross axis, standard deviation"));
  const double wide = 80.5, high = 49.75;
  const double first = box.at("side 1, length");
  EXPECT_NEAR(first, std::abs(first - wide) < 5 ? wide : high, 0.1);
  EXPECT_NEAR(box.at("side 1 - 3, distance") * box.at("side 2 - 4, distance"), wide * high, 5);
  EXPECT_NEAR(box.at("side 1 / 2, angle"), 90, 0.2);
  EXPECT_NEAR(box.at("hole 1, side 1 - 3, distance") * box.at("hole 1, side 2 - 4, distance"),
              40.5 * 28, 5);

  const auto disc = Measured(picture, parts[1]);
  EXPECT_EQ(disc.size(), 4U + 5U + 11U) << "no sides, and no direction";
  for (const char* by : {"perimeter", "deviation", "fitted circle"}) {
    EXPECT_GT(disc.at(std::string("roundness by ") + by), 0.98) << by;
  }
  const double circumference = 2 * (wide + high);
  EXPECT_NEAR(box.at("roundness by perimeter"),
              4 * CV_PI * wide * high / (circumference * circumference), 0.01);
  EXPECT_GT(box.at("rectangularity"), 0.95);
  EXPECT_NEAR(box.at("smallest rectangle, length"), 80.5, 0.3);
  EXPECT_NEAR(disc.at("smallest circle, radius"), 28, 0.15);
  EXPECT_NEAR(disc.at("area"), CV_PI * 28 * 28, 5);
  EXPECT_NEAR(disc.at("width"), 56, 0.2);
  EXPECT_NEAR(disc.at("middle, x"), 150, 0.1);
  EXPECT_NEAR(disc.at("middle, y"), 60, 0.1);
}

// A disc of radius 60 with a slot 16 wide cut 15 deep into it from above.
bool InNotchedDisc(double x, double y) {
  return cv::norm(cv::Point2d(x - 80, y - 90)) < 60 && !(std::abs(x - 80) < 8 && y < 45);
}

// A rectangle of 120 by 80, turned by 20 degrees, with a dent 24 wide and 4 deep in its upper side.
bool InDentedBox(double x, double y) {
  const double turn_rad = 20 * CV_PI / 180;
  const cv::Point2d along(std::cos(turn_rad), -std::sin(turn_rad));
  const cv::Point2d d(x - 230.3, y - 89.6);
  const double u = d.dot(along);
  const double v = along.cross(d);
  const double dent = std::abs(u - 15) < 12 ? 2 * (1 + std::cos(CV_PI * (u - 15) / 12)) : 0;
  return std::abs(u) < 60 && v > -40 + dent && v < 40;
}

TEST(Parts, NotchesAndDentsAreMeasured) {
  const cv::Mat picture = Rendered(
      {310, 180}, [](double x, double y) { return InNotchedDisc(x, y) || InDentedBox(x, y); });
  const std::vector<Part> parts = FindParts(picture);
  ASSERT_EQ(parts.size(), 2U);
  constexpr double kPixel = 0.7;  // in a notch the outline is one of whole pixels

  const auto disc = Measured(picture, parts[0]);
  const double slot_area = 16 * 15 - 8 * 8 * 8 / 3.0 / 60;  // the arc over it as a parabola
  EXPECT_NEAR(disc.at("area"), CV_PI * 60 * 60 - slot_area, kPixel * (15 + 16 + 15));
  EXPECT_NEAR(disc.at("smallest circle, radius"), 60, 0.2);
  // It touches the disc and both corners of the slot: hypot(8, 45 + s) = 60 - s.
  EXPECT_NEAR(disc.at("largest circle inside, radius"), 60 - 1511 / 210.0, kPixel);
  EXPECT_EQ(disc.count("sides' defects, number"), 0U);

  const auto box = Measured(picture, parts[1]);
  EXPECT_NEAR(box.at("area"), 120 * 80 - 4 * 12, kPixel * 24);
  EXPECT_EQ(box.at("sides' defects, number"), 1);
  EXPECT_NEAR(box.at("sides' defects, greatest depth"), 4, 0.1);
  EXPECT_NEAR(box.at("smallest rectangle, length"), 120, 0.3);
  EXPECT_NEAR(box.at("smallest rectangle, width"), 80, 0.3);
  EXPECT_NEAR(box.at("smallest circle, radius"), std::sqrt(60 * 60 + 40 * 40), 0.2);
  EXPECT_NEAR(box.at("largest circle inside, radius"), 40, 0.15);
  EXPECT_NEAR(box.at("ellipse, direction"), 20, 2);
  EXPECT_GT(box.at("rectangularity"), 0.96);
}

}  // namespace
}  // namespace examples_test
