#pragma once
// Convolution kernels over the lags -L..L for Gold's method: the Gaussian shape of a
// secretion event and the exponential elimination of a half-life, sampled at the
// sampling interval.
#include <string>
#include <vector>

namespace tidemark::pulse {

// Values at the lags -L..L (L = half_width >= 0); every lag starts at 0.
class LagKernel {
 public:
  explicit LagKernel(int half_width = 0)
      : half_width_(half_width), values_(2 * static_cast<std::size_t>(half_width) + 1, 0.0) {}

  int half_width() const { return half_width_; }
  // The value at `lag`, which must lie in -L..L.
  double operator[](int lag) const { return values_[static_cast<std::size_t>(lag + half_width_)]; }
  double& operator[](int lag) { return values_[static_cast<std::size_t>(lag + half_width_)]; }

 private:
  int half_width_;
  std::vector<double> values_;
};

// Largest half-width a kernel may have, so that a bad width cannot exhaust memory.
inline constexpr int kMaxKernelHalfWidth = 1 << 22;

// A filled kernel and the last lag filled before the cut: callers pass it to Gold's
// iteration as the last lag to apply. On failure (`ok()` false) `message` says which input
// was refused and the kernel is empty.
enum class KernelStatus { kOk, kRefused };

struct KernelResult {
  KernelStatus status = KernelStatus::kOk;
  std::string message;
  LagKernel kernel;
  int last_lag = 0;

  bool ok() const { return status == KernelStatus::kOk; }
};

// The Gaussian shape of a secretion event of SD `sd` sampled at interval `dt`:
//   for k = 0, 1, ..., L:  x = k * dt * (1 / sd),  exponent = -(0.5 * x^2);
//   the first exponent below -14.0 stops the filling (last_lag = k - 1), else
//   g(k) = g(-k) = exp(exponent); with no cut last_lag = L.
// So with dt / sd above sqrt(28) only g(0) = 1 is set. sd and dt must be positive and
// finite, 0 <= L <= kMaxKernelHalfWidth.
KernelResult gaussian_kernel(double sd, double dt, int half_width);

// Elimination with half-life `half_life` sampled at interval `dt`, negative lags 0:
//   for k = 0, 1, ..., L:  q = k * 0.6931472 in 32 bits,
//   exponent = -(q * dt * (1 / half_life)) in 64 bits;
//   the first exponent below -14.0 stops the filling (last_lag = k - 1), else
//   e(k) = exp(exponent); with no cut last_lag = L.
// half_life and dt must be positive and finite, 0 <= L <= kMaxKernelHalfWidth.
//   exponential_kernel(1, 1, 30).last_lag == 20   (21 * ln 2 > 14)
KernelResult exponential_kernel(double half_life, double dt, int half_width);

}  // namespace tidemark::pulse
