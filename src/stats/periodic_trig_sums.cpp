#include "stats/periodic_trig_sums.h"

#include <unsupported/Eigen/FFT>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace tidemark::stats {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr int kResync = 64;

// The denominators of the Lagrange weights over nodes 0 .. order-1:
// prod_{m != j} (j - m) = (-1)^(order-1-j) * j! * (order-1-j)!.
std::array<double, kExtirpolationOrder> lagrange_denominators() {
  std::array<double, kExtirpolationOrder> d{};
  for (int j = 0; j < kExtirpolationOrder; ++j) {
    double p = 1;
    for (int m = 0; m < kExtirpolationOrder; ++m)
      if (m != j) p *= static_cast<double>(j - m);
    d[j] = p;
  }
  return d;
}

// Adds `value` to the periodic grid `g` so that sum_m g[m] e(m) equals value * e(x) for
// every e that Lagrange interpolation of this order reproduces at x.
void extirpolate(std::vector<std::complex<double>>& g, double x, std::complex<double> value) {
  static const std::array<double, kExtirpolationOrder> kDenominators = lagrange_denominators();
  const int n = static_cast<int>(g.size());
  const double nearest = std::round(x);
  if (x == nearest) {
    g[static_cast<std::size_t>(static_cast<long>(nearest) % n)] += value;
    return;
  }
  const long low = static_cast<long>(std::floor(x)) - kExtirpolationOrder / 2 + 1;
  double product = 1;
  for (int m = 0; m < kExtirpolationOrder; ++m) product *= x - static_cast<double>(low + m);
  for (int j = 0; j < kExtirpolationOrder; ++j) {
    const double weight = product / ((x - static_cast<double>(low + j)) * kDenominators[j]);
    const long node = ((low + j) % n + n) % n;
    g[static_cast<std::size_t>(node)] += weight * value;
  }
}

int fft_size(int count) {
  int n = 64;
  while (n < kGridFactor * count) n *= 2;
  return n;
}

}  // namespace

void trig_sums_direct(std::span<const double> t, std::span<const std::complex<double>> h,
                      const FrequencyGrid& grid, std::span<std::complex<double>> out) {
  for (int k = 0; k < grid.count; ++k) out[k] = 0;
  for (std::size_t j = 0; j < t.size(); ++j) {
    const std::complex<double> step = std::polar(1.0, kTwoPi * grid.df * t[j]);
    std::complex<double> phasor;
    for (int k = 0; k < grid.count; ++k) {
      if (k % kResync == 0) phasor = std::polar(1.0, kTwoPi * grid.frequency(k) * t[j]);
      out[k] += h[j] * phasor;
      phasor *= step;
    }
  }
}

void trig_sums_fast(std::span<const double> t, std::span<const std::complex<double>> h,
                    const FrequencyGrid& grid, std::span<std::complex<double>> out) {
  const int n = fft_size(grid.count);
  std::vector<std::complex<double>> g(static_cast<std::size_t>(n));
  // exp(2 pi i (f0 + k df) t) = exp(2 pi i f0 t) * exp(2 pi i k x / n) with
  // x = n * frac(df * t): the grid's node m stands for the time m / (n df).
  for (std::size_t j = 0; j < t.size(); ++j) {
    const double cycles = grid.df * t[j];
    const double x = static_cast<double>(n) * (cycles - std::floor(cycles));
    extirpolate(g, x, h[j] * std::polar(1.0, kTwoPi * grid.f0 * t[j]));
  }
  // The forward transform has exp(-2 pi i k m / n); conjugating before and after turns
  // it into the sum with exp(+2 pi i k m / n).
  for (auto& v : g) v = std::conj(v);
  std::vector<std::complex<double>> spectrum;
  Eigen::FFT<double> fft;
  fft.fwd(spectrum, g);
  for (int k = 0; k < grid.count; ++k) out[k] = std::conj(spectrum[static_cast<std::size_t>(k)]);
}

}  // namespace tidemark::stats
