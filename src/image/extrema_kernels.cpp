#include "image/extrema_kernels.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "image/window_minima.h"

namespace zor::image {
namespace {

inline constexpr int kSmallRadius = 10;  // up to here the library's erosion wins over doubling

/// The picture without row 0 and column 0, and the most extreme value of every pixel's window.
class Field {
 public:
  Field(const PixelView& view, Extremum which, WindowReach reach)
      : which_(which),
        // Only ever read through this header.
        values_(view.height - 1, view.width - 1, CV_8UC1,
                const_cast<unsigned char*>(view.pixels) + view.stride + 1,
                static_cast<std::size_t>(view.stride)) {
    if (std::max(reach.across, reach.down) <= kSmallRadius) {
      TakeExtremesPlainly(reach);
    } else {
      TakeExtremesByDoubling(reach);
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
  void TakeExtremesPlainly(WindowReach reach) {
    const cv::Mat kernel = cv::Mat::ones(2 * reach.down + 1, 2 * reach.across + 1, CV_8UC1);
    if (which_ == Extremum::kMinimum) {
      cv::erode(values_, extremes_, kernel);
    } else {
      cv::dilate(values_, extremes_, kernel);
    }
  }
  void TakeExtremesByDoubling(WindowReach reach) {
    WindowMinima<unsigned char> ranks(width(), height(), reach);
    for (int y = 0; y < height(); ++y) CopyRanks(Values(y), ranks.Row(y));
    ranks.Take();
    extremes_.create(height(), width(), CV_8UC1);
    for (int y = 0; y < height(); ++y) CopyRanks(ranks.ResultRow(y), extremes_.ptr(y));
  }
  /// A row of values as ranks, or the other way round.
  void CopyRanks(const unsigned char* from, unsigned char* to) const {
    const std::size_t columns = Columns();
    const unsigned char flipped = Rank(0);  // 255 - value flips all bits
    for (std::size_t x = 0; x < columns; ++x) {
      to[x] = static_cast<unsigned char>(from[x] ^ flipped);
    }
  }

  Extremum which_;
  cv::Mat values_;
  cv::Mat extremes_;
};

/// Ranks at known positions; a wider type, so that its largest value is no rank.
using KnownRanks = WindowMinima<std::uint16_t>;

/// For every pixel the most extreme rank at a known position within the window, if there is any;
/// empty when no known point is the position of a pixel of the field.
std::optional<KnownRanks> KnownMinima(const Field& field, WindowReach reach,
                                      std::span<const ZorPoint> known) {
  std::optional<KnownRanks> minima;
  for (const ZorPoint& p : known) {
    const bool is_inside = p.x >= 1 && p.x <= field.width() && p.y >= 1 && p.y <= field.height();
    if (!is_inside) continue;  // nor is a position that is not a number
    const int x = static_cast<int>(p.x) - 1;
    const int y = static_cast<int>(p.y) - 1;
    if (ZorPoint(x + 1, y + 1) != p) continue;
    if (!minima) minima.emplace(field.width(), field.height(), reach);
    minima->Row(y)[x] = field.Rank(x, y);
  }
  if (minima) minima->Take();
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

/// The marked columns of a row, ascending. Always writes a few numbers more than it keeps: without
/// a branch a mark there is nothing to predict wrongly.
class MarkedColumns {
 public:
  explicit MarkedColumns(std::size_t columns) : columns_(columns + kAtOnce) {}

  std::span<const std::uint32_t> Of(const std::vector<unsigned char>& marks) {
    std::size_t count = 0;
    std::size_t x = 0;
    for (; x + kAtOnce <= marks.size(); x += kAtOnce) {
      std::uint64_t eight = 0;
      std::memcpy(&eight, marks.data() + x, sizeof(eight));
      if (eight == 0) continue;
      for (std::size_t k = 0; k < kAtOnce; ++k) Put(x + k, marks[x + k], count);
    }
    for (; x < marks.size(); ++x) Put(x, marks[x], count);
    return std::span(columns_).first(count);
  }

 private:
  static constexpr std::size_t kAtOnce = 8;

  void Put(std::size_t x, unsigned char mark, std::size_t& count) {
    columns_[count] = static_cast<std::uint32_t>(x);
    count += mark;
  }

  std::vector<std::uint32_t> columns_;
};

/// As many as can be found, since one blocks the square beside and below it; fewer, if that is more
/// than is worth having at hand.
std::size_t MostFound(const Field& field, int radius) {
  constexpr std::size_t kWorthwhile = 1 << 16;
  const std::size_t side = static_cast<std::size_t>(std::max(radius, 0)) + 1;
  const std::size_t across = field.Columns() / side + 1;
  const std::size_t down = static_cast<std::size_t>(field.height()) / side + 1;
  return std::min(across * down, kWorthwhile);
}

template <Extremum which, typename Count>
std::vector<ZorPoint> Scan(const Field& field, const std::optional<KnownRanks>& known,
                           unsigned char limit, int radius) {
  std::vector<ZorPoint> found;
  found.reserve(MostFound(field, radius));
  BlockedColumns<Count> blocked(field.Columns(), radius);
  std::vector<unsigned char> marks(field.Columns());
  MarkedColumns marked(field.Columns());
  for (int y = 0; y < field.height(); ++y) {
    blocked.StartRow();
    MarkCandidates<which>(field, y, limit, blocked.RowsLeft(), marks);
    const std::uint16_t* known_row = known ? known->ResultRow(y) : nullptr;
    std::size_t free_from = 0;  // columns before it are blocked by what was found in this row
    for (const std::size_t x : marked.Of(marks)) {
      if (x < free_from) continue;
      // What was found that near is of this very value, both being the extreme of a window that
      // holds the other; a known position may hold a less extreme one.
      if (known_row != nullptr && known_row[x] == field.Rank(static_cast<int>(x), y)) continue;
      found.emplace_back(static_cast<double>(x + 1), y + 1.0);
      free_from = blocked.Block(x);
    }
  }
  return found;
}

template <Extremum which>
std::vector<ZorPoint> Scan(const Field& field, const std::optional<KnownRanks>& known,
                           unsigned char limit, int radius) {
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
  const WindowReach window{std::clamp(reach, 0, view.width), std::clamp(reach, 0, view.height)};
  const Field field(view, which, window);
  // A radius below 0 has no neighbours at all, not even the pixel itself.
  const std::optional<KnownRanks> known_ranks =
      KnownMinima(field, window, reach < 0 ? std::span<const ZorPoint>() : known);
  return is_minimum ? Scan<Extremum::kMinimum>(field, known_ranks, limit, reach)
                    : Scan<Extremum::kMaximum>(field, known_ranks, limit, reach);
}

}  // namespace zor::image
