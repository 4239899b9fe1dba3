#include "plate_bench.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace inspect {

void PlateBench::Add(Row row, std::string key, double limit) {
  std::replace(key.begin(), key.end(), ' ', '_');
  row.truth = truth_.Find(key);
  row.limit = limit;
  rows_.push_back(std::move(row));
}

void PlateBench::AddRelative(const Row& row, const std::string& key, double share) {
  Add(row, key, 0);
  Row& added = rows_.back();
  added.limit = share * std::abs(added.truth.value_or(0));
}

}  // namespace inspect
