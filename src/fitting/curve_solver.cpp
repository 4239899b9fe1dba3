#include "fitting/curve_solver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <thread>
#include <utility>
#include <vector>

#include <ceres/autodiff_cost_function.h>
#include <ceres/iteration_callback.h>
#include <ceres/problem.h>
#include <ceres/solver.h>

namespace zor::fitting {
namespace {

using Jet = ceres::Jet<double, 4>;

constexpr double kLargestUsable = 1e140;  // exclusive; a sum of its squares stays finite

bool IsUsable(double value) { return std::fabs(value) < kLargestUsable; }
bool IsUsable(const Jet& value) {
  return IsUsable(value.a) && IsUsable(value.v[0]) && IsUsable(value.v[1]) &&
         IsUsable(value.v[2]) && IsUsable(value.v[3]);
}

/// y less the curve at one point. The solver asks for it at every trial position and, where it
/// stays, again with derivatives: the exponential, which is most of the work, is kept in between.
class GaussianResidual {
 public:
  explicit GaussianResidual(const ZorPoint& p) : x_(p.x), y_(p.y) {}

  template <typename T>
  [[nodiscard]] T At(const T* parameters) const {
    const T offset = x_ - parameters[1];
    const T exponent = -(offset * offset) / (2.0 * parameters[2]);
    return y_ - (parameters[0] * Exp(exponent) + parameters[3]);
  }

 private:
  double Exp(double exponent) const {
    if (exponent != exponent_) {
      exponent_ = exponent;
      exponential_ = std::exp(exponent);
    }
    return exponential_;
  }
  Jet Exp(const Jet& exponent) const {
    const double value = Exp(exponent.a);
    return {value, value * exponent.v};
  }

  double x_;
  double y_;
  mutable double exponent_ = 0.0;
  mutable double exponential_ = 1.0;
};

class SineResidual {
 public:
  explicit SineResidual(const ZorPoint& p) : x_(p.x), y_(p.y) {}

  template <typename T>
  [[nodiscard]] T At(const T* parameters) const {
    using std::sin;  // or the solver's, for derivatives
    return y_ - (parameters[0] * sin(parameters[1] * x_ + parameters[2]) + parameters[3]);
  }

 private:
  double x_;
  double y_;
};

template <typename Residual>
class Weighted {
 public:
  Weighted(const ZorPoint& p, double weight) : residual_(p), weight_(weight) {}

  template <typename T>
  [[nodiscard]] T At(const T* parameters) const {
    return weight_ * residual_.At(parameters);
  }

 private:
  Residual residual_;
  double weight_;
};

/// What the solver calls, from one thread at a time. It prints a message where a residual is not
/// finite or the squares of its derivatives overflow, so they do not reach it: a value is refused,
/// which counts as a step of infinite cost; derivatives are noted as a failure, which ends the
/// solve at the step before (LastSound).
template <typename Residual>
class Functor {
 public:
  template <typename... Arguments>
  explicit Functor(const Arguments&... arguments) : residual_(arguments...) {}

  bool operator()(const double* parameters, double* residual) const {
    residual[0] = residual_.At(parameters);
    return IsUsable(residual[0]);
  }
  bool operator()(const Jet* parameters, Jet* residual) const {
    residual[0] = residual_.At(parameters);
    if (!IsUsable(residual[0])) {
      failed_ = true;
      residual[0] = Jet();
    }
    return true;
  }
  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  Residual residual_;
  mutable bool failed_ = false;
};

// The solver caps its threads at what the machine runs at once, with a message.
int AvailableThreads(int wanted) {
  if (wanted <= 1) return 1;
  const int available = static_cast<int>(std::thread::hardware_concurrency());
  return available > 0 ? std::min(wanted, available) : wanted;
}

template <typename Residual>
bool AnyFailed(const std::vector<Functor<Residual>>& functors) {
  return std::any_of(functors.begin(), functors.end(),
                     [](const Functor<Residual>& functor) { return functor.Failed(); });
}

/// Keeps the parameters of the last step at which all derivatives were usable and ends the solve at
/// the first where they are not.
template <typename Residual>
class LastSound : public ceres::IterationCallback {
 public:
  LastSound(const std::vector<Functor<Residual>>& functors, const CurveParameters& current)
      : functors_(functors), current_(current), sound_(current) {}

  ceres::CallbackReturnType operator()(const ceres::IterationSummary& /*step*/) override {
    if (AnyFailed(functors_)) return ceres::SOLVER_ABORT;
    sound_ = current_;
    return ceres::SOLVER_CONTINUE;
  }
  [[nodiscard]] const CurveParameters& Parameters() const { return sound_; }

 private:
  const std::vector<Functor<Residual>>& functors_;
  const CurveParameters& current_;
  CurveParameters sound_;
};

// The functors and their cost functions, one block a point; each kind lies in one allocation that
// outlives the problem, which owns none of them.
template <typename Residual>
CurveParameters Minimise(std::vector<Functor<Residual>> functors, const CurveParameters& start,
                         const SolverSettings& settings) {
  using Cost = ceres::AutoDiffCostFunction<Functor<Residual>, 1, 4>;
  std::vector<Cost> costs;
  costs.reserve(functors.size());
  ceres::Problem::Options sharing;
  sharing.cost_function_ownership = ceres::DO_NOT_TAKE_OWNERSHIP;
  sharing.loss_function_ownership = ceres::DO_NOT_TAKE_OWNERSHIP;
  sharing.disable_all_safety_checks = true;
  ceres::Problem problem(sharing);
  CurveParameters parameters = start;
  for (Functor<Residual>& functor : functors) {
    Cost& cost = costs.emplace_back(&functor, ceres::DO_NOT_TAKE_OWNERSHIP);
    problem.AddResidualBlock(&cost, nullptr, parameters.data());
  }
  ceres::Solver::Options options;
  options.linear_solver_type = ceres::DENSE_QR;
  options.logging_type = ceres::SILENT;
  options.num_threads = AvailableThreads(settings.threads);
  if (settings.max_iterations != 0) options.max_num_iterations = settings.max_iterations;
  LastSound<Residual> last(functors, parameters);
  options.callbacks.push_back(&last);
  options.update_state_every_iteration = true;
  ceres::Solver::Summary summary;
  ceres::Solve(options, &problem, &summary);
  return AnyFailed(functors) ? last.Parameters() : parameters;
}

template <typename Residual>
CurveParameters Refine(std::span<const ZorPoint> points, std::span<const double> weights,
                       const CurveParameters& start, const SolverSettings& settings) {
  if (weights.empty()) {
    std::vector<Functor<Residual>> functors(points.begin(), points.end());
    return Minimise(std::move(functors), start, settings);
  }
  std::vector<Functor<Weighted<Residual>>> functors;
  functors.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (weights[i] != 0.0) functors.emplace_back(points[i], weights[i]);
  }
  return Minimise(std::move(functors), start, settings);
}

}  // namespace

CurveParameters RefineGaussian(std::span<const ZorPoint> points, std::span<const double> weights,
                               const CurveParameters& start, const SolverSettings& settings) {
  return Refine<GaussianResidual>(points, weights, start, settings);
}

CurveParameters RefineSine(std::span<const ZorPoint> points, std::span<const double> weights,
                           const CurveParameters& start, const SolverSettings& settings) {
  return Refine<SineResidual>(points, weights, start, settings);
}

}  // namespace zor::fitting
