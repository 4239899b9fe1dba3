#include "distance/spatial_order.h"

#include <array>
#include <cstddef>
#include <utility>

namespace zor::distance {
namespace {

struct Keyed {
  std::uint32_t key;
  std::uint32_t index;
};

inline constexpr double kCells = 65536.0;
inline constexpr unsigned kDigitBits = 11;
inline constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

/// The 16 bits of a coordinate, each followed by a 0.
std::uint32_t Spread(std::uint32_t bits) {
  bits = (bits | (bits << 8)) & 0x00ff00ffU;
  bits = (bits | (bits << 4)) & 0x0f0f0f0fU;
  bits = (bits | (bits << 2)) & 0x33333333U;
  return (bits | (bits << 1)) & 0x55555555U;
}

std::uint32_t Cell(double value, double low, double high) {
  const double cell = high > low ? (value - low) / (high - low) * kCells : 0.0;
  return cell < kCells ? static_cast<std::uint32_t>(cell) : 0xffffU;
}

/// A stable counting sort by one digit of the key.
void SortByDigit(const std::vector<Keyed>& from, std::vector<Keyed>& to, unsigned shift) {
  std::array<std::uint32_t, kDigits> next{};
  const auto digit = [shift](const Keyed& k) { return (k.key >> shift) & (kDigits - 1); };
  for (const Keyed& k : from) ++next[digit(k)];
  std::uint32_t begin = 0;
  for (std::uint32_t& count : next) begin += std::exchange(count, begin);
  for (const Keyed& k : from) to[next[digit(k)]++] = k;
}

}  // namespace

std::vector<std::uint32_t> SpatialOrder(std::span<const ZorPoint> points, const Box& box) {
  std::vector<Keyed> keyed(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const std::uint32_t column = Cell(points[i].x, box.left, box.right);
    const std::uint32_t row = Cell(points[i].y, box.top, box.bottom);
    keyed[i] = {Spread(column) | (Spread(row) << 1), static_cast<std::uint32_t>(i)};
  }
  std::vector<Keyed> other(points.size());
  for (unsigned shift = 0; shift < 32; shift += kDigitBits) {
    SortByDigit(keyed, other, shift);
    keyed.swap(other);
  }
  std::vector<std::uint32_t> order(points.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = keyed[k].index;
  return order;
}

}  // namespace zor::distance
