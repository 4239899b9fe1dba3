#pragma once

namespace zor::intersection {

/// A sum kept as an unevaluated pair (D. E. Knuth's two-sum), so that its rounded value does not
/// depend on the order in which terms and partial sums are added.
class CompensatedSum {
 public:
  void Add(double term) {
    const double sum = high_ + term;
    const double shifted = sum - high_;
    low_ += (high_ - (sum - shifted)) + (term - shifted);
    high_ = sum;
  }
  void Add(const CompensatedSum& other) {
    Add(other.high_);
    low_ += other.low_;
  }
  [[nodiscard]] double Value() const { return high_ + low_; }

 private:
  double high_ = 0.0;
  double low_ = 0.0;
};

}  // namespace zor::intersection
