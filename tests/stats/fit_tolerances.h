#pragma once
// How closely an LSFIT2 fit can be expected to match an exact least-squares answer (R's
// nls with analytic gradients, or lm), in standard errors of each parameter.

namespace tidemark::stats::testing_support {

// The engine stops when a step lowers S by at most 1e-12 of S, which leaves the
// parameters within about sqrt(1e-12 (n - m)) standard errors of the minimum; its
// Gauss-Newton steps end far closer than that.
inline constexpr double kValueInStandardErrors = 1e-6;

// Standard errors from central differences (relative step 1e-6, so errors of order
// 1e-12 in each derivative) or from the model's own derivatives, relative to exact ones.
inline constexpr double kRelativeStandardError = 1e-7;

// A bound of a 95 % interval, value -/+ t * standard error, with t below 3 from four
// degrees of freedom on and exact to rounding.
inline constexpr double kIntervalInStandardErrors =
    kValueInStandardErrors + 3 * kRelativeStandardError;

}  // namespace tidemark::stats::testing_support
