#include "table.h"

#include <algorithm>
#include <iomanip>

namespace inspect {
namespace {

constexpr int kNumberWidth = 13;
constexpr int kUnitWidth = 6;

}  // namespace

void PrintTable(const std::vector<Row>& rows, std::ostream& out) {
  std::size_t name_width = 12;
  for (const Row& row : rows) name_width = std::max(name_width, row.name.size() + 2);
  const bool has_truth =
      std::any_of(rows.begin(), rows.end(), [](const Row& row) { return row.truth.has_value(); });
  const auto name = [&](const std::string& text) -> std::ostream& {
    return out << "  " << std::left << std::setw(static_cast<int>(name_width)) << text;
  };
  const auto number = [&](const std::string& text) {
    out << std::right << std::setw(kNumberWidth) << text;
  };

  name("");
  number("measured");
  if (has_truth) {
    number("true");
    number("error");
  }
  out << "  " << std::left << std::setw(kUnitWidth) << "unit"
      << "status\n";
  std::string group;
  for (const Row& row : rows) {
    if (row.group != group) out << row.group << '\n';
    group = row.group;
    name(row.name);
    number(Number(Measured(row)));
    if (has_truth) {
      number(Number(row.truth));
      number(Number(Error(row)));
    }
    out << "  " << std::left << std::setw(kUnitWidth) << row.unit << Verdict(row) << '\n';
  }
}

}  // namespace inspect
