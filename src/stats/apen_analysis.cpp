#include "stats/apen_analysis.h"

#include <cmath>

#include "core/missing.h"
#include "stats/apen_monte_carlo.h"
#include "stats/mc_summary.h"
#include "stats/merge_sort.h"

namespace tidemark::stats {
namespace {

ApEnResult failure(std::string message) {
  ApEnResult result;
  result.message = std::move(message);
  return result;
}

// A quotient whose divisor is 0 has no value: missing, not NaN or infinity.
float quotient(double num, double den) {
  return den == 0 ? core::kMissingF : static_cast<float>(num / den);
}

ApEnSummary summarize_m(float data_apen, std::span<const float> noise,
                        std::vector<float> shuffled) {
  ApEnSummary s;
  s.apen = data_apen;
  const McSummary noise_stats = summarize(noise);
  const McSummary shuffled_stats = summarize(shuffled);
  s.noise_mean = static_cast<float>(noise_stats.mean);
  s.noise_sd = static_cast<float>(noise_stats.sd);
  s.shuffled_mean = static_cast<float>(shuffled_stats.mean);
  s.shuffled_sd = static_cast<float>(shuffled_stats.sd);
  const double mean = s.shuffled_mean;
  s.ratio = quotient(s.apen, mean);
  if (mean == 0) {
    s.ratio_sd = core::kMissingF;
  } else {
    const double a = s.noise_sd / mean;
    const double b = s.ratio * static_cast<double>(s.shuffled_sd) / mean;
    s.ratio_sd = static_cast<float>(std::sqrt(std::fabs(a * a + b * b)));
  }
  s.z = quotient(static_cast<double>(s.apen) - mean, s.shuffled_sd);
  merge_sort(shuffled);
  s.p = static_cast<float>(p_at_or_below(shuffled, s.apen));
  return s;
}

bool has_usable_run_of_three(const WorkingSeries& series) {
  int run = 0;
  for (std::uint8_t v : series.usable) {
    run = v != 0 ? run + 1 : 0;
    if (run >= 3) return true;
  }
  return false;
}

PassOptions pass_options(const ApEnOptions& options, int pass, std::uint64_t seed) {
  PassOptions p{options.cycles, seed, options.method, {.threads = options.threads}};
  if (options.progress) {
    p.parallel.progress = [&options, pass](long done, long) {
      return options.progress(pass, static_cast<int>(done));
    };
  }
  return p;
}

}  // namespace

ApEnResult analyse_apen(WorkingSeries series, const ApEnOptions& options) {
  if (options.cycles < kMinApEnCycles || options.cycles > kMaxApEnCycles) {
    return failure("The number of Monte-Carlo cycles must be between 2 and 1000000.");
  }
  if (!std::isfinite(options.r) || options.r < 0) {
    return failure(std::string(kNegativeRLine));
  }
  ApEnResult result;
  result.differenced = options.difference;
  if (options.difference) difference(series);
  if (!has_usable_run_of_three(series)) {
    return failure("ApEn needs at least three consecutive usable points.");
  }
  if (options.r_fraction) {
    result.z_scores = true;
    to_z_scores(series);
  }
  result.r = static_cast<float>(options.r);
  result.n = static_cast<int>(series.size());
  result.cycles = options.cycles;
  const ApEnValues data = apen(series.x, series.usable, result.r, options.method);
  const PassValues noise =
      noise_pass(series, result.r, pass_options(options, 1, options.noise_seed));
  if (!noise.complete) return failure("Calculation cancelled.");
  PassValues shuffled =
      shuffle_pass(series, result.r, pass_options(options, 2, options.shuffle_seed));
  if (!shuffled.complete) return failure("Calculation cancelled.");
  result.m[0] = summarize_m(data.apen1, noise.apen1, std::move(shuffled.apen1));
  result.m[1] = summarize_m(data.apen2, noise.apen2, std::move(shuffled.apen2));
  result.status = ApEnStatus::kDone;
  return result;
}

}  // namespace tidemark::stats
