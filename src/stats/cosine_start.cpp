#include "stats/cosine_start.h"

#include <algorithm>
#include <cmath>

#include "core/missing.h"

namespace tidemark::stats {

namespace {

constexpr CosineFlags kReferenceFlags = {false, false, false, true, false};
// The scan moves Amplitude, Phase and Mean; Period and Slope stay held.
constexpr CosineFlags kScanFlags = kDefaultCosineFlags;
// The scan starts at the fourth point.
constexpr std::size_t kFirstScanPoint = 3;

}  // namespace

CosineStart start_cosine(std::span<const double> t, std::span<const double> y,
                         const core::ParallelOptions& parallel) {
  return start_cosine(t, y, t, parallel);
}

CosineStart start_cosine(std::span<const double> t, std::span<const double> y,
                         std::span<const double> trial_times,
                         const core::ParallelOptions& parallel) {
  const std::size_t n = t.size();
  const std::size_t rows = trial_times.size();
  CosineStart start;
  start.scan_period.assign(rows, core::kMissing);
  start.scan_percent.assign(rows, core::kMissing);
  const double span = n == 0 ? 0.0 : t[n - 1] - t[0];
  const CosineFit reference = fit_cosine(t, y, {span, 0, 0, 0, 0}, kReferenceFlags, 0);
  start.reference = reference.engine;
  if (!reference.engine.ok()) return start;
  start.reference_variance = reference.engine.variance;
  const double mean = reference.values[kMean];
  double squares = 0;
  for (const double value : y) squares += (value - mean) * (value - mean);
  start.defaults = {span, std::sqrt(std::abs(squares / static_cast<double>(n))), 0, mean, 0};

  // The trial fits are independent, each writing its own row.
  const auto scanned = static_cast<long>(rows > kFirstScanPoint ? rows - kFirstScanPoint : 0);
  start.complete = core::parallel_for(scanned, parallel, [&](int, long first, long last) {
    for (auto k = kFirstScanPoint + static_cast<std::size_t>(first);
         k < kFirstScanPoint + static_cast<std::size_t>(last); ++k) {
      CosineValues trial = start.defaults;
      trial[kPeriod] = trial_times[k];
      const CosineFit fit = fit_cosine(t, y, trial, kScanFlags, start.reference_variance);
      if (!fit.engine.ok()) continue;
      start.scan_period[k] = trial_times[k];
      start.scan_percent[k] = std::min(fit.percent, 100.0);
    }
  });
  return start;
}

}  // namespace tidemark::stats
