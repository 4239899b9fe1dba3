#include "elementary/polygon_kernels.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zor::elementary {
namespace {

inline constexpr std::size_t kBlock = 8;               // edges that are looked over together
inline constexpr double kCaution = 2 * kOutlineReach;  // edges nearer than this are judged

bool IsNegative(std::int64_t bits) { return bits < 0; }

std::int64_t Bits(double value) { return std::bit_cast<std::int64_t>(value); }

/// For each edge that ends in one of kBlock consecutive vertices, a negative number where it may
/// have something to say: its ends lie on different sides of the scan line, or it ends close to it.
/// Signs in place of comparisons, so that the compiler makes vector code of it.
std::array<std::int64_t, kBlock> LookOver(double scan_y, const ZorPoint* ends) {
  std::array<std::int64_t, kBlock> interest;
  for (std::size_t j = 0; j < kBlock; ++j) {
    const double to_start = scan_y - (ends + j)[-1].y;
    const double to_end = scan_y - ends[j].y;
    interest[j] = (Bits(to_start) ^ Bits(to_end)) | Bits(std::fabs(to_end) - kCaution);
  }
  return interest;
}

}  // namespace

int PolygonRelation(const ZorPoint& p, std::span<const ZorPoint> polygon) {
  if (polygon.empty()) return kOutside;
  bool is_inside = false;
  const auto touches = [&](const ZorPoint& a, const ZorPoint& b) {
    const EdgeVerdict verdict = JudgeEdge(p, a, b);
    is_inside ^= verdict == EdgeVerdict::kCrosses;
    return verdict == EdgeVerdict::kTouches;
  };
  if (touches(polygon.back(), polygon.front())) return kOnOutline;
  const double scan_y = p.y + 0.0;  // a scan line at -0.0 would be below a vertex at 0.0
  std::size_t i = 1;
  for (; i + kBlock <= polygon.size(); i += kBlock) {
    const std::array<std::int64_t, kBlock> interest = LookOver(scan_y, &polygon[i]);
    std::int64_t any = 0;
    for (const std::int64_t bits : interest) any |= bits;
    if (!IsNegative(any)) continue;
    for (std::size_t j = i; j < i + kBlock; ++j) {
      if (IsNegative(interest[j - i]) && touches(polygon[j - 1], polygon[j])) return kOnOutline;
    }
  }
  for (; i < polygon.size(); ++i) {
    if (touches(polygon[i - 1], polygon[i])) return kOnOutline;
  }
  return is_inside ? kInside : kOutside;
}

}  // namespace zor::elementary
