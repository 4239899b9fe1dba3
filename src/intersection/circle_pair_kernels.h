#pragma once

#include "ZorPoint.h"

namespace zor::intersection {

/// How two circles lie, in the order in which the cases are told apart.
enum class CirclePairCase {
  kConcentric,    // centres within 0.0005, inclusive
  kApart,         // more than 0.001 between them
  kInside,        // one within the other, more than 0.001 from it
  kTouchOutside,  // within 0.001, inclusive
  kTouchInside,   // within 0.001, inclusive
  kCrossing,
};

struct CirclePair {
  CirclePairCase which = CirclePairCase::kApart;
  ZorPoint first;   // the touching point, or the first crossing
  ZorPoint second;  // the second crossing
};

/// Precondition: radii positive. The crossings lie clockwise, then counter-clockwise on the screen
/// of the direction from the first centre to the second.
[[nodiscard]] CirclePair MeetCircles(const ZorPoint& c1, double r1, const ZorPoint& c2, double r2);

/// Area between the smaller of two concentric or nested circles' outlines, pi with ten digits.
[[nodiscard]] double SmallerDisc(double r1, double r2);

/// Part of a disc cut off by a chord that subtends gamma_deg (0 to 180) at the centre: the piece
/// without the centre.
[[nodiscard]] double MinorSegment(double radius, double gamma_deg);
/// The piece with the centre.
[[nodiscard]] double MajorSegment(double radius, double gamma_deg);

}  // namespace zor::intersection
