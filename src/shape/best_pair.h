#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

#include "ZorPoint.h"

namespace zor::shape {

/// A point and its place in the host's list.
struct ListedPoint {
  double x;
  double y;
  std::uint32_t index;
};

/// The best pair so far of a search for the farthest one, which may meet the pairs in any order:
/// the larger computed distance wins, of equal ones the earlier pair. No pair at distance 0.
class BestPair {
 public:
  [[nodiscard]] bool Found() const { return distance_ > 0; }
  [[nodiscard]] double Distance() const { return distance_; }
  [[nodiscard]] std::uint32_t First() const { return first_; }
  [[nodiscard]] std::uint32_t Second() const { return second_; }

  /// Compares the squares first, which spares the root of nearly every pair.
  void Offer(const ListedPoint& p, const ListedPoint& q) {
    const double dx = p.x - q.x;
    const double dy = p.y - q.y;
    const double square = dx * dx + dy * dy;
    if (square >= least_square_) Take(std::sqrt(square), p.index, q.index);
  }

  /// Whether a pair at the computed square of distance `square` at most, with indices `first` and
  /// `second` at least, in either order, could replace this one.
  [[nodiscard]] bool CanYieldTo(double square, std::uint32_t first, std::uint32_t second) const {
    if (square < least_square_) return false;
    return std::sqrt(square) > distance_ || IsEarlier(first, second);
  }

 private:
  [[nodiscard]] bool IsEarlier(std::uint32_t i, std::uint32_t j) const {
    const std::uint32_t low = i < j ? i : j;
    const std::uint32_t high = i < j ? j : i;
    return low < first_ || (low == first_ && high < second_);
  }

  void Take(double distance, std::uint32_t i, std::uint32_t j) {
    if (!(distance > distance_) && !(Found() && IsEarlier(i, j))) return;
    if (distance > distance_) least_square_ = LeastSquare(distance);
    distance_ = distance;
    first_ = i < j ? i : j;
    second_ = i < j ? j : i;
  }

  /// The least double whose rounded root is `distance`: roots merge neighbouring squares, so that
  /// pairs tie whose squares differ.
  [[nodiscard]] static double LeastSquare(double distance) {
    double square = distance * distance;
    while (std::sqrt(square) >= distance) square = std::nextafter(square, 0.0);
    while (std::sqrt(square) < distance) {
      square = std::nextafter(square, std::numeric_limits<double>::infinity());
    }
    return square;
  }

  double distance_ = 0.0;
  double least_square_ = 0.0;
  std::uint32_t first_ = 0;
  std::uint32_t second_ = 0;
};

/// Offers every pair of the points.
inline void OfferAllPairs(std::span<const ListedPoint> points, BestPair& best) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    for (std::size_t j = i + 1; j < points.size(); ++j) best.Offer(points[i], points[j]);
  }
}

}  // namespace zor::shape
