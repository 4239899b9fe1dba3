#pragma once

#include <initializer_list>
#include <vector>

#include "ZorContour.h"
#include "zordata_export.h"

/// An ordered list of contours, indexed from 0.
class ZORDATA_EXPORT ZorContourArray {
 public:
  using value_type = ZorContour;

  ZorContourArray() noexcept = default;
  ZorContourArray(std::initializer_list<ZorContour> contours) : contours_(contours) {}

  [[nodiscard]] int Length() const noexcept { return static_cast<int>(contours_.size()); }
  [[nodiscard]] bool Empty() const noexcept { return contours_.empty(); }
  void Append(const ZorContour& contour) { contours_.push_back(contour); }
  void Clear() noexcept { contours_.clear(); }

  /// A copy of the contour at the index (iteration gives references); an index outside
  /// 0 .. Length - 1 gives an empty contour.
  [[nodiscard]] ZorContour operator[](int i) const;

  [[nodiscard]] const ZorContour* begin() const noexcept { return contours_.data(); }
  [[nodiscard]] const ZorContour* end() const noexcept {
    return contours_.data() + contours_.size();
  }

  friend bool operator==(const ZorContourArray& a, const ZorContourArray& b) {
    return a.contours_ == b.contours_;
  }
  friend bool operator!=(const ZorContourArray& a, const ZorContourArray& b) { return !(a == b); }

 private:
  std::vector<ZorContour> contours_;
};
