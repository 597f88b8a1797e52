#pragma once
// LSFIT2: damped Gauss-Newton (Levenberg-Marquardt) least squares over the flagged
// parameters of a model given point by point. It minimises
//
//   S(p) = sum_i (y_i - f(p, x_i))^2
//
// over the parameters whose fit flag is set, holding the others at their values. Each
// step solves (J'J + lambda * diag(J'J)) delta = J'r, with J the Jacobian of f in the
// fitted parameters (the model's own derivatives when it gives them, else central
// differences) and r the residuals; lambda shrinks tenfold after a step that lowers S
// and grows tenfold after one that does not.
//
//   stats::Lsfit2Problem problem{model, x, y, {{"Mean", 0.0, true}}};
//   const stats::Lsfit2Result fit = stats::lsfit2(problem);
//   if (fit.ok()) use(fit.values[0], fit.variance);
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::stats {

// The model at one point: f(p, x) from the full parameter vector p (fitted and held
// parameters alike, in the caller's order). The model sets `failed` to true when it
// cannot be evaluated there (the fit then ends with kModelFailed).
using PointModel = std::function<double(std::span<const double> p, double x, bool& failed)>;

// The model with its derivatives at one point: returns f(p, x) as the PointModel does
// and writes df/dp_j for every parameter j (fitted and held alike) into `gradient`,
// which has the length of p. A model that has them in closed form saves the engine the
// two model calls per point and fitted parameter of central differences, and a pass
// over the points per iteration: the residuals of a step and the Jacobian there come
// from one call per point.
using PointGradient = std::function<double(std::span<const double> p, double x,
                                           std::span<double> gradient, bool& failed)>;

// One parameter: its name (for messages), its starting value and whether it is fitted.
struct FitParameter {
  std::string name;
  double value = 0;
  bool fit = false;
};

// The return code of the engine; 0 is success.
enum class Lsfit2Code : int {
  kOk = 0,
  kModelFailed = 1,    // the model raised its error flag or gave a non-finite value
  kSingular = 2,       // the normal equations have no unique solution
  kNoConvergence = 3,  // the iteration limit was reached
  kTooFewPoints = 4,   // fewer points than fitted parameters, or no parameter fitted
};

struct Lsfit2Options {
  int max_iterations = 200;
  // Converged when a step lowers S by less than this fraction of S (or S is below
  // `absolute_tolerance`) and no fitted parameter moves by more than this fraction of
  // max(|p|, 1).
  double relative_tolerance = 1e-12;
  double absolute_tolerance = 1e-24;
  double initial_lambda = 1e-3;
  // Relative step of the central differences: h = step * max(|p|, |start|), with 1 in
  // place of a start of 0.
  double derivative_step = 1e-6;
  // When set, a trial step at which the model fails is rejected like one that raises S
  // (lambda grows tenfold) instead of ending the fit: for models with a region outside
  // which they cannot be evaluated. The starting values must still evaluate.
  bool reject_failed_steps = false;
};

struct Lsfit2Problem {
  PointModel model;
  std::span<const double> x;
  std::span<const double> y;  // same length as x
  std::vector<FitParameter> parameters;
  Lsfit2Options options{};
  // Optional; when given, the engine calls it instead of `model` and takes the Jacobian
  // from it. Empty: central differences of `model`.
  PointGradient gradient{};
};

struct Lsfit2Result {
  Lsfit2Code code = Lsfit2Code::kOk;
  std::string message;  // why the fit failed, in words; empty on success
  // All parameters, fitted and held, in the caller's order: the final values, and for
  // a fitted parameter its standard error sqrt(s^2 (J'J)^-1_jj) with
  // s^2 = S / (n - m), and the 95 % interval value -/+ t(0.975, n - m) * standard error
  // (t the Student quantile; 0 / the value itself for held parameters and when n = m).
  std::vector<double> values;
  std::vector<double> standard_errors;
  std::vector<double> lower;
  std::vector<double> upper;
  double sum_of_squares = 0;  // S at the final values
  double variance = 0;        // residual variance S / n about the fit
  int points = 0;             // n
  int fitted = 0;             // m, the number of fitted parameters
  int iterations = 0;

  bool ok() const { return code == Lsfit2Code::kOk; }
};

// Fits `problem`; never throws for bad input (empty data, all parameters held, a model
// that fails), which comes back as a code and a message.
Lsfit2Result lsfit2(const Lsfit2Problem& problem);

// The integer the listings print for a code.
inline int code_number(Lsfit2Code code) {
  return static_cast<int>(code);
}

}  // namespace tidemark::stats
