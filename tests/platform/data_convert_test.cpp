#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <ZorDataConvert.h>

namespace {

ZorRegion RegionOf(const ZorContourArray& contours) {
  ZorRegion region;
  EXPECT_EQ(ZORMV::ZorContourArrayToRegion(contours, &region), 0);
  return region;
}

// By the definition, in whole numbers, for one pixel centre.
bool IsOnOrInside(const std::vector<ZorPoint>& polygon, const ZorPoint& centre) {
  bool is_inside = false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const ZorPoint a = polygon[i] - centre, b = polygon[(i + 1) % polygon.size()] - centre;
    const double cross = a.x * b.y - a.y * b.x;
    if (cross == 0 && a.x * b.x <= 0 && a.y * b.y <= 0) return true;
    if ((a.y > 0) != (b.y > 0) && (cross > 0) == (b.y > a.y)) is_inside = !is_inside;
  }
  return is_inside;
}

bool IsOn(const ZorImage& image, int x, int y) {
  return x >= 0 && y >= 0 && x < image.Width() && y < image.Height() && image.Row(y)[x] == 255;
}

// Unions and differences of random small contours (many touching, collinear or doubled points),
// seen in both kinds of images.
TEST(Regions, AgreeWithExactTestOfEveryCentre) {
  std::mt19937_64 rng(20240607);
  for (int i = 0; i < 1000; ++i) {
    SCOPED_TRACE(i);
    const int size = 1 + i % 12;
    std::uniform_int_distribution<int> coordinate(-size, size);
    std::vector<std::vector<ZorPoint>> outlines(3);
    for (std::vector<ZorPoint>& outline : outlines) {
      outline.resize(static_cast<std::size_t>(1 + i % 7));
      for (ZorPoint& p : outline) p = {1.0 * coordinate(rng), 1.0 * coordinate(rng)};
    }
    ZorRegion region = RegionOf({ZorContour(outlines[0]), ZorContour(), ZorContour(outlines[1])});
    ASSERT_EQ(ZORMV::ZorRegionSub(region, RegionOf({ZorContour(outlines[2])}), &region), 0);
    ZorImage frame, box;
    int left = 0, top = 0;
    ASSERT_EQ(ZORMV::ZorRegionToBinImage(region, size, 1, &frame), 0);
    ASSERT_EQ(ZORMV::ZorRegionToBinImage(region, 2, &box, &left, &top), 0);
    for (int y = -size; y <= size; ++y) {
      for (int x = -size; x <= size; ++x) {
        const ZorPoint c(x, y);
        const bool is_kept = (IsOnOrInside(outlines[0], c) || IsOnOrInside(outlines[1], c)) &&
                             !IsOnOrInside(outlines[2], c);
        ASSERT_EQ(IsOn(box, x - left, y - top), is_kept) << x << ' ' << y;
        ASSERT_EQ(IsOn(frame, x, y), is_kept && x >= 0 && x < size && y == 0) << x << ' ' << y;
      }
    }
  }
}

TEST(Regions, SubPixelOutlineTakesEnclosedCentresOnly) {
  EXPECT_EQ(RegionOf({{{-2.5, -0.5}, {3.5, -0.5}, {3.5, 1.25}, {-2.5, 1.25}}}),
            ZorRegion({{0, -2, 3}, {1, -2, 3}}));
  EXPECT_TRUE(RegionOf({{{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}}}).Empty());
}

TEST(Regions, UnusableCoordinatesAreRefused) {
  constexpr double kLimit = ZORMV::kZorConvertMaxCoordinate;
  std::vector<ZorPoint> zigzag(100, ZorPoint(0, -kLimit));
  for (std::size_t i = 0; i < zigzag.size(); i += 2) zigzag[i].y = kLimit;
  for (const ZorContour& bad :
       {ZorContour{{0, 0}, {std::numeric_limits<double>::quiet_NaN(), 1}}, ZorContour{{0, -1e300}},
        ZorContour{{kLimit + 0.5, 0}, {1, 1}}, ZorContour(zigzag)}) {
    ZorRegion region({{7, 7, 7}});
    EXPECT_EQ(ZORMV::ZorContourArrayToRegion({{{0, 0}, {1, 1}}, bad}, &region), 11200001);
    EXPECT_EQ(region, ZorRegion({{7, 7, 7}}));
  }
  EXPECT_EQ(RegionOf({{{kLimit, -kLimit}}}), ZorRegion({{-1048576, 1048576, 1048576}}));
}

TEST(RegionToBinImage, ImpossibleSizesAreRefused) {
  constexpr int kMin = std::numeric_limits<int>::min();
  const ZorRegion dot({{0, 0, 0}}), corner({{kMin, kMin, kMin}});
  ZorImage image(1, 1);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(dot, 0, 5, &image), 11200002);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(dot, 16384, 16385, &image), 11200003);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(dot, -1, &image, nullptr, nullptr), 11200002);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(dot, 8192, &image, nullptr, nullptr), 11200001);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(corner, 1, &image, nullptr, nullptr), 11200001);
  EXPECT_EQ(image.Width(), 1);
  EXPECT_EQ(ZORMV::ZorRegionToBinImage(corner, 0, &image, nullptr, nullptr), 0);
}

}  // namespace
