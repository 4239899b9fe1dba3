#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "ZorVar.h"
#include "zordata_export.h"

/// An ordered list of scalars, indexed from 0: coefficients, distances, angles, curvatures.
class ZORDATA_EXPORT ZorVarArray {
 public:
  using value_type = ZorVar;

  ZorVarArray() noexcept = default;
  ZorVarArray(std::initializer_list<ZorVar> values) : values_(values) {}
  explicit ZorVarArray(std::vector<ZorVar> values) noexcept : values_(std::move(values)) {}

  [[nodiscard]] int Length() const noexcept { return static_cast<int>(values_.size()); }
  [[nodiscard]] bool Empty() const noexcept { return values_.empty(); }

  /// Any index; one outside 0 .. Length - 1 wraps around cyclically. An empty list gives a spare
  /// value of the calling thread, reset to 0 at each such access.
  [[nodiscard]] ZorVar& operator[](int i) {
    return Inside(i) ? values_[static_cast<std::size_t>(i)] : const_cast<ZorVar&>(Wrapped(i));
  }
  [[nodiscard]] const ZorVar& operator[](int i) const {
    return Inside(i) ? values_[static_cast<std::size_t>(i)] : Wrapped(i);
  }

  void Append(const ZorVar& value) { values_.push_back(value); }
  void Assign(std::vector<ZorVar> values) noexcept { values_ = std::move(values); }
  /// Copies the value at the index; false (nothing written) when the index is outside the list.
  bool Select(int i, ZorVar* value) const;
  void Clear() noexcept { values_.clear(); }
  void Reserve(int count);

  [[nodiscard]] ZorVar* begin() noexcept { return values_.data(); }
  [[nodiscard]] ZorVar* end() noexcept { return values_.data() + values_.size(); }
  [[nodiscard]] const ZorVar* begin() const noexcept { return values_.data(); }
  [[nodiscard]] const ZorVar* end() const noexcept { return values_.data() + values_.size(); }

  friend bool operator==(const ZorVarArray& a, const ZorVarArray& b) {
    return a.values_ == b.values_;
  }
  friend bool operator!=(const ZorVarArray& a, const ZorVarArray& b) { return !(a == b); }

 private:
  [[nodiscard]] bool Inside(int i) const noexcept {
    return static_cast<std::size_t>(static_cast<unsigned>(i)) < values_.size();
  }
  [[nodiscard]] const ZorVar& Wrapped(int i) const noexcept;

  std::vector<ZorVar> values_;
};
