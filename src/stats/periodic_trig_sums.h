#pragma once
// The trigonometric sums of a periodogram over an even frequency grid,
//
//   out[k] = sum_j h_j * exp(2 pi i f_k t_j),   f_k = f0 + k * df,  k = 0 .. count - 1,
//
// by direct summation or by extirpolation onto a regular grid and one FFT (W. H. Press
// and G. B. Rybicki, "Fast algorithm for spectral analysis of unevenly sampled data",
// ApJ 338, 277, 1989). The extirpolation spreads each point over kExtirpolationOrder
// neighbouring grid nodes with Lagrange weights, so that a sum over the nodes reproduces
// exp(2 pi i k x / n) at the point's own position x; with a grid kGridFactor times finer
// than the frequencies the error is far below that of the input data (checked against
// the direct sums in the tests).
#include <complex>
#include <span>

namespace tidemark::stats {

inline constexpr int kExtirpolationOrder = 12;
inline constexpr int kGridFactor = 16;

struct FrequencyGrid {
  double f0 = 0;
  double df = 0;
  int count = 0;

  double frequency(int k) const { return f0 + k * df; }
};

// Direct summation, O(N * count): the phasor of each point advances by a rotation per
// frequency and is recomputed exactly every 64 steps, which keeps the rounding error
// of the recurrence near 1e-14.
void trig_sums_direct(std::span<const double> t, std::span<const std::complex<double>> h,
                      const FrequencyGrid& grid, std::span<std::complex<double>> out);

// Extirpolation and FFT, O(N + count log count).
void trig_sums_fast(std::span<const double> t, std::span<const std::complex<double>> h,
                    const FrequencyGrid& grid, std::span<std::complex<double>> out);

}  // namespace tidemark::stats
