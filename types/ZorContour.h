#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "ZorPointArray.h"
#include "ZorPointView.h"
#include "zordata_export.h"

/// An ordered list of contour points in image coordinates; whether it closes is for the operation
/// that takes it to say (an open polyline unless it says closed).
class ZORDATA_EXPORT ZorContour {
 public:
  using value_type = ZorPoint;

  ZorContour() noexcept = default;
  ZorContour(std::initializer_list<ZorPoint> points) : points_(points) {}
  explicit ZorContour(std::vector<ZorPoint> points) noexcept : points_(std::move(points)) {}
  explicit ZorContour(const ZorPointArray& points);

  [[nodiscard]] int Length() const noexcept { return static_cast<int>(points_.size()); }
  [[nodiscard]] bool Empty() const noexcept { return points_.empty(); }

  /// Replaces the content of `points` by the contour's points, in order; null does nothing.
  void ToPointArray(ZorPointArray* points) const;
  /// Replaces the contour's points by those of the list, in order.
  void FromPointArray(const ZorPointArray& points);

  [[nodiscard]] ZorPointView View() const noexcept {
    return ZorPointView(points_.data(), points_.size());
  }
  [[nodiscard]] const ZorPoint* begin() const noexcept { return points_.data(); }
  [[nodiscard]] const ZorPoint* end() const noexcept { return points_.data() + points_.size(); }

  friend bool operator==(const ZorContour& a, const ZorContour& b) {
    return a.points_ == b.points_;
  }
  friend bool operator!=(const ZorContour& a, const ZorContour& b) { return !(a == b); }

 private:
  std::vector<ZorPoint> points_;
};
