#include "feedback/input_signal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "feedback/elimination.h"

namespace tidemark::feedback {
namespace {

// Gaussian cut 4 sd each side; exponential recurrence started 8 means early (the start
// value's weight left at the grid is e^-8 = 3e-4 of a step in the input).
constexpr double kGaussianReach = 4;
constexpr double kExponentialReach = 8;

// The standard normal distribution function.
double phi(double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); }

}  // namespace

void interpolate_increasing(const Series& series, double first, double step,
                            std::span<double> out) {
  const std::vector<double>& t = series.time;
  const std::vector<double>& x = series.value;
  const std::size_t n = t.size();
  std::size_t k = 0;  // t[k] <= u < t[k + 1] for the current point, once inside
  for (std::size_t j = 0; j < out.size(); ++j) {
    const double u = first + static_cast<double>(j) * step;
    if (u <= t.front()) {
      out[j] = x.front();
      continue;
    }
    if (u >= t.back()) {
      out[j] = x.back();
      continue;
    }
    while (k + 2 < n && t[k + 1] <= u) ++k;
    const double span = t[k + 1] - t[k];
    const double w = span > 0 ? (u - t[k]) / span : 0;
    out[j] = x[k] + w * (x[k + 1] - x[k]);
  }
}

void spread_input(const Series& series, Spreading spreading, double width, double first,
                  double step, std::span<double> out) {
  const std::size_t count = out.size();
  // A width far below the grid step spreads nothing the grid could show.
  if (spreading == Spreading::kNone || width <= 1e-9 * step) {
    interpolate_increasing(series, first, step, out);
    return;
  }
  if (spreading == Spreading::kGaussian) {
    const auto reach = static_cast<std::size_t>(std::ceil(kGaussianReach * width / step));
    std::vector<double> weights(2 * reach + 1);
    double total = 0;
    for (std::size_t m = 0; m < weights.size(); ++m) {
      const double centre = (static_cast<double>(m) - static_cast<double>(reach)) * step;
      weights[m] = phi((centre + step / 2) / width) - phi((centre - step / 2) / width);
      total += weights[m];
    }
    for (double& w : weights) w /= total;
    // samples[j + reach] is the input at first + j step, j = -reach .. count - 1 + reach.
    std::vector<double> samples(count + 2 * reach);
    interpolate_increasing(series, first - static_cast<double>(reach) * step, step, samples);
    // out_j = sum_m w_m x(u_j - s_m), s_m = (m - reach) step.
    for (std::size_t j = 0; j < count; ++j) {
      double sum = 0;
      const double* x = samples.data() + j + 2 * reach;
      for (std::size_t m = 0; m < weights.size(); ++m) sum += weights[m] * x[-static_cast<std::ptrdiff_t>(m)];
      out[j] = sum;
    }
    return;
  }
  // Exponential: g' = (x - g) / W, the elimination recurrence with k = 1 / W.
  const auto lead = static_cast<std::size_t>(std::ceil(kExponentialReach * width / step));
  std::vector<double> samples(count + lead);
  interpolate_increasing(series, first - static_cast<double>(lead) * step, step, samples);
  const EliminationStep recur(1 / width, step);
  const double k = 1 / width;
  double g = samples.front();
  for (std::size_t j = 1; j < samples.size(); ++j) {
    // The recurrence integrates x e^{-k(..)} without the factor k of the kernel.
    g = recur.next(g, k * samples[j - 1], k * samples[j]);
    if (j >= lead) out[j - lead] = g;
  }
}

}  // namespace tidemark::feedback
