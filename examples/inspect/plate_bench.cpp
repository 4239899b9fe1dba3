#include "plate_bench.h"

#include <algorithm>
#include <utility>

namespace inspect {

void PlateBench::Add(Row row, std::string key, double limit) {
  std::replace(key.begin(), key.end(), ' ', '_');
  row.truth = truth_.Find(key);
  row.limit = limit;
  rows_.push_back(std::move(row));
}

}  // namespace inspect
