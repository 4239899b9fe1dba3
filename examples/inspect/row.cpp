#include "row.h"

#include <cmath>
#include <cstdio>

namespace inspect {

std::optional<double> Measured(const Row& row) {
  if (row.status != GM_OK || !std::isfinite(row.measured)) return std::nullopt;
  return row.measured;
}

std::optional<double> Error(const Row& row) {
  if (!row.truth || !Measured(row)) return std::nullopt;
  return row.measured - *row.truth;
}

bool IsGood(const Row& row) {
  if (!Measured(row)) return false;
  if (!row.truth) return row.limit == 0;
  return std::abs(row.measured - *row.truth) <= row.limit;
}

std::string Verdict(const Row& row) {
  if (row.status != GM_OK) return "code " + std::to_string(row.status);
  if (!std::isfinite(row.measured)) return "not measured";
  if (IsGood(row)) return "ok";
  if (!row.truth) return "true value missing";
  char text[64];
  std::snprintf(text, sizeof(text), "off by more than %g", row.limit);
  return text;
}

std::string Number(std::optional<double> value) {
  if (!value || !std::isfinite(*value)) return "-";
  char text[64];
  std::snprintf(text, sizeof(text), std::abs(*value) < 1e6 ? "%.4f" : "%.6g", *value);
  return text;
}

}  // namespace inspect
