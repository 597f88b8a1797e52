#include "stats/cosine_start.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "core/missing.h"

namespace tidemark::stats {

namespace {

constexpr CosineFlags kReferenceFlags = {false, false, false, true, false};
// The scan moves Amplitude, Phase and Mean; Period and Slope stay held.
constexpr CosineFlags kScanFlags = kDefaultCosineFlags;
// The scan starts at the fourth point.
constexpr std::size_t kFirstScanPoint = 3;

}  // namespace

CosineStart start_cosine(std::span<const double> t, std::span<const double> y, int threads) {
  return start_cosine(t, y, t, threads);
}

CosineStart start_cosine(std::span<const double> t, std::span<const double> y,
                         std::span<const double> trial_times, int threads) {
  const std::size_t n = t.size();
  const std::size_t rows = trial_times.size();
  CosineStart start;
  start.scan_period.assign(rows, core::kMissing);
  start.scan_percent.assign(rows, core::kMissing);
  const double span = n == 0 ? 0.0 : t[n - 1] - t[0];
  const CosineFit reference = fit_cosine(t, y, {span, 0, 0, 0, 0}, kReferenceFlags, 0);
  start.reference = reference.engine;
  if (reference.engine.code != Lsfit2Code::kOk) return start;
  start.reference_variance = reference.engine.variance;
  const double mean = reference.values[kMean];
  double squares = 0;
  for (const double value : y) squares += (value - mean) * (value - mean);
  start.defaults = {span, std::sqrt(std::abs(squares / static_cast<double>(n))), 0, mean, 0};

  // The trial fits are independent, each writing its own row: shared among the threads
  // in interleaved rows, they fill the same table whatever the number of threads.
  const auto scan_rows = [&](std::size_t first, std::size_t stride) {
    for (std::size_t k = first; k < rows; k += stride) {
      CosineValues trial = start.defaults;
      trial[kPeriod] = trial_times[k];
      const CosineFit fit = fit_cosine(t, y, trial, kScanFlags, start.reference_variance);
      if (fit.engine.code != Lsfit2Code::kOk) continue;
      start.scan_period[k] = trial_times[k];
      start.scan_percent[k] = std::min(fit.percent, 100.0);
    }
  };
  const auto workers = static_cast<std::size_t>(std::max(1, threads));
  std::vector<std::thread> pool;
  for (std::size_t w = 1; w < workers; ++w)
    pool.emplace_back(scan_rows, kFirstScanPoint + w, workers);
  scan_rows(kFirstScanPoint, workers);
  for (std::thread& thread : pool) thread.join();
  return start;
}

int scan_threads() {
  return static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
}

}  // namespace tidemark::stats
