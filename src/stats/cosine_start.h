#pragma once
// What the Cosine mode works out when it starts on a series: the reference fit that
// gives the reference variance V0 and the starting Mean, the default starting values,
// and the period scan.
#include <span>
#include <vector>

#include "core/parallel.h"
#include "stats/cosine.h"

namespace tidemark::stats {

struct CosineStart {
  // The reference fit: Mean alone fitted, Amplitude 0, Period the time span. Its code
  // is kOk unless the span is not positive.
  Lsfit2Result reference;
  double reference_variance = 0;  // V0
  // Period: the time span t(n) - t(1); Amplitude: sqrt(|sum (y - Mean)^2 / n|);
  // Phase 0; Mean from the reference fit; Slope 0.
  CosineValues defaults{};
  // The scan table, one row per point: for k = 4..n (1-based) the trial period t(k)
  // and min(100 V / V0, 100) of the fit with Period held at t(k) and Slope held at 0,
  // from the defaults. Rows of points 1..3 and of trial fits that fail hold the
  // missing value -1.E35.
  std::vector<double> scan_period;
  std::vector<double> scan_percent;
  bool complete = true;
};

// Runs the reference fit and the period scan on the points (t, y), t ascending. The
// trial fits of the scan are shared among threads by core::parallel_for; the table does
// not depend on their number. `complete` is false when the progress callback cancelled
// the scan (its table is then incomplete).
CosineStart start_cosine(std::span<const double> t, std::span<const double> y,
                         const core::ParallelOptions& parallel = {});

// The same with the scan's trial periods taken from `trial_times`, the times of every
// point of the series (the points the data conditioner inserted included, which take no
// part in the fits): the table has one row per trial time, scanned from the fourth.
CosineStart start_cosine(std::span<const double> t, std::span<const double> y,
                         std::span<const double> trial_times,
                         const core::ParallelOptions& parallel = {});

}  // namespace tidemark::stats
