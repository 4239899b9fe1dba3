#include "contour/skeleton_path.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <numbers>
#include <queue>
#include <utility>

namespace zor::contour {
namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

struct Pixel {
  int row = 0;
  int column = 0;
  friend auto operator<=>(const Pixel&, const Pixel&) = default;
};

/// The skeleton's pixels as a graph, numbered row by row.
class PixelGraph {
 public:
  explicit PixelGraph(const ZorImage& skeleton) {
    for (int row = 0; row < skeleton.Height(); ++row) {
      const unsigned char* pixels = skeleton.Row(row);
      for (int column = 0; column < skeleton.Width(); ++column) {
        if (pixels[column] != 0) pixels_.push_back({row, column});
      }
    }
  }

  [[nodiscard]] std::size_t Count() const { return pixels_.size(); }
  [[nodiscard]] ZorPoint PointAt(std::size_t i) const {
    return {static_cast<double>(pixels_[i].column), static_cast<double>(pixels_[i].row)};
  }

  /// Calls visit(neighbour, distance) for each pixel beside pixel i.
  template <typename Visit>
  void ForEachNeighbour(std::size_t i, Visit visit) const {
    for (int row = -1; row <= 1; ++row) {
      for (int column = -1; column <= 1; ++column) {
        if (row == 0 && column == 0) continue;
        const Pixel beside{pixels_[i].row + row, pixels_[i].column + column};
        const auto found = std::lower_bound(pixels_.begin(), pixels_.end(), beside);
        if (found == pixels_.end() || *found != beside) continue;
        visit(static_cast<std::size_t>(found - pixels_.begin()),
              row != 0 && column != 0 ? std::numbers::sqrt2 : 1.0);
      }
    }
  }

 private:
  std::vector<Pixel> pixels_;  // ascending
};

/// Shortest ways from one pixel to all others of its part.
class Sweep {
 public:
  explicit Sweep(const PixelGraph& graph)
      : graph_(graph),
        lengths_(graph.Count(), std::numeric_limits<double>::infinity()),
        previous_(graph.Count(), kNone) {}

  /// Returns the pixel farthest from the start.
  std::size_t Run(std::size_t start) {
    Undo();
    using Entry = std::pair<double, std::size_t>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    lengths_[start] = 0;
    open.emplace(0.0, start);
    while (!open.empty()) {
      const auto [length, i] = open.top();
      open.pop();
      if (length > lengths_[i]) continue;
      reached_.push_back(i);
      graph_.ForEachNeighbour(i, [&, from = length, at = i](std::size_t j, double step) {
        if (!(from + step < lengths_[j])) return;
        lengths_[j] = from + step;
        previous_[j] = at;
        open.emplace(lengths_[j], j);
      });
    }
    return reached_.back();
  }

  /// The pixels that the last run reached, nearest first.
  [[nodiscard]] const std::vector<std::size_t>& Reached() const { return reached_; }
  [[nodiscard]] std::size_t Previous(std::size_t i) const { return previous_[i]; }

 private:
  void Undo() {
    for (const std::size_t i : reached_) {
      lengths_[i] = std::numeric_limits<double>::infinity();
      previous_[i] = kNone;
    }
    reached_.clear();
  }

  const PixelGraph& graph_;
  std::vector<double> lengths_;
  std::vector<std::size_t> previous_;
  std::vector<std::size_t> reached_;
};

}  // namespace

std::vector<std::vector<ZorPoint>> LongestWays(const ZorImage& skeleton) {
  const PixelGraph graph(skeleton);
  Sweep sweep(graph);
  std::vector<bool> is_done(graph.Count(), false);
  std::vector<std::vector<ZorPoint>> ways;
  for (std::size_t i = 0; i < graph.Count(); ++i) {
    if (is_done[i]) continue;
    const std::size_t first = sweep.Run(i);
    for (const std::size_t k : sweep.Reached()) is_done[k] = true;
    std::size_t last = sweep.Run(first);
    if (first == last) continue;
    const bool is_backwards = first < last;  // the way is followed from its end
    std::vector<ZorPoint> way;
    for (; last != kNone; last = sweep.Previous(last)) way.push_back(graph.PointAt(last));
    if (is_backwards) std::reverse(way.begin(), way.end());
    ways.push_back(std::move(way));
  }
  return ways;
}

}  // namespace zor::contour
