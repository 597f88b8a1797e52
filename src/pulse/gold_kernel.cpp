#include "pulse/gold_kernel.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace tidemark::pulse {

GoldKernel combine_kernels(const KernelResult& shape, const KernelResult& elimination) {
  assert(shape.ok() && elimination.ok());
  const int lg = shape.last_lag;
  const int le = elimination.last_lag;
  GoldKernel combined{KernelStatus::kOk, {}, LagKernel(lg + le), -lg, lg + le};
  for (int l = -lg; l <= lg + le; ++l) {
    double sum = 0;
    // e(l - m) is non-zero for 0 <= l - m <= Le.
    for (int m = std::max(-lg, l - le); m <= std::min(lg, l); ++m) {
      sum += shape.kernel[m] * elimination.kernel[l - m];
    }
    combined.kernel[l] = sum;
  }
  return combined;
}

GoldKernel gold_kernel(double half_life, double secretion_sd, bool with_shape, double dt,
                       int samples) {
  if (samples < 1) return {KernelStatus::kRefused, "the series has no samples", LagKernel(), 0, 0};
  int shape_lags = 0;
  KernelResult shape;
  if (with_shape) {
    shape = gaussian_kernel(secretion_sd, dt, std::min(samples, kMaxKernelHalfWidth));
    if (!shape.ok()) return {KernelStatus::kRefused, shape.message, LagKernel(), 0, 0};
    shape_lags = shape.last_lag;
  }
  // Lags up to N - 1 of the combined kernel reach the elimination at lag N - 1 + Lg.
  KernelResult elimination =
      exponential_kernel(half_life, dt, std::min(samples + shape_lags, kMaxKernelHalfWidth));
  if (!elimination.ok()) return {KernelStatus::kRefused, elimination.message, LagKernel(), 0, 0};
  if (with_shape) return combine_kernels(shape, elimination);
  const int last = elimination.last_lag;
  return {KernelStatus::kOk, {}, std::move(elimination.kernel), 0, last};
}

}  // namespace tidemark::pulse
