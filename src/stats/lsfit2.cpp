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

class Fitter {
 public:
  explicit Fitter(const Lsfit2Problem& problem) : problem_(problem) {
    for (std::size_t j = 0; j < problem.parameters.size(); ++j) {
      if (problem.parameters[j].fit) free_.push_back(j);
    }
  }

  int fitted() const { return static_cast<int>(free_.size()); }
  const std::vector<std::size_t>& free() const { return free_; }

  // The residuals y - f(p, x) at `p`; false, with `message` set, when the model fails.
  bool residuals(const std::vector<double>& p, Vector& r, std::string& message) const {
    const std::size_t n = problem_.x.size();
    r.resize(static_cast<Eigen::Index>(n));
    for (std::size_t i = 0; i < n; ++i) {
      bool failed = false;
      const double f = problem_.model(p, problem_.x[i], failed);
      r[static_cast<Eigen::Index>(i)] = problem_.y[i] - f;
      if (failed || !std::isfinite(r[static_cast<Eigen::Index>(i)])) {
        message = fmt::format("The model could not be evaluated at x = {}", problem_.x[i]);
        return false;
      }
    }
    return true;
  }

  // The Jacobian of f in the fitted parameters by central differences.
  bool jacobian(const std::vector<double>& p, Matrix& jac, std::string& message) const {
    const auto n = static_cast<Eigen::Index>(problem_.x.size());
    jac.resize(n, fitted());
    std::vector<double> shifted = p;
    Vector plus, minus;
    for (int k = 0; k < fitted(); ++k) {
      const std::size_t j = free_[k];
      const double h = problem_.options.derivative_step * std::max(std::abs(p[j]), 1.0);
      shifted[j] = p[j] + h;
      if (!residuals(shifted, plus, message)) return false;
      shifted[j] = p[j] - h;
      if (!residuals(shifted, minus, message)) return false;
      shifted[j] = p[j];
      jac.col(k) = (minus - plus) / (2 * h);  // residuals fall as f rises
    }
    return true;
  }

  // The column norms of `jac`, for scaling; empty, with `message` set, when a column is
  // zero or the scaled columns are dependent.
  Vector column_scales(const Matrix& jac, std::string& message) const {
    Vector norms = jac.colwise().norm().transpose();
    for (int k = 0; k < fitted(); ++k) {
      if (norms[k] == 0 || !std::isfinite(norms[k])) {
        message = fmt::format("The model does not depend on the parameter {}",
                              problem_.parameters[free_[k]].name);
        return {};
      }
    }
    Eigen::ColPivHouseholderQR<Matrix> qr(jac * norms.cwiseInverse().asDiagonal());
    qr.setThreshold(kRankThreshold);
    if (qr.rank() < fitted()) {
      message = "The normal equations are singular: the fitted parameters are not independent";
      return {};
    }
    return norms;
  }

 private:
  const Lsfit2Problem& problem_;
  std::vector<std::size_t> free_;
};

Lsfit2Result failure(Lsfit2Result result, Lsfit2Code code, std::string message) {
  result.code = code;
  result.message = std::move(message);
  return result;
}

// Fills in the standard errors and intervals from the Jacobian at the final values.
void add_uncertainties(const Fitter& fitter, const Matrix& jac, const Vector& scales,
                       Lsfit2Result& result) {
  const int dof = result.points - result.fitted;
  const double s2 = dof > 0 ? result.sum_of_squares / dof : 0.0;
  const double t = dof > 0 ? t_quantile_975(dof) : 0.0;
  const Matrix scaled = jac * scales.cwiseInverse().asDiagonal();
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
  const Fitter fitter(problem);
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
  std::string message;
  Vector r, trial_r, scales;
  Matrix jac;
  if (!fitter.residuals(p, r, message)) return failure(result, Lsfit2Code::kModelFailed, message);
  double s = r.squaredNorm();
  double lambda = options.initial_lambda;
  bool converged = false;
  while (!converged && result.iterations < options.max_iterations) {
    ++result.iterations;
    if (!fitter.jacobian(p, jac, message))
      return failure(result, Lsfit2Code::kModelFailed, message);
    scales = fitter.column_scales(jac, message);
    if (scales.size() == 0) return failure(result, Lsfit2Code::kSingular, message);
    // In the scaled parameters the Marquardt damping lambda * diag(J'J) is lambda * I.
    const Matrix scaled = jac * scales.cwiseInverse().asDiagonal();
    const Matrix normal = scaled.transpose() * scaled;
    const Vector gradient = scaled.transpose() * r;
    while (true) {
      const Matrix damped = normal + lambda * Matrix::Identity(normal.rows(), normal.cols());
      const Vector step = damped.ldlt().solve(gradient).cwiseQuotient(scales);
      std::vector<double> trial = p;
      bool small_step = true;
      for (int k = 0; k < fitter.fitted(); ++k) {
        const std::size_t j = fitter.free()[k];
        trial[j] += step[k];
        small_step = small_step && std::abs(step[k]) <=
                                       options.relative_tolerance * std::max(std::abs(p[j]), 1.0);
      }
      if (!fitter.residuals(trial, trial_r, message)) {
        return failure(result, Lsfit2Code::kModelFailed, message);
      }
      const double trial_s = trial_r.squaredNorm();
      if (trial_s <= s) {
        converged = small_step || s - trial_s <= options.relative_tolerance * s ||
                    trial_s <= options.absolute_tolerance;
        p = std::move(trial);
        r = trial_r;
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
  if (!fitter.jacobian(p, jac, message)) return failure(result, Lsfit2Code::kModelFailed, message);
  scales = fitter.column_scales(jac, message);
  if (scales.size() == 0) return failure(result, Lsfit2Code::kSingular, message);
  add_uncertainties(fitter, jac, scales, result);
  return result;
}

}  // namespace tidemark::stats
