#pragma once

#include <cstddef>

namespace zor::distance {

/// The least and the greatest of values given one by one with their indices, the earliest on ties.
/// What is not a number replaces nothing and, as the first value, stays.
class Extremes {
 public:
  void Add(std::size_t index, double value) {
    if (is_empty_) {
      is_empty_ = false;
      least_ = greatest_ = {index, value};
    }
    if (value < least_.value) least_ = {index, value};
    if (value > greatest_.value) greatest_ = {index, value};
  }

  struct Entry {
    std::size_t index = 0;
    double value = 0.0;
  };
  [[nodiscard]] bool IsEmpty() const { return is_empty_; }
  [[nodiscard]] const Entry& Least() const { return least_; }
  [[nodiscard]] const Entry& Greatest() const { return greatest_; }

 private:
  bool is_empty_ = true;
  Entry least_;
  Entry greatest_;
};

}  // namespace zor::distance
