#pragma once

#include <limits>
#include <optional>
#include <string>

#include <ZorStatus.h>

namespace inspect {

/// One measurement: a line of the table and what is drawn of it on the picture.
struct Row {
  std::string group;
  std::string name;
  std::string unit;
  double measured = std::numeric_limits<double>::quiet_NaN();
  long status = GM_OK;               // of the measuring library
  std::string figure = {};           // SVG in picture coordinates, see figures.h
  std::optional<double> truth = {};  // when the dimension is known
  double limit = 0;  // largest accepted distance from the truth; 0: no truth is needed
};

/// The measured value; nothing when the measurement failed.
std::optional<double> Measured(const Row& row);

/// Measured less true value, when both are there.
std::optional<double> Error(const Row& row);

/// Measured, and within its limit of the truth if that is known.
bool IsGood(const Row& row);

/// "ok", "off by more than 0.02", or the library's status code.
std::string Verdict(const Row& row);

/// "12.3457", "-0.0031"; "-" for nothing.
std::string Number(std::optional<double> value);

}  // namespace inspect
