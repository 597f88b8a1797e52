#include "feedback/levenberg_marquardt.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Eigen/Dense>

namespace tidemark::feedback {
namespace {

constexpr double kMaxLambda = 1e16;

struct Problem {
  const Residuals& residuals;
  std::size_t count;
  std::span<const double> lower, upper;
  long evaluations = 0;

  // S at x, with the residuals in r; +inf where the model cannot be evaluated.
  double sum(std::span<const double> x, Eigen::VectorXd& r) {
    ++evaluations;
    r.resize(static_cast<Eigen::Index>(count));
    if (!residuals(x, {r.data(), count}) || !r.allFinite()) {
      return std::numeric_limits<double>::infinity();
    }
    return r.squaredNorm();
  }

  // The Jacobian at x by differences; false where a nearby point cannot be evaluated.
  bool jacobian(std::vector<double> x, const Eigen::VectorXd& r0, Eigen::MatrixXd& J) {
    const auto m = x.size();
    J.resize(static_cast<Eigen::Index>(count), static_cast<Eigen::Index>(m));
    Eigen::VectorXd plus, minus;
    for (std::size_t d = 0; d < m; ++d) {
      const double x0 = x[d];
      const double h = 1e-6 * std::max(std::abs(x0), 1e-3 * (upper[d] - lower[d]));
      const bool up = x0 + h <= upper[d], down = x0 - h >= lower[d];
      x[d] = up ? x0 + h : x0;
      const double s_plus = sum(x, plus);
      x[d] = down ? x0 - h : x0;
      const double s_minus = sum(x, minus);
      x[d] = x0;
      if (!std::isfinite(s_plus) || !std::isfinite(s_minus)) return false;
      const Eigen::VectorXd& a = up ? plus : r0;
      const Eigen::VectorXd& b = down ? minus : r0;
      const double span = (up ? h : 0.0) + (down ? h : 0.0);
      J.col(static_cast<Eigen::Index>(d)) = (a - b) / span;
    }
    return true;
  }
};

}  // namespace

LevenbergMarquardtResult levenberg_marquardt(const Residuals& residuals, std::size_t count,
                                             std::span<const double> start,
                                             std::span<const double> lower,
                                             std::span<const double> upper,
                                             const LevenbergMarquardtOptions& options) {
  Problem problem{residuals, count, lower, upper};
  const std::size_t m = start.size();
  LevenbergMarquardtResult result;
  result.best.assign(start.begin(), start.end());
  result.standard_errors.assign(m, std::numeric_limits<double>::quiet_NaN());
  Eigen::VectorXd r, trial_r;
  double s = problem.sum(result.best, r);
  if (!std::isfinite(s)) {
    result.message = "the model cannot be evaluated at the starting values";
    result.evaluations = problem.evaluations;
    return result;
  }
  double lambda = 1e-3;
  Eigen::MatrixXd J;
  std::vector<bool> active(m, true);
  bool fresh = true;  // the Jacobian belongs to the current point
  bool converged = false;
  while (problem.evaluations < options.max_evaluations) {
    if (fresh && !problem.jacobian(result.best, r, J)) {
      result.message = "the model cannot be evaluated next to the current values";
      break;
    }
    fresh = false;
    const Eigen::VectorXd g = J.transpose() * r;
    // Coordinates on a bound whose descent direction points out of the box stay there.
    std::vector<Eigen::Index> free;
    for (std::size_t d = 0; d < m; ++d) {
      const bool out_low = result.best[d] <= lower[d] && g[static_cast<Eigen::Index>(d)] > 0;
      const bool out_high = result.best[d] >= upper[d] && g[static_cast<Eigen::Index>(d)] < 0;
      active[d] = !(out_low || out_high);
      if (active[d]) free.push_back(static_cast<Eigen::Index>(d));
    }
    if (free.empty()) {
      converged = true;
      break;
    }
    const Eigen::MatrixXd Jf = J(Eigen::all, free);
    Eigen::MatrixXd A = Jf.transpose() * Jf;
    const Eigen::VectorXd gf = g(free);
    Eigen::MatrixXd damped = A;
    for (Eigen::Index k = 0; k < A.rows(); ++k) {
      damped(k, k) += lambda * std::max(A(k, k), 1e-300);
    }
    const Eigen::VectorXd delta = damped.ldlt().solve(-gf);
    std::vector<double> trial = result.best;
    for (Eigen::Index k = 0; k < delta.size(); ++k) {
      const auto d = static_cast<std::size_t>(free[static_cast<std::size_t>(k)]);
      trial[d] = std::clamp(trial[d] + delta[k], lower[d], upper[d]);
    }
    const double s_trial = delta.allFinite() ? problem.sum(trial, trial_r)
                                             : std::numeric_limits<double>::infinity();
    if (s_trial < s) {
      const double drop = s - s_trial;
      result.best = trial;
      r = trial_r;
      s = s_trial;
      fresh = true;
      lambda = std::max(lambda / 10, 1e-12);
      if (drop <= options.tolerance * s) {
        converged = true;
        break;
      }
    } else {
      lambda *= 10;
      if (lambda > kMaxLambda) {
        converged = true;
        break;
      }
    }
  }
  result.value = s;
  result.ok = converged;
  if (!converged && result.message.empty()) {
    result.message = "the local method did not converge within its evaluations";
  }
  // Standard errors from the Jacobian at the final point.
  if (converged && (fresh ? problem.jacobian(result.best, r, J) : true)) {
    std::vector<Eigen::Index> free;
    for (std::size_t d = 0; d < m; ++d) {
      const bool on_bound = result.best[d] <= lower[d] || result.best[d] >= upper[d];
      if (!on_bound) free.push_back(static_cast<Eigen::Index>(d));
    }
    const auto dof = static_cast<double>(count) - static_cast<double>(free.size());
    if (!free.empty() && dof > 0) {
      const Eigen::MatrixXd Jf = J(Eigen::all, free);
      const Eigen::MatrixXd A = Jf.transpose() * Jf;
      const Eigen::FullPivLU<Eigen::MatrixXd> lu(A);
      if (lu.isInvertible()) {
        const Eigen::MatrixXd cov = lu.inverse() * (s / dof);
        for (std::size_t k = 0; k < free.size(); ++k) {
          const double v = cov(static_cast<Eigen::Index>(k), static_cast<Eigen::Index>(k));
          if (v >= 0) result.standard_errors[static_cast<std::size_t>(free[k])] = std::sqrt(v);
        }
      }
    }
  }
  result.evaluations = problem.evaluations;
  return result;
}

}  // namespace tidemark::feedback
