#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasure.h>
#include <ZorGeometryMeasureDlg.h>

namespace {

constexpr int kMaxInt = std::numeric_limits<int>::max();

ZorImage Picture(const std::vector<std::vector<int>>& rows) {
  ZorImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (std::size_t y = 0; y < rows.size(); ++y) {
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      image.Row(static_cast<int>(y))[x] = static_cast<unsigned char>(rows[y][x]);
    }
  }
  return image;
}

ZorImage RandomPicture(std::mt19937& rng, int width, int height, int levels) {
  ZorImage image(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.Row(y)[x] = static_cast<unsigned char>(rng() % static_cast<unsigned>(levels) * 40);
    }
  }
  return image;
}

bool Holds(const ZorPointArray& points, int x, int y) {
  for (const ZorPoint& p : points) {
    if (p == ZorPoint(x, y)) return true;
  }
  return false;
}

/// Pixel after pixel, neighbour after neighbour, position after position.
void AppendExtremaPlainly(const ZorImage& image, bool is_maximum, int threshold, int radius,
                          ZorPointArray* output) {
  const auto value = [&](int x, int y) {
    return is_maximum ? 255 - image.Row(y)[x] : static_cast<int>(image.Row(y)[x]);
  };
  for (int y = 1; y < image.Height(); ++y) {
    for (int x = 1; x < image.Width(); ++x) {
      bool is_extreme = value(x, y) < (is_maximum ? 255 - threshold : threshold);
      for (int dy = -radius; dy <= radius && is_extreme; ++dy) {
        for (int dx = -radius; dx <= radius && is_extreme; ++dx) {
          const int nx = x + dx, ny = y + dy;
          if (nx < 1 || ny < 1 || nx >= image.Width() || ny >= image.Height()) continue;
          if (value(x, y) > value(nx, ny)) is_extreme = false;
          if (value(x, y) == value(nx, ny) && Holds(*output, nx, ny)) is_extreme = false;
        }
      }
      if (is_extreme) output->Append(ZorPoint(x, y));
    }
  }
}

}  // namespace

TEST(LocalExtrema, AgreeWithThePlainSearch) {
  struct Sizes {
    int rounds, width, height, radius, radii;
  };
  std::mt19937 rng(20240607);
  // Small radii, those of the doubled windows, and one whose rows need more than a byte to count.
  for (const Sizes& s : {Sizes{300, 25, 25, -1, 7},
                         {20, 30, 30, 9, 20},
                         {4, 80, 60, 33, 28},
                         {3, 30, 300, 260, 1}}) {
    for (int round = 0; round < s.rounds; ++round) {
      const int width = s.width - static_cast<int>(rng() % 25);
      const int height = std::max(1, s.height - static_cast<int>(rng() % 25));
      const ZorImage image = RandomPicture(rng, width, height, 1 + round % 7);
      const int radius = s.radius + static_cast<int>(rng() % static_cast<unsigned>(s.radii));
      const int threshold = static_cast<int>(rng() % 300) - 20;
      ZorPointArray expected;
      for (int i = 0; i < round % 5; ++i) {  // left by the caller, some beside the image
        expected.Append(ZorPoint(static_cast<int>(rng() % 27), static_cast<int>(rng() % 27)));
      }
      if (round % 11 == 3) expected.Append(ZorPoint(zor::test::kNaN, 1e300));
      if (round % 7 == 1) expected.Append(ZorPoint(1.5, 1));
      ZorPointArray minima(expected), maxima(expected), expected_maxima(expected);
      AppendExtremaPlainly(image, false, threshold, radius, &expected);
      AppendExtremaPlainly(image, true, threshold, radius, &expected_maxima);
      EXPECT_EQ(ZorGeometryMeasure().localminima(image, threshold, radius, &minima), GM_OK);
      EXPECT_EQ(ZorGeometryMeasure().localmaxima(image, threshold, radius, &maxima), GM_OK);
      SCOPED_TRACE("round " + std::to_string(round) + ", radius " + std::to_string(radius));
      ASSERT_EQ(minima.Length(), expected.Length());
      ASSERT_EQ(maxima.Length(), expected_maxima.Length());
      if (round % 11 == 3) continue;  // holds a NaN, which equals nothing
      ASSERT_EQ(minima, expected);
      ASSERT_EQ(maxima, expected_maxima);
    }
  }
}

TEST(LocalExtrema, KeepToThresholdBordersAndPlateaus) {
  ZorGeometryMeasure m;
  const ZorImage pits =
      Picture({{0, 9, 9, 9, 9}, {9, 9, 9, 9, 9}, {9, 9, 5, 5, 9}, {9, 9, 9, 9, 7}});
  ZorPointArray out;
  m.localminima(pits, 9, 1, &out);  // the pit in row 0 is not seen; the plateau counts once
  EXPECT_EQ(out, (ZorPointArray{{2, 2}}));
  m.localminima(pits, 9, 1, &out);  // what was found before stands in the list
  EXPECT_EQ(out, (ZorPointArray{{2, 2}}));
  out.Clear();
  m.localminima(pits, 5, 1, &out);  // the threshold itself is no candidate
  EXPECT_TRUE(out.Empty());
  m.localminima(pits, kMaxInt, kMaxInt, &out);
  EXPECT_EQ(out, (ZorPointArray{{2, 2}}));
  out.Clear();
  m.localmaxima(pits, -kMaxInt - 1, kMaxInt, &out);
  EXPECT_EQ(out, (ZorPointArray{{1, 1}}));
  out.Clear();
  m.localmaxima(pits, 255, 0, &out);
  EXPECT_TRUE(out.Empty());
  m.localminima(ZorImage(20000, 3), 9, kMaxInt, &out);  // no margin larger than the image
  EXPECT_EQ(out, (ZorPointArray{{1, 1}}));
}

TEST(LocalExtrema, TakeEveryKindOfImage) {
  ZorGeometryMeasure m;
  ZorPointArray out;
  EXPECT_EQ(m.localminima(ZorImage(), 255, 1, &out), GM_OK);
  EXPECT_EQ(m.PSFlocalmaximum(ZorImage(), 0, 1, 3, &out), GM_OK);
  EXPECT_EQ(m.localminima(ZorImage(1, 50), 255, 1, &out), GM_OK);
  EXPECT_EQ(m.localminima(ZorImage(50, 1), 255, 1, &out), GM_OK);
  EXPECT_TRUE(out.Empty());

  ZorImage colour(9, 9, 3);
  for (int c = 0; c < 3; ++c) colour.Row(4)[3 * 5 + c] = 200;
  m.localmaxima(colour, 0, 2, &out);
  EXPECT_EQ(out, (ZorPointArray{{5, 4}}));

  std::vector<unsigned char> pixels(10 * 8, 0);
  pixels[3 * 10 + 2] = 99;
  for (const bool is_bottom_up : {false, true}) {
    out.Clear();
    m.localmaxima(is_bottom_up ? ZorImage::Wrap(pixels.data() + 7 * 10, 8, 8, -10)
                               : ZorImage::Wrap(pixels.data(), 8, 8, 10),
                  0, 3, &out);
    EXPECT_EQ(out, (ZorPointArray{{2, is_bottom_up ? 4.0 : 3.0}}));
  }
}

TEST(PSFLocalExtrema, FindSpotsUnderNoise) {
  // Two spots of 4 pixels width on a noisy ground: without smoothing the noise gives many more.
  std::mt19937 rng(20240607);
  const ZorPointArray centres{{20, 15}, {45, 40}};
  ZorImage bright(64, 56), dark(64, 56);
  for (int y = 0; y < 56; ++y) {
    for (int x = 0; x < 64; ++x) {
      double value = 60 + static_cast<double>(rng() % 25);
      for (const ZorPoint& c : centres) {
        const double d2 = (x - c.x) * (x - c.x) + (y - c.y) * (y - c.y);
        value += 130 * std::exp2(-d2 / 4);  // half of it at two pixels from the centre
      }
      bright.Row(y)[x] = static_cast<unsigned char>(value);
      dark.Row(y)[x] = static_cast<unsigned char>(255 - bright.Row(y)[x]);
    }
  }
  ZORMV::ZorGeometryMeasureDlg dlg;
  for (const bool is_dark : {false, true}) {
    ZorPointArray out;
    EXPECT_EQ(is_dark ? dlg.PSFlocalminimum(dark, 155, 5, 4, &out)
                      : dlg.PSFlocalmaximum(bright, 100, 5, 4, &out),
              GM_OK);
    ASSERT_EQ(out.Length(), 2);
    for (int i = 0; i < 2; ++i) zor::test::ExpectNear(out[i], centres[i], 1.0);
  }
  ZorPointArray plain, unsmoothed;
  dlg.localmaxima(bright, 70, 1, &plain);
  dlg.PSFlocalmaximum(bright, 70, 1, 0, &unsmoothed);
  EXPECT_GT(plain.Length(), 50);
  EXPECT_EQ(plain, unsmoothed);
}

TEST(PSFLocalExtrema, SpreadAWideSpotAsFarAsItsLargestWidth) {
  struct Case {
    const char* what;
    int width, height, block_width, block_height, spot, peak;  // 255 erf(..) for either direction
  };
  for (const Case& c : {Case{"kernel of 17", 60, 50, 3, 3, 6, 51},
                        {"103", 150, 130, 21, 21, 40, 55},
                        {"wider than 255", 2000, 4, 61, 4, kMaxInt, 57}}) {
    SCOPED_TRACE(c.what);
    const int x0 = (c.width - c.block_width) / 2, y0 = (c.height - c.block_height) / 2;
    const int stride = c.width + 40;
    std::vector<unsigned char> pixels(static_cast<std::size_t>(stride * c.height), 255);
    ZorImage image = ZorImage::Wrap(pixels.data(), c.width, c.height, stride);  // white beside it
    for (int y = 0; y < c.height; ++y) {
      for (int x = 0; x < c.width; ++x) {
        const bool is_in = x >= x0 && x < x0 + c.block_width && y >= y0 && y < y0 + c.block_height;
        image.Row(y)[x] = is_in ? 255 : 0;
      }
    }
    ZorPointArray above, below;
    EXPECT_EQ(ZorGeometryMeasure().PSFlocalmaximum(image, c.peak - 2, 99, c.spot, &below), GM_OK);
    EXPECT_EQ(ZorGeometryMeasure().PSFlocalmaximum(image, c.peak + 2, 99, c.spot, &above), GM_OK);
    EXPECT_EQ(below.Length(), 1);
    EXPECT_EQ(above.Length(), 0);
  }
}
