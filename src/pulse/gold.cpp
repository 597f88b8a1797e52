#include "pulse/gold.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tidemark::pulse {
namespace {

bool used(int use) {
  return use >= 1;
}

GoldResult failure(GoldStatus status, std::string message) {
  GoldResult r;
  r.status = status;
  r.message = std::move(message);
  return r;
}

// Refuses arrays of different lengths, lags outside the kernel, and values that are not
// finite numbers (or a zero weight) where the iteration would use them.
GoldResult check_inputs(const GoldInput& in, const LagKernel& kernel, const GoldOptions& o) {
  const std::size_t n = in.concentration.size();
  if (in.sd.size() != n || in.use.size() != n) {
    return failure(GoldStatus::kInvalidInput,
                   "concentrations, uncertainties and use flags differ in number");
  }
  const int width = kernel.half_width();
  if (o.first_lag > o.last_lag || o.first_lag < -width || o.last_lag > width) {
    return failure(GoldStatus::kInvalidInput,
                   fmt::format("kernel lags {}..{} do not lie in order within -{}..{}", o.first_lag,
                               o.last_lag, width, width));
  }
  if (!std::isfinite(o.scale)) {
    return failure(GoldStatus::kInvalidInput, "the convolution scale is not finite");
  }
  for (int l = o.first_lag; l <= o.last_lag; ++l) {
    if (!std::isfinite(kernel[l])) {
      return failure(GoldStatus::kInvalidInput,
                     fmt::format("the kernel value at lag {} is not finite", l));
    }
  }
  for (std::size_t i = 0; i < n; ++i) {
    if (!std::isfinite(in.concentration[i])) {
      return failure(GoldStatus::kInvalidInput,
                     fmt::format("concentration {} is not finite", i + 1));
    }
    if (used(in.use[i]) && !(std::isfinite(in.sd[i]) && in.sd[i] != 0)) {
      return failure(GoldStatus::kInvalidInput,
                     fmt::format("uncertainty {} of a used sample is 0 or not finite", i + 1));
    }
  }
  return {};
}

// m(i) = sum over j and l = lo..hi with i = j + l inside the series of h s(j) K(l), the
// contributions added for j in increasing order.
void convolve(std::span<const double> s, const LagKernel& kernel, const GoldOptions& o,
              std::span<double> m) {
  const int n = static_cast<int>(s.size());
  std::fill(m.begin(), m.end(), 0.0);
  for (int j = 0; j < n; ++j) {
    const double w = o.scale * s[j];
    const int first = std::max(o.first_lag, -j);
    const int last = std::min(o.last_lag, n - 1 - j);
    for (int l = first; l <= last; ++l) m[j + l] += w * kernel[l];
  }
}

}  // namespace

GoldResult gold_deconvolve(const GoldInput& input, const LagKernel& kernel,
                           const GoldOptions& options) {
  GoldResult result = check_inputs(input, kernel, options);
  if (!result.ok()) return result;

  const std::span<const double> c = input.concentration;
  const std::size_t n = c.size();
  std::vector<double>& s = result.secretion;
  s.resize(n);
  for (std::size_t i = 0; i < n; ++i) s[i] = kGoldStartFraction * c[i];
  std::vector<double> m(n);

  double best = 1.0E100;
  int stall = 0;
  for (int k = 1; k <= kGoldMaxIterations; ++k) {
    result.iterations = k;
    convolve(s, kernel, options, m);
    for (std::size_t i = 0; i < n; ++i) {
      if (used(input.use[i]) && m[i] == 0) {
        result.status = GoldStatus::kZeroModel;
        result.message = fmt::format("the model is 0 at used sample {} in iteration {}", i + 1, k);
        return result;
      }
    }
    double r = 0;
    int count = 0;
    for (std::size_t i = 0; i < n; ++i) {
      if (!used(input.use[i])) continue;
      ++count;
      s[i] = c[i] * s[i] / m[i];
      if (!std::isfinite(s[i])) {
        result.status = GoldStatus::kNotFinite;
        result.message =
            fmt::format("the secretion at sample {} overflowed in iteration {}", i + 1, k);
        return result;
      }
      const double z = (m[i] - c[i]) / input.sd[i];
      r += z * z;
    }
    if (count == 0) {
      result.status = GoldStatus::kNoUsableSample;
      result.message = "no sample takes part in the deconvolution";
      return result;
    }
    r /= count;
    result.residual = r;
    if (!std::isfinite(r)) {
      result.status = GoldStatus::kNotFinite;
      result.message = fmt::format("the residual overflowed in iteration {}", k);
      return result;
    }
    if (r >= best * kGoldProgressFactor) {
      ++stall;
    } else if (r > kGoldResidualFloor) {
      stall = 0;
      best = r;
    } else {
      ++stall;
    }
    if (stall >= kGoldStallIterations && k >= kGoldMinIteration) return result;
  }
  result.status = GoldStatus::kNoConvergence;
  result.message = fmt::format("no convergence within {} iterations", kGoldMaxIterations);
  return result;
}

}  // namespace tidemark::pulse
