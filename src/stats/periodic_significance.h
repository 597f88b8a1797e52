#pragma once
// The significance of periodogram peaks: the highest local maxima, the analytic
// false-alarm probability of R. V. Baluev ("Assessing the statistical significance of
// periodogram peaks", MNRAS 385, 1279, 2008) for the generalised periodogram, and a
// permutation estimate from shuffled series.
//
// Baluev's approximation for the largest of the normalised powers z over frequencies up
// to f_max, with N points, d_H parameters of the null model (1, the mean; 2 with the
// trend) and d_K = d_H + 2 of the model with the sinusoid:
//
//   FAP(z)    = 1 - (1 - P1(z)) exp(-tau(z)),   P1(z) = (1 - z)^((N - d_K) / 2),
//   tau(z)    = gamma(N_H) W (1 - z)^((N_K - 1) / 2) sqrt(N_H z / 2),
//   gamma(n)  = sqrt(2 / n) Gamma(n / 2) / Gamma((n - 1) / 2),
//   W = f_max T_eff,  T_eff = sqrt(4 pi D_t),
//
// N_H = N - d_H, N_K = N - d_K, and D_t the weighted variance of the times.
//
// The permutation estimate shuffles the concentrations over the sampling times (each
// time keeps its weight), takes the periodogram of each shuffled series over the same
// grid, and gives for a peak of power p the share (1 + #{cycles whose highest power is
// at least p}) / (1 + cycles). Each cycle draws from its own generator, seeded from the
// session's generator before the cycles start, so the result depends only on the seed
// and not on how many threads share the cycles (core::parallel_for).
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/parallel.h"
#include "core/random.h"
#include "stats/periodic_gls.h"

namespace tidemark::stats {

struct BaluevInputs {
  int points = 0;
  int null_parameters = 1;
  double max_frequency = 0;
  double time_variance = 0;  // weighted variance of the times
};

BaluevInputs baluev_inputs(const PeriodicSeries& series, const PeriodogramResult& periodogram,
                           bool remove_trend);

// The false-alarm probability of the highest power `z`, in [0, 1].
double baluev_fap(double z, const BaluevInputs& in);

// The power whose false-alarm probability is `fap` (bisection on the monotone FAP).
double baluev_level(double fap, const BaluevInputs& in);

// The indices of the `count` highest local maxima of `power` (a point above its left
// neighbour and not below its right one; the ends count against their one neighbour),
// highest first.
std::vector<int> top_peaks(std::span<const double> power, int count);

// The highest power of each of `cycles` shuffled series, ascending; none when the
// progress callback of `parallel` cancelled the cycles.
std::optional<std::vector<double>> permutation_maxima(const PeriodicSeries& series,
                                                      const PeriodogramResult& periodogram,
                                                      bool remove_trend, int cycles,
                                                      core::Random& random,
                                                      const core::ParallelOptions& parallel = {});

// (1 + #{maxima >= z}) / (1 + cycles) over the ascending `maxima`.
double permutation_fap(std::span<const double> maxima, double z);

struct PeriodicPeak {
  int index = 0;
  double period = 0;
  double power = 0;
  double fap = 0;              // Baluev
  double permutation_fap = 0;  // missing (-1.E35) when no cycles ran
};

struct PeakOptions {
  int peaks = 5;
  int cycles = 1000;  // 0: no permutation estimate
  bool remove_trend = false;
  // The threads and the progress of the cycles; a cancel ends in kCancelled.
  core::ParallelOptions parallel{};
};

struct PeaksResult {
  PeriodicStatus status = PeriodicStatus::kOk;
  std::string message;
  std::vector<PeriodicPeak> peaks;
  std::vector<double> permutation_maxima;  // ascending
  BaluevInputs baluev;
  bool ok() const { return status == PeriodicStatus::kOk; }
};

// The top peaks of a periodogram of `series` with both false-alarm probabilities.
PeaksResult periodic_peaks(const PeriodicSeries& series, const PeriodogramResult& periodogram,
                           const PeakOptions& options, core::Random& random);

}  // namespace tidemark::stats
