#pragma once
// Gold's method: a non-negative secretion profile from a concentration series and a
// known convolution kernel, by repeated multiplicative correction. No pulse shape is
// assumed.
#include <span>
#include <string>
#include <vector>

#include "pulse/lag_kernel.h"

namespace tidemark::pulse {

// The iteration's fixed constants.
inline constexpr double kGoldStartFraction = 0.001;  // s = 0.001 * c at the start
inline constexpr int kGoldMaxIterations = 3000;
inline constexpr int kGoldStallIterations = 5;  // stalled iterations that stop it ...
inline constexpr int kGoldMinIteration = 101;   // ... from this iteration number on
// 0.9999 and 1.0E-10 as held in single precision.
inline constexpr double kGoldProgressFactor = 0.9998999834060669;
inline constexpr double kGoldResidualFloor = 1.000000013351432E-10;

// The series to deconvolve: c, its uncertainties sd (the residual weights) and use;
// sample i takes part in the correction and the residual when use[i] >= 1. All three
// have the same length N.
struct GoldInput {
  std::span<const double> concentration;
  std::span<const double> sd;
  std::span<const int> use;
};

// The lags first_lag..last_lag of the kernel are applied (both within the kernel's
// -L..L), scaled by `scale`, the sampling interval, so that the sum approximates an
// integral over time.
struct GoldOptions {
  int first_lag = 0;
  int last_lag = 0;
  double scale = 1.0;
};

enum class GoldStatus {
  kConverged,
  kNoUsableSample,  // no sample has use >= 1: fails at the first iteration
  kNoConvergence,   // 3000 iterations without stopping
  kZeroModel,       // the model is 0 at a used sample: the correction would divide by 0
  kNotFinite,       // the secretion or the residual left the range of double precision
  kInvalidInput,    // arrays or lags that do not fit together, values not finite
};

struct GoldResult {
  GoldStatus status = GoldStatus::kConverged;
  std::string message;            // why it failed; empty on success
  std::vector<double> secretion;  // s, the estimate of the last iteration
  double residual = 0;            // R of the last iteration
  int iterations = 0;             // iterations carried out

  bool ok() const { return status == GoldStatus::kConverged; }
  // The iteration's error flag: 1 for any failure, 0 on success.
  int error_flag() const { return ok() ? 0 : 1; }
};

// Deconvolves c with the kernel K:
//   start   s(i) = 0.001 c(i), best = 1.0E100, stall = 0; then for k = 1, 2, ..., 3000:
//   model   m(i) = sum over j and lags l = lo..hi with i = j + l in 1..N of h s(j) K(l),
//           accumulated for j = 1..N in order;
//   correct s(i) = c(i) s(i) / m(i) for the used samples (the others keep their value);
//   R       = mean over used samples of ((m(i) - c(i)) / sd(i))^2, from the model before
//           the correction; no used sample fails at once;
//   stall   R >= best * 0.9998999834060669: stall + 1; else R > 1.000000013351432E-10:
//           stall = 0, best = R; else stall + 1;
//   stop    with success when stall >= 5 and k > 100.
// Not stopping by iteration 3000 is a failure that keeps s and R of the last iteration.
// Beyond that rule, the iteration also fails where it would produce non-numbers: a
// used sample whose model is 0 (kZeroModel, before that iteration's correction), and a
// corrected secretion or a residual that overflows (kNotFinite).
GoldResult gold_deconvolve(const GoldInput& input, const LagKernel& kernel,
                           const GoldOptions& options);

}  // namespace tidemark::pulse
