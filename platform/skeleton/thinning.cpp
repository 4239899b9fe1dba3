#include "thinning.h"

#include <algorithm>

namespace zor::skeleton {
namespace {

constexpr unsigned char kForeground = 1;
constexpr unsigned char kOn = 255;
constexpr unsigned kAllNeighbours = 255;

constexpr unsigned char WaitsFor(unsigned pass) { return static_cast<unsigned char>(2U << pass); }

// Neighbours are numbered clockwise from the one above: bit k of a code is neighbour k.
//   7 0 1
//   6 . 2
//   5 4 3
constexpr bool IsDeletable(unsigned code, unsigned pass) {
  const auto p = [code](unsigned k) { return ((code >> (k % 8)) & 1U) != 0; };
  int crossings = 0;  // distinct 8-connected runs of foreground around the pixel
  int pairs_even = 0;
  int pairs_odd = 0;
  for (unsigned k = 0; k < 8; k += 2) {
    crossings += !p(k) && (p(k + 1) || p(k + 2)) ? 1 : 0;
    pairs_even += p(k) || p(k + 1) ? 1 : 0;
    pairs_odd += p(k + 1) || p(k + 2) ? 1 : 0;
  }
  const int neighbours = std::min(pairs_even, pairs_odd);  // below 2 at the end of a curve
  const unsigned side = pass == 0 ? 0 : 4;  // the second pass is the first turned by 180 degrees
  const bool is_kept_side = (p(side) || p(side + 1) || !p(side + 3)) && p(side + 2);
  return crossings == 1 && (neighbours == 2 || neighbours == 3) && !is_kept_side;
}

using PassTable = std::array<bool, 256>;

constexpr std::array<PassTable, 2> kDeletable = [] {
  std::array<PassTable, 2> tables{};
  for (unsigned pass = 0; pass < 2; ++pass) {
    for (unsigned code = 0; code < 256; ++code) tables[pass][code] = IsDeletable(code, pass);
  }
  return tables;
}();

}  // namespace

ThinningField::ThinningField(const ZorImage& image)
    : width_(image.Width()),
      height_(image.Height()),
      stride_(static_cast<std::size_t>(image.Width()) + 2),
      cells_(stride_ * (static_cast<std::size_t>(image.Height()) + 2)) {
  for (int y = 0; y < height_; ++y) {
    const unsigned char* const from = image.Row(y);
    std::transform(from, from + width_, cells_.data() + RowStart(y),
                   [](unsigned char value) { return value != 0 ? kForeground : 0; });
  }
  for (std::size_t i = stride_; i < cells_.size() - stride_; ++i) {
    const auto index = static_cast<Index>(i);
    // A pixel without background around it becomes deletable only when a neighbour goes.
    if (cells_[i] != 0 && Neighbours(index) != kAllNeighbours) Enqueue(index);
  }
}

std::size_t ThinningField::RowStart(int y) const {
  return (static_cast<std::size_t>(y) + 1) * stride_ + 1;
}

unsigned ThinningField::Neighbours(Index i) const {
  const unsigned char* const above = cells_.data() + i - stride_;
  const unsigned char* const here = cells_.data() + i;
  const unsigned char* const below = cells_.data() + i + stride_;
  const auto bit = [](unsigned char cell, unsigned k) { return (cell & 1U) << k; };
  return bit(above[0], 0) | bit(above[1], 1) | bit(here[1], 2) | bit(below[1], 3) |
         bit(below[0], 4) | bit(below[-1], 5) | bit(here[-1], 6) | bit(above[-1], 7);
}

void ThinningField::Enqueue(Index i) {
  for (unsigned pass = 0; pass < 2; ++pass) {
    if ((cells_[i] & WaitsFor(pass)) != 0) continue;
    cells_[i] |= WaitsFor(pass);
    waiting_[pass].push_back(i);
  }
}

void ThinningField::RunPass(unsigned pass) {
  deleted_.clear();
  for (const Index i : waiting_[pass]) {
    cells_[i] &= static_cast<unsigned char>(~WaitsFor(pass));
    const bool is_on = (cells_[i] & kForeground) != 0;
    if (is_on && kDeletable[pass][Neighbours(i)]) deleted_.push_back(i);
  }
  waiting_[pass].clear();
  for (const Index i : deleted_) cells_[i] &= static_cast<unsigned char>(~kForeground);
  for (const Index i : deleted_) {
    for (const std::size_t row : {i - stride_, std::size_t{i}, i + stride_}) {
      for (std::size_t k = row - 1; k <= row + 1; ++k) {
        if ((cells_[k] & kForeground) != 0) Enqueue(static_cast<Index>(k));
      }
    }
  }
}

void ThinningField::Thin() {
  while (!waiting_[0].empty() || !waiting_[1].empty()) {
    RunPass(0);
    RunPass(1);
  }
}

ZorImage ThinningField::ToImage() const {
  ZorImage image(width_, height_);
  for (int y = 0; y < height_; ++y) {
    const unsigned char* const row = cells_.data() + RowStart(y);
    std::transform(row, row + width_, image.Row(y),
                   [](unsigned char cell) { return (cell & kForeground) != 0 ? kOn : 0; });
  }
  return image;
}

}  // namespace zor::skeleton
