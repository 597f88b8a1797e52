#pragma once
// Bounded Levenberg-Marquardt least squares: minimises S(x) = sum_i r_i(x)^2 in a box.
//
// Each iteration takes the Jacobian J of the residuals by central differences (one-sided,
// into the box, at a bound; step 1e-6 max(|x|, 1e-3 box width)), frees the
// coordinates that sit on a bound with the gradient pushing outward from the step,
// solves (J'J + lambda diag(J'J)) delta = -J'r for the others and clamps x + delta to the
// box. A step that lowers S is taken and lambda shrinks tenfold; one that does not is
// refused and lambda grows tenfold (D. W. Marquardt 1963). The fit ends when a taken step
// lowers S by less than `tolerance` relative, when lambda passes 1e16 (no descent left),
// or after `max_evaluations` residual evaluations.
//
// The covariance of the estimates is s^2 (J'J)^-1 over the coordinates not held at a
// bound, s^2 = S / (n - m) with m those coordinates (residuals already divided by their
// SEMs, so J'J is J'WJ of the unweighted model).
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tidemark::feedback {

// Writes the residuals at x into r (its size fixed by the caller); false where the
// model cannot be evaluated.
using Residuals = std::function<bool(std::span<const double> x, std::span<double> r)>;

struct LevenbergMarquardtOptions {
  int max_evaluations = 20000;
  double tolerance = 1e-10;
};

struct LevenbergMarquardtResult {
  std::vector<double> best;
  std::vector<double> standard_errors;  // NaN for coordinates on a bound or when singular
  double value = 0;                     // S at best
  long evaluations = 0;
  bool ok = false;
  std::string message;  // why it failed; empty when ok
};

LevenbergMarquardtResult levenberg_marquardt(const Residuals& residuals, std::size_t count,
                                             std::span<const double> start,
                                             std::span<const double> lower,
                                             std::span<const double> upper,
                                             const LevenbergMarquardtOptions& options);

}  // namespace tidemark::feedback
