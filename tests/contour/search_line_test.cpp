#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "support/values.h"
#include <ZorGeometryMeasureDlg.h>

namespace {

struct SearchLine {
  ZorPoint start, end;
  [[nodiscard]] ZorPoint Middle() const { return {(start.x + end.x) / 2, (start.y + end.y) / 2}; }
  [[nodiscard]] double Length() const { return std::hypot(end.x - start.x, end.y - start.y); }
};

std::vector<SearchLine> Search(const std::vector<ZorPoint>& outline, int spacing) {
  ZorContour contour(outline);
  ZorROIArray lines;
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().ContourSearchLine(contour, spacing, &lines), GM_OK);
  std::vector<SearchLine> found;
  for (const ZorROI& roi : lines) {
    SearchLine& line = found.emplace_back();
    EXPECT_TRUE(roi.GetLine(&line.start, &line.end));
  }
  return found;
}

constexpr double kPixelQuantised = 0.35;  // of the centre line: rounding of the skeleton, averaged

}  // namespace

TEST(ContourSearchLine, AcrossAStraightBandAtAnyAngle) {
  for (const auto& [degrees, width] : {std::pair{0.0, 30.0},
                                       {17.0, 5.0},
                                       {45.0, 70.0},
                                       {90.0, 30.0},
                                       {130.0, 8.0},
                                       {171.0, 30.0}}) {
    SCOPED_TRACE(degrees);
    const double turn = degrees * 3.14159265358979 / 180;
    const ZorPoint along(std::cos(turn), std::sin(turn)), across(-along.y, along.x);
    const auto at = [&](double u, double v) {
      return ZorPoint(500 + u * along.x + v * across.x, 400 + u * along.y + v * across.y);
    };
    const std::vector<SearchLine> lines =
        Search({at(0, 0), at(210, 0), at(210, width), at(0, width)}, 20);
    ASSERT_EQ(lines.size(), 10U);
    // Either end may be the first.
    const bool forward = (lines[9].start.x - lines[0].start.x) * along.x +
                             (lines[9].start.y - lines[0].start.y) * along.y >
                         0;
    for (std::size_t k = 0; k < 10; ++k) {
      const double u = 15 + 20.0 * static_cast<double>(forward ? k : 9 - k);
      zor::test::ExpectNear(lines[k].start, forward ? at(u, 0) : at(u, width), 2 * kPixelQuantised);
      zor::test::ExpectNear(lines[k].end, forward ? at(u, width) : at(u, 0), 2 * kPixelQuantised);
    }
  }
}

TEST(ContourSearchLine, FollowsABentBand) {
  std::vector<ZorPoint> outline;
  for (int i = 0; i <= 200; ++i) {
    const double t = i * 0.02;
    outline.emplace_back(300 + 110 * std::cos(t), 300 + 110 * std::sin(t));
  }
  for (int i = 200; i >= 0; --i) {
    const double t = i * 0.02;
    outline.emplace_back(300 + 80 * std::cos(t), 300 + 80 * std::sin(t));
  }
  const std::vector<SearchLine> lines = Search(outline, 25);
  ASSERT_EQ(lines.size(), 15U);  // of a centre line 380 long
  for (std::size_t k = 0; k < lines.size(); ++k) {
    const ZorPoint middle = lines[k].Middle();
    EXPECT_NEAR(std::hypot(middle.x - 300, middle.y - 300), 95, kPixelQuantised);
    EXPECT_NEAR(lines[k].Length(), 30, kPixelQuantised);
    if (k == 0) continue;
    const ZorPoint step = middle - lines[k - 1].Middle();
    EXPECT_NEAR(std::hypot(step.x, step.y), 2 * 95 * std::sin(12.5 / 95), kPixelQuantised);
  }
}

TEST(ContourSearchLine, AcrossABandNoWiderThanAPixel) {
  for (const SearchLine& line : Search({{0, 0}, {200, 0}, {200, 1}, {0, 1}}, 10)) {
    EXPECT_NEAR(line.Length(), 1, 1e-9);
  }
  ZorContour nothing = {{0, 0}, {100, 0}, {200, 0}};
  EXPECT_EQ(ZORMV::ZorGeometryMeasureDlg().ContourSearchLine(nothing, 10, nullptr),
            GM_E_DEGENERATE_RESULT);
}

TEST(ContourSearchLine, CodesAndAppending) {
  ZORMV::ZorGeometryMeasureDlg dlg;
  ZorContour none, two = {{0, 0}, {9, 9}}, band = {{0, 0}, {60, 0}, {60, 8}, {0, 8}},
                   far = {{0, 0}, {60, 0}, {zor::test::kNaN, 8}},
                   dot = {{0, 0}, {0.4, 0}, {0.4, 0.4}};
  ZorROIArray lines;
  EXPECT_EQ(dlg.ContourSearchLine(none, 0, &lines), GM_E_EMPTY_CONTOUR);
  EXPECT_EQ(dlg.ContourSearchLine(two, 0, &lines), GM_E_PARAM_1);
  EXPECT_EQ(dlg.ContourSearchLine(band, 0, &lines), GM_E_PARAM_2);
  EXPECT_EQ(dlg.ContourSearchLine(far, 5, &lines), GM_E_PARAM_1);
  EXPECT_EQ(dlg.ContourSearchLine(dot, 5, &lines), GM_E_DEGENERATE_RESULT);
  EXPECT_TRUE(lines.Empty());
  EXPECT_EQ(dlg.ContourSearchLine(band, 1000, &lines), GM_OK);
  ASSERT_EQ(lines.Length(), 1);  // in the middle
  ZorPoint start, end;
  lines[0].GetLine(&start, &end);
  EXPECT_NEAR(start.x, 30, 2 * kPixelQuantised);
  EXPECT_EQ(dlg.ContourSearchLine(band, 20, &lines), GM_OK);
  EXPECT_EQ(lines.Length(), 4);
}
