#include "pulse/lag_kernel.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

namespace tidemark::pulse {
namespace {

// The kernel's exponents are cut below this value (a factor of about 8.3E-7).
constexpr double kExponentCut = -14.0;

bool is_positive_finite(double x) {
  return std::isfinite(x) && x > 0;
}

// Refuses a width scale or interval that is not positive and finite, and a half-width
// outside 0..kMaxKernelHalfWidth.
KernelResult check_inputs(std::string_view scale_name, double scale, double dt, int half_width) {
  KernelResult r;
  if (!is_positive_finite(scale)) {
    r.message = fmt::format("the {} must be positive and finite", scale_name);
  } else if (!is_positive_finite(dt)) {
    r.message = "the sampling interval must be positive and finite";
  } else if (half_width < 0 || half_width > kMaxKernelHalfWidth) {
    r.message = fmt::format("the kernel half-width must lie in 0..{}", kMaxKernelHalfWidth);
  }
  r.status = r.message.empty() ? KernelStatus::kOk : KernelStatus::kRefused;
  return r;
}

// Fills lags 0, 1, ..., L of a new kernel with exp(exponent_at(k)) until the first
// exponent below the cut; `mirror` also sets the negative lag of each.
template <typename Exponent>
KernelResult fill(int half_width, bool mirror, Exponent exponent_at) {
  KernelResult r{KernelStatus::kOk, {}, LagKernel(half_width), half_width};
  for (int k = 0; k <= half_width; ++k) {
    const double exponent = exponent_at(k);
    if (exponent < kExponentCut) {
      r.last_lag = k - 1;
      break;
    }
    r.kernel[k] = std::exp(exponent);
    if (mirror) r.kernel[-k] = r.kernel[k];
  }
  return r;
}

}  // namespace

KernelResult gaussian_kernel(double sd, double dt, int half_width) {
  KernelResult checked = check_inputs("secretion SD", sd, dt, half_width);
  if (!checked.ok()) return checked;
  const double inverse_sd = 1 / sd;
  return fill(half_width, true, [&](int k) {
    const double x = k * dt * inverse_sd;
    return -(0.5 * (x * x));
  });
}

KernelResult exponential_kernel(double half_life, double dt, int half_width) {
  KernelResult checked = check_inputs("half-life", half_life, dt, half_width);
  if (!checked.ok()) return checked;
  const double inverse_half_life = 1 / half_life;
  return fill(half_width, false, [&](int k) {
    const float q = static_cast<float>(k) * 0.6931472f;
    return -(q * dt * inverse_half_life);
  });
}

}  // namespace tidemark::pulse
