#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/trace_capture.h"
#include "support/values.h"
#include <ZorGeometryMeasure.h>

namespace {

/// '.' is 0, '#' 255, '+' 1.
ZorImage Drawn(const std::vector<std::string>& rows) {
  ZorImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (std::size_t y = 0; y < rows.size(); ++y) {
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      const unsigned char value = rows[y][x] == '#' ? 255 : rows[y][x] == '+' ? 1 : 0;
      image.Row(static_cast<int>(y))[x] = value;
    }
  }
  return image;
}

struct Areas {
  ZorVarArray areas{9}, x{9}, y{9};
  long status = -1;

  explicit Areas(ZorImage image, int mode, float low = 0, float high = 1e9F) {
    ZorROI roi;
    ZorROIArray rois;
    status = ZorGeometryMeasure().AreaMeasure(image, roi, mode, low, high, &rois, areas, x, y);
  }
};

const std::vector<std::string> kBlobs = {
    "#####.....+",  //
    "#...#......",  //
    "#.#.#.####.",  //
    "#...#.####.",  //
    "#####.####.",
};

}  // namespace

TEST(AreaMeasure, MeasuresOuterBoundariesOnly) {
  const Areas all(Drawn(kBlobs), 0);
  EXPECT_EQ(all.status, GM_OK);
  // Areas between pixel centres. The dot in the ring's hole is a boundary of its own.
  ASSERT_EQ(all.areas.Length(), 4);
  double ring = 0, block = 0;
  int points = 0;
  for (int i = 0; i < 4; ++i) {
    if (all.areas[i].D() == 16) {
      ++ring;
      EXPECT_EQ(ZorPoint(all.x[i].D(), all.y[i].D()), ZorPoint(2, 2));
    } else if (all.areas[i].D() == 6) {
      ++block;
      EXPECT_EQ(ZorPoint(all.x[i].D(), all.y[i].D()), ZorPoint(8, 3));  // 7.5 away from zero
    } else {
      ++points;
      EXPECT_EQ(all.areas[i].D(), 0);
      const ZorPoint centre(all.x[i].D(), all.y[i].D());
      EXPECT_TRUE(centre == ZorPoint(2, 2) || centre == ZorPoint(10, 0));
    }
  }
  EXPECT_EQ(ring + block + points, 4);
  EXPECT_EQ(Areas(Drawn(kBlobs), 0, 6, 16).areas.Length(), 2);  // both bounds included
  EXPECT_EQ(Areas(Drawn(kBlobs), 0, 6.01F, 15.99F).areas.Length(), 0);
  EXPECT_EQ(Areas(Drawn(kBlobs), 0, std::numeric_limits<float>::quiet_NaN(), 99).areas.Length(), 0);
}

TEST(AreaMeasure, CountsOnlyFullWhiteInModeOne) {
  const Areas count(Drawn(kBlobs), 1);
  EXPECT_EQ(count.areas, ZorVarArray{29});
  EXPECT_TRUE(count.x.Empty() && count.y.Empty());
  EXPECT_EQ(Areas(ZorImage(4, 4), 1).areas, ZorVarArray{0});
  EXPECT_EQ(Areas(ZorImage(4, 4), 0).areas.Length(), 0);
}

TEST(AreaMeasure, TakesEveryKindOfImage) {
  const ZorImage plain = Drawn(kBlobs);
  const int width = plain.Width(), height = plain.Height(), stride = width + 5;
  std::vector<unsigned char> top_down(static_cast<std::size_t>(stride * height), 255), bottom_up;
  bottom_up = top_down;
  ZorImage colour(width, height, 3);
  ZorImage strided = ZorImage::Wrap(top_down.data(), width, height, stride);
  ZorImage reversed =
      ZorImage::Wrap(bottom_up.data() + stride * (height - 1), width, height, -stride);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      strided.Row(y)[x] = reversed.Row(y)[x] = plain.Row(y)[x];
      std::fill_n(colour.Row(y) + 3 * x, 3, plain.Row(y)[x]);
    }
  }
  const Areas expected(plain, 0);
  for (const ZorImage& image : {colour, strided, reversed}) {
    const Areas blobs(image, 0);
    EXPECT_TRUE(blobs.areas == expected.areas && blobs.x == expected.x && blobs.y == expected.y);
    EXPECT_EQ(Areas(image, 1).areas, ZorVarArray{29});
  }
  const Areas line(Drawn({"#", ".", "#", "#"}), 0);
  EXPECT_EQ(line.areas, (ZorVarArray{0, 0}));
  EXPECT_EQ(line.y[0].D() + line.y[1].D(), 0 + 3);  // 2.5 away from zero
  EXPECT_EQ(Areas(Drawn({"#", ".", "#", "#"}), 1).areas, ZorVarArray{3});
}

TEST(AreaMeasure, ClearsItsListsWhateverFollows) {
  for (const int mode : {0, 1, 2, -1}) {
    const Areas empty(ZorImage(), mode);
    EXPECT_EQ(empty.status, GM_E_EMPTY_IMAGE);
    EXPECT_TRUE(empty.areas.Empty() && empty.x.Empty() && empty.y.Empty());
  }
  const zor::test::TraceCapture capture;
  const Areas none(Drawn(kBlobs), 2);
  EXPECT_EQ(none.status, GM_OK);
  EXPECT_TRUE(none.areas.Empty());
  EXPECT_EQ(capture.Events(), "+AreaMeasure -AreaMeasure");
}
