#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "ZorPoint.h"
#include "fitting/curve_solver.h"

namespace zor::fitting {

// Sine curves y = amplitude sin(frequency x + phase) + offset; CurveParameters in that order, the
// frequency angular (radians a unit of x), the phase in radians.

inline constexpr std::size_t kMinSinePoints = 4;

[[nodiscard]] double SineAt(const CurveParameters& sine, double x);

/// The same curve with amplitude >= 0, frequency >= 0 and the phase in (-pi, pi].
[[nodiscard]] CurveParameters NormalisedSine(const CurveParameters& sine);

/// The curve with x measured from `origin` instead of from 0, or back for -origin.
[[nodiscard]] CurveParameters ShiftedSine(const CurveParameters& sine, double origin);

/// A sine near the points, where the solver can start, below the mean sampling limit of half a turn
/// from one x to the next: the candidates are the three highest peaks of the spectrum (of the
/// points resampled at as many even x as they have, 4 194 304 at most, less their mean) and the
/// lines up to two periods over the extent from 0 and from the limit, which a spectrum cannot tell
/// apart; the one whose linear fit of sine, cosine and constant leaves the smallest sum of squares
/// wins, the lowest frequency on a tie. Nothing when all x or all y are equal or the extent in x is
/// not finite. Precondition: finite points, ascending in x. O(N log N).
[[nodiscard]] std::optional<CurveParameters> SineStart(std::span<const ZorPoint> sorted);

/// The sine through the points, normalised, by the solver from SineStart on in `passes` re-weighted
/// passes (curve_passes.h). x is measured from the middle meanwhile: far from the origin a change
/// of the frequency would otherwise turn the phase. Where the solver left the sampling limit of
/// evenly spaced points, the sine below it with the same values there. Nothing where a coordinate
/// is not finite, there is no start or the result is not finite. Precondition: a point.
[[nodiscard]] std::optional<CurveParameters> FitSine(std::span<const ZorPoint> points, int passes,
                                                     double clip, int max_iterations);

}  // namespace zor::fitting
