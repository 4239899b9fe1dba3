#include "elementary/edge_index.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "elementary/segment_kernels.h"
#include "support/values.h"

namespace {

using zor::elementary::ClosingEdge;
using zor::elementary::CrossSegments;
using zor::elementary::EdgeIndex;
using zor::elementary::OutlineCrossing;

/// Edge by edge: what the index replaces.
std::vector<ZorPoint> PlainCrossings(const ZorPoint& a, const ZorPoint& b,
                                     const std::vector<ZorPoint>& outline) {
  std::vector<ZorPoint> crossings;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const ZorPoint& start = i == 0 ? outline.back() : outline[i - 1];
    if (const auto hit = CrossSegments(a, b, start, outline[i])) crossings.push_back(*hit);
  }
  return crossings;
}

/// Outlines in hard places. Even kinds on whole numbers in a small square: most edges touch,
/// overlap or vanish; odd kinds a walk, smooth or wild, far from the origin or not, and some with a
/// vertex that is no number.
std::vector<ZorPoint> HardOutline(int kind, std::size_t n, std::mt19937_64& rng) {
  std::vector<ZorPoint> outline;
  std::uniform_int_distribution<int> whole(0, kind < 4 ? 6 : 40);
  std::uniform_real_distribution<double> real(-1, 1);
  ZorPoint at(kind == 3 ? 1e7 : 20, 20);
  for (std::size_t i = 0; i < n; ++i) {
    if (kind % 2 == 0) {
      outline.emplace_back(whole(rng), whole(rng));
    } else {
      at = at + ZorPoint(real(rng) * kind, real(rng) * kind);
      outline.push_back(at);
    }
  }
  if (kind == 5) outline[n / 2].x = zor::test::kNaN;
  if (kind == 7) outline[n / 2].y = zor::test::kInfinity;
  return outline;
}

}  // namespace

TEST(EdgeIndex, FindsWhatEdgeByEdgeTestingFindsInItsOrder) {
  std::mt19937_64 rng(20240611);
  std::size_t hits = 0;
  for (int kind = 0; kind < 8; ++kind) {
    for (const std::size_t n : {1U, 2U, 3U, 8U, 9U, 64U, 65U, 200U}) {
      std::vector<ZorPoint> outline = HardOutline(kind, n, rng);
      const std::vector<ZorPoint> ends = HardOutline(kind & ~4, 60, rng);
      for (std::size_t i = 0; kind == 1 && i < n; i += 2) {  // on a segment, but for rounding
        const ZorPoint& a = ends[i % 59];
        const ZorPoint& b = ends[i % 59 + 1];
        const double t = static_cast<double>(i % 7) / 3;
        outline[i] = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
      }
      const EdgeIndex index(outline);
      for (std::size_t i = 1; i < ends.size(); ++i) {
        SCOPED_TRACE(testing::Message()
                     << "kind " << kind << ", " << n << " vertices, segment " << i);
        const std::vector<ZorPoint> expected = PlainCrossings(ends[i - 1], ends[i], outline);
        std::vector<ZorPoint> once, indexed;
        zor::elementary::AppendSegmentCrossings(ends[i - 1], ends[i], outline, once);
        index.AppendCrossings(ends[i - 1], ends[i], indexed);
        EXPECT_EQ(once, expected);
        EXPECT_EQ(indexed, expected);
        hits += expected.size();
      }
    }
  }
  EXPECT_GT(hits, 10000U);
}

TEST(EdgeIndex, CrossesOutlinesEdgeByEdge) {
  std::mt19937_64 rng(20240612);
  for (int kind = 0; kind < 8; ++kind) {
    for (const ClosingEdge closing : {ClosingEdge::kLastToFirst, ClosingEdge::kFirstToLast}) {
      const std::vector<ZorPoint> first = HardOutline(kind, 70, rng);
      const std::vector<ZorPoint> second = HardOutline(kind, 150, rng);
      std::vector<ZorPoint> expected;
      for (std::size_t i = 0; i < first.size(); ++i) {
        const bool is_turned = i == 0 && closing == ClosingEdge::kFirstToLast;
        const ZorPoint& start = i == 0 ? first.back() : first[i - 1];
        const auto hits = is_turned ? PlainCrossings(first[i], start, second)
                                    : PlainCrossings(start, first[i], second);
        expected.insert(expected.end(), hits.begin(), hits.end());
      }
      const EdgeIndex first_index(first), second_index(second);
      std::vector<ZorPoint> found;
      for (const OutlineCrossing& c : CrossOutlines(first_index, second_index, closing)) {
        found.push_back(c.point);
        const auto hit =
            CrossSegments(first_index.Start(c.first_edge), first_index.End(c.first_edge),
                          second_index.Start(c.second_edge), second_index.End(c.second_edge));
        EXPECT_TRUE(hit.has_value()) << kind << ": " << c.first_edge << ", " << c.second_edge;
      }
      EXPECT_EQ(found, expected) << "kind " << kind;
    }
  }
}
