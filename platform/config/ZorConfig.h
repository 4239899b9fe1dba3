#pragma once

#include "zorconfig_export.h"

namespace ZORMV {

/// The status of a query whose variable is set to something that it does not accept.
inline constexpr long kZorConfigMalformed = 1;

// The settings of the system, each from an environment variable that is read at the call. A
// variable that is unset or empty gives the default and status 0; one with any other spelling than
// those named below (blanks around it included) gives the default and kZorConfigMalformed. A null
// pointer skips the value; the status stays the same.

/// ZOR_GPU: 1, true, on, yes or 0, false, off, no, in any case. Default false.
ZORCONFIG_EXPORT long ZorGetStaticGPU(bool* enabled) noexcept;

/// ZOR_EFFICIENCY: a decimal whole number in the range of `int`, with a minus sign if negative.
/// Default 0.
ZORCONFIG_EXPORT long ZorGetStaticEfficiency(int* level) noexcept;

/// ZOR_TBB: a number as for ZOR_EFFICIENCY; the threads that parallel work may use, below 1 as many
/// as there are processors. Default 0.
ZORCONFIG_EXPORT long ZorGetStaticTBB(int* threads) noexcept;

}  // namespace ZORMV
