#include "contour_fill.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "ZorDataConvert.h"

namespace zor::convert {
namespace {

// Half a gigabyte of crossings. Outlines of real parts cross a few rows a point; what is beyond
// this limit zigzags over the whole plane and would only exhaust the memory.
constexpr long long kMaxCrossings = 1LL << 26;

// Written so that NaN is not usable.
bool IsUsable(const ZorPoint& p) {
  return std::abs(p.x) <= ZORMV::kZorConvertMaxCoordinate &&
         std::abs(p.y) <= ZORMV::kZorConvertMaxCoordinate;
}

int CeilToInt(double value) { return static_cast<int>(std::ceil(value)); }
int FloorToInt(double value) { return static_cast<int>(std::floor(value)); }
bool IsWhole(double value) { return value == std::floor(value); }

// An edge from its upper to its lower end, so that it gives the same crossings in both directions.
// It crosses the rows upper.y <= row < lower.y: a vertex between two edges counts once where the
// contour passes the row and twice or never where it turns back, so crossings pair up in every row.
struct Edge {
  ZorPoint upper;
  ZorPoint lower;

  [[nodiscard]] int FirstRow() const { return CeilToInt(upper.y); }
  [[nodiscard]] int EndRow() const { return CeilToInt(lower.y); }
  // For whole coordinates the numerator is exact and the quotient at least 2^-21 away from the
  // nearest whole number that it is not, so rounding moves no crossing onto or over a pixel centre.
  [[nodiscard]] double XAt(int row) const {
    return upper.x + (row - upper.y) * (lower.x - upper.x) / (lower.y - upper.y);
  }
};

template <class Visit>
void ForEachEdge(ZorPointView contour, Visit visit) {
  const ZorPoint* previous = &contour.back();
  for (const ZorPoint& p : contour) {
    visit(previous->y <= p.y ? Edge{*previous, p} : Edge{p, *previous});
    previous = &p;
  }
}

}  // namespace

bool ContourFill::Add(ZorPointView contour) {
  if (contour.empty()) return true;
  if (!std::all_of(contour.begin(), contour.end(), IsUsable)) return false;
  long long count = crossing_count_;
  ForEachEdge(contour, [&](const Edge& edge) { count += edge.EndRow() - edge.FirstRow(); });
  if (count > kMaxCrossings) return false;
  crossing_count_ = count;

  const auto [highest, lowest] =
      std::minmax_element(contour.begin(), contour.end(),
                          [](const ZorPoint& a, const ZorPoint& b) { return a.y < b.y; });
  const int first_row = CeilToInt(highest->y);
  const int row_count = CeilToInt(lowest->y) - first_row;
  CollectCrossings(contour, first_row, row_count);
  AddInside(first_row, row_count);
  AddOutline(contour);
  return true;
}

// Counts, then places: linear, and the crossings of a row end up side by side.
void ContourFill::CollectCrossings(ZorPointView contour, int first_row, int row_count) {
  const auto slot = [first_row](int row) { return static_cast<std::size_t>(row - first_row); };
  row_ends_.assign(static_cast<std::size_t>(row_count), 0);
  ForEachEdge(contour, [&](const Edge& edge) {
    for (int row = edge.FirstRow(); row < edge.EndRow(); ++row) ++row_ends_[slot(row)];
  });
  std::size_t begin = 0;
  for (std::size_t& row_end : row_ends_) begin += std::exchange(row_end, begin);
  crossings_.resize(begin);
  ForEachEdge(contour, [&](const Edge& edge) {
    for (int row = edge.FirstRow(); row < edge.EndRow(); ++row) {
      crossings_[row_ends_[slot(row)]++] = edge.XAt(row);
    }
  });
}

void ContourFill::AddInside(int first_row, int row_count) {
  std::size_t begin = 0;
  for (int i = 0; i < row_count; ++i) {
    const std::size_t end = row_ends_[static_cast<std::size_t>(i)];
    std::sort(crossings_.data() + begin, crossings_.data() + end);
    for (std::size_t k = begin; k < end; k += 2) {
      const ZorRegion::Run run{first_row + i, CeilToInt(crossings_[k]),
                               FloorToInt(crossings_[k + 1])};
      if (run.begin <= run.end) runs_.push_back(run);
    }
    begin = end;
  }
}

// The centres on the contour that no pair of crossings includes: on horizontal edges and at
// vertices where the contour turns back upwards.
void ContourFill::AddOutline(ZorPointView contour) {
  ForEachEdge(contour, [&](const Edge& edge) {
    const auto [left, right] = std::minmax(edge.upper.x, edge.lower.x);
    if (edge.upper.y == edge.lower.y && IsWhole(edge.upper.y)) {
      const ZorRegion::Run run{FloorToInt(edge.upper.y), CeilToInt(left), FloorToInt(right)};
      if (run.begin <= run.end) runs_.push_back(run);
    } else if (IsWhole(edge.lower.x) && IsWhole(edge.lower.y)) {
      const int column = FloorToInt(edge.lower.x);
      runs_.push_back({FloorToInt(edge.lower.y), column, column});
    }
  });
}

ZorRegion ContourFill::TakeRegion() {
  crossing_count_ = 0;
  return ZorRegion(std::exchange(runs_, {}));
}

}  // namespace zor::convert
