#pragma once

namespace zor::fitting {

/// The most points a curve is sampled at: 1 GiB of them, more than any profile holds. What asks for
/// more (a coordinate of 1e300, a count near the largest int) gets a code instead of an allocation.
inline constexpr long long kMaxCurvePoints = 1LL << 26;

}  // namespace zor::fitting
