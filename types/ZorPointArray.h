#pragma once

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

#include "ZorPoint.h"
#include "ZorPointView.h"
#include "zordata_export.h"

/// An ordered list of points, indexed from 0: a polygon (closing edge implied, first vertex not
/// repeated), a polyline or a point set, as the operation that takes it says. One allocation.
class ZORDATA_EXPORT ZorPointArray {
 public:
  using value_type = ZorPoint;
  using iterator = ZorPoint*;
  using const_iterator = const ZorPoint*;

  ZorPointArray() noexcept = default;
  ZorPointArray(const ZorPointArray&) = default;
  ZorPointArray(ZorPointArray&&) noexcept = default;
  ~ZorPointArray() = default;
  ZorPointArray(std::initializer_list<ZorPoint> points) : points_(points) {}
  explicit ZorPointArray(std::vector<ZorPoint> points) noexcept : points_(std::move(points)) {}
  /// Of points elsewhere. There is no constructor from a pointer and a count: {0, 4}, meant as a
  /// point, would fit it.
  explicit ZorPointArray(ZorPointView points) : points_(points.begin(), points.end()) {}

  // Deliberate: both assignments return the list by value, as hosts compiled against this interface
  // expect, so each costs a second copy. Assign and Swap replace the content without it.
  ZorPointArray operator=(const ZorPointArray& other);  // NOLINT: see above
  ZorPointArray operator=(ZorPointArray&& other);       // NOLINT: see above

  /// Replaces the content; the points may be part of this very list.
  void Assign(ZorPointView points);
  void Assign(std::vector<ZorPoint> points) noexcept { points_ = std::move(points); }
  void Swap(ZorPointArray& other) noexcept { points_.swap(other.points_); }

  [[nodiscard]] int Length() const noexcept { return static_cast<int>(points_.size()); }
  [[nodiscard]] bool Empty() const noexcept { return points_.empty(); }

  /// Any index; one outside 0 .. Length - 1 wraps around cyclically (-1 is the last point). An
  /// empty list gives a spare point of the calling thread, reset to (0, 0) at each such access.
  [[nodiscard]] ZorPoint& operator[](int i) {
    return Inside(i) ? points_[static_cast<std::size_t>(i)] : const_cast<ZorPoint&>(Wrapped(i));
  }
  [[nodiscard]] const ZorPoint& operator[](int i) const {
    return Inside(i) ? points_[static_cast<std::size_t>(i)] : Wrapped(i);
  }

  void Append(const ZorPoint& point) { points_.push_back(point); }
  /// Appends all points in order; the list may be appended to itself.
  void Append(const ZorPointArray& points);

  /// Copies the point at the index; false (nothing written) when the index is outside the list.
  bool Select(int i, ZorPoint* point) const;
  /// Removes the point at the index; false (nothing removed) when the index is outside the list.
  bool Remove(int i);
  void Clear() noexcept { points_.clear(); }
  void Reserve(int count);

  [[nodiscard]] ZorPoint* begin() noexcept { return points_.data(); }
  [[nodiscard]] ZorPoint* end() noexcept { return points_.data() + points_.size(); }
  [[nodiscard]] const ZorPoint* begin() const noexcept { return points_.data(); }
  [[nodiscard]] const ZorPoint* end() const noexcept { return points_.data() + points_.size(); }
  [[nodiscard]] ZorPointView View() const noexcept {
    return ZorPointView(points_.data(), points_.size());
  }

  friend bool operator==(const ZorPointArray& a, const ZorPointArray& b) {
    return a.points_ == b.points_;
  }
  friend bool operator!=(const ZorPointArray& a, const ZorPointArray& b) { return !(a == b); }

 private:
  [[nodiscard]] bool Inside(int i) const noexcept {
    return static_cast<std::size_t>(static_cast<unsigned>(i)) < points_.size();
  }
  [[nodiscard]] const ZorPoint& Wrapped(int i) const noexcept;

  std::vector<ZorPoint> points_;
};
