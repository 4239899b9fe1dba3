#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "elementary/lanes.h"
#include "fitting/small_solve.h"

// Iteratively re-weighted fits of models that are linear in their k coefficients c: row(i) . c
// approaches target(i) over the points i. Line, circle, ellipse and polynomial share them.
//
// A fit makes a number of passes. Each solves the normal equations
//     (sum w_i^2 row_i^T row_i) c = sum w_i^2 row_i^T target_i       (the weight enters squared)
// by least squares, or walks from them towards the least sum of absolute residuals. Between passes
// the weights become w = 1 - (e / t)^2 for an error e below the clipping distance t, else 0: the
// biweight, w being squared. The equations are gathered in the sweep that finds the weights, so
// least squares needs no memory per point and least absolute two numbers.
//
// How to use it: write a model (see RobustModel), then
//     auto c = model.MakeVector();
//     const bool solved = FitLeastSquares(model, passes, FixedClip(t), c);   // or FitLeastAbsolute
// c holds the last pass's coefficients; the model has taken them over by Settle.

namespace zor::fitting {

using elementary::Coordinates;
using elementary::kLaneCount;
using elementary::Load;
using elementary::LoadPoint;
using elementary::Magnitude;
using elementary::Pair;
using elementary::Root;
using elementary::StoreAt;
using elementary::Total;
using elementary::WhereLess;

/// What the fits ask of a model. Real is a Lane or a double, for the points i and i + 1 or for the
/// point i alone; a model that has nothing to gain from pairs has Lane = double.
///  - Vector, Row<Real>: k doubles, k Reals (std::array where k is fixed, else std::vector);
///    MakeVector(), MakeRow<Real>(): such zeros;
///  - Sums<Real>(model): the normal equations, gathered by Add(model, i, w^2), and then added to
///    the right side and the matrix (both by rows) by AddTo(matrix, right_side); NormalSums<k,
///    Real> serves any small fixed k;
///  - FillRow<Real>(i, row), Target<Real>(i): the equations;
///  - Settle(c): takes over a pass's coefficients; Error<Real>(i): how far the points are from
///    them;
///  - kInnerPasses: the most steps of a least-absolute pass;
///  - kRestoreOnEqual: whether such a pass also ends, with the coefficients of the step before,
///    when the sum of absolute residuals stays equal, or only when it grows;
///  - kSolve, kInverse: the decompositions of least-squares and least-absolute passes;
///  - kStopOnFailedSolve: whether a least-squares solve that fails ends the fit;
///  - kErrorsAreObserved: Error leaves records, so no pass may be skipped;
///  - MinimumWeights(): with fewer non-zero weights there is no further pass.
template <typename M>
concept RobustModel = requires(M& model, const M& settled, typename M::Vector& vector,
                               typename M::template Row<typename M::Lane>& row,
                               typename M::template Sums<typename M::Lane>& sums, std::size_t i,
                               std::span<double> out) {
  requires std::same_as<typename M::Lane, Pair> || std::same_as<typename M::Lane, double>;
  { settled.MakeVector() } -> std::same_as<typename M::Vector>;
  { settled.PointCount() } -> std::same_as<std::size_t>;
  { settled.MinimumWeights() } -> std::same_as<std::size_t>;
  { settled.template Target<typename M::Lane>(i) } -> std::same_as<typename M::Lane>;
  { settled.template Error<typename M::Lane>(i) } -> std::same_as<typename M::Lane>;
  { M::kInnerPasses } -> std::convertible_to<int>;
  { M::kRestoreOnEqual } -> std::convertible_to<bool>;
  { M::kSolve } -> std::convertible_to<Decomposition>;
  { M::kInverse } -> std::convertible_to<Decomposition>;
  { M::kStopOnFailedSolve } -> std::convertible_to<bool>;
  { M::kErrorsAreObserved } -> std::convertible_to<bool>;
  settled.template FillRow<typename M::Lane>(i, row);
  model.Settle(vector);
  sums.Add(settled, i, typename M::Lane(1.0));
  sums.AddTo(out, out);
};

/// Calls body(index) for 0 .. K-1 with constant indices, so that small arrays stay in registers.
template <std::size_t K, typename Body>
inline void Unrolled(Body&& body) {
  [&]<std::size_t... J>(std::index_sequence<J...>) {
    (body(std::integral_constant<std::size_t, J>{}), ...);
  }
  (std::make_index_sequence<K>{});
}

/// Calls body(index) for every element of a row.
template <typename Real, std::size_t K, typename Body>
inline void ForEachIndex(const std::array<Real, K>& /*row*/, Body&& body) {
  Unrolled<K>(body);
}
template <typename Body>
inline void ForEachIndex(const std::vector<double>& row, Body&& body) {
  for (std::size_t j = 0; j < row.size(); ++j) body(j);
}

/// Normal equations of a model with K coefficients: the upper triangle and the right side.
template <std::size_t K, typename Real>
class NormalSums {
 public:
  template <typename Model>
  explicit NormalSums(const Model& /*model*/) {}

  template <typename Model>
  void Add(const Model& model, std::size_t i, Real squared_weight) {
    std::array<Real, K> row;
    model.template FillRow<Real>(i, row);
    const Real target = model.template Target<Real>(i);
    Unrolled<K>([&](auto j) {
      const Real b = squared_weight * row[j];
      Unrolled<K - j>([&](auto beyond) { upper_[At(j, j + beyond)] += b * row[j + beyond]; });
      right_side_[j] += b * target;
    });
  }

  void AddTo(std::span<double> matrix, std::span<double> right_side) const {
    for (std::size_t j = 0; j < K; ++j) {
      for (std::size_t l = 0; l < K; ++l) {
        matrix[j * K + l] += Total(upper_[At(std::min(j, l), std::max(j, l))]);
      }
      right_side[j] += Total(right_side_[j]);
    }
  }

 private:
  static constexpr std::size_t At(std::size_t j, std::size_t l) {
    return j * K - j * (j + 1) / 2 + l;
  }
  std::array<Real, K*(K + 1) / 2> upper_{};
  std::array<Real, K> right_side_{};
};

/// row(i) . c - target(i); `row` is where the row goes.
template <typename Real, typename Model>
[[nodiscard]] Real Residual(const Model& model, std::size_t i, const typename Model::Vector& c,
                            typename Model::template Row<Real>& row) {
  model.template FillRow<Real>(i, row);
  Real value(0.0);
  ForEachIndex(row, [&](auto j) { value += row[j] * Real(c[j]); });
  return value - model.template Target<Real>(i);
}

/// The clipping distance of every re-weighting: a given number.
class FixedClip {
 public:
  explicit FixedClip(double distance) : distance_(distance) {}
  template <typename Model>
  [[nodiscard]] double operator()(const Model& /*model*/) const {
    return distance_;
  }

 private:
  double distance_;
};

namespace robust {

inline constexpr double kShrink = 2.0;       // what the shrinkage takes off a residual
inline constexpr double kSmallEnough = 1.0;  // sum of absolute residuals that ends a pass
inline constexpr double kAllWhole = 0x1p52;  // from here on a double is a whole number

/// The residual drawn towards zero by kShrink.
// Deliberate: the shrunk magnitude is cut to a whole number; fitted coefficients rest on it. A
// residual of exactly 0 has no sign and makes the result not a number, by 0 / 0.
[[nodiscard]] inline double Shrunk(double h) {
  const double magnitude = std::fabs(h);
  if (magnitude < kShrink + 1 && magnitude > 0) return 0.0;
  const double rest = std::max(magnitude - kShrink, 0.0);
  const double whole = rest < kAllWhole ? static_cast<double>(static_cast<long long>(rest)) : rest;
  return h / magnitude * whole;
}
[[nodiscard]] inline Pair Shrunk(Pair h) { return {Shrunk(h.v[0]), Shrunk(h.v[1])}; }

/// The small systems of one fit, sized once.
template <typename Vector>
struct Equations {
  explicit Equations(const Vector& zeros)
      : matrix(zeros.size() * zeros.size()), inverse(matrix.size()), right_side(zeros) {}

  void Clear() {
    std::ranges::fill(matrix, 0.0);
    std::ranges::fill(right_side, 0.0);
  }

  std::vector<double> matrix;
  std::vector<double> inverse;
  Vector right_side;
};

/// The weights 1 of a first pass, for Gather.
struct UnitWeights {};

/// The weight of an error below the clipping distance, else 0.
template <typename Real>
[[nodiscard]] Real WeightOf(Real error, double clip) {
  const Real ratio = error / Real(clip);
  return WhereLess(error, Real(clip), Real(1.0) - ratio * ratio);
}

/// The squared weights by the errors of a settled model.
template <typename Model>
class ErrorWeights {
 public:
  ErrorWeights(const Model& model, double clip) : model_(model), clip_(clip) {}

  template <typename Real>
  [[nodiscard]] Real Squared(std::size_t i) const {
    const Real weight = WeightOf(model_.template Error<Real>(i), clip_);
    return weight * weight;
  }

 private:
  const Model& model_;
  double clip_;
};

/// Whether a re-weighting leaves enough weights; mostly known after a few points, so that the sweep
/// that gathers need not count.
template <typename Model>
[[nodiscard]] bool LeavesEnough(const Model& model, double clip) {
  std::size_t left = model.MinimumWeights();
  for (std::size_t i = 0; i < model.PointCount() && left > 0; ++i) {
    if (WeightOf(model.template Error<double>(i), clip) != 0.0) --left;
  }
  return left == 0;
}

/// Calls body(i, one) for the points from `begin` to before `end`, by lanes as far as they go;
/// `one` is a 1 of the type to compute with.
template <typename Lane, typename Body>
void ForEachLane(std::size_t begin, std::size_t end, const Body& body) {
  constexpr std::size_t kStep = kLaneCount<Lane>;
  std::size_t i = begin;
  for (; i + kStep <= end; i += kStep) body(i, Lane(1.0));
  for (; i < end; ++i) body(i, 1.0);
}

/// Gathers the normal equations under the given weights; keep(i, w^2) sees each on the way. The
/// weights of a block come before its sums: a root and a quotient take so long that a loop for both
/// holds too few points at a time to hide it.
template <typename Model, typename Weights, typename Keep>
void Gather(const Model& model, const Weights& weights, Keep keep,
            Equations<typename Model::Vector>& equations) {
  using Lane = typename Model::Lane;
  constexpr bool kAreOnes = std::is_same_v<Weights, UnitWeights>;
  constexpr std::size_t kBlock = 64;  // a multiple of the lanes
  typename Model::template Sums<Lane> sums(model);
  typename Model::template Sums<double> rest(model);
  std::array<double, kBlock> squared;
  for (std::size_t begin = 0; begin < model.PointCount(); begin += kBlock) {
    const std::size_t end = std::min(begin + kBlock, model.PointCount());
    if constexpr (!kAreOnes) {
      ForEachLane<Lane>(begin, end, [&](std::size_t i, auto one) {
        StoreAt(squared, i - begin, weights.template Squared<decltype(one)>(i));
      });
    }
    ForEachLane<Lane>(begin, end, [&](std::size_t i, auto one) {
      using Real = decltype(one);
      Real w2 = one;
      if constexpr (!kAreOnes) w2 = Load<Real>(squared, i - begin);
      keep(i, w2);
      if constexpr (std::is_same_v<Real, Lane>) {
        sums.Add(model, i, w2);
      } else {
        rest.Add(model, i, w2);
      }
    });
  }
  equations.Clear();
  sums.AddTo(equations.matrix, equations.right_side);
  rest.AddTo(equations.matrix, equations.right_side);
}

/// Runs the passes: pass(equations, c) solves one and says whether it could; keep(i, w^2) takes the
/// squared weights. False when a pass fails that ends the fit.
template <typename Model, typename Clip, typename Keep, typename Pass>
[[nodiscard]] bool RunPasses(Model& model, int passes, Clip&& clip, typename Model::Vector& c,
                             Keep keep, Pass pass) {
  Equations<typename Model::Vector> equations(model.MakeVector());
  // A pass depends on the coefficients before it alone, so once they repeat, so do all others: they
  // come to rest, or the last bits go round. They are compared with those at the last power of two
  // (R. P. Brent, An improved Monte Carlo factorization algorithm, 1980); then only what is left
  // over of the passes beside whole rounds is done.
  typename Model::Vector mark = c;
  int marked_at = 0;
  bool can_repeat = !Model::kErrorsAreObserved;
  for (int done = 0; done < passes; ++done) {
    if (done == 0) {
      Gather(model, UnitWeights(), keep, equations);
    } else {
      if constexpr (requires { model.FindErrors(); }) model.FindErrors();
      const double t = clip(model);
      if (!LeavesEnough(model, t)) return true;
      Gather(model, ErrorWeights<Model>(model, t), keep, equations);
    }
    if (!pass(equations, c) && Model::kStopOnFailedSolve) return false;
    model.Settle(c);
    if (!can_repeat) continue;
    if (done > 0 && c == mark) {
      passes = done + 1 + (passes - 1 - done) % (done - marked_at);
      can_repeat = false;
    } else if ((done & (done - 1)) == 0) {
      mark = c;
      marked_at = done;
    }
  }
  return true;
}

/// The sums of one step of a least-absolute pass over the points that it is given: of the absolute
/// residuals r = row . c - target, and the right side sum w^2 row^T (target + z - u) of the next
/// step. Moves the scaled multipliers u on the way.
template <typename Real, typename Model>
class StepSums {
 public:
  explicit StepSums(const Model& model)
      : row_(model.template MakeRow<Real>()), right_side_(model.template MakeRow<Real>()) {}

  void Add(const Model& model, std::size_t i, const typename Model::Vector& c,
           std::span<const double> squared_weights, std::span<double> multipliers) {
    const Real r = Residual<Real>(model, i, c, row_);
    residuals_ += Magnitude(r);
    const Real h = r + Load<Real>(multipliers, i);
    const Real z = Shrunk(h);
    const Real u = h - z;
    StoreAt(multipliers, i, u);
    const Real w2 = Load<Real>(squared_weights, i);
    const Real goal = model.template Target<Real>(i) + z - u;
    ForEachIndex(row_, [&](auto j) { right_side_[j] += w2 * row_[j] * goal; });
  }

  [[nodiscard]] double Residuals() const { return Total(residuals_); }
  template <typename Vector>
  void AddTo(Vector& right_side) const {
    for (std::size_t j = 0; j < right_side.size(); ++j) right_side[j] += Total(right_side_[j]);
  }

 private:
  typename Model::template Row<Real> row_;
  typename Model::template Row<Real> right_side_;
  Real residuals_ = Real(0.0);
};

/// One step over all points; returns the sum of absolute residuals and replaces the right side.
template <typename Model>
[[nodiscard]] double Step(const Model& model, const typename Model::Vector& coefficients,
                          std::span<const double> squared_weights, std::span<double> multipliers,
                          typename Model::Vector& right_side) {
  using Lane = typename Model::Lane;
  constexpr std::size_t kStep = kLaneCount<Lane>;
  const typename Model::Vector c = coefficients;  // not read anew after every write to u
  StepSums<Lane, Model> sums(model);
  StepSums<double, Model> rest(model);
  const std::size_t n = multipliers.size();
  std::size_t i = 0;
  for (; i + kStep <= n; i += kStep) sums.Add(model, i, c, squared_weights, multipliers);
  for (; i < n; ++i) rest.Add(model, i, c, squared_weights, multipliers);
  std::ranges::fill(right_side, 0.0);
  sums.AddTo(right_side);
  rest.AddTo(right_side);
  return sums.Residuals() + rest.Residuals();
}

/// One least-absolute pass: alternating directions with a fixed penalty (Boyd and others,
/// "Distributed optimization and statistical learning via the alternating direction method of
/// multipliers", 2011, section 6.1), z and u starting at 0. With (B A)^-1 B not formed but applied,
/// a step is one sweep. O(kInnerPasses n).
template <typename Model>
void FitAbsolute(const Model& model, std::span<const double> squared_weights,
                 std::span<double> multipliers, Equations<typename Model::Vector>& equations,
                 typename Model::Vector& c) {
  const std::size_t k = c.size();
  Invert(equations.matrix, equations.inverse, Model::kInverse);
  std::ranges::fill(multipliers, 0.0);
  typename Model::Vector before = c;
  double last = 0.0;
  for (int step = 0; step < Model::kInnerPasses; ++step) {
    before = c;
    for (std::size_t j = 0; j < k; ++j) {
      c[j] = 0.0;
      for (std::size_t l = 0; l < k; ++l) {
        c[j] += equations.inverse[j * k + l] * equations.right_side[l];
      }
    }
    // Not a number makes all residuals so, and they the coefficients of all steps to come.
    if (std::ranges::all_of(c, [](double value) { return std::isnan(value); })) return;
    const double sum = Step(model, c, squared_weights, multipliers, equations.right_side);
    // Deliberate: written so that a sum that is not a number ends nothing.
    const bool is_over = Model::kRestoreOnEqual ? sum >= last : sum > last;
    if (step > 0 && is_over) {
      c = before;
      return;
    }
    last = sum;
    if (sum < kSmallEnough) return;
  }
}

}  // namespace robust

/// Re-weighted least squares from c, whose values matter only where a system is singular and the
/// solver leaves them. False when a solve failed and the model stops at that. O(passes n), no
/// memory per point.
template <RobustModel Model, typename Clip>
[[nodiscard]] bool FitLeastSquares(Model& model, int passes, Clip&& clip,
                                   typename Model::Vector& c) {
  using Vector = typename Model::Vector;
  const auto pass = [](robust::Equations<Vector>& equations, Vector& solution) {
    return SolveSystem(equations.matrix, equations.right_side, solution, Model::kSolve);
  };
  return robust::RunPasses(
      model, passes, clip, c, [](std::size_t, auto) {}, pass);
}

/// Re-weighted least absolute deviations. O(passes kInnerPasses n) and two doubles a point.
template <RobustModel Model, typename Clip>
void FitLeastAbsolute(Model& model, int passes, Clip&& clip, typename Model::Vector& c) {
  using Vector = typename Model::Vector;
  std::vector<double> squared_weights(model.PointCount());
  std::vector<double> multipliers(model.PointCount());
  const auto keep = [&](std::size_t i, auto w2) { StoreAt(squared_weights, i, w2); };
  const auto pass = [&](robust::Equations<Vector>& equations, Vector& solution) {
    robust::FitAbsolute(model, squared_weights, multipliers, equations, solution);
    return true;
  };
  static_cast<void>(robust::RunPasses(model, passes, clip, c, keep, pass));
}

}  // namespace zor::fitting
