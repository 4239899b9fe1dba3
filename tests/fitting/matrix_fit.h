#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include <opencv2/core.hpp>

#include <ZorData.h>

namespace zor::test {

/// The re-weighted fits written out with whole matrices: the reference for the one-sweep ones.
struct MatrixFit {
  /// Rows and targets from equation(point), k + 1 numbers; errors |a c - b|, a fixed clip.
  template <typename Equation>
  MatrixFit(const ZorPointArray& points, double fixed_clip, const Equation& equation) {
    for (const ZorPoint& p : points) {
      std::vector<double> values = equation(p);
      b.push_back(values.back());
      values.pop_back();
      a.push_back(cv::Mat(values, true).reshape(1, 1));
    }
    errors = [rows = a, targets = b](const cv::Mat& c) {
      return std::vector<double>(cv::Mat(cv::abs(rows * c - targets)));
    };
    clip = [fixed_clip](const std::vector<double>&) { return fixed_clip; };
  }

  cv::Mat a;  // n x k
  cv::Mat b;  // n x 1
  int inner_passes = 50;
  bool restore_on_equal = false;
  int solve = cv::DECOMP_LU;
  int least_weights = 2;
  std::function<std::vector<double>(const cv::Mat& c)> errors;
  std::function<double(std::vector<double> errors)> clip;

  [[nodiscard]] cv::Mat Run(bool absolute, int passes) const {
    cv::Mat c = cv::Mat::zeros(a.cols, 1, CV_64F);
    cv::Mat w = cv::Mat::ones(a.rows, 1, CV_64F);
    for (int pass = 0; pass < passes; ++pass) {
      if (pass > 0 && Reweight(c, w) < least_weights) break;
      cv::Mat weighted = a.t();  // column i is w_i^2 row_i
      for (int i = 0; i < a.rows; ++i) {
        weighted.col(i) *= w.at<double>(i) * w.at<double>(i);
      }
      if (absolute) {
        Absolute(cv::Mat((weighted * a).inv() * weighted), c);
      } else {
        cv::solve(weighted * a, weighted * b, c, solve);
      }
    }
    return c;
  }

 private:
  int Reweight(const cv::Mat& c, cv::Mat& w) const {
    const std::vector<double> e = errors(c);
    const double t = clip(e);
    int left = 0;
    for (int i = 0; i < a.rows; ++i) {
      const double error = e[static_cast<std::size_t>(i)];
      w.at<double>(i) = error < t ? 1 - (error / t) * (error / t) : 0;
      if (w.at<double>(i) != 0) ++left;
    }
    return left;
  }

  void Absolute(const cv::Mat& p, cv::Mat& c) const {
    cv::Mat z = cv::Mat::zeros(a.rows, 1, CV_64F);
    cv::Mat u = z.clone();
    double last = 0;
    for (int k = 0; k < inner_passes; ++k) {
      const cv::Mat before = c.clone();
      c = p * (b + z - u);
      const cv::Mat r = a * c - b;
      const double sum = cv::sum(cv::abs(r))[0];
      if (k > 0 && (restore_on_equal ? sum >= last : sum > last)) {
        c = before;
        return;
      }
      last = sum;
      if (sum < 1.0) return;
      const cv::Mat h = r + u;
      for (int i = 0; i < a.rows; ++i) {
        const double x = h.at<double>(i);
        z.at<double>(i) = x / std::fabs(x) * std::trunc(std::max(std::fabs(x) - 2.0, 0.0));
      }
      u = h - z;
    }
  }
};

}  // namespace zor::test
