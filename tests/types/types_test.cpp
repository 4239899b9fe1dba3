#include <cstddef>
#include <numeric>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <ZorData.h>

TEST(ZorPointArray, IndexWrapsAroundCyclically) {
  ZorPointArray points{{0, 0}, {1, 0}, {2, 0}};
  const ZorPointArray& fixed = points;
  for (int i = -7; i <= 8; ++i) {
    const double expected = ((i % 3) + 3) % 3;
    EXPECT_EQ(points[i].x, expected) << i;
    EXPECT_EQ(fixed[i].x, expected) << i;
  }
  points[-1] = ZorPoint(9, 9);
  EXPECT_EQ(points[2], ZorPoint(9, 9));
  ZorPointArray empty;
  empty[5].x = 3;  // goes nowhere
  EXPECT_EQ(empty[0], ZorPoint(0, 0));
}

TEST(ZorPointArray, EditsInPlace) {
  ZorPointArray points{{0, 0}, {1, 0}, {2, 0}};
  points.Append(points);
  EXPECT_EQ(points.Length(), 6);
  EXPECT_TRUE(points.Remove(1));
  EXPECT_FALSE(points.Remove(5));
  EXPECT_FALSE(points.Remove(-1));
  EXPECT_EQ(points, (ZorPointArray{{0, 0}, {2, 0}, {0, 0}, {1, 0}, {2, 0}}));
  ZorPoint selected(7, 7);
  EXPECT_FALSE(points.Select(5, &selected));
  EXPECT_EQ(selected, ZorPoint(7, 7));
  EXPECT_TRUE(points.Select(4, &selected));
  EXPECT_EQ(selected, ZorPoint(2, 0));
  points.Assign(ZorPointView(points.begin() + 3, 2));  // part of itself
  EXPECT_EQ(points, (ZorPointArray{{1, 0}, {2, 0}}));
  points.Append({0, 4});  // a point, not four of them at null
  EXPECT_EQ(points[2], ZorPoint(0, 4));
  points.Assign({{0, 4}});
  EXPECT_EQ(points, (ZorPointArray{{0, 4}}));
  static_assert(!std::is_constructible_v<ZorPointArray, const ZorPoint*, std::size_t>);
  static_assert(!std::is_convertible_v<ZorPointView, ZorPointArray>);
}

TEST(ZorPointArray, AssignmentGivesTheListByValue) {
  ZorPointArray source{{1, 2}}, target;
  static_assert(std::is_same_v<decltype(target = source), ZorPointArray>);
  static_assert(std::is_void_v<decltype(std::declval<ZorPoint&>() = ZorPoint())>);
  (target = source).Append(ZorPoint(3, 4));  // to the copy
  EXPECT_EQ(target, source);
  target = std::move(source);
  EXPECT_EQ(target.Length(), 1);
  const std::span<const ZorPoint> span = target.View();
  EXPECT_EQ(span.size(), 1U);
}

TEST(ZorVar, ReadsBackAsDouble) {
  EXPECT_EQ(ZorVar(7).D(), 7.0);
  EXPECT_EQ(ZorVar(0.1F).D(), static_cast<double>(0.1F));
  EXPECT_EQ(ZorVar(0.1).D(), 0.1);
  ZorVarArray values{1, 2.5};
  ZorVar out(9);
  EXPECT_FALSE(values.Select(2, &out));
  EXPECT_TRUE(values.Select(1, &out));
  EXPECT_EQ(out.D(), 2.5);
  EXPECT_EQ(values[-1].D(), 2.5);
}

TEST(ZorContour, ConvertsByReplacing) {
  ZorContour contour{{5, 5}};
  contour.FromPointArray({{1, 2}, {3, 4}});
  ZorPointArray points{{9, 9}};
  contour.ToPointArray(&points);
  EXPECT_EQ(points, (ZorPointArray{{1, 2}, {3, 4}}));
  ZorContourArray contours;
  contours.Append(contour);
  contours[0].FromPointArray({});  // a copy
  EXPECT_EQ(contours[0].Length(), 2);
  EXPECT_EQ(contours[1].Length(), 0);
}

TEST(ZorROI, GivesOnlyTheShapeItHolds) {
  ZorROI roi;
  EXPECT_EQ(roi.ROIType(), ZorROINone);
  roi.GenEllipse({1, 2}, 3, 4, 5);
  EXPECT_EQ(static_cast<int>(roi.ROIType()), 8);
  double a = -1, b = -1, angle = -1;
  ZorPoint centre;
  EXPECT_FALSE(roi.GetRect2(&centre, &a, &b, &angle));
  EXPECT_EQ(a, -1);
  EXPECT_TRUE(roi.GetEllipse(nullptr, &a, &b, &angle));
  EXPECT_EQ(ZorPoint(a, b), ZorPoint(3, 4));
  roi.GenPolygon({{0, 0}, {1, 1}});
  ZorPointArray vertices;
  EXPECT_TRUE(roi.GetPolygon(&vertices));
  EXPECT_EQ(vertices.Length(), 2);
  EXPECT_FALSE(roi.GetLine(nullptr, nullptr));
  roi.GenLine({0, 0}, {4, 5});
  EXPECT_TRUE(roi.GetLine(nullptr, &centre));
  EXPECT_EQ(centre, ZorPoint(4, 5));
}

TEST(ZorImage, OwnsOrWraps) {
  ZorImage own(4, 3, 3);
  EXPECT_EQ(own.Stride(), 12);
  EXPECT_EQ(std::accumulate(own.Row(0), own.Row(0) + 36, 0), 0);
  ZorImage copy(own);
  copy.Row(2)[11] = 7;
  EXPECT_EQ(own.Row(2)[11], 0);
  const unsigned char* pixels = own.Row(0);
  const ZorImage moved(std::move(own));
  EXPECT_EQ(moved.Row(0), pixels);

  std::vector<unsigned char> host(20, 0);
  ZorImage wrapped = ZorImage::Wrap(host.data(), 4, 2, 10);
  ZorImage same(wrapped);
  same.Row(1)[3] = 9;
  EXPECT_EQ(host[13], 9);
  own = same;
  EXPECT_EQ(own.Row(1), host.data() + 10);

  for (const ZorImage& empty :
       {ZorImage(0, 5), ZorImage(5, -1), ZorImage(2, 2, 4), ZorImage(),
        ZorImage::Wrap(nullptr, 2, 2, 2), ZorImage::Wrap(host.data(), 4, 2, 3)}) {
    EXPECT_TRUE(empty.Empty());
    EXPECT_EQ(empty.Height(), 0);
  }
}

TEST(ZorRegion, NormalisesItsRuns) {
  const ZorRegion region({{2, 5, 6}, {1, 4, 4}, {2, 0, 3}, {2, 4, 4}, {1, 9, 8}, {1, 6, 7}});
  EXPECT_EQ(region.Runs(), (std::vector<ZorRegion::Run>{{1, 4, 4}, {1, 6, 7}, {2, 0, 6}}));
  EXPECT_EQ(region.Area(), 10);
}

TEST(ZorMatrix, HoldsItsElementType) {
  ZorMatrix bytes(2, 3, ZorDataUInt8);
  EXPECT_TRUE(bytes.Replace(1, 2, 300.7));
  EXPECT_FALSE(bytes.Replace(2, 0, 1));
  EXPECT_EQ(bytes.At(1, 2), 255);
  ZorMatrix doubles(3, 1, static_cast<ZorDataType>(6));
  doubles.Replace(2, 0, 0.1);
  EXPECT_EQ(doubles.At(2, 0), 0.1);
  EXPECT_EQ(ZorMatrix(-1, 2, ZorDataDouble).Rows(), 0);
}
