#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <ZorSkeleton.h>

namespace {

bool IsOn(const ZorImage& image, int x, int y) {
  return x >= 0 && y >= 0 && x < image.Width() && y < image.Height() && image.Row(y)[x] != 0;
}

// Four times the number of 8-connected parts less that of 4-connected holes, from 2 x 2 windows.
int EulerNumber(const ZorImage& image) {
  int sum = 0;
  for (int y = 0; y <= image.Height(); ++y) {
    for (int x = 0; x <= image.Width(); ++x) {
      const int diagonal = IsOn(image, x - 1, y - 1) + IsOn(image, x, y);
      const int other = IsOn(image, x, y - 1) + IsOn(image, x - 1, y);
      const int count = diagonal + other;
      sum += count % 2 != 0 ? 2 - count : (diagonal != other ? -2 : 0);
    }
  }
  return sum;
}

ZorImage Skeleton(ZorImage image) {
  EXPECT_EQ(ZORMV::ZorSkeletonDlg().Execute(image, &image), 0);
  return image;
}

TEST(Skeleton, KeepsPartsAndHolesOfEverySmallPicture) {
  for (unsigned bits = 0; bits < 1U << 16; ++bits) {
    ZorImage image(4, 4);
    for (int k = 0; k < 16; ++k) image.Row(k / 4)[k % 4] = bits >> k & 1U;
    ASSERT_EQ(EulerNumber(Skeleton(image)), EulerNumber(image)) << "picture " << bits;
  }
}

// Looking at all pixels afresh finds nothing to delete: none was passed over on the way.
TEST(Skeleton, OfASkeletonIsTheSkeleton) {
  std::mt19937_64 rng(20240607);
  std::uniform_real_distribution<double> at(0, 60);
  ZorImage image(61, 47);
  for (int disc = 0; disc < 200; ++disc) {  // every third is cut out again
    const double cx = at(rng), cy = at(rng), radius = at(rng) / 4;
    for (int k = 0; k < 61 * 47; ++k) {
      const int x = k % 61, y = k / 61;
      const double d2 = (x - cx) * (x - cx) + (y - cy) * (y - cy);
      if (d2 <= radius * radius) image.Row(y)[x] = disc % 3 == 2 ? 0 : 9;
    }
    const ZorImage once = Skeleton(image), twice = Skeleton(once);
    EXPECT_EQ(EulerNumber(once), EulerNumber(image)) << disc;
    for (int k = 0; k < 61 * 47; ++k) {
      ASSERT_EQ(once.Row(k / 61)[k % 61], twice.Row(k / 61)[k % 61]) << disc << ' ' << k;
    }
  }
}

TEST(Skeleton, OfABarIsItsMiddleRowAndOfNoBinaryImageACode) {
  std::vector<unsigned char> pixels(600, 9);
  const ZorImage bar = Skeleton(ZorImage::Wrap(pixels.data(), 40, 15, 40));
  for (int k = 0; k < 20 * 15; ++k) {
    EXPECT_EQ(bar.Row(k / 20)[10 + k % 20], k / 20 == 7 ? 255 : 0) << k;
  }
  EXPECT_EQ(pixels, std::vector<unsigned char>(600, 9)) << "wrapped pixels were overwritten";
  EXPECT_EQ(ZORMV::ZorSkeletonDlg().Execute(ZorImage(), nullptr), 11000001);
  EXPECT_EQ(ZORMV::ZorSkeletonDlg().Execute(ZorImage(4, 4, 3), nullptr), 11200001);
}

}  // namespace
