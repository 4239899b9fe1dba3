#include "shape/principal_axes_kernels.h"

#include <Eigen/Core>
#include <Eigen/Eigenvalues>

#include "frame/rounding.h"
#include "shape/centre_kernels.h"

namespace zor::shape {

namespace {

/// Population covariance: divided by the number of points.
Eigen::Matrix2d Covariance(std::span<const ZorPoint> points) {
  const ZorPoint mean = MeanPoint(points);
  double xx = 0.0;
  double xy = 0.0;
  double yy = 0.0;
  for (const ZorPoint& p : points) {
    const double dx = p.x - mean.x;
    const double dy = p.y - mean.y;
    xx += dx * dx;
    xy += dx * dy;
    yy += dy * dy;
  }
  const double n = static_cast<double>(points.size());
  Eigen::Matrix2d covariance;
  covariance << xx / n, xy / n, xy / n, yy / n;
  return covariance;
}

}  // namespace

PrincipalAxes AnalysePrincipalAxes(std::span<const ZorPoint> points) {
  // The iterative form, not the direct one: its eigenvectors stay accurate where the eigenvalues
  // are close. What it leaves when it does not converge is the result, too.
  const Eigen::SelfAdjointEigenSolver<Eigen::Matrix2d> solver(Covariance(points));
  PrincipalAxes result;
  for (const int i : {0, 1}) {
    const auto k = static_cast<std::size_t>(i);
    result.values[k] = static_cast<float>(solver.eigenvalues()(i));
    result.axes[k] = {frame::RoundToFloat(solver.eigenvectors()(0, i)),
                      frame::RoundToFloat(solver.eigenvectors()(1, i))};
  }
  return result;
}

}  // namespace zor::shape
