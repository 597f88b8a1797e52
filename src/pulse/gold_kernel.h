#pragma once
// The kernel a Gold deconvolution applies: elimination alone, or elimination convolved
// with the Gaussian shape of a secretion event, with the lags to apply.
#include <string>

#include "pulse/lag_kernel.h"

namespace tidemark::pulse {

// A kernel and the first and last lag to pass to gold_deconvolve.
struct GoldKernel {
  KernelStatus status = KernelStatus::kOk;
  std::string message;  // which input was refused; empty when ok
  LagKernel kernel;
  int first_lag = 0;
  int last_lag = 0;

  bool ok() const { return status == KernelStatus::kOk; }
};

// Elimination convolved with the secretion shape, from two filled kernels (both ok):
//   K(l) = sum over m = -Lg..Lg of g(m) * e(l - m),   e(l) = 0 for l < 0 or l > Le,
// Lg and Le the kernels' last lags; first_lag = -Lg, last_lag = Lg + Le, and the kernel
// spans exactly those lags (half-width Lg + Le). With the scale h of Gold's iteration,
// sum_j h s(j) K(i - j) is the rectangle rule for sum_j s(j) * integral of
// g(tau - t_j) e(t_i - tau) dtau: s(j) is then the peak rate of a Gaussian burst of
// secretion centred on sample j.
//   shape {1, g1} (Lg = 1), elimination {1, e1} (Le = 1):
//   K(-1) = g1,  K(0) = 1 + g1 e1,  K(1) = e1 + g1,  K(2) = g1 e1
GoldKernel combine_kernels(const KernelResult& shape, const KernelResult& elimination);

// The kernel for a series of `samples` points at interval dt: the exponential kernel of
// `half_life` (lags 0..Le), convolved with the Gaussian kernel of `secretion_sd` when
// `with_shape` is set. The shape is filled over half-width N = `samples`, the
// elimination over N + Lg, so that every lag a series of N samples uses (up to N - 1) is
// complete; both are cut as lag_kernel.h describes. A half-life, SD or interval
// that is not positive and finite, or `samples` < 1, is refused.
GoldKernel gold_kernel(double half_life, double secretion_sd, bool with_shape, double dt,
                       int samples);

}  // namespace tidemark::pulse
