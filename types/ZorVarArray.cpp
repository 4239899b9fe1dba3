#include "ZorVarArray.h"

bool ZorVarArray::Select(int i, ZorVar* value) const {
  if (!Inside(i)) return false;
  if (value != nullptr) *value = values_[static_cast<std::size_t>(i)];
  return true;
}

void ZorVarArray::Reserve(int count) {
  if (count > 0) values_.reserve(static_cast<std::size_t>(count));
}

const ZorVar& ZorVarArray::Wrapped(int i) const noexcept {
  if (values_.empty()) {
    thread_local ZorVar spare;
    spare = ZorVar();
    return spare;
  }
  const long long count = static_cast<long long>(values_.size());
  const long long index = ((i % count) + count) % count;
  return values_[static_cast<std::size_t>(index)];
}
