#include "image/extrema_kernels.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace zor::image {
namespace {

inline constexpr int kSmallRadius = 32;  // up to here the library's erosion wins over doubling

/// Values with a frame of `margin` cells of the largest value around them.
template <typename Value>
class FramedRows {
 public:
  FramedRows(int width, int height, int margin)
      : stride_(static_cast<std::size_t>(width) + 2 * static_cast<std::size_t>(margin)),
        rows_(static_cast<std::size_t>(height) + 2 * static_cast<std::size_t>(margin)),
        margin_(static_cast<std::size_t>(margin)),
        cells_(stride_ * rows_, std::numeric_limits<Value>::max()) {}

  /// Cell (0, y) of the values proper.
  Value* Row(int y) {
    return cells_.data() + (static_cast<std::size_t>(y) + margin_) * stride_ + margin_;
  }

  /// Replaces every value by the smallest within `margin` cells in both directions, moving the
  /// result to the upper left corner: ResultRow.
  void TakeWindowMinima() {
    const std::size_t length = 2 * margin_ + 1;
    std::size_t step = 1;
    for (; 2 * step <= length; step *= 2) MinWithShifted(step, step);
    if (length > step) MinWithShifted(length - step, length - step);
  }
  const Value* ResultRow(int y) const {
    return cells_.data() + static_cast<std::size_t>(y) * stride_;
  }

 private:
  void MinWithShifted(std::size_t across, std::size_t down) {
    std::vector<Value> wide(stride_);
    for (std::size_t y = 0; y < rows_; ++y) {
      Value* row = cells_.data() + y * stride_;
      std::copy(row, row + stride_, wide.begin());  // reading what is written would cost the lanes
      const Value* shifted = wide.data() + across;
      for (std::size_t x = 0; x + across < stride_; ++x) row[x] = std::min(row[x], shifted[x]);
    }
    // In place: a row is compared with one further down, which still holds its old values.
    for (std::size_t y = 0; y + down < rows_; ++y) {
      Value* row = cells_.data() + y * stride_;
      const Value* below = row + down * stride_;
      for (std::size_t x = 0; x < stride_; ++x) row[x] = std::min(row[x], below[x]);
    }
  }

  std::size_t stride_;
  std::size_t rows_;
  std::size_t margin_;
  std::vector<Value> cells_;
};

/// The picture without row 0 and column 0, and the most extreme value of every pixel's window.
class Field {
 public:
  Field(const PixelView& view, Extremum which, int margin)
      : which_(which),
        // Only ever read through this header.
        values_(view.height - 1, view.width - 1, CV_8UC1,
                const_cast<unsigned char*>(view.pixels) + view.stride + 1,
                static_cast<std::size_t>(view.stride)) {
    if (margin <= kSmallRadius) {
      TakeExtremesPlainly(margin);
    } else {
      TakeExtremesByDoubling(margin);
    }
  }

  int width() const { return values_.cols; }
  int height() const { return values_.rows; }
  std::size_t Columns() const { return static_cast<std::size_t>(values_.cols); }
  const unsigned char* Values(int y) const { return values_.ptr(y); }
  const unsigned char* Extremes(int y) const { return extremes_.ptr(y); }
  /// The value, inverted where maxima are sought: the smaller, the more extreme.
  unsigned char Rank(int x, int y) const { return Rank(values_.ptr(y)[x]); }
  unsigned char Rank(unsigned char value) const {
    return which_ == Extremum::kMinimum ? value : static_cast<unsigned char>(255 - value);
  }

 private:
  void TakeExtremesPlainly(int margin) {
    const int side = 2 * margin + 1;
    const cv::Mat kernel = cv::Mat::ones(side, side, CV_8UC1);
    if (which_ == Extremum::kMinimum) {
      cv::erode(values_, extremes_, kernel);
    } else {
      cv::dilate(values_, extremes_, kernel);
    }
  }
  void TakeExtremesByDoubling(int margin) {
    FramedRows<unsigned char> ranks(width(), height(), margin);
    for (int y = 0; y < height(); ++y) {
      for (int x = 0; x < width(); ++x) ranks.Row(y)[x] = Rank(x, y);
    }
    ranks.TakeWindowMinima();
    extremes_.create(height(), width(), CV_8UC1);
    for (int y = 0; y < height(); ++y) {
      for (int x = 0; x < width(); ++x) extremes_.ptr(y)[x] = Rank(ranks.ResultRow(y)[x]);
    }
  }

  Extremum which_;
  cv::Mat values_;
  cv::Mat extremes_;
};

constexpr std::uint16_t kNoneKnown = std::numeric_limits<std::uint16_t>::max();

/// For every pixel the most extreme rank at a known position within the window, or kNoneKnown;
/// empty when no known point is the position of a pixel of the field.
std::vector<FramedRows<std::uint16_t>> KnownMinima(const Field& field, int margin,
                                                   std::span<const ZorPoint> known) {
  std::vector<FramedRows<std::uint16_t>> minima;
  for (const ZorPoint& p : known) {
    const bool is_inside = p.x >= 1 && p.x <= field.width() && p.y >= 1 && p.y <= field.height();
    if (!is_inside) continue;  // nor is a position that is not a number
    const int x = static_cast<int>(p.x) - 1;
    const int y = static_cast<int>(p.y) - 1;
    if (ZorPoint(x + 1, y + 1) != p) continue;
    if (minima.empty()) minima.emplace_back(field.width(), field.height(), margin);
    minima[0].Row(y)[x] = field.Rank(x, y);
  }
  if (!minima.empty()) minima[0].TakeWindowMinima();
  return minima;
}

/// For how many rows yet, this one included, the pixels found so far block each column.
template <typename Count>
class BlockedColumns {
 public:
  BlockedColumns(std::size_t columns, int radius) : radius_(radius), rows_left_(columns, 0) {}

  void StartRow() {
    for (Count& rows : rows_left_) rows = static_cast<Count>(rows - (rows > 0 ? 1 : 0));
  }
  const Count* RowsLeft() const { return rows_left_.data(); }

  /// Blocks the columns around x in this row and the `radius` next ones; gives the first column
  /// beyond.
  std::size_t Block(std::size_t x) {
    if (radius_ < 0) return x + 1;
    const std::size_t reach = static_cast<std::size_t>(radius_);
    const std::size_t end = std::min(x + reach + 1, rows_left_.size());
    for (std::size_t c = x - std::min(x, reach); c < end; ++c) {
      rows_left_[c] = static_cast<Count>(radius_ + 1);
    }
    return end;
  }

 private:
  int radius_;
  std::vector<Count> rows_left_;
};

/// Marks (non-zero) the pixels of a row that equal the extreme value of their window, are within
/// the limit and not blocked.
template <Extremum which, typename Count>
void MarkCandidates(const Field& field, int y, unsigned char limit, const Count* rows_left,
                    std::vector<unsigned char>& marks) {
  const unsigned char* values = field.Values(y);
  const unsigned char* extremes = field.Extremes(y);
  unsigned char* mark = marks.data();
  const std::size_t columns = marks.size();
  for (std::size_t x = 0; x < columns; ++x) {
    const bool is_within = which == Extremum::kMinimum ? values[x] <= limit : values[x] >= limit;
    mark[x] = static_cast<unsigned char>((is_within ? 1 : 0) & (values[x] == extremes[x] ? 1 : 0) &
                                         (rows_left[x] == 0 ? 1 : 0));
  }
}

/// The first marked column from x on, or the end.
std::size_t NextMark(const std::vector<unsigned char>& marks, std::size_t x) {
  std::uint64_t eight = 0;
  for (; x + sizeof(eight) <= marks.size(); x += sizeof(eight)) {
    std::memcpy(&eight, marks.data() + x, sizeof(eight));
    if (eight == 0) continue;
    if constexpr (std::endian::native == std::endian::little) {
      return x + static_cast<std::size_t>(std::countr_zero(eight)) / 8;
    }
    break;
  }
  while (x < marks.size() && marks[x] == 0) ++x;
  return x;
}

/// Where the known positions block, if there are any.
using KnownRows = std::vector<FramedRows<std::uint16_t>>;

template <Extremum which, typename Count>
std::vector<ZorPoint> Scan(const Field& field, const KnownRows& known, unsigned char limit,
                           int radius) {
  std::vector<ZorPoint> found;
  BlockedColumns<Count> blocked(field.Columns(), radius);
  std::vector<unsigned char> marks(field.Columns());
  for (int y = 0; y < field.height(); ++y) {
    blocked.StartRow();
    MarkCandidates<which>(field, y, limit, blocked.RowsLeft(), marks);
    const std::uint16_t* known_row = known.empty() ? nullptr : known[0].ResultRow(y);
    for (std::size_t x = NextMark(marks, 0); x < marks.size();) {
      // What was found that near is of this very value, both being the extreme of a window that
      // holds the other; a known position may hold a less extreme one.
      if (known_row != nullptr && known_row[x] == field.Rank(static_cast<int>(x), y)) {
        x = NextMark(marks, x + 1);
        continue;
      }
      found.emplace_back(static_cast<double>(x + 1), y + 1.0);
      x = NextMark(marks, blocked.Block(x));
    }
  }
  return found;
}

template <Extremum which>
std::vector<ZorPoint> Scan(const Field& field, const KnownRows& known, unsigned char limit,
                           int radius) {
  constexpr int kByteRadius = 254;  // its rows are counted in a byte
  return radius <= kByteRadius ? Scan<which, unsigned char>(field, known, limit, radius)
                               : Scan<which, int>(field, known, limit, radius);
}

}  // namespace

std::vector<ZorPoint> FindExtrema(const PixelView& view, Extremum which, int threshold, int radius,
                                  std::span<const ZorPoint> known) {
  if (view.width < 2 || view.height < 2) return {};
  const bool is_minimum = which == Extremum::kMinimum;
  if (is_minimum ? threshold <= 0 : threshold >= 255) return {};
  // The last value that counts: below the threshold, or above it.
  const auto limit = static_cast<unsigned char>(is_minimum ? std::min(threshold, 256) - 1
                                                           : std::max(threshold, -1) + 1);
  // Further than the picture reaches makes no difference.
  const int reach = std::min(radius, std::max(view.width, view.height));
  const Field field(view, which, std::max(reach, 0));
  // A radius below 0 has no neighbours at all, not even the pixel itself.
  const KnownRows known_rows =
      KnownMinima(field, std::max(reach, 0), reach < 0 ? std::span<const ZorPoint>() : known);
  return is_minimum ? Scan<Extremum::kMinimum>(field, known_rows, limit, reach)
                    : Scan<Extremum::kMaximum>(field, known_rows, limit, reach);
}

}  // namespace zor::image
