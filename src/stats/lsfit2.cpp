#include "stats/lsfit2.h"

#include <fmt/format.h>

#include <Eigen/Dense>
#include <algorithm>
#include <cassert>
#include <cmath>

#include "stats/lsfit2_t_quantile.h"

namespace tidemark::stats {

namespace {

using Matrix = Eigen::MatrixXd;
using Vector = Eigen::VectorXd;

// Damping beyond which no step can lower S any more: the fit sits at a minimum to
// working precision.
constexpr double kLambdaLimit = 1e16;
// Columns of the scaled Jacobian that are dependent to this relative precision make
// the normal equations singular.
constexpr double kRankThreshold = 1e-10;

// The model, its Jacobian and the work arrays they need, allocated once per fit: the
// period scan of the Cosine mode runs a thousand fits in a row.
class Fitter {
 public:
  explicit Fitter(const Lsfit2Problem& problem)
      : problem_(problem), gradient_(problem.parameters.size()) {
    for (std::size_t j = 0; j < problem.parameters.size(); ++j) {
      if (problem.parameters[j].fit) free_.push_back(j);
      const double start = std::abs(problem.parameters[j].value);
      typical_.push_back(start > 0 ? start : 1.0);
    }
  }

  int fitted() const { return static_cast<int>(free_.size()); }
  const std::vector<std::size_t>& free() const { return free_; }
  bool has_gradient() const { return static_cast<bool>(problem_.gradient); }

  // The residuals y - f(p, x) at `p`, and with the model's gradient the Jacobian of f in
  // the fitted parameters there (`jac` is left alone without one). False, with
  // `message` set, when the model fails.
  bool evaluate(std::span<const double> p, Vector& r, Matrix& jac, std::string& message) {
    if (!has_gradient()) return residuals(p, r, message);
    const auto n = static_cast<Eigen::Index>(problem_.x.size());
    r.resize(n);
    jac.resize(n, fitted());
    for (Eigen::Index i = 0; i < n; ++i) {
      const auto point = static_cast<std::size_t>(i);
      bool failed = false;
      r[i] = problem_.y[point] - problem_.gradient(p, problem_.x[point], gradient_, failed);
      if (failed || !std::isfinite(r[i])) return model_failed(point, message);
      for (int k = 0; k < fitted(); ++k) jac(i, k) = gradient_[free_[k]];
    }
    return true;
  }

  // The Jacobian of f in the fitted parameters at `p` by central differences,
  // h = step * max(|p|, |start|), with 1 for a parameter that starts at 0: a step that
  // follows the parameter's own size, so that one of size 1e-7 is not stepped by 1e-6.
  // False, with `message` set, when the model fails.
  bool difference_jacobian(std::span<const double> p, Matrix& jac, std::string& message) {
    const auto n = static_cast<Eigen::Index>(problem_.x.size());
    jac.resize(n, fitted());
    shifted_.assign(p.begin(), p.end());
    for (int k = 0; k < fitted(); ++k) {
      const std::size_t j = free_[k];
      const double h = problem_.options.derivative_step * std::max(std::abs(p[j]), typical_[j]);
      shifted_[j] = p[j] + h;
      if (!residuals(shifted_, plus_, message)) return false;
      shifted_[j] = p[j] - h;
      if (!residuals(shifted_, minus_, message)) return false;
      shifted_[j] = p[j];
      jac.col(k) = (minus_ - plus_) / (2 * h);  // residuals fall as f rises
    }
    return true;
  }

  // Scales the columns of `jac` to unit norm, the norms in `scales`; false, with
  // `message` set, when a column is zero or the scaled columns are dependent.
  bool scale(Matrix& jac, Vector& scales, std::string& message) {
    scales = jac.colwise().norm().transpose();
    for (int k = 0; k < fitted(); ++k) {
      if (scales[k] == 0 || !std::isfinite(scales[k])) {
        message = fmt::format("The model does not depend on the parameter {}",
                              problem_.parameters[free_[k]].name);
        return false;
      }
    }
    jac.array().rowwise() /= scales.transpose().array();
    qr_.compute(jac);
    qr_.setThreshold(kRankThreshold);
    if (qr_.rank() < fitted()) {
      message = "The normal equations are singular: the fitted parameters are not independent";
      return false;
    }
    return true;
  }

 private:
  bool residuals(std::span<const double> p, Vector& r, std::string& message) const {
    const std::size_t n = problem_.x.size();
    r.resize(static_cast<Eigen::Index>(n));
    for (std::size_t i = 0; i < n; ++i) {
      bool failed = false;
      const double f = problem_.model(p, problem_.x[i], failed);
      r[static_cast<Eigen::Index>(i)] = problem_.y[i] - f;
      if (failed || !std::isfinite(r[static_cast<Eigen::Index>(i)]))
        return model_failed(i, message);
    }
    return true;
  }

  bool model_failed(std::size_t i, std::string& message) const {
    message = fmt::format("The model could not be evaluated at x = {}", problem_.x[i]);
    return false;
  }

  const Lsfit2Problem& problem_;
  std::vector<std::size_t> free_;
  std::vector<double> typical_;  // |start|, or 1 for a start of 0
  std::vector<double> gradient_;
  std::vector<double> shifted_;
  Vector plus_, minus_;
  Eigen::ColPivHouseholderQR<Matrix> qr_;
};

Lsfit2Result failure(Lsfit2Result result, Lsfit2Code code, std::string message) {
  result.code = code;
  result.message = std::move(message);
  return result;
}

// Fills in the standard errors and intervals from the scaled Jacobian at the final
// values.
void add_uncertainties(const Fitter& fitter, const Matrix& scaled, const Vector& scales,
                       Lsfit2Result& result) {
  const int dof = result.points - result.fitted;
  const double s2 = dof > 0 ? result.sum_of_squares / dof : 0.0;
  const double t = dof > 0 ? t_quantile_975(dof) : 0.0;
  const Matrix normal = scaled.transpose() * scaled;
  const Matrix inverse = normal.ldlt().solve(Matrix::Identity(normal.rows(), normal.cols()));
  for (int k = 0; k < fitter.fitted(); ++k) {
    const std::size_t j = fitter.free()[k];
    const double se = std::sqrt(std::max(s2 * inverse(k, k), 0.0)) / scales[k];
    result.standard_errors[j] = se;
    result.lower[j] = result.values[j] - t * se;
    result.upper[j] = result.values[j] + t * se;
  }
}

}  // namespace

Lsfit2Result lsfit2(const Lsfit2Problem& problem) {
  assert(problem.x.size() == problem.y.size());
  Fitter fitter(problem);
  const Lsfit2Options& options = problem.options;
  Lsfit2Result result;
  for (const FitParameter& parameter : problem.parameters) result.values.push_back(parameter.value);
  result.standard_errors.assign(result.values.size(), 0.0);
  result.lower = result.values;
  result.upper = result.values;
  result.points = static_cast<int>(problem.x.size());
  result.fitted = fitter.fitted();
  if (result.fitted == 0)
    return failure(result, Lsfit2Code::kTooFewPoints, "No parameter is fitted");
  if (result.points < result.fitted) {
    return failure(
        result, Lsfit2Code::kTooFewPoints,
        fmt::format("{} points cannot determine {} parameters", result.points, result.fitted));
  }

  std::vector<double>& p = result.values;
  std::vector<double> trial = p;
  std::string message;
  Vector r, trial_r, scales, gradient, step;
  Matrix jac, trial_jac, normal, damped;
  Eigen::LDLT<Matrix> ldlt(result.fitted);
  if (!fitter.evaluate(p, r, jac, message))
    return failure(result, Lsfit2Code::kModelFailed, message);
  double s = r.squaredNorm();
  double lambda = options.initial_lambda;
  bool converged = false;
  bool fresh_jacobian = fitter.has_gradient();  // jac holds the unscaled Jacobian at p
  while (!converged && result.iterations < options.max_iterations) {
    ++result.iterations;
    // With the model's gradient the Jacobian at p came with its residuals.
    if (!fitter.has_gradient() && !fitter.difference_jacobian(p, jac, message))
      return failure(result, Lsfit2Code::kModelFailed, message);
    if (!fitter.scale(jac, scales, message)) return failure(result, Lsfit2Code::kSingular, message);
    fresh_jacobian = false;
    // In the scaled parameters the Marquardt damping lambda * diag(J'J) is lambda * I.
    normal.noalias() = jac.transpose() * jac;
    gradient.noalias() = jac.transpose() * r;
    while (true) {
      damped = normal;
      damped.diagonal().array() += lambda;
      step = ldlt.compute(damped).solve(gradient).cwiseQuotient(scales);
      bool small_step = true;
      for (int k = 0; k < fitter.fitted(); ++k) {
        const std::size_t j = fitter.free()[k];
        trial[j] = p[j] + step[k];
        small_step = small_step && std::abs(step[k]) <=
                                       options.relative_tolerance * std::max(std::abs(p[j]), 1.0);
      }
      const bool evaluated = fitter.evaluate(trial, trial_r, trial_jac, message);
      if (!evaluated && !options.reject_failed_steps) {
        return failure(result, Lsfit2Code::kModelFailed, message);
      }
      const double trial_s = evaluated ? trial_r.squaredNorm() : s;
      if (evaluated && trial_s <= s) {
        converged = small_step || s - trial_s <= options.relative_tolerance * s ||
                    trial_s <= options.absolute_tolerance;
        p = trial;
        r.swap(trial_r);
        jac.swap(trial_jac);
        fresh_jacobian = fitter.has_gradient();
        s = trial_s;
        lambda = std::max(lambda / 10, 1e-12);
        break;
      }
      lambda *= 10;
      if (lambda > kLambdaLimit) {
        converged = true;
        break;
      }
    }
  }
  result.sum_of_squares = s;
  result.variance = s / result.points;
  if (!converged) {
    return failure(result, Lsfit2Code::kNoConvergence,
                   fmt::format("No convergence in {} iterations", options.max_iterations));
  }
  // The Jacobian at the final values, for the standard errors.
  if (!fresh_jacobian) {
    const bool evaluated = fitter.has_gradient() ? fitter.evaluate(p, trial_r, jac, message)
                                                 : fitter.difference_jacobian(p, jac, message);
    if (!evaluated) return failure(result, Lsfit2Code::kModelFailed, message);
  }
  if (!fitter.scale(jac, scales, message)) return failure(result, Lsfit2Code::kSingular, message);
  add_uncertainties(fitter, jac, scales, result);
  return result;
}

}  // namespace tidemark::stats
