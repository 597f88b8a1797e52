#include "stats/periodic_trig_sums.h"

#include <unsupported/Eigen/FFT>

#include <cmath>
#include <numbers>
#include <vector>

namespace tidemark::stats {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr int kResync = 64;

// The FFT length: at least kOversampling times the (even) number of frequencies, a
// power of two.
int fft_size(int count) {
  int n = 64;
  while (n < kOversampling * (count + 1)) n *= 2;
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
  // With x_j = 2 pi frac(df t_j) and c_j = h_j exp(2 pi i f0 t_j), out[k] = sum_j c_j
  // exp(i k x_j). The frequencies are centred, k = q + half with |q| <= half, so that
  // the Gaussian's correction stays small at both ends: c_j takes exp(i half x_j).
  const int half = (grid.count + 1) / 2;
  const int n = fft_size(grid.count);
  const double m = 2.0 * half;
  // The width for the grid's actual oversampling r = n / m (at least kOversampling).
  const double r = n / m;
  const double tau = std::numbers::pi * kSpread / (m * m * r * (r - 0.5));
  const double node = kTwoPi / n;
  std::vector<std::complex<double>> g(static_cast<std::size_t>(n));
  for (std::size_t j = 0; j < t.size(); ++j) {
    const double cycles = grid.df * t[j];
    const double x = kTwoPi * (cycles - std::floor(cycles));
    const std::complex<double> c =
        h[j] * std::polar(1.0, kTwoPi * grid.f0 * t[j] + half * x);
    const long nearest = std::lround(x / node);
    for (long k = nearest - kSpread; k <= nearest + kSpread; ++k) {
      const double d = static_cast<double>(k) * node - x;
      g[static_cast<std::size_t>((k % n + n) % n)] += c * std::exp(-d * d / (4 * tau));
    }
  }
  // sum_m g[m] exp(+2 pi i q m / n): the forward transform of the conjugate, conjugated.
  for (auto& v : g) v = std::conj(v);
  std::vector<std::complex<double>> spectrum;
  Eigen::FFT<double> fft;
  fft.fwd(spectrum, g);
  const double scale = std::sqrt(std::numbers::pi / tau) / n;
  for (int k = 0; k < grid.count; ++k) {
    const int q = k - half;
    const std::complex<double> s = std::conj(spectrum[static_cast<std::size_t>((q % n + n) % n)]);
    out[k] = s * (scale * std::exp(static_cast<double>(q) * q * tau));
  }
}

}  // namespace tidemark::stats
