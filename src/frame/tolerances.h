#pragma once

// Bounds and constants that several subsystems share. Pixels unless the name says otherwise.

namespace zor::frame {

/// Two points at most this far apart (inclusive) define no line, segment or vector.
inline constexpr double kDegenerateLength = 5e-4;
/// The largest number whose rounded square root is at most kDegenerateLength.
inline constexpr double kDegenerateSquared = 0x1.0c6f7a0b5ed8ep-22;

/// Lines are parallel when the |cross product| of their directions is below this.
inline constexpr double kParallelCross = 1e-5;

/// Points at most this far apart (inclusive) coincide.
inline constexpr double kCoincident = 1e-5;
/// The largest number whose rounded square root is at most kCoincident.
inline constexpr double kCoincidentSquared = 0x1.b7cdfd9d7bdbdp-34;

// Deliberate: the ten-digit pi of every conversion between degrees and radians; results of hosts
// rest on it. Where an operation uses the full value it takes std::numbers::pi.
inline constexpr double kPi = 3.141592653;
inline constexpr double kTwoPi = 6.283185306;

}  // namespace zor::frame
